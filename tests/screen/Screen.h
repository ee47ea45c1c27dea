#ifndef SCREEN_H
#define SCREEN_H

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QString>

#include <functional>

class QWidget;

/// What a person does and sees at the display: pointer and keys of the window system, and pictures
/// of what really stands on the screen. Nothing here asks a widget to paint or hands it an event.
///
/// Each gesture returns once the program has taken it. One that opens a modal dialog or a menu
/// returns only after that has closed; what is done inside goes through meanwhile().
namespace Screen
{

/// Lets the event loop run.
void pass(int milliseconds);
/// Lets the event loop run until the condition holds. False when it does not in time.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 5000);
/// Does this from within the event loop that runs then, also that of a dialog or menu.
void meanwhile(const std::function<void()>& gesture, int milliseconds = 0);
/// Does this once a dialog or popup of that name (any when empty) is on the screen.
void onceOpen(const std::function<void(QWidget*)>& gesture, const QString& objectName = {});

/// Shows the window at a place of its own, waits until it is on the screen and makes it active.
void show(QWidget* window, QPoint place = {40, 40});
/// Makes a shown window the active one.
void activate(QWidget* window);

/// The middle of a widget, on the screen.
QPoint middle(const QWidget* widget);
void moveTo(QPoint place);
void moveTo(const QWidget* widget, QPoint place);
void moveTo(const QWidget* widget);
void press(Qt::MouseButton button = Qt::LeftButton);
void release(Qt::MouseButton button = Qt::LeftButton);
void click(QPoint place, Qt::MouseButton button = Qt::LeftButton);
void click(const QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
void click(const QWidget* widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
/// Turns the wheel where the pointer is; away from the user is positive.
void wheel(int notches);

/// A key by its name in the window system, with modifiers: "Return", "F12", "ctrl+a".
void keyDown(const QString& key);
void keyUp(const QString& key);
void key(const QString& key);
/// Printable ASCII, and "\n" for Return.
void type(const QString& text);
/// Lets go of every button and key that a gesture holds.
void letGo();

/// What the screen shows of the widget, of the place, of all.
QImage picture(const QWidget* widget);
QImage picture(const QRect& place);
QImage picture();
/// How many of these pictures differ from the one before.
int changes(const QWidget* widget, int pictures = 10, int apart = 120);
/// Whether the picture comes to stand: as many pictures in a row are equal, within five seconds.
bool stands(const QWidget* widget, int pictures = 6);
/// Whether a pixel of about that colour is in the picture.
bool has(const QImage& picture, const QColor& colour, int tolerance = 12);

/// A window manager on the display, for as long as this lives; none when `isWanted` is false.
class WindowManager
{
public:
    explicit WindowManager(bool isWanted = true);
    ~WindowManager();
    bool isThere() const;

private:
    QProcess m_process;
};

} // namespace Screen

#endif
