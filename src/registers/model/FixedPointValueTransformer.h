#ifndef FIXEDPOINTVALUETRANSFORMER_H
#define FIXEDPOINTVALUETRANSFORMER_H

#include "ValueTransformer.h"

/// The register's bits as a number of 2^-fractionBits each.
class AXRGUI_EXPORT FixedPointValueTransformer : public ValueTransformer
{
    Q_OBJECT
public:
    /// \param fractionBits bits behind the point, usually 0..63; more give smaller steps still
    /// \param isSigned in two's complement, as ToSignedValueTransformer; else bits above the width
    /// do not count, and 64 bits and more are taken as they are
    FixedPointValueTransformer(unsigned char fractionBits, bool isSigned);

    /// Width 0 reads 0.
    double get(unsigned long long raw, unsigned char width) override;
    /// Rounded to the nearest step, halves away from zero.
    unsigned long long get(double value, unsigned char width) override;

private:
    unsigned char m_fractionBits;
    double m_scale;
    bool m_isSigned;
};

#endif
