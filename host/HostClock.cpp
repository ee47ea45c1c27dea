#include "HostClock.h"

#include <QDateTime>
#include <QPointer>

HostClock::HostClock(QObject* parent) : QObject(parent), m_now(QDateTime::currentMSecsSinceEpoch())
{
}

void HostClock::advance(int milliseconds)
{
    const QPointer<HostClock> self(this);
    for (int i = 0; self && i < milliseconds; ++i) {
        ++m_now;
        emit ticked();
    }
}
