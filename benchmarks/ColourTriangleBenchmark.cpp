// What a repaint of the colour triangle costs beside the bare filling of as many pixels.

#include "ColorTriangle.h"

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <benchmark/benchmark.h>

namespace
{

constexpr int Side = 400;

QImage image() { return QImage(Side, Side, QImage::Format_RGB32); }

void fillByPixel(benchmark::State& state)
{
    QImage target = image();
    QRgb color = qRgb(1, 2, 3);
    for (auto _ : state) {
        ++color;
        for (int y = 0; y < Side; ++y) {
            auto* line = reinterpret_cast<QRgb*>(target.scanLine(y));
            for (int x = 0; x < Side; ++x) {
                line[x] = color;
                benchmark::DoNotOptimize(line[x]); // each pixel is a step of its own
            }
        }
    }
}
BENCHMARK(fillByPixel)->Unit(benchmark::kMicrosecond);

/// The compiler may write several pixels at once.
void fillByRow(benchmark::State& state)
{
    QImage target = image();
    QRgb color = qRgb(1, 2, 3);
    for (auto _ : state) {
        ++color;
        for (int y = 0; y < Side; ++y) {
            auto* line = reinterpret_cast<QRgb*>(target.scanLine(y));
            for (int x = 0; x < Side; ++x)
                line[x] = color;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(fillByRow)->Unit(benchmark::kMicrosecond);

void fillByQImage(benchmark::State& state)
{
    QImage target = image();
    uint color = qRgb(1, 2, 3);
    for (auto _ : state) {
        target.fill(++color);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(fillByQImage)->Unit(benchmark::kMicrosecond);

/// A whole repaint into an image while the colour moves within the triangle.
void repaint(benchmark::State& state)
{
    ColorTriangle triangle;
    triangle.resize(Side, Side);
    QImage target = image();
    triangle.render(&target);
    int value = 0;
    for (auto _ : state) {
        value = (value + 1) % 256;
        triangle.setColor(QColor::fromHsv(76, 184, value));
        triangle.render(&target, QPoint(), QRegion(), QWidget::RenderFlags());
    }
}
BENCHMARK(repaint)->Unit(benchmark::kMicrosecond);

/// The same while the hue turns, so that the triangle is filled each time.
void repaintTurned(benchmark::State& state)
{
    ColorTriangle triangle;
    triangle.resize(Side, Side);
    QImage target = image();
    triangle.render(&target);
    int hue = 0;
    for (auto _ : state) {
        hue = (hue + 1) % 360;
        triangle.setColor(QColor::fromHsv(hue, 184, 206));
        triangle.render(&target, QPoint(), QRegion(), QWidget::RenderFlags());
    }
}
BENCHMARK(repaintTurned)->Unit(benchmark::kMicrosecond);

/// The same with the ring drawn anew, as after a resize.
void repaintWithRing(benchmark::State& state)
{
    ColorTriangle triangle;
    triangle.resize(Side, Side);
    QImage target = image();
    triangle.render(&target);
    for (auto _ : state) {
        QEvent change(QEvent::StyleChange);
        QApplication::sendEvent(&triangle, &change);
        triangle.render(&target, QPoint(), QRegion(), QWidget::RenderFlags());
    }
}
BENCHMARK(repaintWithRing)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
