#include "TourInput.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileDialog>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

namespace TourInput
{

void press(QWidget* widget, int key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &up);
}

void type(QAbstractSpinBox* box, const QString& text)
{
    box->selectAll();
    enter(box, text);
}

void enter(QWidget* widget, const QString& text)
{
    for (QChar c : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, c);
        QApplication::sendEvent(widget, &down);
    }
    press(widget, Qt::Key_Return);
}

void mouse(QWidget* widget, QEvent::Type what, QPoint at)
{
    const bool isMove = what == QEvent::MouseMove;
    QMouseEvent event(what, at, widget->mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                      what == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void mouse(QWidget* widget, QEvent::Type what) { mouse(widget, what, widget->rect().center()); }

void drag(const QGraphicsView* view, QPointF from, QPointF to)
{
    mouse(view->viewport(), QEvent::MouseButtonPress, view->mapFromScene(from));
    mouse(view->viewport(), QEvent::MouseMove, view->mapFromScene(to));
    mouse(view->viewport(), QEvent::MouseButtonRelease, view->mapFromScene(to));
}

void click(QWidget* widget)
{
    mouse(widget, QEvent::MouseButtonPress);
    mouse(widget, QEvent::MouseButtonRelease);
}

bool processUntil(const std::function<bool()>& condition, int within)
{
    const QDeadlineTimer deadline(within);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void answerFileDialog(QWidget* context, const QString& file)
{
    QTimer::singleShot(0, context, [file] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            qFatal("no file dialog came");
        dialog->selectFile(file);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

QList<QByteArrayList> readCsv(const QString& name)
{
    QFile file(name);
    QList<QByteArrayList> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    while (!file.atEnd())
        rows << file.readLine().trimmed().split(';');
    return rows;
}

} // namespace TourInput
