#include "ColorViewer.h"

#include "ColorTone_p.h"

#include <QPainter>

namespace
{
constexpr int SmallestSide = 10;
constexpr int Border = 2;
constexpr int TextLeft = 8;
} // namespace

ColorViewer::ColorViewer(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(SmallestSide, SmallestSide);
    changeColor(Qt::black);
}

void ColorViewer::changeColor(const QColor& color)
{
    m_color = color;
    m_brush = QBrush(color);
    m_textColor = contrastTo(color);
    update();
}

void ColorViewer::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_pen);
    painter.setBrush(m_brush);
    painter.drawRect(QRect(QPoint(Border, Border), size() - 2 * QSize(Border, Border)));
    painter.setPen(m_textColor);
    const int lineHeight = fontMetrics().height();
    painter.drawText(QRect(TextLeft, (height() - lineHeight) / 2, width() - TextLeft, lineHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, m_color.name().toUpper());
}
