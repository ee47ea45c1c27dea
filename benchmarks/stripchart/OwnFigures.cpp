#include "OwnFigures.h"

#include "Command.h"
#include "Graph.h"
#include "Measuring.h"
#include "OwnChart.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QMetaMethod>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTimer>

#include <cstdio>

namespace
{

constexpr Load Busy{16, 1000};

OwnChart& ours(Run& run) { return static_cast<OwnChart&>(run.chart()); }

/// Median frame of one load in parts of another's.
double growth(const Load& more, const Load& less, int frames)
{
    std::vector<double> ratios;
    Run moreRun(makeOurs(more), more);
    Run lessRun(makeOurs(less), less);
    for (int i = 0; i < frames; ++i) {
        const double time = moreRun.frame();
        ratios.push_back(time / lessRun.frame());
    }
    return median(ratios);
}

void printGrowth(int frames)
{
    const Load tenTimesSlower{4, 100};
    const Load usual{4, 1000};
    Load shorter = usual;
    shorter.history = History / 10;
    std::printf("frame, 10 times the samples a second     %8.2f times   at most 1.3\n",
                growth(usual, tenTimesSlower, frames));
    std::printf("frame, 10 times the stored history       %8.2f times\n",
                growth(usual, shorter, frames));
}

/// Nanoseconds for each sample, of frames' worth of them; each frame is updated outside of it.
template <class Take>
double sampleTime(Run& run, int frames, Take take)
{
    std::vector<double> times;
    for (int i = 0; i < frames; ++i) {
        const std::vector<Sample>& samples = run.next();
        const double start = cpuNanoseconds();
        for (const Sample& sample : samples)
            take(sample);
        times.push_back((cpuNanoseconds() - start) / static_cast<double>(samples.size()));
        run.chart().update(run.now());
    }
    return median(times);
}

Command replyFor(const Sample& sample, char command)
{
    Command reply(1, command, static_cast<char>(sample.curve), 0, static_cast<int>(sample.value));
    reply.setStatus(100);
    reply.setValid(true);
    return reply;
}

void printSamples(int frames)
{
    Run run(makeOurs(Busy), Busy);
    ValueOverTimeGraph& graph = ours(run).graph();
    std::printf("sample taken in, history full            %8.1f ns      at most 100\n",
                sampleTime(run, frames, [&](const Sample& sample) { run.chart().take(sample); }));
    const auto takeReply = [](ValueOverTimeGraph& target, char command) {
        return [&target, command](const Sample& sample) {
            target.takeReply(replyFor(sample, command), sample.time);
        };
    };
    std::printf("reply for one of 16 curves               %8.1f ns\n",
                sampleTime(run, frames, takeReply(graph, 6)));
    std::printf("reply for no curve, for each graph       %8.2f ns      at most 20\n",
                sampleTime(run, frames, takeReply(graph, 7)) / Busy.curves);
    const Load single{1, 1000};
    Run singleRun(makeOurs(single), single);
    std::printf("reply for the only curve                 %8.1f ns      at most 100\n",
                sampleTime(singleRun, frames, takeReply(ours(singleRun).graph(), 6)));
}

void printAllocations(int frames)
{
    Run run(makeOurs(Busy), Busy);
    OwnChart& chart = ours(run);
    const QGraphicsScene* scene = chart.graph().findChild<QGraphicsScene*>();
    const QList<QGraphicsItem*> items = scene->items(Qt::AscendingOrder);
    QImage image(CanvasSize, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(image.rect());
    const QStyleOptionGraphicsItem option;
    std::vector<double> inSamples, inUpdate, inEvents, inPaint;
    for (int i = 0; i < frames; ++i) {
        const std::vector<Sample>& samples = run.next();
        long count = allocations();
        const auto addTo = [&count](std::vector<double>& counts) {
            counts.push_back(static_cast<double>(allocations() - count));
            count = allocations();
        };
        for (const Sample& sample : samples)
            chart.take(sample);
        addTo(inSamples);
        chart.setTime(run.now());
        chart.graph().updateScene();
        addTo(inUpdate);
        chart.update(run.now());
        run.untilPainted();
        addTo(inEvents);
        painter.resetTransform();
        count = allocations();
        for (QGraphicsItem* item : items) {
            painter.setTransform(item->sceneTransform());
            if (item->isVisible())
                item->paint(&painter, &option, nullptr);
        }
        addTo(inPaint);
    }
    std::printf("allocations in a frame, curves full: samples %.0f, updateScene %.0f, "
                "the items' painting %.0f, all events to the screen %.0f\n",
                median(inSamples), median(inUpdate), median(inPaint), median(inEvents));
}

/// Percent of a processor that the whole process takes, over some seconds of the real clock.
double load(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    const double start = cpuNanoseconds();
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    return (cpuNanoseconds() - start) / static_cast<double>(clock.nsecsElapsed()) * 100;
}

/// Four curves of 200 samples a second in a running program: the graph's own timer and clock, each
/// sample a reply.
void printRunningProgram(int frames)
{
    const int milliseconds = frames * 40;
    const Load usual{4, 200};
    Run run(makeOurs(usual), usual);
    ValueOverTimeGraph& graph = ours(run).graph();
    graph.setClock({});
    graph.clearValues(); // also starts the timer
    Signal signal(usual);
    qint64 now = Epoch;
    QTimer source;
    source.setTimerType(Qt::PreciseTimer);
    QObject::connect(&source, &QTimer::timeout, &graph, [&] {
        for (const Sample& sample : signal.samples(now, now + source.interval())) {
            Command reply = replyFor(sample, 6);
            graph.IN_replyValue(&reply);
        }
        now += source.interval();
    });
    source.start(1000 / usual.rate);
    const QPoint place = graph.pos();
    load(qMin(milliseconds, 12000)); // fills the plot
    const double busy = load(milliseconds);
    graph.hide();
    const double hidden = load(milliseconds);
    source.stop();
    const double idle = load(milliseconds);
    graph.move(place);
    graph.show();
    graph.stopDrawing();
    load(200);
    std::printf("whole process, 4 curves x 200 a second   %8.1f ms a second on the screen\n"
                "  the samples alone, window hidden       %8.1f ms a second\n"
                "  window shown, time stopped, no samples %8.1f ms a second\n"
                "  window hidden, no samples              %8.1f ms a second\n",
                busy * 10, hidden * 10, load(milliseconds) * 10, idle * 10);
}

void printHiddenTick(int frames)
{
    Run run(makeOurs(Busy), Busy);
    ValueOverTimeGraph& graph = ours(run).graph();
    graph.hide();
    const QMetaObject* type = graph.metaObject();
    const QMetaMethod tick = type->method(type->indexOfSlot("updateItemClock()"));
    const int count = frames * 1000;
    const double start = cpuNanoseconds();
    for (int i = 0; i < count; ++i)
        tick.invoke(&graph, Qt::DirectConnection);
    std::printf("tick while hidden                        %8.1f ns\n",
                (cpuNanoseconds() - start) / count);
}

} // namespace

void printOwnFigures(int frames)
{
    printGrowth(frames);
    printSamples(frames);
    printAllocations(frames);
    printHiddenTick(frames);
    printRunningProgram(frames);
}
