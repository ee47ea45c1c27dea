#ifndef RAMDEBUGTHREAD_P_H
#define RAMDEBUGTHREAD_P_H

#include "Command.h"
#include "RamDebugThread.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

/// What a thread shares with the panel that owns it, beyond its interface. The panel may be
/// destroyed while a request is with its host; this then lives on with the thread.
struct AXRGUI_EXPORT RamDebugThread::Shared {
    explicit Shared(SimpleScaledDrawer* samplesGoTo) : drawer(samplesGoTo) {}

    /// How long the axis settles at the start target. Tests shorten it.
    static inline std::atomic<int> settleTime{1000}; // ms

    std::mutex mutex; // guards the settings, the drawer and the way back
    std::condition_variable wake;
    SimpleScaledDrawer* drawer;
    /// What brings the axis back, while it stands or drives where the run has sent it.
    std::optional<Command> wayBack;

    std::atomic<bool> isAborted{false};
    std::atomic<bool> isOver{false}; // the run has only its last lines left, which ask nothing

    /// A panel takes each request that it hands to its host; what it does not take was not sent.
    bool isOfPanel = false;
    std::atomic<Command*> untaken{nullptr};
    void take() { untaken.exchange(nullptr); }
    void giveBack() { untaken = nullptr; } // what was answered is written before this
    /// What the host fills. What it writes here after its handler has returned reaches no run.
    Command answer;

    void leaveDrawer()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        drawer = nullptr;
    }
    std::optional<Command> takeWayBack()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return std::exchange(wayBack, std::nullopt);
    }
};

#endif
