#include "ShaftView.h"

#include <QPainter>

#include <cmath>

namespace
{
constexpr int ArcWidth = 6;
constexpr int Sixteenths = 16; // of a degree, in which arcs are drawn
constexpr int LargestArc = 150;
} // namespace

ShaftView::ShaftView(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setMinimumSize(110, 120);
}

void ShaftView::showState(double turns, double share, const QString& text)
{
    m_turns = turns;
    m_share = qBound(-1.0, share, 1.0);
    m_text = text;
    update();
}

void ShaftView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int textHeight = 2 * fontMetrics().height();
    const int side = qMin(width(), height() - textHeight) - 2 * ArcWidth;
    const QRectF disc((width() - side) / 2.0, ArcWidth, side, side);

    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(palette().base());
    painter.drawEllipse(disc);

    painter.setPen(
        QPen(palette().color(QPalette::Highlight), ArcWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(disc.adjusted(-3, -3, 3, 3), 90 * Sixteenths,
                    static_cast<int>(-m_share * LargestArc * Sixteenths));

    painter.save();
    painter.translate(disc.center());
    painter.rotate(std::fmod(m_turns, 1.0) * 360.0);
    painter.setPen(QPen(palette().color(QPalette::Text), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, 0), QPointF(0, -side * 0.42));
    painter.setBrush(palette().text());
    painter.drawEllipse(QPointF(0, 0), 5, 5);
    painter.restore();

    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, height() - textHeight, width(), textHeight), Qt::AlignCenter, m_text);
}
