#ifndef RAMDEBUGTHREAD_H
#define RAMDEBUGTHREAD_H

#include "AXRGuiExport.h"
#include "MotorController.h"

#include <QThread>

#include <atomic>
#include <memory>
#include <optional>

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

    /// What the axis is driven by, a Recorder::Target, default 0.
    void setTargetMode(int mode);
    int getTargetMode() const;
    /// What is recorded, a Recorder::Mode, default 0.
    void setMeasureMode(int mode);
    int getMeasureMode() const;
    /// When the recording begins, a Recorder::Trigger, default 0, at the trigger value, default 0.
    void setTriggerType(int type);
    int getTriggerType() const;
    void setTriggerValue(int value);
    int getTriggerValue() const;

    /// A run that is under way takes over what it has still to send, unless the target mode has
    /// changed since it began: then the numbers are in another unit than its own.
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

    /// As QThread::start(): begins a run, or does nothing while one is under way. A stop() or an
    /// abort() counts for this run from now on, also before it has asked anything.
    void start(Priority priority = InheritPriority);

    /// Ends the fetching after the element that is fetched now. Looked at nowhere else, so a run
    /// that was stopped earlier still moves the axis, and fetches one element.
    void stop();

    /// Gives up the run that is under way: after the request that is on its way now it sends
    /// nothing, not the end target, not the drive back, and ready() comes. The axis is left as it
    /// is driven, so whoever calls this stops it. Returns at once; the next start() after ready()
    /// works as ever. Without a run it does nothing.
    void abort();

    struct Shared;
    /// Not for hosts: what the panel that owns this needs besides.
    Shared& shared() { return *m_shared; }

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
    struct Constraints {
        int from = 0;
        int to = 0;
        int delay = 1;
    };
    struct Settings {
        bool allowDefinedMode = false;
        int targetMode = 0;
        int measureMode = 0;
        int triggerType = 0;
        int triggerValue = 0;
        Constraints constraints;
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

    /// For the run that begins. Not during a run.
    void prepare();
    void measure();
    Constraints constraints() const;
    bool send(const Command& request);
    bool send(char command, char type, int value);
    int ask(char type, const char* label, int otherwise);
    void giveTarget(int value);
    void driveBack();
    void setWayBack(const std::optional<Command>& command);
    Command positionCommand(int value) const;
    Command commandOf(char command, char type, int value) const;
    void fetch(int elements, int items);
    int sampleType(int item) const;
    void settle();

    std::unique_ptr<Shared> m_shared;
    Settings m_settings;
    Settings m_now; // those of the run
    int m_startPosition = 0;
    Command* m_reply = nullptr; // of the run, on its stack
    bool m_wasSent = false;     // the last request; false if it was dropped on the way
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_isPrepared{false};
};

#endif
