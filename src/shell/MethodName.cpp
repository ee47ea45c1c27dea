#include "MethodName.h"

QByteArray methodName(const char* signature)
{
    const QByteArray text(signature);
    const int end = text.indexOf('(');
    const QByteArray head = text.left(end);
    const int scope = head.lastIndexOf("::");
    const int start = head.lastIndexOf(' ', scope < 0 ? -1 : scope) + 1;
    return head.mid(start) + "()";
}
