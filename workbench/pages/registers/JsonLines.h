#ifndef JSONLINES_H
#define JSONLINES_H

#include <QByteArray>
#include <QHash>
#include <QString>

/// In which line of a JSON text each of its values begins. The text must be well formed.
class JsonLines
{
public:
    explicit JsonLines(const QByteArray& json);

    /// \param path keys and indices from the outermost value on, each behind a "/"
    /// \return the line of the nearest value on the way that is there, from 1
    int line(QString path) const;

    /// The line of a place in a text that need not be well formed.
    static int lineOf(const QByteArray& json, int offset);

private:
    QHash<QString, int> m_lines;
};

#endif
