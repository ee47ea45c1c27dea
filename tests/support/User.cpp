#include "User.h"

#include <QComboBox>
#include <QWheelEvent>
#include <QtTest>

void User::click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

void User::press(QWidget* widget) { QTest::mousePress(widget, Qt::LeftButton); }

void User::release(QWidget* widget) { QTest::mouseRelease(widget, Qt::LeftButton); }

void User::type(QWidget* widget, const QString& text) { QTest::keyClicks(widget, text); }

void User::choose(QWidget* box, const QString& entry)
{
    auto* combo = qobject_cast<QComboBox*>(box);
    const int index = combo ? combo->findText(entry) : -1;
    if (index < 0)
        qFatal("no entry %s", qPrintable(entry));
    combo->setCurrentIndex(index);
}

void User::drag(QWidget* widget, QPoint from, QPoint to)
{
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

void User::wheel(QWidget* widget, int delta)
{
    const QPointF centre = widget->rect().center();
    QWheelEvent event(centre, widget->mapToGlobal(centre.toPoint()), QPoint(), QPoint(0, delta),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}
