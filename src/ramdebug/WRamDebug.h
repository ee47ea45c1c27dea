#ifndef WRAMDEBUG_H
#define WRAMDEBUG_H

#include "AXRGuiExport.h"

#include <QString>
#include <QWidget>

#include <array>
#include <memory>

class Chart;
class Command;
class RamDebugThread;

namespace Ui
{
class WRamDebug;
}

/// Sets up a measurement in a module's RAM recorder, starts and stops it, shows what was recorded
/// and saves it as CSV. The measurement itself runs on a thread of this panel and asks the host
/// through doDirectRequest(). It drives the axis: to the start target, to the end target and, with
/// a position command after any kind of target, back to where it was.
///
/// "Stop" does not end a run at once: the run still gives its targets, polls for as long as it
/// takes, drives back and fetches one element, while the panel is idle already and a sign above the
/// buttons tells that it is still ending. A "Start" meanwhile begins nothing, but the run goes on
/// with the new targets if they are of its own target mode. Only abort() ends a run now. Hiding or
/// closing the panel leaves it going.
class AXRGUI_EXPORT WRamDebug : public QWidget
{
    Q_OBJECT
public:
    explicit WRamDebug(QWidget* parent = nullptr);
    /// Ends a run that is under way, and brings the axis back as the run itself would have at its
    /// end: if a target went out and the way back did not, that one position command goes to the
    /// host from in here. It does not after abort(), without a target, and when a handler of
    /// doDirectRequest() is on the stack.
    ///
    /// So a handler that belongs to an ancestor of the panel must not be reached any more once that
    /// is half destroyed: delete the panel in the ancestor's own destructor, or disconnect there.
    ///
    /// It waits for the thread, whose request on its way is dropped; inside the host's handler it
    /// does not wait, and the thread ends by itself when the handler has returned. `reply` is valid
    /// until then.
    ~WRamDebug() override;

    /// Unsigned bytes, default 1 and 0. Makes the charts anew, without samples.
    void setAddressAndMotorBank(char address, char bank);

    // Parameter numbers of the module; defaults as in RamDebugThread. Each makes the charts anew.
    void setTargetTorqueCommand(char command);
    void setTargetTorqueType(char type);
    void setTargetVelocityCommand(char command);
    void setTargetVelocityType(char type);
    void setRampTargetVelocityType(char type);
    void setTargetPositionCommand(char command);
    void setTargetPositionType(char type);
    void setActualTorqueType(char type);
    void setActualVelocityType(char type);
    void setActualPositionType(char type);

    /// Bounds of the targets to both sides, default 4000 (mA, velocity unit), not below 0. They
    /// hold from the next updateTargetBounds() on, or from the user's next choice of a target mode;
    /// until then the boxes take what they took before.
    void setMaxTargetTorque(int maximum) { m_maxTargetTorque = maximum; }
    void setMaxTargetVelocity(int maximum) { m_maxTargetVelocity = maximum; }
    /// Puts bounds and step of the present target mode on both boxes, which clip what they show.
    void updateTargetBounds();

    /// Default "[rpm]". As updateUnits().
    void setVelocityUnit(QString unit);
    /// Makes the list of target modes anew, which drops "No target" and shows "Torque", and makes
    /// the charts anew, without samples. Nothing else follows: the measurement keeps the target
    /// mode that was chosen before, with its targets, unit labels and measure modes, although the
    /// list shows "Torque", and only the choice of another entry brings them together again. So
    /// call it, or setVelocityUnit(), before the user has chosen anything.
    void updateUnits();
    /// Offers "No target", and with true the measure mode "Defined" for it. Once true it cannot be
    /// taken back. Call setVelocityUnit() before it.
    void setAllowDefinedMode(bool allow);

    /// Asks the module for the number of elements in its buffer, through doDirectRequest() and from
    /// within this call, also during a run. It is what each chart keeps and, with the measure delay
    /// that is set back to 1, the duration shown. No answer: nothing changes. A number outside
    /// 1..1,000,000 is no answer either; a sign above the buttons tells of it until a good one
    /// comes.
    void updateValues();

    /// In pixels, clamped to what Qt takes.
    void setMaximumDrawerHeight(int height);

    /// Shows the charts of the measure mode.
    void updateChartSelection();
    void enableInputFields(bool enable);

    /// Whether a run is under way: from "Start" until its thread has told that it is over, which
    /// "Stop" and abort() only bring nearer.
    bool isMeasuring() const { return m_run != Run::None; }

public Q_SLOTS:
    /// Gives the run up, as the host does when the axis must stand. From now on nothing of the run
    /// goes to the host any more, not the end target, not the drive back; the axis is left as it is
    /// driven, so the host stops it. The panel becomes idle when the thread has ended, with the
    /// request that is at the host now; a "Start" before that begins a new run then. Without a run
    /// it does nothing.
    void abort();

Q_SIGNALS:
    /// One round trip, on the GUI thread. The host owns `request` from now on and must fill `reply`
    /// before its handler returns: a reply that is still invalid then tells that the module did not
    /// answer, and what is written later is never looked at. Connect it directly, and one handler
    /// only.
    void doDirectRequest(Command* request, Command* reply);
    /// The user pressed "Start". Comes first of all, before anything is asked, the boxes are read
    /// or the buttons change: what the host sets here holds for the run. It comes also when an
    /// earlier run is still ending and none can begin.
    void measurementStarted();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void targetModeChanged(int index);
    void measureModeChanged(int index);
    void triggerTypeChanged(int index);
    void on_btnStart_clicked();
    void on_btnStop_clicked();
    void ramDebugThreadReady();
    void measureDelayChanged(int newDelay);
    void on_sbTriggerValue_valueChanged(int value);
    void on_btnSave_clicked();
    void forwardDoDirectRequest(Command* request, Command* reply);

private:
    struct Targets {
        int from;
        int to;
    };

    void addTorqueMeasureMode();
    void addVelocityMeasureMode();
    void addPositionMeasureMode();
    void addNoTargetMeasureMode();
    void addTriggerTypes();
    template <class Setter>
    void setNumber(Setter setter, char number);
    void makeCharts();
    void showMeasuring(bool measuring);
    void fitBoxes();
    void paintSign(const QString& text);
    void beginRun();
    enum class Run { None, Goes, Ends, BeginsAgain };
    void setRun(Run run);
    bool hasHost() const;
    void ask(Command* request, Command* reply);

    std::unique_ptr<Ui::WRamDebug> m_ui;
    bool m_allowDefinedMode = false;
    QString m_velocityUnit;
    int m_maxTargetTorque = 4000;
    int m_maxTargetVelocity = 4000;
    std::array<Targets, 3> m_targets{{{0, 1000}, {0, 1000}, {0, 4000}}}; // by target mode
    int m_lastTargetMode = 0;
    int m_bufferElements = 500;
    bool m_hasBadBufferSize = false;
    std::array<std::unique_ptr<Chart>, 10> m_charts;
    std::unique_ptr<RamDebugThread> m_thread;
    Run m_run = Run::None;
    int m_asking = 0;     // requests that are with the host now
    int m_forwarding = 0; // those of them that are the thread's
};

#endif
