#ifndef COLORTRIANGLEFILL_P_H
#define COLORTRIANGLEFILL_P_H

#include <QColor>
#include <QPointF>

#include <array>

class QImage;

/// A triangle whose colour runs linearly between its corners, pixel by pixel.
///
/// What paint() writes and what colorAt() tells is one rule: each pixel has the colour of its
/// centre, and the pixels in which a corner lies have that corner's own colour.
class ColorTriangleFill
{
public:
    struct Corner {
        QPointF point;
        QRgb color;
    };
    explicit ColorTriangleFill(std::array<Corner, 3> corners);

    /// Writes the triangle's part within the image, in its 32-bit RGB format.
    void paint(QImage& image) const;

    /// The colour of the pixel at the point; from outside, that of the nearest pixel of its row,
    /// or above and below the triangle of the topmost and the last row.
    QRgb colorAt(QPointF point) const;

private:
    /// Red, green and blue with 16 binary places, so that the step to the next pixel is three
    /// whole-number additions.
    struct Shade {
        int red;
        int green;
        int blue;
        QRgb rgb() const;
        void add(const Shade& step);
    };
    /// Where an edge crosses a row.
    struct End {
        double x;
        std::array<double, 3> channels;
        Shade shade() const;
    };
    /// The pixels `first` to `last` of a row.
    struct Row {
        int first;
        int last;
        Shade left;
        Shade right;
        Shade second; ///< of the pixel behind the first
        Shade step;
        bool isEmpty;
    };

    static End crossing(const Corner& top, const Corner& bottom, int y);
    Row row(int y) const;

    std::array<Corner, 3> m_corners; // from top to bottom
};

#endif
