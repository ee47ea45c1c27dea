#ifndef COLORTRIANGLEGEOMETRY_P_H
#define COLORTRIANGLEGEOMETRY_P_H

#include <QPointF>
#include <QRect>
#include <QSize>

#include <array>

/// Where things are in the colour triangle, in pixels from the top left of its contents.
///
///            ______
///         /  __*_   \      * hue marker, in the middle of the ring
///       /  /  / \  \  \    the triangle's corners lie on the ring's inner circle, the one of the
///      |  |  /   \  |  |   pure hue below the hue marker; black and white follow it by a third of
///      |  | /_____\ |  |   a turn each, counterclockwise
///       \  \ ____ /  /
///         \ _______ /
///
/// Angles are in radians, counterclockwise from the right, 0..2 pi.
struct ColorTriangleGeometry {
    enum Corner { PureHue, Black, White };
    static constexpr double FullTurn = 2 * 3.14159265358979323846;

    QSize size;
    double hueAngle = 0.0; ///< of the hue marker and the corner of the pure hue

    /// The angle at which the ring shows a hue of 0..359.
    static double angleOfHue(int hue);
    /// The hue of 0..359 that the ring shows at hueAngle.
    int hue() const;

    /// No room for anything.
    bool isEmpty() const { return outerRadius() <= 0; }
    QPoint center() const { return QRect(QPoint(), size).center(); }
    int outerRadius() const { return qMin(size.width() / 2, size.height() / 2); }
    int innerRadius() const { return outerRadius() - outerRadius() / 5; }
    /// The square around one of the ring's circles. Its sides are odd, so that the circle's centre
    /// is a pixel.
    QRect circle(int radius) const;
    int penWidth() const { return outerRadius() / 50; }
    int markerSize() const { return outerRadius() * 2 / 25; }

    QPointF corner(Corner which) const;
    QPointF hueMarker() const;
    /// Where a saturation and a value, both 0..255, lie in the triangle.
    QPointF position(int saturation, int value) const;

    /// Whether a press here takes a colour of the triangle; else it takes a hue.
    bool isInsideRing(QPointF point) const;
    /// The point's angle around the centre; 0 at the centre.
    double angleAt(QPointF point) const;
    /// The triangle's point next to this one; the point itself inside.
    QPointF movedIntoTriangle(QPointF point) const;

private:
    QPointF onCircle(int radius, double angle) const;
};

#endif
