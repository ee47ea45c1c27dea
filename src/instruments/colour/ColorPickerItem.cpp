#include "ColorPickerItem_p.h"

#include "ColorTone_p.h"

#include <QMouseEvent>
#include <QPainter>

namespace
{
constexpr QSize CellSize(24, 21);
}

ColorPickerItem::ColorPickerItem(const QColor& color, const QString& text, QWidget* parent)
    : QFrame(parent)
{
    setFixedSize(CellSize);
    setFocusPolicy(Qt::StrongFocus);
    setColor(color, text);
}

void ColorPickerItem::setColor(const QColor& color, const QString& text)
{
    m_color = color;
    m_text = text;
    setToolTip(text);
    setAccessibleName((text + QLatin1Char(' ') + color.name()).trimmed()); // texts may be equal
    update();
}

void ColorPickerItem::setSelected(bool selected)
{
    m_selected = selected;
    update();
}

void ColorPickerItem::mousePressEvent(QMouseEvent*) { setFocus(); }

void ColorPickerItem::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton)
        return;
    setSelected(true);
    emit selected();
}

void ColorPickerItem::paintEvent(QPaintEvent*)
{
    const int w = width() - 1;
    const int h = height() - 1;
    QPainter painter(this);
    if (m_selected) {
        painter.setPen(Qt::gray);
        painter.drawRect(1, 1, w - 2, h - 2);
    }
    painter.setPen(Qt::black);
    painter.drawRect(3, 3, w - 4, h - 4);
    if (m_color.isValid())
        painter.fillRect(4, 4, w - 4, h - 4, m_color);
    if (hasFocus()) {
        painter.setPen(contrastTo(palette().color(QPalette::Window))); // black may not be seen
        painter.drawRect(2, 2, w - 2, h - 2);
        painter.setPen(Qt::black);
        painter.drawRect(0, 0, w - 1, h - 1);
    }
}
