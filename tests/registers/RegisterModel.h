#ifndef REGISTERMODEL_H
#define REGISTERMODEL_H

#include <cmath>
#include <limits>
#include <random>

/// Registers as plain 128-bit arithmetic, in which nothing is shifted too far or overflows.
namespace RegisterModel
{

using Wide = __int128;
using Raw = unsigned long long;

inline Wide power(unsigned exponent) { return Wide(1) << exponent; }

/// A raw value as the signed or unsigned number that its bits hold, modulo 2^width.
inline Wide field(Raw raw, unsigned width) { return width > 64 ? Wide(raw) : raw % power(width); }

enum class Rule { Default, Signed, FixedUnsigned, FixedSigned };

inline double physical(Rule rule, int fractionBits, Raw raw, unsigned width)
{
    const double scale = std::pow(2.0, -fractionBits);
    const auto asSigned = [&]() -> double {
        if (width == 0)
            return 0;
        if (width > 64 || Wide(raw) < power(width - 1))
            return double(raw);
        // every bit from the sign's upward becomes one
        const Wide below = raw % power(width - 1);
        return double(below - power(width - 1));
    };
    switch (rule) {
    case Rule::Default:
        return double(field(raw, width));
    case Rule::Signed:
        return asSigned();
    case Rule::FixedUnsigned:
        return double(field(raw, width)) * scale;
    default:
        return asSigned() * scale;
    }
}

inline Raw raw(Rule rule, int fractionBits, double value)
{
    if (rule == Rule::FixedUnsigned || rule == Rule::FixedSigned)
        value /= std::pow(2.0, -fractionBits);
    if (std::isnan(value))
        return 0;
    value = rule == Rule::Default ? std::trunc(value) : std::round(value);
    if (value >= std::pow(2.0, 64))
        return std::numeric_limits<Raw>::max();
    if (value < -std::pow(2.0, 63))
        return Raw(power(63));
    const Wide number = Wide(value);
    return Raw((number + power(64)) % power(64));
}

/// Above the field all zeros or all ones.
inline bool fits(Raw value, unsigned width)
{
    if (width > 63)
        return true;
    const Wide above = Wide(value) / power(width);
    return above == 0 || above == power(64 - width) - 1;
}

/// Numbers that find faults: few bits, all bits, borders of fields, anything.
class Source
{
public:
    explicit Source(unsigned seed) : m_random(seed) {}

    unsigned below(unsigned limit) { return unsigned(m_random() % limit); }
    bool chance(unsigned oneIn) { return below(oneIn) == 0; }
    Raw raw(unsigned width)
    {
        const Raw any = (Raw(m_random()) << 32) | m_random();
        const Raw inField = Raw(Wide(any) % power(width > 64 ? 64 : width));
        switch (below(5)) {
        case 0:
            return inField;
        case 1: // with the sign in all upper bits
            return width == 0 ? ~Raw(0) : Raw(power(64) - 1 - inField / 2);
        case 2:
            return Raw(power(below(64)));
        case 3:
            return Raw(power(below(64)) - 1 + below(3) - 1);
        default:
            return any;
        }
    }
    double number(unsigned width)
    {
        const double border = double(power(width > 64 ? 64 : width));
        switch (below(5)) {
        case 0:
            return border * (double(below(2001)) - 1000) / 1000;
        case 1:
            return double(below(4001)) / 8 - 250;
        case 2:
            return (chance(2) ? 1 : -1) * border / 2 + double(below(5)) - 2;
        case 3:
            return std::ldexp(1.0, int(below(140)) - 70) * (chance(2) ? 1 : -1);
        default:
            return double(raw(width));
        }
    }

private:
    std::mt19937 m_random;
};

} // namespace RegisterModel

#endif
