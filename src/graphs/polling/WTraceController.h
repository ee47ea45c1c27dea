#ifndef WTRACECONTROLLER_H
#define WTRACECONTROLLER_H

#include "AXRGuiExport.h"

#include <QList>
#include <QTimer>
#include <QWidget>

#include <memory>

class TraceCommand;
class TraceList;

namespace Ui
{
class WTraceController;
}

/// Polls a list of values as TraceController does, in a group box. It tells when it starts and
/// stops, gives the host a tick for values that come by themselves, and counts no users.
///
/// The delay is 0..100000 ms, default 5, step 1. With 0 a tick comes on every pass of the event
/// loop.
///
/// Trace commands belong to the host and must live as long as they are in the list; two are the
/// same value when address, command, type and motor bank are equal, whatever their captions. Null
/// is ignored.
class AXRGUI_EXPORT WTraceController : public QWidget
{
    Q_OBJECT
public:
    /// Idle.
    explicit WTraceController(QWidget* parent = nullptr);
    ~WTraceController() override;

    /// Range and step of the delay in ms. Whatever changes the delay emits delayChanged(). A delay
    /// below 0 counts as 0.
    void setMinimum(int minimum);
    void setMaximum(int maximum);
    void setSingleStep(int step);
    /// Limited to the range.
    void setValue(int value);

    /// As activateTracing() or deactivateTracing(), also when it is so already.
    void setActive(bool active);

    /// Adds it at the end, unless its value is in the list already. Counters stay as they are.
    void appendTraceCommand(TraceCommand* command);
    void clearTraceCommands();
    /// The list itself, not a copy; it stays this controller's.
    QList<TraceCommand*>* getTraceCommands();

public Q_SLOTS:
    /// As a click on "Start": starts the timer, anew if it runs, and emits start().
    void activateTracing();
    /// As a click on "Stop": emits stop(), also while idle.
    void deactivateTracing();

    void on_btnStart_clicked();
    void on_btnStop_clicked();
    void on_sbDelay_valueChanged(int value);

Q_SIGNALS:
    /// The timer was started, stopped. In these and in the signals of a tick the host may change
    /// the list or the state, and may delete the controller.
    void start();
    void stop();
    /// In ms; what is typed counts when the entry ends. A running timer has the new interval
    /// already. It may come from within the box that the user edits, so the controller must not be
    /// deleted in it; use deleteLater().
    void delayChanged(int delay);
    /// One for each tick; none while the list is empty.
    void requestTraceCommand(TraceCommand* traceCommand);
    /// One for each tick, after requestTraceCommand(), also while the list is empty. What it asks
    /// for is the host's business.
    void requestPDOValues();

private Q_SLOTS:
    void requestTraceValue();

private:
    void showPolling(bool polling);

    std::unique_ptr<Ui::WTraceController> m_ui;
    QTimer m_timer;
    std::unique_ptr<TraceList> m_traceCommands;
};

#endif
