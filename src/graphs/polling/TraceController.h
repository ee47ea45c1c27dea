#ifndef TRACECONTROLLER_H
#define TRACECONTROLLER_H

#include "AXRGuiExport.h"

#include <QList>
#include <QWidget>

#include <memory>

class QTimer;
class TraceCommand;
class TraceList;

namespace Ui
{
class TraceController;
}

/// Polls a list of values: on each tick of a timer one trace command leaves, round and round in
/// the order of the list, so each of n values is asked for every n x delay milliseconds. Replies
/// do not come back here. It counts how often a value is wanted, so several users can share it.
///
/// The delay is 1..100000 ms, default 5, step 5. Until it is first changed the timer itself has no
/// interval: the first tick after a start then comes at once and sets 5 ms.
///
/// Trace commands belong to the host and must live as long as they are in the list; two are the
/// same value when address, command, type and motor bank are equal, whatever their captions. Null
/// is ignored.
class AXRGUI_EXPORT TraceController : public QWidget
{
    Q_OBJECT
public:
    /// Idle. Both buttons are enabled until the first click.
    explicit TraceController(QWidget* parent = nullptr);
    ~TraceController() override;

    /// Range, step and value of the delay in ms. Whatever changes the delay emits delayChanged().
    /// A delay below 0 counts as none.
    void setMinimum(int minimum);
    void setMaximum(int maximum);
    void setSingleStep(int step);
    void setValue(int value);

    /// As a click on "Start" or "Stop", but does nothing when it is so already.
    void setActive(bool active);

    /// Adds it at the end, its counter untouched: a new one counts as used once. When its value is
    /// in the list already, the counter of that entry is raised, and `command` is not kept.
    void appendTraceCommand(TraceCommand* command);
    /// Lowers the counter of the entry with this value, and takes it out of the list when nobody
    /// uses it any more. Unknown values are ignored.
    void removeTraceCommand(TraceCommand* command);
    /// Counters stay as they are.
    void clearTraceCommands();
    /// The list itself, not a copy; it stays this controller's.
    QList<TraceCommand*>* getTraceCommands();

Q_SIGNALS:
    /// In ms; what is typed counts when the entry ends. A running timer has the new interval
    /// already. It may come from within the box that the user edits, so the controller must not be
    /// deleted in it; use deleteLater().
    void delayChanged(int delay);
    /// One for each tick; none while the list is empty. The host may change the list inside the
    /// emission, and may delete the controller.
    void requestTraceCommand(TraceCommand* traceCommand);

public Q_SLOTS:
    void on_btnStart_clicked();
    void on_btnStop_clicked();
    void on_sbDelay_valueChanged(int value);

private Q_SLOTS:
    void requestTraceValue();

private:
    void showPolling(bool polling);

    std::unique_ptr<Ui::TraceController> m_ui;
    std::unique_ptr<QTimer> m_timer;
    std::unique_ptr<TraceList> m_traceCommands;
};

#endif
