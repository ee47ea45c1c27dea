#include "ValueTransformer.h"

#include "RegisterBits_p.h"

ValueTransformer::ValueTransformer(QObject* parent) : QObject(parent) {}

double ValueTransformer::get(unsigned long long raw, unsigned char)
{
    return static_cast<double>(raw);
}

unsigned long long ValueTransformer::get(double value, unsigned char)
{
    return RegisterBits::fromNumber(value);
}
