#ifndef REGISTERBITS_P_H
#define REGISTERBITS_P_H

#include <QtGlobal>

#include <cmath>

/// Arithmetic of raw values that is defined for every width and offset.
namespace RegisterBits
{

constexpr unsigned AllBits = 64;

/// The lowest `width` bits.
constexpr unsigned long long mask(unsigned width)
{
    return width >= AllBits ? ~0ULL : (1ULL << width) - 1;
}

constexpr unsigned long long shiftedLeft(unsigned long long raw, unsigned places)
{
    return places >= AllBits ? 0 : raw << places;
}

constexpr unsigned long long shiftedRight(unsigned long long raw, unsigned places)
{
    return places >= AllBits ? 0 : raw >> places;
}

/// Cut towards zero and bounded, negative numbers as their two's complement; not a number is 0.
inline unsigned long long fromNumber(double value)
{
    constexpr double twoTo63 = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= 2 * twoTo63)
        return ~0ULL;
    if (value >= twoTo63)
        return static_cast<unsigned long long>(value);
    return static_cast<unsigned long long>(static_cast<long long>(qMax(value, -twoTo63)));
}

/// As a signed number of `width` bits, negative when any bit from the sign's upward is set. Beyond
/// 64 bits there is no sign.
constexpr double toSigned(unsigned long long raw, unsigned width)
{
    if (width == 0)
        return 0.0;
    const unsigned long long sign = width > AllBits ? 0 : ~mask(width - 1);
    return raw & sign ? static_cast<double>(static_cast<long long>(raw | sign))
                      : static_cast<double>(raw);
}

} // namespace RegisterBits

#endif
