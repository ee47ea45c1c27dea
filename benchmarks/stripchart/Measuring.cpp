#include "Measuring.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <utility>

namespace
{

std::atomic<long> allocationCount{0};
constexpr int WarmUp = 20; // frames
constexpr int Turn = 25;

/// -1..1, the same at each call.
double noise(quint64 seed)
{
    seed = (seed ^ (seed >> 30)) * 0xbf58476d1ce4e5b9u;
    seed = (seed ^ (seed >> 27)) * 0x94d049bb133111ebu;
    seed ^= seed >> 31;
    return static_cast<double>(seed >> 11) / static_cast<double>(quint64(1) << 52) - 1.0;
}

} // namespace

#ifdef __GLIBC__
// Stand before the C library's for the whole program, Qt included; operator new comes here too.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);

__attribute__((visibility("default"))) void* malloc(size_t size)
{
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}
__attribute__((visibility("default"))) void* calloc(size_t count, size_t size)
{
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}
__attribute__((visibility("default"))) void* realloc(void* block, size_t size)
{
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}
}
#endif

long allocations() { return allocationCount.load(std::memory_order_relaxed); }

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

const std::vector<Sample>& Signal::samples(qint64 from, qint64 to)
{
    m_samples.clear();
    const qint64 first = (from - Epoch) * m_load.rate / 1000 + 1;
    const qint64 last = (to - Epoch) * m_load.rate / 1000;
    for (qint64 i = first; i <= last; ++i) {
        const qint64 time = Epoch + i * 1000 / m_load.rate;
        for (int curve = 0; curve < m_load.curves; ++curve)
            m_samples.push_back({curve, value(curve, time), time});
    }
    if (m_load.rangeChanges) // one sample that sets the range of this frame
        m_samples.back().value = 1500 + 500 * static_cast<double>(to / FrameInterval % 8);
    return m_samples;
}

double Signal::value(int curve, qint64 time) const
{
    const double seconds = static_cast<double>(time - Epoch) / 1000;
    const double turns = seconds / (3.0 + 0.3 * curve) + curve / 7.0;
    const auto seed = static_cast<quint64>(time) * 31 + static_cast<quint64>(curve);
    return std::round(900 * std::sin(2 * M_PI * turns) + 20 * noise(seed));
}

Run::Run(std::unique_ptr<StripChart> chart, const Load& load)
    : m_chart(std::move(chart)), m_signal(load)
{
    m_chart->canvas()->installEventFilter(this);
    for (int i = 0; i < load.history / FrameInterval; ++i) {
        for (const Sample& sample : next())
            m_chart->take(sample);
    }
    for (int i = 0; i < WarmUp; ++i)
        frame();
}

void Run::toFront()
{
    m_chart->canvas()->window()->raise();
    QCoreApplication::processEvents();
}

const std::vector<Sample>& Run::next()
{
    m_now += FrameInterval;
    return m_signal.samples(m_now - FrameInterval, m_now);
}

double Run::frame()
{
    const std::vector<Sample>& samples = next();
    m_isPainted = false;
    const double start = cpuNanoseconds();
    QTimer::singleShot(0, this, [&] {
        for (const Sample& sample : samples)
            m_chart->take(sample);
        m_chart->update(m_now);
    });
    untilPainted();
    return (cpuNanoseconds() - start) / 1e6;
}

void Run::untilPainted()
{
    // The painting is part of an event that also brings it to the screen.
    while (!std::exchange(m_isPainted, false))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
    m_isPainted = false;
}

bool Run::eventFilter(QObject* watched, QEvent* event)
{
    m_isPainted = m_isPainted || event->type() == QEvent::Paint;
    return QObject::eventFilter(watched, event);
}

std::vector<double> frameTimes(const std::vector<Contender>& contenders, const Load& load,
                               int frames)
{
    std::vector<std::unique_ptr<Run>> runs;
    for (const Contender& contender : contenders)
        runs.push_back(std::make_unique<Run>(contender.make(load), load));
    std::vector<std::vector<double>> times(runs.size());
    for (int done = 0; done < frames; done += Turn) {
        for (std::size_t i = 0; i < runs.size(); ++i) {
            runs[i]->toFront();
            for (int frame = done; frame < qMin(frames, done + Turn); ++frame)
                times[i].push_back(runs[i]->frame());
        }
    }
    std::vector<double> medians;
    std::transform(times.begin(), times.end(), std::back_inserter(medians), median);
    return medians;
}
