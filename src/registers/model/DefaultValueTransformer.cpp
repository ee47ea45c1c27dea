#include "DefaultValueTransformer.h"

#include "RegisterBits_p.h"

DefaultValueTransformer::DefaultValueTransformer(QObject* parent) : ValueTransformer(parent) {}

double DefaultValueTransformer::get(unsigned long long raw, unsigned char width)
{
    return static_cast<double>(raw & RegisterBits::mask(width));
}

unsigned long long DefaultValueTransformer::get(double value, unsigned char width)
{
    return ValueTransformer::get(value, width);
}
