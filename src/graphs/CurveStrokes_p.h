#ifndef CURVESTROKES_P_H
#define CURVESTROKES_P_H

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QPoint>
#include <QPointF>

#include <vector>

class CurveColumns;
class QPainter;
class QTransform;

/// How the samples of a curve map to the pixels of its item.
struct CurveGeometry {
    double width;
    double height;
    qint64 actualTime; ///< at the right edge, ms
    int minValue;      ///< at the bottom
    int maxValue;      ///< at the top; differs from the bottom

    /// Milliseconds from the left to the right edge.
    int timeSpan() const;
    qint64 startTime() const { return actualTime - timeSpan(); }
    /// Where a sample of this time stands, in pixels with a fraction.
    double exactX(qint64 time) const;
    /// The pixel column of a slot of CurveColumns.
    int x(qint64 slot) const;
    int y(double value) const;
};

/// What a curve draws in one frame: lines and dots, in item coordinates. Made anew for each frame
/// in the same memory.
class CurveStrokes
{
public:
    enum Dots { NoDots, ThinnedDots, AllDots };

    /// \param scene the item's transformation to its scene, in which the way between dots is long
    void build(const CurveColumns& columns, const CurveGeometry& geometry, bool withLines,
               Dots dots, const QTransform& scene);

    const std::vector<QLineF>& lines() const { return m_lines; }
    /// The points to be marked.
    const std::vector<QPoint>& dots() const { return m_dots; }

private:
    std::vector<QLineF> m_lines;
    std::vector<QPoint> m_dots;
};

/// The picture of a circle's outline, drawn once for a colour, a size and a place between the
/// pixels.
class DotPicture
{
public:
    /// Draws one around each of the points, which are whole pixels of the painter's coordinates.
    void draw(QPainter* painter, const std::vector<QPoint>& points, int diameter);

private:
    void make(const QColor& color, int diameter, const QPointF& shift);

    QImage m_picture;
    QColor m_color;
    int m_diameter = 0;
    QPointF m_shift; // 0..1 pixel to the right and down
};

/// What an item keeps from frame to frame, so that a frame allocates nothing.
class CurveDrawing
{
public:
    CurveStrokes strokes;
    DotPicture dot;
};

#endif
