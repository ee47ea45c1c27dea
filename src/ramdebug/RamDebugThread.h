#ifndef RAMDEBUGTHREAD_H
#define RAMDEBUGTHREAD_H

#include "AXRGuiExport.h"
#include "MotorController.h"

#include <QThread>
#include <condition_variable>
#include <mutex>

#include <atomic>

class Command;
class SimpleScaledDrawer;

/// One measurement with the recorder in a module's RAM: sets it up, drives the axis to the start
/// target, arms the trigger, gives the end target, waits until the module has recorded all, drives
/// back and fetches the samples into a drawer, one request each.
///
/// Everything that goes to the module leaves through doDirectRequest(); a run has no time-out. The
/// accessors belong to the thread that owns this object; a run takes the settings over when it
/// begins.
class AXRGUI_EXPORT RamDebugThread : public QThread, public MotorController
{
    Q_OBJECT
public:
    /// \param drawer gets the samples, from the running thread; not owned. May be null.
    explicit RamDebugThread(SimpleScaledDrawer* drawer);
    /// Ends a run as abort() does, and waits for it. The receiver of doDirectRequest() must still
    /// answer, or the owner must have seen to the end of the run before.
    ~RamDebugThread() override;

    /// Whether measure mode 3 shows its samples; off by default.
    void setAllowDefinedMode(bool allow);

    /// What the axis is driven by: 0 torque (the default), 1 velocity, 2 position, 3 nothing.
    void setTargetMode(int mode);
    int getTargetMode() const;
    /// What is recorded: 0 torque (the default), 1 velocity, 2 position, 3 what the module defines.
    void setMeasureMode(int mode);
    int getMeasureMode() const;
    /// 0 (the default) always, 1 position lower, 2 higher, 3 velocity lower, 4 higher, 5 torque
    /// lower, 6 higher than the trigger value, default 0.
    void setTriggerType(int type);
    int getTriggerType() const;
    void setTriggerValue(int value);
    int getTriggerValue() const;

    /// \param from start target, in the unit of the target mode; default 0
    /// \param to end target; default 0
    /// \param delay recording interval in ticks of the module, default 1
    void setMeasurementConstraints(int from, int to, int delay);

    // Instructions and types of the targets, and the axis parameters that the charts are for.
    void setTargetTorqueCommand(char command);   ///< default 5
    void setTargetTorqueType(char type);         ///< default 155
    void setTargetVelocityCommand(char command); ///< default 5; with 1 or 2 the type is 0
    void setTargetVelocityType(char type);       ///< default 2
    void setRampTargetVelocityType(char type);   ///< default 13
    void setTargetPositionCommand(char command); ///< default 5; with 4 the type is 0
    void setTargetPositionType(char type);       ///< default 0
    void setActualTorqueType(char type);         ///< default 150
    void setActualVelocityType(char type);       ///< default 3
    void setActualPositionType(char type);       ///< default 1
    char getTargetTorqueCommand() const;
    char getTargetTorqueType() const;
    char getTargetVelocityCommand() const;
    char getTargetVelocityType() const;
    char getRampTargetVelocityType() const;
    char getTargetPositionCommand() const;
    char getTargetPositionType() const;
    char getActualTorqueType() const;
    char getActualVelocityType() const;
    char getActualPositionType() const;

    /// Ends the fetching after the element that is fetched now. Looked at nowhere else, so a run
    /// that was stopped earlier still moves the axis, and fetches one element.
    void stop();

    /// Ends a run as soon as the request on its way is answered: nothing more is sent, and ready()
    /// comes. For whoever destroys it.
    void abort();

Q_SIGNALS:
    /// One round trip. The receiver owns `request` from now on and fills `reply` before it returns;
    /// a reply that stays invalid tells that the module did not answer. Comes from the running
    /// thread, so connect it blocking, and to an object of another thread.
    void doDirectRequest(Command* request, Command* reply);
    /// The run is over; the thread has only its last lines left to do.
    void ready();

protected:
    void run() override;

private:
    friend class WRamDebug;

    struct Settings {
        bool allowDefinedMode = false;
        int targetMode = 0;
        int measureMode = 0;
        int triggerType = 0;
        int triggerValue = 0;
        int targetFrom = 0;
        int targetTo = 0;
        int measureDelay = 1;
        char targetTorqueCommand;
        char targetTorqueType;
        char targetVelocityCommand;
        char targetVelocityType;
        char rampTargetVelocityType;
        char targetPositionCommand;
        char targetPositionType;
        char actualTorqueType;
        char actualVelocityType;
        char actualPositionType;
        char address = 0;
        char motorBank = 0;
        Settings();
    };
    template <class T>
    void set(T Settings::*setting, T value);
    template <class T>
    T get(T Settings::*setting) const;

    void measure();
    const Command& send(char command, char type, int motorBank, int value);
    const Command& send(char command, char type, int value);
    int ask(char type, const char* label, int otherwise);
    void giveTarget(int value);
    void givePosition(int value);
    void fetch(int elements, int items);
    int sampleType(int item) const;
    void pause(unsigned long milliseconds);

    // For the panel, which may be destroyed while a request is with its host.
    void leaveDrawer();
    void take() { m_untaken.exchange(nullptr); }
    void giveBack() { m_untaken = nullptr; } // what was answered is written before this
    bool isFinishing() const { return m_finishing; }
    /// A stop() counts from now on, also before the run begins. Not during a run.
    void prepare();

    mutable std::mutex m_mutex; // guards what the owner's thread sets: settings and drawer
    std::condition_variable m_wake;
    Settings m_settings;
    SimpleScaledDrawer* m_drawer;
    Settings m_now;             // those of the run
    Command* m_reply = nullptr; // of the run, on its stack
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_isPrepared{false};
    std::atomic<bool> m_abort{false};
    std::atomic<bool> m_finishing{false};
    bool m_tracksRequests = false;
    std::atomic<Command*> m_untaken{nullptr};
};

#endif
