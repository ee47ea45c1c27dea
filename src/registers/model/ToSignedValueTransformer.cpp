#include "ToSignedValueTransformer.h"

#include "RegisterBits_p.h"

ToSignedValueTransformer::ToSignedValueTransformer(QObject* parent) : ValueTransformer(parent) {}

double ToSignedValueTransformer::get(unsigned long long raw, unsigned char width)
{
    return RegisterBits::toSigned(raw, width);
}

unsigned long long ToSignedValueTransformer::get(double value, unsigned char)
{
    return RegisterBits::fromNumber(std::round(value));
}
