#ifndef TOURINPUT_H
#define TOURINPUT_H

#include <QByteArrayList>
#include <QEvent>
#include <QList>
#include <QPoint>

#include <functional>

class QAbstractSpinBox;
class QGraphicsView;
class QPointF;
class QString;
class QWidget;

/// What a user does to a widget, by events.
namespace TourInput
{

void press(QWidget* widget, int key);
/// Types the text and ends the entry.
void enter(QWidget* widget, const QString& text);
/// Replaces the text of the box and ends the entry.
void type(QAbstractSpinBox* box, const QString& text);
void mouse(QWidget* widget, QEvent::Type what, QPoint at);
/// At the centre.
void mouse(QWidget* widget, QEvent::Type what);
void click(QWidget* widget);
/// From one place of the scene to another.
void drag(const QGraphicsView* view, QPointF from, QPointF to);

/// Lets events come until the condition holds. False when it does not within the real time in ms.
bool processUntil(const std::function<bool()>& condition, int within);

/// Chooses the file in the dialog that the next step opens.
void answerFileDialog(QWidget* context, const QString& file);
/// The fields of each line; nothing when the file cannot be read.
QList<QByteArrayList> readCsv(const QString& name);

} // namespace TourInput

#endif
