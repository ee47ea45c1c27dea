#include "DrawerFrame_p.h"

#include "Chart.h"

#include <QFont>
#include <QPainter>

QFont DrawerFrame::smallFont(QFont font)
{
    if (font.pointSizeF() > 0)
        font.setPointSizeF((font.pointSizeF() + 8.8) * 0.5);
    else if (font.pixelSize() > 0)
        font.setPixelSize((font.pixelSize() + 8) / 2);
    return font;
}

void DrawerFrame::drawGround(QPainter* painter, const DrawerGeometry& geometry)
{
    painter->fillRect(0, 0, geometry.right + 1, geometry.bottom + 1, Qt::white);
    painter->setPen(Qt::black);
    painter->drawRect(0, 0, geometry.right, geometry.bottom);
}

void DrawerFrame::drawAxes(QPainter* painter, const DrawerGeometry& geometry,
                           const QString& caption)
{
    constexpr int x = DrawerGeometry::AxisX;
    constexpr int halfTick = DrawerGeometry::TickWidth / 2;
    painter->setPen(Qt::black);
    painter->drawLine(x, geometry.yBottom, geometry.axisEnd, geometry.yBottom);
    painter->drawLine(x, geometry.yBottom, x, geometry.yTop);
    const int blank = painter->fontMetrics().horizontalAdvance(QLatin1Char(' '));
    painter->drawText(geometry.captionPosition(blank), caption);
    for (int tick = 0; tick <= DrawerGeometry::Parts; ++tick) {
        const int y = geometry.tickY(tick);
        if (tick > 0)
            painter->drawLine(x - halfTick, y, x + halfTick, y);
        painter->drawText(DrawerGeometry::LabelX, y + 5,
                          QString::number(geometry.tickValue(tick), 'g', 6));
    }
}

void DrawerFrame::drawZeroLine(QPainter* painter, const DrawerGeometry& geometry)
{
    painter->setPen(Qt::gray);
    const int y = geometry.zeroY();
    painter->drawLine(DrawerGeometry::AxisX, y, geometry.axisEnd, y);
}

void DrawerFrame::drawCurve(QPainter* painter, const DrawerGeometry& geometry, const Chart& chart,
                            qint64 skipped, int resolution, DrawerRange* range)
{
    chart.copyValues(skipped, DrawerColumns::walkLength(geometry, resolution), &m_values);
    const std::vector<QRect>& dots = m_columns.walk(m_values, resolution, geometry, range);
    painter->drawRects(dots.data(), static_cast<int>(dots.size()));
}
