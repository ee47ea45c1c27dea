#ifndef VALUECHECKERTHREAD_H
#define VALUECHECKERTHREAD_H

#include "AXRGuiExport.h"

#include <QThread>

#include <atomic>
#include <condition_variable>
#include <mutex>

/// Asks again and again, from a thread of its own, for a check of some values. Runs from
/// QThread::start() until stop() takes effect, and can be started again once it is finished. All
/// operations may be called from any thread.
///
/// Destroying it ends the thread and waits, however long the delay is; so it must not be destroyed
/// in a slot that runs on the thread, and no slot of the destroying thread may be connected by
/// Qt::BlockingQueuedConnection.
class AXRGUI_EXPORT ValueCheckerThread : public QThread
{
    Q_OBJECT
public:
    /// The delay is 1000 ms.
    ValueCheckerThread();
    /// \param delay in ms, see setDelay()
    explicit ValueCheckerThread(int delay);
    ~ValueCheckerThread() override;

    /// Time between two checks in ms, from the next pause on; the one in progress is not cut short.
    /// Below 0 counts as 0: checks then follow one another as fast as the receivers of direct
    /// connections are, while those of queued ones may be flooded.
    void setDelay(int delay);

public Q_SLOTS:
    /// The same as setDelay().
    void changeDelay(int delay);
    /// No more checks. The thread ends after the pause in progress; a thread that was started but
    /// does not run yet is not stopped.
    void stop();

Q_SIGNALS:
    /// Emitted on the thread: a receiver on another one gets it queued.
    void checkRequested();

protected:
    void run() override;

private:
    void pause();

    std::atomic<bool> m_stopped{false};
    std::atomic<int> m_delay;
    std::atomic<bool> m_destroyed{false}; // other than m_stopped, never taken back
    std::mutex m_mutex;
    std::condition_variable m_wake;
};

#endif
