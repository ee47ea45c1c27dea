#ifndef HELDBUTTON_H
#define HELDBUTTON_H

#include "AXRGuiExport.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>

#include <functional>

class QAbstractButton;
class QKeyEvent;

/// The rules of a button that turns something for as long as it is held: whatever was started is
/// stopped where it was started, and nothing turns that nobody holds.
///
/// The button lets go by itself as soon as its press can no longer be trusted: when a popup opens,
/// its window loses its activity or is blocked by a dialog, it loses focus or grab, a second press
/// comes, a touch is cancelled, it is hidden, disabled or deleted, or the pointer's button comes up
/// anywhere else. released() goes out then, and nothing more at the real release; moving over the
/// button with the pointer's button down does not press it again. A pointer that only strays off
/// the button and comes back does, as on any other button.
///
/// The automatic repeat of a held key is no press. From an X server some of them reach the program
/// as a release and a press of the same moment, and so the release of a real key counts 5 ms later
/// there. Any other release counts at once.
///
/// Not a widget. The panel declares it as its last member: one that is held stops while it is
/// destroyed, when the rest of the panel is still there to send. A host whose slot belongs to a
/// parent of the panel destroys the panel before itself.
class AXRGUI_EXPORT HeldButton : public QObject
{
public:
    /// Stops what a press started: holds the recipient as it was at the press, and looks up how to
    /// stop when it runs.
    using Stop = std::function<void()>;

    HeldButton() = default;
    ~HeldButton() override;

    /// To be called once, when the form is built. The button stays the form's.
    void setButton(QAbstractButton* button);

    /// For the panel's slot of pressed(), before it starts anything. Called without a button that
    /// is down, it only keeps the stop for release() or the end of the panel.
    void press(Stop stop);

    /// For the panel's slot of released(): runs the stop of the press, or `otherwise` when none is
    /// to come.
    void release(const Stop& otherwise);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool isRepeat(const QKeyEvent& key);
    bool endsPress(QObject* watched, QEvent* event) const;
    void watch(bool on);
    void letGo();
    void stop();

    QPointer<QAbstractButton> m_button;
    Stop m_stop;            // of the press that is to be ended
    bool m_strayed = false; // the pointer left the button while it held it
    ulong m_keyUpAt = 0;    // in the window system's time; 0 for none
    QBasicTimer m_keyUp;    // until it is known to be no repeat
};

#endif
