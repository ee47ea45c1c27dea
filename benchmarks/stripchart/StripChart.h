#ifndef STRIPCHART_H
#define STRIPCHART_H

#include "BasicTools.h"
#include "Numbers.h"
#include "Ring_p.h"

#include <QColor>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

constexpr QSize CanvasSize(1200, 600);
constexpr int MillisecondsPerPixel = 10;
constexpr int FrameInterval = 40;       // ms
constexpr int History = 56000;          // ms
constexpr qint64 Epoch = 2000000000000; // ms; a full second in the future, where no curve times out

struct Sample {
    int curve;
    double value;
    qint64 time; // ms since the epoch
};

/// What all contenders have to show.
struct Load {
    int curves;
    int rate;                  ///< samples a second of each curve
    int rangeSpan = History;   ///< ms of which the value range is made
    int history = History;     ///< ms; ours only
    bool rangeChanges = false; ///< each frame has another range
};

/// One contender: a strip chart of CanvasSize with antialiased lines, labelled axes, names of the
/// curves and lines at the least and the greatest value.
class StripChart
{
public:
    virtual ~StripChart() = default;
    virtual void take(const Sample& sample) = 0;
    /// All that a frame needs before it is painted, and the request to paint it.
    virtual void update(qint64 now) = 0;
    /// What is painted, in a window on the screen; of CanvasSize.
    virtual QWidget* canvas() = 0;
};

inline QString curveName(int curve) { return QStringLiteral("curve %1").arg(curve + 1); }

inline QColor curveColor(int curve) { return QColor::fromHsv(curve * 67 % 360, 255, 200); }

/// Least and greatest value of the last milliseconds, over all curves, without a walk. All
/// contenders but ours, which has its own, are scaled by it, so that none pays for finding them.
class RunningRange
{
public:
    explicit RunningRange(int span) : m_span(span) {}

    void take(double value, qint64 time)
    {
        while (!m_lowest.isEmpty() && m_lowest.back().value >= value)
            m_lowest.removeLast();
        m_lowest.append({value, time});
        while (!m_highest.isEmpty() && m_highest.back().value <= value)
            m_highest.removeLast();
        m_highest.append({value, time});
    }

    /// Forgets what is too old.
    /// \return whether the rounded range is another one
    bool advance(qint64 now)
    {
        for (Ring<Extreme>* queue : {&m_lowest, &m_highest}) {
            while (queue->size() > 1 && queue->front().time <= now - m_span)
                queue->removeFirst();
        }
        int low = toInt(lowest());
        int high = toInt(highest());
        BasicTools::adjustLinearAxis(low, high);
        const bool isOther = low != m_bottom || high != m_top;
        m_bottom = low;
        m_top = high;
        return isOther;
    }

    double lowest() const { return m_lowest.front().value; }
    double highest() const { return m_highest.front().value; }
    /// The same as round numbers, as of the last advance().
    int bottom() const { return m_bottom; }
    int top() const { return m_top; }

private:
    struct Extreme {
        double value;
        qint64 time;
    };

    int m_span;
    Ring<Extreme> m_lowest;
    Ring<Extreme> m_highest;
    int m_bottom = 0;
    int m_top = 1;
};

/// Draws each frame anew from one minimum and maximum per curve and pixel column.
std::unique_ptr<StripChart> makeRedrawnFloor(const Load& load);
/// Keeps the curves as an image, which it shifts, and draws only the new columns.
std::unique_ptr<StripChart> makeScrolledFloor(const Load& load);
std::unique_ptr<StripChart> makeOurs(const Load& load);
std::unique_ptr<StripChart> makeOursWithDots(const Load& load);
#ifdef HAVE_QCUSTOMPLOT
std::unique_ptr<StripChart> makeQCustomPlot(const Load& load);
#endif
#ifdef HAVE_QWT
std::unique_ptr<StripChart> makeQwt(const Load& load);
/// Fed with the minimum and maximum of each pixel column.
std::unique_ptr<StripChart> makeQwtPairs(const Load& load);
#endif

#endif
