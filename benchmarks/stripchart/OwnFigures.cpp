#include "OwnFigures.h"

#include "Command.h"
#include "Graph.h"
#include "Measuring.h"
#include "OwnChart.h"

#include <QMetaMethod>

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
    std::vector<double> inSamples, inUpdate, inView, inPaint;
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
        chart.updateGraph(run.now());
        addTo(inUpdate);
        chart.updateView();
        addTo(inView);
        run.paint();
        addTo(inPaint);
    }
    std::printf("allocations in a frame, curves full: samples %.0f, updateScene %.0f, "
                "the scene's own events %.0f, painting %.0f\n",
                median(inSamples), median(inUpdate), median(inView), median(inPaint));
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
}
