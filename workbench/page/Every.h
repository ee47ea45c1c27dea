#ifndef EVERY_H
#define EVERY_H

#include <QtGlobal>

#include <optional>

/// Tells when another stretch of time is over.
class Every
{
public:
    explicit Every(int milliseconds) : m_length(milliseconds) {}

    /// Once the stretch is over, which it is at first: the milliseconds since it last was. 0
    /// before.
    int passed(qint64 now)
    {
        const int since = m_since ? static_cast<int>(now - *m_since) : m_length;
        if (since < m_length)
            return 0;
        m_since = now;
        return since;
    }

private:
    int m_length;
    std::optional<qint64> m_since;
};

#endif
