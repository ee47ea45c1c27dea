#include "ColorTriangleFill_p.h"

#include "Numbers.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int Places = 16;

int floorToInt(double value) { return toInt(std::floor(value)); }

/// Without the noise of the trigonometry, which else puts the two ends of a horizontal edge into
/// different rows.
double roundedRow(double y)
{
    constexpr double Fineness = 1024;
    return std::round(y * Fineness) / Fineness;
}

} // namespace

ColorTriangleFill::ColorTriangleFill(std::array<Corner, 3> corners) : m_corners(corners)
{
    for (Corner& corner : m_corners)
        corner.point.setY(roundedRow(corner.point.y()));
    std::sort(m_corners.begin(), m_corners.end(),
              [](const Corner& a, const Corner& b) { return a.point.y() < b.point.y(); });
}

QRgb ColorTriangleFill::Shade::rgb() const
{
    return 0xFF000000U | static_cast<QRgb>((red & 0xFF0000) | ((green >> 8) & 0xFF00) |
                                           ((blue >> Places) & 0xFF));
}

void ColorTriangleFill::Shade::add(const Shade& step)
{
    red += step.red;
    green += step.green;
    blue += step.blue;
}

ColorTriangleFill::Shade ColorTriangleFill::End::shade() const
{
    constexpr double One = 1 << Places;
    return {toInt(channels[0] * One), toInt(channels[1] * One), toInt(channels[2] * One)};
}

ColorTriangleFill::End ColorTriangleFill::crossing(const Corner& top, const Corner& bottom, int y)
{
    // At the middle of the row, but not beyond the edge: a corner's row has the corner itself.
    double share = 0.0;
    if (y > floorToInt(top.point.y()))
        share = y < floorToInt(bottom.point.y())
                    ? (y + 0.5 - top.point.y()) / (bottom.point.y() - top.point.y())
                    : 1.0;
    const auto between = [share](double a, double b) { return a + (b - a) * share; };
    return {between(top.point.x(), bottom.point.x()),
            {between(qRed(top.color), qRed(bottom.color)),
             between(qGreen(top.color), qGreen(bottom.color)),
             between(qBlue(top.color), qBlue(bottom.color))}};
}

ColorTriangleFill::Row ColorTriangleFill::row(int y) const
{
    const auto& [top, middle, bottom] = m_corners;
    End left = crossing(top, bottom, y);
    End right =
        y < floorToInt(middle.point.y()) ? crossing(top, middle, y) : crossing(middle, bottom, y);
    if (left.x > right.x)
        std::swap(left, right);

    Row row{floorToInt(left.x), floorToInt(right.x), left.shade(), right.shade(), {}, {},
            left.x == right.x};
    if (row.last - row.first > 1) { // so there is more than one pixel between the ends
        End step{1.0, {}};
        End second{row.first + 1.5, {}};
        for (size_t i = 0; i < step.channels.size(); ++i) {
            step.channels[i] = (right.channels[i] - left.channels[i]) / (right.x - left.x);
            second.channels[i] = left.channels[i] + step.channels[i] * (second.x - left.x);
        }
        row.step = step.shade();
        row.second = second.shade();
    }
    return row;
}

void ColorTriangleFill::paint(QImage& image) const
{
    const int topmost = qMax(0, floorToInt(m_corners[0].point.y()));
    const int last = qMin(image.height() - 1, floorToInt(m_corners[2].point.y()));
    for (int y = topmost; y <= last; ++y) {
        const Row span = row(y);
        if (span.isEmpty || span.last < 0 || span.first >= image.width())
            continue;
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const int begin = qMax(0, span.first + 1);
        const int end = qMin(image.width(), span.last);
        Shade shade = span.second;
        const int skipped = begin - (span.first + 1);
        shade.add({span.step.red * skipped, span.step.green * skipped, span.step.blue * skipped});
        const Shade step =
            span.step; // a copy, so that the compiler may write several pixels at once
        for (int x = begin; x < end; ++x) {
            line[x] = shade.rgb();
            shade.add(step);
        }
        if (span.last < image.width())
            line[span.last] = span.right.rgb();
        if (span.first >= 0)
            line[span.first] = span.left.rgb();
    }
}

QRgb ColorTriangleFill::colorAt(QPointF point) const
{
    const Row span =
        row(qBound(floorToInt(m_corners.front().point.y()), floorToInt(roundedRow(point.y())),
                   floorToInt(m_corners.back().point.y())));
    const int x = floorToInt(point.x());
    if (x <= span.first)
        return span.left.rgb();
    if (x >= span.last)
        return span.right.rgb();
    Shade shade = span.second;
    const int steps = x - span.first - 1;
    shade.add({span.step.red * steps, span.step.green * steps, span.step.blue * steps});
    return shade.rgb();
}
