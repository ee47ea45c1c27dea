#include "TimeAxisGeometry_p.h"

#include "Numbers.h"

#include <cmath>

namespace
{

constexpr int Parts = 10;        // of an axis whose zero lies at its end
constexpr double TopSlack = 2.0; // px by which a tick may stand out
constexpr int MajorLength = 15;  // px to one side
constexpr int MinorLength = 7;

/// Steps from 0 until they reach the limit.
int stepsTo(double limit, double step)
{
    int steps = 0;
    for (double sum = 0; sum < limit && steps < Parts; sum += step)
        ++steps;
    return steps;
}

} // namespace

bool TimeAxisGeometry::ValueTick::hasLabel() const
{
    return value == std::round(value) || std::abs(value) < 10;
}

TimeAxisGeometry::TimeAxisGeometry(double width, double height, int minValue, int maxValue,
                                   double leftMargin, int fontHeight)
    : m_width(width)
    , m_leftMargin(leftMargin)
    , m_fontHeight(fontHeight)
    , m_top(1.5 * fontHeight)
    , m_bottom(height - 1.5 * fontHeight)
{
    if (minValue < 0 && maxValue > 0) {
        const double range = static_cast<double>(maxValue) - minValue;
        m_zeroLine = (m_bottom - m_top) * maxValue / range + m_top;
    } else {
        m_zeroLine = minValue >= 0 && maxValue > 0 ? m_bottom : m_top;
    }
    if (m_zeroLine < m_top + 2 * fontHeight)
        m_zone = Zone::NearTop;
    else if (m_zeroLine > m_bottom - 2 * fontHeight)
        m_zone = Zone::NearBottom;
    placeValueTicks(minValue, maxValue);
}

void TimeAxisGeometry::placeValueTicks(int minValue, int maxValue)
{
    double step = (static_cast<double>(maxValue) - minValue) / Parts;
    int start = toInt(m_zeroLine);
    double startValue = 0;
    int upward = 0;
    int downward = 0;
    switch (m_zone) {
    case Zone::NearTop:
        start = toInt(m_top);
        startValue = maxValue;
        downward = Parts;
        break;
    case Zone::NearBottom:
        start = toInt(m_bottom);
        startValue = minValue;
        upward = Parts;
        break;
    case Zone::Middle:
        upward = qMax(0, stepsTo(maxValue, step) - 1);
        downward = qMax(0, stepsTo(-static_cast<double>(minValue), step) - 1);
        if (downward > 0)
            step = qMax(step, -static_cast<double>(minValue) / downward);
        if (upward > 0)
            step = qMax(step, static_cast<double>(maxValue) / upward);
        break;
    }
    const int parts = upward + downward;
    const double distance = parts > 0 ? (m_bottom - m_top) / parts : 0;

    m_topmost = m_bottommost = {static_cast<double>(start), startValue};
    for (int i = 0; i <= upward; ++i) {
        const ValueTick tick{start - i * distance, i * step + startValue};
        if (tick.y < m_top - TopSlack)
            continue;
        m_ticks[static_cast<std::size_t>(m_tickCount++)] = m_topmost = tick;
    }
    for (int i = 1; i <= downward; ++i) {
        const ValueTick tick{start + i * distance, startValue - i * step};
        if (tick.y > m_bottom + TopSlack)
            continue;
        m_ticks[static_cast<std::size_t>(m_tickCount++)] = m_bottommost = tick;
    }
}

QLine TimeAxisGeometry::valueTickLine(const ValueTick& tick) const
{
    const int y = toInt(tick.y);
    return {toInt(m_leftMargin - 5.0), y, toInt(m_leftMargin + 5.0), y};
}

QPoint TimeAxisGeometry::valueLabel(const ValueTick& tick, int textWidth) const
{
    return {toInt(m_leftMargin - 15.0 - textWidth), toInt(0.5 * m_fontHeight + tick.y - 1.0)};
}

int TimeAxisGeometry::timeSpan() const { return toInt(m_width * 10.0); }

TimeAxisGeometry::Rows TimeAxisGeometry::timeRows() const
{
    constexpr int Margin = 2; // px of a smooth line
    const int zero = toInt(m_zeroLine);
    const int baseline = timeLabel({}, 0).y(); // a text's height allows for both of its sides
    const int top = m_zone == Zone::NearTop ? baseline - m_fontHeight : zero - MajorLength;
    const int bottom = m_zone == Zone::NearTop ? zero + MajorLength : baseline + m_fontHeight;
    return {top - Margin, bottom + Margin};
}

QLine TimeAxisGeometry::timeTickLine(const TimeTick& tick) const
{
    const int length = tick.isMajor ? MajorLength : MinorLength;
    const int zero = toInt(m_zeroLine);
    const int below = m_zone == Zone::NearBottom ? zero : toInt(m_zeroLine + length);
    const int above = m_zone == Zone::NearTop ? zero : toInt(m_zeroLine - length);
    return {tick.x, below, tick.x, above};
}

QPoint TimeAxisGeometry::timeLabel(const TimeTick& tick, int textWidth) const
{
    const int x = toInt(tick.x - 0.5 * textWidth);
    switch (m_zone) {
    case Zone::NearTop:
        return {x, toInt(m_zeroLine - 7.0)};
    case Zone::NearBottom:
        return {x, toInt(m_fontHeight + m_zeroLine)};
    case Zone::Middle:
        break;
    }
    return {x, toInt(m_fontHeight + m_zeroLine + 15.0)};
}
