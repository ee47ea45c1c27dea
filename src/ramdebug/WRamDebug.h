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
/// through doDirectRequest().
///
/// It may be destroyed at any time, also by the host's handler while a request is on its way: what
/// runs then ends with that request.
class AXRGUI_EXPORT WRamDebug : public QWidget
{
    Q_OBJECT
public:
    explicit WRamDebug(QWidget* parent = nullptr);
    /// Waits for the thread, which ends with the request on its way.
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

    /// Bounds of the targets to both sides, default 4000 (mA, velocity unit). They hold from the
    /// next updateTargetBounds() on.
    void setMaxTargetTorque(int maximum) { m_maxTargetTorque = maximum; }
    void setMaxTargetVelocity(int maximum) { m_maxTargetVelocity = maximum; }
    void updateTargetBounds();

    /// Default "[rpm]". As updateUnits().
    void setVelocityUnit(QString unit);
    /// Makes the list of target modes anew, which drops "No target" and shows "Torque", and makes
    /// the charts anew; the modes that the measurement uses stay.
    void updateUnits();
    /// Offers "No target" with the measure mode "Defined". Once given it cannot be taken back, and
    /// false does nothing. Call setVelocityUnit() before it.
    void setAllowDefinedMode(bool allow);

    /// Asks the module for the size of its buffer: the longest duration. No answer: nothing
    /// changes.
    void updateValues();

    /// In pixels.
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
    /// One round trip, on the GUI thread. The host owns `request` from now on and fills `reply`
    /// before it returns; a reply that stays invalid tells that the module did not answer.
    void doDirectRequest(Command* request, Command* reply);
    /// The user pressed "Start".
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
