#include "ColorTriangleGeometry_p.h"

#include "Numbers.h"

#include <cmath>

namespace
{

constexpr double FullTurn = ColorTriangleGeometry::FullTurn;
constexpr double QuarterTurn = FullTurn / 4;
constexpr int Degrees = 360;

double withinOneTurn(double angle) { return angle > FullTurn ? angle - FullTurn : angle; }

} // namespace

double ColorTriangleGeometry::angleOfHue(int hue)
{
    return withinOneTurn((Degrees - hue) * FullTurn / Degrees + QuarterTurn);
}

int ColorTriangleGeometry::hue() const
{
    const double fromTop = hueAngle - QuarterTurn;
    const double turned = fromTop < 0 ? fromTop + FullTurn : fromTop;
    return (Degrees - roundToInt(turned * Degrees / FullTurn)) % Degrees;
}

QRect ColorTriangleGeometry::circle(int radius) const
{
    const QPoint corner = center() - QPoint(radius, radius);
    return QRect(corner, QSize(2 * radius + 1, 2 * radius + 1));
}

QPointF ColorTriangleGeometry::corner(Corner which) const
{
    return onCircle(innerRadius(), withinOneTurn(hueAngle + which * FullTurn / 3));
}

QPointF ColorTriangleGeometry::hueMarker() const
{
    return onCircle(outerRadius() - outerRadius() / 10, hueAngle);
}

QPointF ColorTriangleGeometry::position(int saturation, int value) const
{
    // Colours of one saturation lie on a line through the black corner, colours of one value on a
    // line parallel to the edge opposite to it. So the value is the share of the way from black to
    // that edge.
    const QPointF black = corner(Black);
    const QPointF pure = corner(PureHue);
    const QPointF onEdge = pure + (corner(White) - pure) * (255 - saturation) / 255.0;
    return black + (onEdge - black) * value / 255.0;
}

bool ColorTriangleGeometry::isInsideRing(QPointF point) const
{
    const QPointF offset = point - center();
    return std::hypot(offset.x(), offset.y()) <= innerRadius();
}

double ColorTriangleGeometry::angleAt(QPointF point) const
{
    const QPointF offset = point - center();
    const double distance = std::hypot(offset.x(), offset.y());
    if (distance == 0.0)
        return 0.0;
    const double angle = std::acos(qBound(-1.0, offset.x() / distance, 1.0));
    return offset.y() < 0 ? angle : FullTurn - angle;
}

QPointF ColorTriangleGeometry::movedIntoTriangle(QPointF point) const
{
    // Of the three edges the one counts that the point lies farthest outside of: it is the one seen
    // from the centre in the point's direction.
    QPointF nearest = point;
    double farthest = 0.0;
    for (const auto& ends :
         {std::array<Corner, 2>{PureHue, Black}, {Black, White}, {White, PureHue}}) {
        const QPointF from = corner(ends[0]);
        const QPointF edge = corner(ends[1]) - from;
        const QPointF way = point - from;
        const double length = std::hypot(edge.x(), edge.y());
        if (length == 0.0)
            return from;
        const double outside = (edge.x() * way.y() - edge.y() * way.x()) / length;
        if (outside <= farthest)
            continue;
        farthest = outside;
        const double along = QPointF::dotProduct(way, edge) / (length * length);
        nearest = from + edge * qBound(0.0, along, 1.0);
    }
    return nearest;
}

QPointF ColorTriangleGeometry::onCircle(int radius, double angle) const
{
    return center() + QPointF(radius * std::cos(angle), -radius * std::sin(angle));
}
