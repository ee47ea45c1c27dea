#include "DrawerGeometry_p.h"

#include "Numbers.h"

namespace
{

/// Far outside any widget, and near enough for the paint engine to reckon with.
int pixel(double y)
{
    constexpr double Far = 1e6;
    return toInt(qBound(-Far, y, Far));
}

} // namespace

DrawerGeometry::DrawerGeometry(const QSize& size, int fontHeight, int minimum, int maximum)
    : right(size.width() - 1)
    , bottom(size.height() - 1)
    , yBottom(bottom - 19)
    , plotHeight(bottom - 39 - fontHeight)
    , yTop(yBottom - plotHeight)
    , axisEnd(right - 19)
    , minValue(minimum)
    , step(static_cast<float>((static_cast<double>(maximum) - minimum) / Parts))
    , scale(maximum == minimum ? 0.0 : plotHeight / static_cast<double>(step * Parts))
{
}

double DrawerGeometry::tickValue(int tick) const
{
    return static_cast<double>(static_cast<float>(minValue) + static_cast<float>(tick) * step);
}

int DrawerGeometry::tickY(int tick) const
{
    return pixel(yBottom - static_cast<double>(static_cast<float>(tick) * step) * scale);
}

int DrawerGeometry::tickAt(const QPoint& position, int fontHeight) const
{
    if (!hasPlot() || position.x() < LabelX || position.x() >= AxisX)
        return -1;
    int nearest = -1;
    int distance = fontHeight / 2 + 1;
    for (int tick = 0; tick <= Parts; ++tick) {
        if (qAbs(position.y() - tickY(tick)) < distance) {
            distance = qAbs(position.y() - tickY(tick));
            nearest = tick;
        }
    }
    return nearest;
}

int DrawerGeometry::zeroY() const { return pixel(minValue * scale + yBottom); }

int DrawerGeometry::y(double value) const { return pixel(yBottom - (value - minValue) * scale); }

bool DrawerGeometry::isInPlot(int y) const
{
    return hasPlot() && scale != 0.0 && y >= yTop - 5 && y <= yBottom;
}

QPoint DrawerGeometry::captionPosition(int blankWidth) const
{
    return {AxisX + blankWidth, yTop - 10};
}

QPoint DrawerGeometry::legendPosition(int legendWidth, int line) const
{
    return {axisEnd - legendWidth, yBottom - (2 * plotHeight) / 3 + line * LegendLine};
}

void DrawerRange::take(double value)
{
    if (!(value == value))
        return;
    isEmpty = false;
    least = qMin(least, value);
    greatest = qMax(greatest, value);
}

int DrawerRange::minimum() const
{
    return least < HighestMinimum ? toInt(least - 1.0) : HighestMinimum;
}

int DrawerRange::maximum() const
{
    return greatest > LowestMaximum ? toInt(greatest + 1.0) : LowestMaximum;
}

qint64 DrawerColumns::walkLength(const DrawerGeometry& geometry, int resolution)
{
    return (geometry.columns() + qint64(1)) * resolution;
}

const std::vector<QRect>& DrawerColumns::walk(const std::vector<double>& values, int resolution,
                                              const DrawerGeometry& geometry, DrawerRange* range)
{
    m_rects.clear();
    const int columns = geometry.columns();
    int column = 0;
    int samples = 0;
    for (auto value = values.rbegin(); value != values.rend(); ++value) {
        range->take(*value);
        if (++samples < resolution)
            continue;
        if (column >= columns)
            break;
        const int y = geometry.y(*value);
        if (geometry.isInPlot(y))
            m_rects.emplace_back(geometry.x(column), y, 1, 1);
        ++column;
        samples = 0;
    }
    return m_rects;
}
