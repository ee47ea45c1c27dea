// What a repaint of the scaled drawer costs beside drawing the same dots with one call per chart,
// and what a sample costs the thread that feeds it while the window paints.

#include "Chart.h"
#include "DrawerArea.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <thread>
#include <vector>

namespace
{

constexpr int Charts = 8;
constexpr int Samples = 10000;
constexpr QSize Size(1000, 500);

double sample(int chart, int index) { return 1000.0 * std::sin(0.02 * index + chart); }

QColor color(int chart) { return QColor::fromHsv(40 * chart, 255, 200); }

struct Drawer {
    Drawer() : area(nullptr), image(Size, QImage::Format_ARGB32_Premultiplied)
    {
        area.resize(Size);
        area.setChartSize(Samples);
        for (int chart = 0; chart < Charts; ++chart) {
            charts.push_back(std::make_unique<Chart>(1, 0, static_cast<char>(chart), 0,
                                                     QString::number(chart), color(chart)));
            area.addChart(charts.back().get());
            for (int i = 0; i < Samples; ++i)
                charts.back()->addValue(sample(chart, i));
        }
        area.render(&image); // finds the range
    }

    DrawerArea area;
    std::vector<std::unique_ptr<Chart>> charts;
    QImage image;
};

void repaint(benchmark::State& state)
{
    Drawer drawer;
    for (auto _ : state)
        drawer.area.render(&drawer.image);
}
BENCHMARK(repaint);

void dotsAlone(benchmark::State& state)
{
    QImage image(Size, QImage::Format_ARGB32_Premultiplied);
    std::vector<std::vector<QRect>> dots(Charts);
    for (int chart = 0; chart < Charts; ++chart) {
        for (int x = 100; x < Size.width() - 20; ++x)
            dots[chart].emplace_back(x, 250 - static_cast<int>(0.2 * sample(chart, x)), 1, 1);
    }
    for (auto _ : state) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(image.rect());
        painter.fillRect(image.rect(), Qt::white);
        for (int chart = 0; chart < Charts; ++chart) {
            painter.setPen(color(chart));
            painter.drawRects(dots[chart].data(), static_cast<int>(dots[chart].size()));
        }
    }
}
BENCHMARK(dotsAlone);

/// Another thread feeds all the time. The counters tell how many samples a second it brought, and
/// how long one of them took at worst.
void repaintWhileFed(benchmark::State& state)
{
    Drawer drawer;
    std::atomic<bool> isEnded{false};
    double worst = 0.0;
    int fed = 0;
    std::thread feeder([&] {
        QElapsedTimer clock;
        for (; !isEnded; ++fed) {
            clock.start();
            drawer.area.addTraceValue(1, 0, static_cast<char>(fed & 7), 0, fed & 1023);
            worst = std::max(worst, 1e-6 * static_cast<double>(clock.nsecsElapsed()));
        }
    });
    for (auto _ : state)
        drawer.area.render(&drawer.image);
    isEnded = true;
    feeder.join();
    state.counters["samples"] = benchmark::Counter(fed, benchmark::Counter::kIsRate);
    state.counters["worst_ms"] = worst;
}
BENCHMARK(repaintWhileFed)->UseRealTime();

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
