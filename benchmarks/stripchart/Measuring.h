#ifndef MEASURING_H
#define MEASURING_H

#include "StripChart.h"

#include <QObject>

#include <ctime>
#include <functional>
#include <vector>

/// Of all threads of the program, so that none can hide its work.
inline double cpuNanoseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

/// Blocks of memory taken so far.
long allocations();

double median(std::vector<double> values);

/// The same samples for everyone: a slow wave for each curve and some noise, whole numbers.
class Signal
{
public:
    explicit Signal(const Load& load) : m_load(load) {}

    /// The samples of `from` < time <= `to`, in the order of their arrival.
    const std::vector<Sample>& samples(qint64 from, qint64 to);

private:
    double value(int curve, qint64 time) const;

    Load m_load;
    std::vector<Sample> m_samples;
};

/// A contender under a load in a window on the screen, with its history full.
class Run : public QObject
{
public:
    Run(std::unique_ptr<StripChart> chart, const Load& load);

    /// Puts its window above the others.
    void toFront();
    /// Milliseconds of the next frame as it really runs: a timer fires in the event loop, samples
    /// are taken, the chart is updated, and the loop runs until the window's painting is on the
    /// screen.
    double frame();
    /// The next frame's samples, for those who measure a part of a frame by themselves.
    const std::vector<Sample>& next();
    /// Runs the event loop until the canvas was painted, which must be on its way.
    void untilPainted();
    qint64 now() const { return m_now; }
    StripChart& chart() { return *m_chart; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<StripChart> m_chart;
    Signal m_signal;
    qint64 m_now = Epoch;
    bool m_isPainted = false;
};

struct Contender {
    const char* name;
    std::function<std::unique_ptr<StripChart>(const Load&)> make;
};

/// Median milliseconds of a frame for each of them, in their order. They take turns, so that
/// what else the machine does meets all.
std::vector<double> frameTimes(const std::vector<Contender>& contenders, const Load& load,
                               int frames);

#endif
