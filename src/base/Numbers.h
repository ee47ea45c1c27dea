#ifndef NUMBERS_H
#define NUMBERS_H

#include <QtGlobal>

#include <cmath>
#include <limits>

/// Whole number of a double, cut toward zero; clamped to the range of int, "not a number" gives 0.
/// The bare cast is undefined for what lies outside.
inline int toInt(double value)
{
    if (!(value == value))
        return 0;
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

/// Clamps the result of 64-bit arithmetic to the range of int.
inline int toInt(qint64 value)
{
    return static_cast<int>(
        qBound<qint64>(std::numeric_limits<int>::min(), value, std::numeric_limits<int>::max()));
}

/// A double that may exceed int, rounded as qRound does: halves go upward (2.5 to 3, -2.5 to -2).
inline int roundToInt(double value) { return toInt(std::floor(value + 0.5)); }

#endif
