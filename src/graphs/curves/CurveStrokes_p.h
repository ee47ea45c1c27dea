#ifndef CURVESTROKES_P_H
#define CURVESTROKES_P_H

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPoint>
#include <QPointF>

#include <vector>

class CurveColumns;
class QTransform;

/// How the samples of a curve map to the pixels of its item.
struct CurveGeometry {
    double width;
    double height;
    qint64 actualTime; ///< at the right edge, ms
    int minValue;      ///< at the bottom
    int maxValue;      ///< at the top; differs from the bottom

    bool isEmpty() const { return timeSpan() <= 0 || height <= 0; }
    /// Milliseconds from the left to the right edge.
    int timeSpan() const;
    /// Where a sample of this time stands, in pixels with a fraction.
    double exactX(qint64 time) const;
    /// The slot of CurveColumns whose pixel column is 0.
    qint64 origin() const;
    int y(double value) const;
};

/// What a curve draws, made anew for each frame in the same memory.
class CurveStrokes
{
public:
    enum Dots { NoDots, ThinnedDots, AllDots };

    /// The curve's lines as far as they are between two slots, and perhaps beyond.
    /// \param origin the slot at x = 0
    std::vector<QLineF>& lines(const CurveColumns& columns, const CurveGeometry& geometry,
                               qint64 from, qint64 to, qint64 origin);

    /// All lines, in the item's coordinates and the painter's pen.
    void drawLines(QPainter* painter, const CurveColumns& columns, const CurveGeometry& geometry);

    /// The points to be marked, in the item's coordinates.
    /// \param scene the item's transformation to its scene, in which the way between dots is long
    const std::vector<QPoint>& dots(CurveColumns& columns, const CurveGeometry& geometry, Dots dots,
                                    const QTransform& scene);

    /// The first slot from which a line starts; behind the end when there is none. Of ascending
    /// columns.
    static qint64 firstLine(const CurveColumns& columns, const CurveGeometry& geometry);

private:
    std::vector<QLineF> m_lines;
    std::vector<QPoint> m_dots;
    std::vector<QPoint> m_dotsBefore; // of the last frame
    CurveGeometry m_dotsGeometry{};   // of m_dots
    bool m_dotsAreWalk = false;       // whether each depends on the one before
};

/// Clips to the whole area that is painted on, unless there is a clip: with one the engine draws
/// antialiased lines many times faster.
void clipToDevice(QPainter* painter);

/// The picture of a circle's outline, drawn once for a colour, a size and a place between the
/// pixels.
class DotPicture
{
public:
    /// Draws one around each of the points, which are whole pixels of the painter's coordinates.
    void draw(QPainter* painter, const std::vector<QPoint>& points, int diameter);

private:
    void make(const QColor& color, int diameter, const QPointF& shift, QPainter::RenderHints hints);

    void crop();

    QImage m_picture;
    QRect m_inked; // the picture's place in all that it was drawn on
    QColor m_color;
    int m_diameter = 0;
    QPainter::RenderHints m_hints;
    QPointF m_shift; // 0..1 pixel to the right and down
};

#endif
