#ifndef STRAIGHTLINE_P_H
#define STRAIGHTLINE_P_H

#include <QLineF>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>

/// Whether pixels are painted; else what is drawn is recorded or put into a file, as a drawing and
/// not as its pixels.
inline bool paintsPixels(const QPainter* painter)
{
    return painter->paintEngine()->type() == QPaintEngine::Raster;
}

/// Draws a line in the painter's pen. A smooth, thin, level or upright one is filled as the
/// rectangle that it covers, which the engine does many times faster than pixel by pixel.
inline void drawStraightLine(QPainter* painter, const QLineF& line)
{
    constexpr double Half = 0.5; // px, of the pen
    const QPen pen = painter->pen();
    if ((line.dx() == 0) == (line.dy() == 0) || pen.capStyle() == Qt::FlatCap ||
        (pen.widthF() != 0 && pen.widthF() != 1) || pen.style() != Qt::SolidLine ||
        !paintsPixels(painter) || !painter->testRenderHint(QPainter::Antialiasing) ||
        painter->transform().type() > QTransform::TxTranslate) {
        painter->drawLine(line);
        return;
    }
    const QRectF covered = QRectF(line.p1(), line.p2()).normalized();
    painter->fillRect(covered.adjusted(-Half, -Half, Half, Half), pen.brush());
}

#endif
