#ifndef EVERY_H
#define EVERY_H

#include <QtGlobal>

#include <optional>

/// Tells when another stretch of time is over.
class Every
{
public:
    explicit Every(int milliseconds) : m_length(milliseconds) {}

    /// Once the stretch is over: the milliseconds since it last was, or since the first call. 0
    /// before.
    int passed(qint64 now)
    {
        const int since = static_cast<int>(now - m_since.value_or(now));
        if (m_since && since < m_length)
            return 0;
        m_since = now;
        return since;
    }

private:
    int m_length;
    std::optional<qint64> m_since;
};

#endif
