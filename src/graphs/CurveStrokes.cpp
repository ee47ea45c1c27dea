#include "CurveStrokes_p.h"

#include "CurveColumns_p.h"
#include "Numbers.h"

#include <QPainter>
#include <QTransform>

#include <cmath>

namespace
{

constexpr double BoldDistance = 20.0; // px of way from dot to dot
constexpr int Margin = 2;             // px from a dot's picture to the circle

} // namespace

int CurveGeometry::timeSpan() const { return toInt(CurveColumns::Milliseconds * width); }

double CurveGeometry::exactX(qint64 time) const
{
    return width - static_cast<double>(actualTime - time) * width / timeSpan();
}

int CurveGeometry::x(qint64 slot) const
{
    return toInt(width - static_cast<double>(CurveColumns::slotOf(actualTime) - slot));
}

int CurveGeometry::y(double value) const
{
    // beyond a million pixels a line's slope is no longer to be seen
    constexpr double Far = 1e6;
    const double range = static_cast<double>(maxValue) - minValue;
    return toInt(qBound(-Far, (maxValue - value) * height / range, Far));
}

void CurveStrokes::build(const CurveColumns& columns, const CurveGeometry& geometry, bool withLines,
                         Dots dots, const QTransform& scene)
{
    m_lines.clear();
    m_dots.clear();
    const bool isShifted = scene.type() <= QTransform::TxTranslate;
    QPoint lastBold(-1, -1);
    const auto mark = [&](const QPoint& point) {
        if (dots == ThinnedDots) {
            const QLineF way(lastBold, point);
            if ((isShifted ? way : scene.map(way)).length() <= BoldDistance)
                return;
            lastBold = point;
        }
        m_dots.push_back(point);
    };

    const std::size_t count = columns.size();
    bool connects = false;
    QPoint previous;
    for (std::size_t i = columns.find(CurveColumns::slotOf(geometry.startTime())); i < count; ++i) {
        const CurveColumns::Column& column = columns[i];
        if (column.time > geometry.actualTime)
            break;
        const int x = geometry.x(column.slot);
        const QPoint first(x, geometry.y(column.first));
        QPoint lowest = first;
        QPoint highest = first;
        QPoint last = first;
        const bool isStroke = column.lowest < column.highest;
        if (isStroke) {
            lowest.setY(geometry.y(column.lowest));
            highest.setY(geometry.y(column.highest));
            last.setY(geometry.y(column.last));
        }
        if (withLines && connects)
            m_lines.emplace_back(previous, first);
        // the leftmost pixels start no line
        connects = geometry.exactX(column.time) > 1.0;
        if (withLines && connects && isStroke)
            m_lines.emplace_back(highest, lowest);
        previous = last;
        if (dots == NoDots)
            continue;
        mark(first);
        if (isStroke) {
            if (highest != first)
                mark(highest);
            if (lowest != first)
                mark(lowest);
            if (last != first && last != highest && last != lowest)
                mark(last);
        }
    }
}

void DotPicture::draw(QPainter* painter, const std::vector<QPoint>& points, int diameter)
{
    if (points.empty())
        return;
    const int radius = diameter / 2;
    const QTransform& device = painter->deviceTransform();
    if (device.type() > QTransform::TxTranslate) {
        for (const QPoint& point : points)
            painter->drawEllipse(point.x() - radius, point.y() - radius, diameter, diameter);
        return;
    }
    const QPointF shift(device.dx() - std::floor(device.dx()),
                        device.dy() - std::floor(device.dy()));
    make(painter->pen().color(), diameter, shift);
    const QPointF corner = shift + QPointF(radius + Margin, radius + Margin);
    for (const QPoint& point : points)
        painter->drawImage(point - corner, m_picture);
}

void DotPicture::make(const QColor& color, int diameter, const QPointF& shift)
{
    if (m_diameter == diameter && m_color == color && m_shift == shift)
        return;
    m_diameter = diameter;
    m_color = color;
    m_shift = shift;
    const int side = diameter + 2 * Margin + 1;
    m_picture = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    m_picture.fill(Qt::transparent);
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(shift + QPointF(Margin, Margin));
    painter.drawEllipse(0, 0, diameter, diameter);
}
