#include "FixedPointValueTransformer.h"

#include "RegisterBits_p.h"

FixedPointValueTransformer::FixedPointValueTransformer(unsigned char fractionBits, bool isSigned)
    : m_fractionBits(fractionBits)
    , m_scale(std::ldexp(1.0, -int(m_fractionBits)))
    , m_isSigned(isSigned)
{
}

double FixedPointValueTransformer::get(unsigned long long raw, unsigned char width)
{
    return m_scale * (m_isSigned ? RegisterBits::toSigned(raw, width)
                                 : static_cast<double>(raw & RegisterBits::mask(width)));
}

unsigned long long FixedPointValueTransformer::get(double value, unsigned char)
{
    return RegisterBits::fromNumber(std::round(value / m_scale));
}
