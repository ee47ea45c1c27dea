#include "ColorPickerButton_p.h"

#include "ColorRim_p.h"

#include <QKeyEvent>
#include <QPainter>

namespace
{

constexpr QSize CellSize(24, 21);
constexpr QRect Frame(QPoint(2, 2), QPoint(21, 18));
constexpr int DotSize = 2;
constexpr int DotDistance = 4;

bool isPressing(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
           event->key() == Qt::Key_Space;
}

} // namespace

ColorPickerButton::ColorPickerButton(QWidget* parent) : QFrame(parent)
{
    setFrameStyle(QFrame::StyledPanel);
    setFixedSize(CellSize);
    setFrameRect(Frame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("More colours"));
}

void ColorPickerButton::sink()
{
    setFrameShadow(QFrame::Sunken);
    update();
}

void ColorPickerButton::raiseAndClick()
{
    setFrameShadow(QFrame::Raised);
    update();
    emit clicked();
}

void ColorPickerButton::mousePressEvent(QMouseEvent*) { sink(); }

void ColorPickerButton::mouseReleaseEvent(QMouseEvent*) { raiseAndClick(); }

void ColorPickerButton::keyPressEvent(QKeyEvent* event)
{
    if (isPressing(event))
        sink();
    else
        QFrame::keyPressEvent(event);
}

void ColorPickerButton::keyReleaseEvent(QKeyEvent* event)
{
    if (!isPressing(event))
        QFrame::keyReleaseEvent(event);
    else if (!event->isAutoRepeat())
        raiseAndClick();
}

void ColorPickerButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(frameRect(), palette().button());
    drawFrame(&painter);

    const int shift = frameShadow() == QFrame::Sunken ? 1 : 0;
    QRect dot(width() / 2 - DotDistance - 1 + shift, height() / 2 - 1 + shift, DotSize, DotSize);
    for (int i = 0; i < 3; ++i) {
        painter.fillRect(dot, palette().buttonText());
        dot.translate(DotDistance, 0);
    }
    drawRim(painter, *this, palette().color(QPalette::Window));
}
