#include "GraphClock_p.h"

#include <QDateTime>

qint64 GraphClock::now() const
{
    return m_source ? m_source() : QDateTime::currentMSecsSinceEpoch();
}

void GraphClock::beginFrame(qint64 time)
{
    ++m_depth;
    m_frameTime = time;
    if (m_isRunning)
        m_edge = time;
}
