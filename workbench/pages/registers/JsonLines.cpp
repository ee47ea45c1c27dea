#include "JsonLines.h"

#include <QVector>

namespace
{

struct Container {
    QString path;
    bool isArray;
    int index;
    QString key;
};

} // namespace

JsonLines::JsonLines(const QByteArray& json)
{
    QVector<Container> open;
    int line = 1;
    bool awaitsKey = false;
    bool isInPlainValue = false;
    const auto path = [&open] {
        if (open.isEmpty())
            return QString();
        const Container& last = open.last();
        return last.path + QLatin1Char('/') +
               (last.isArray ? QString::number(last.index) : last.key);
    };
    for (int i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        if (c == '\n')
            ++line;
        if (c == '"') {
            const int begin = ++i;
            for (; i < json.size() && json.at(i) != '"'; ++i)
                i += json.at(i) == '\\';
            if (awaitsKey)
                open.last().key = QString::fromUtf8(json.mid(begin, i - begin));
            else
                m_lines.insert(path(), line);
        } else if (c == '{' || c == '[') {
            m_lines.insert(path(), line);
            open.append({path(), c == '[', 0, QString()});
        } else if ((c == '}' || c == ']') && !open.isEmpty()) {
            open.removeLast();
        } else if (c == ',' && !open.isEmpty()) {
            ++open.last().index;
        } else if (!isInPlainValue && QByteArray("-0123456789tfn").contains(c)) {
            m_lines.insert(path(), line);
        }
        isInPlainValue = !QByteArray(" \t\r\n,:[]{}\"").contains(c);
        if (c == ':')
            awaitsKey = false;
        else if (c == ',' || c == '{' || c == '}')
            awaitsKey = !open.isEmpty() && !open.last().isArray;
    }
}

int JsonLines::line(QString path) const
{
    while (!m_lines.contains(path) && !path.isEmpty())
        path.truncate(path.lastIndexOf(QLatin1Char('/')));
    return m_lines.value(path, 1);
}

int JsonLines::lineOf(const QByteArray& json, int offset)
{
    return 1 + json.left(offset).count('\n');
}
