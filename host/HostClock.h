#ifndef HOSTCLOCK_H
#define HOSTCLOCK_H

#include <QObject>

/// The one clock of a host. Link, simulated module and graphs read it, so that none of them runs
/// ahead of the others, whoever lets the time pass: a timer, a test, or a request that waits for
/// its answer.
class HostClock : public QObject
{
    Q_OBJECT
public:
    /// Begins at the time of the wall clock.
    explicit HostClock(QObject* parent = nullptr);

    /// Milliseconds since the epoch.
    qint64 now() const { return m_now; }

    /// Lets time pass, one millisecond after the other. May be called inside ticked(), too.
    void advance(int milliseconds);

Q_SIGNALS:
    /// A millisecond has passed. Who connected first hears it first: a wire that is made before
    /// its link hands over its answers before the link looks at the time.
    void ticked();

private:
    qint64 m_now;
};

#endif
