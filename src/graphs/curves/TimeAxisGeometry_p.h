#ifndef TIMEAXISGEOMETRY_P_H
#define TIMEAXISGEOMETRY_P_H

#include <QLine>
#include <QPointF>

#include <array>

/// Where the two axes of a graph, their ticks and their labels lie, in pixels of the item. Ticks
/// that found no place are left out, so that the curves can be scaled to those that did.
class TimeAxisGeometry
{
public:
    enum class Zone { NearTop, Middle, NearBottom };

    struct ValueTick {
        double y;
        double value;
        /// Fractions from 10 upward would only crowd the axis.
        bool hasLabel() const;
    };

    struct TimeTick {
        int x;
        int second; ///< within the minute; of a major tick
        bool isMajor;
    };

    static constexpr int MaximumValueTicks = 32;

    /// \param minValue differs from maxValue
    TimeAxisGeometry(double width, double height, int minValue, int maxValue, double leftMargin,
                     int fontHeight);

    Zone zone() const { return m_zone; }
    /// Of the X axis.
    double zeroLine() const { return m_zeroLine; }
    double top() const { return m_top; }
    double bottom() const { return m_bottom; }

    /// From the start of the zone upward, then downward.
    const ValueTick* begin() const { return m_ticks.data(); }
    const ValueTick* end() const { return m_ticks.data() + m_tickCount; }
    ValueTick topmost() const { return m_topmost; }
    ValueTick bottommost() const { return m_bottommost; }

    QLine valueTickLine(const ValueTick& tick) const;
    /// Baseline of a label that is so wide.
    QPoint valueLabel(const ValueTick& tick, int textWidth) const;

    /// Calls visit(TimeTick) for each tick from the right edge, where it is `actualTime`, to the
    /// left.
    template <class Visit>
    void forEachTimeTick(qint64 actualTime, Visit visit) const
    {
        const int span = timeSpan();
        const double end = span - (m_leftMargin + 10.0) * 10.0;
        const auto minor = static_cast<qint64>(MinorTick);
        for (qint64 i = (actualTime % minor + minor) % minor; i < end; i += minor) {
            const qint64 time = actualTime - i;
            visit(TimeTick{static_cast<int>((span - i) / 10), static_cast<int>(time / 1000 % 60),
                           time % MajorTick == 0});
        }
    }
    /// Rows that the X axis with its ticks and labels may touch: the first, and the one behind.
    struct Rows {
        int top;
        int bottom;
    };
    Rows timeRows() const;
    /// Baseline of the value axis' caption, and the row below all of it.
    int captionBaseline() const { return int(0.5 * m_fontHeight + m_top); }
    int captionBottom() const { return captionBaseline() + m_fontHeight; }
    QLine timeTickLine(const TimeTick& tick) const;
    /// Baseline of a label; its x is negative when there is no room for it.
    QPoint timeLabel(const TimeTick& tick, int textWidth) const;

private:
    static constexpr int MinorTick = 200; // ms
    static constexpr int MajorTick = 1000;

    int timeSpan() const;
    void placeValueTicks(int minValue, int maxValue);

    double m_width;
    double m_leftMargin;
    int m_fontHeight;
    double m_top;
    double m_bottom;
    double m_zeroLine = 0;
    Zone m_zone = Zone::Middle;
    std::array<ValueTick, MaximumValueTicks> m_ticks;
    int m_tickCount = 0;
    ValueTick m_topmost{0, 0};
    ValueTick m_bottommost{0, 0};
};

#endif
