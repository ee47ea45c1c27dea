#ifndef USER_H
#define USER_H

#include <QPoint>
#include <QString>

class QObject;
class QWidget;

/// What a user does to a widget, by events.
namespace User
{

/// The child of this class and object name; fails the test run hard when there is none.
template <class T>
T* find(const QObject* parent, const QString& name)
{
    T* child = parent->findChild<T*>(name);
    if (!child)
        qFatal("no child named %s", qPrintable(name));
    return child;
}

void click(QWidget* widget);
void press(QWidget* widget);
void release(QWidget* widget);
/// Types the characters, one key click each.
void type(QWidget* widget, const QString& text);
/// Chooses an entry of a combo box by its text.
void choose(QWidget* box, const QString& entry);
/// Presses, moves and releases the left button.
void drag(QWidget* widget, QPoint from, QPoint to);
/// One notch is 120, away from the user is positive.
void wheel(QWidget* widget, int delta);

} // namespace User

#endif
