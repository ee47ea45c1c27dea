#ifndef STOPGUARD_H
#define STOPGUARD_H

#include <QObject>

class QMainWindow;
class QToolButton;

/// The ways to stop the axes from anywhere in the program: the key F12 and a button above
/// everything else in the window, both of which work whatever is open and cannot be taken away.
///
/// - The key is taken on the application, before any dialog or popup sees it.
/// - A press on the button's place counts also while a menu, a list or another popup has the
///   pointer and the press only closes it.
/// - A modal dialog, whoever opens it, blocks the window with the button. While it is open, a twin
///   of the button stands in the button's place, as a window of the dialog, which is not blocked.
/// - What is held down when the stop comes is let go of, so that its release is no click any more.
class StopGuard : public QObject
{
    Q_OBJECT
public:
    /// Puts the button into the place of the window's menu bar, and takes its context menu away.
    explicit StopGuard(QMainWindow* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Comes once for each press.
    void stop();

private:
    QToolButton* makeButton(const QString& name, QWidget* parent);
    void stopNow();
    void letGo() const;
    bool isStop(const QObject* widget) const;
    void attachTwin(QWidget* dialog);
    void placeTwin() const;

    QMainWindow* m_window;
    QToolButton* m_button;
};

#endif
