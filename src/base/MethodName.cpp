#include "MethodName.h"

QByteArray methodName(const char* signature)
{
    const QByteArray text(signature);
    const int end = text.indexOf('(');
    const QByteArray head = text.left(end);
    const int scope = head.lastIndexOf("::");
    int start = head.lastIndexOf(' ', scope < 0 ? -1 : scope) + 1;
    while (start < scope && (head.at(start) == '*' || head.at(start) == '&'))
        ++start; // compilers differ on the side of the blank
    return head.mid(start) + "()";
}
