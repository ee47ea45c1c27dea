#include "WheelFocus.h"

#include <QAbstractSpinBox>
#include <QChildEvent>
#include <QComboBox>
#include <QScrollBar>

namespace
{

bool takesWheel(const QObject* object)
{
    return qobject_cast<const QAbstractSpinBox*>(object) ||
           qobject_cast<const QComboBox*>(object) ||
           (qobject_cast<const QAbstractSlider*>(object) &&
            !qobject_cast<const QScrollBar*>(object));
}

void giveNoFocusByWheel(QWidget* widget)
{
    if (takesWheel(widget) && widget->focusPolicy() == Qt::WheelFocus)
        widget->setFocusPolicy(Qt::StrongFocus);
}

} // namespace

void WheelFocus::guard(QWidget* root) { (new WheelFocus(root))->watch(root); }

void WheelFocus::watch(QWidget* widget)
{
    widget->installEventFilter(this);
    giveNoFocusByWheel(widget);
    for (QObject* child : widget->children()) {
        if (child->isWidgetType())
            watch(static_cast<QWidget*>(child));
    }
}

bool WheelFocus::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ChildAdded: {
        QObject* child = static_cast<QChildEvent*>(event)->child();
        if (child->isWidgetType())
            watch(static_cast<QWidget*>(child));
        break;
    }
    case QEvent::Polish: // one that was added while it was still being made
        giveNoFocusByWheel(static_cast<QWidget*>(watched));
        break;
    case QEvent::Wheel: {
        const auto* widget = static_cast<QWidget*>(watched);
        if (takesWheel(widget) && !widget->hasFocus() && !widget->isWindow()) {
            event->ignore(); // the page round it gets it
            return true;
        }
        break;
    }
    default:
        break;
    }
    return false;
}
