#ifndef TOSIGNEDVALUETRANSFORMER_H
#define TOSIGNEDVALUETRANSFORMER_H

#include "ValueTransformer.h"

/// The register's bits as a signed number in two's complement.
class AXRGUI_EXPORT ToSignedValueTransformer : public ValueTransformer
{
    Q_OBJECT
public:
    explicit ToSignedValueTransformer(QObject* parent = nullptr);

    /// Negative when any bit from the sign's upward is set. Width 0 reads 0, and above 64 bits
    /// there is no sign.
    double get(unsigned long long raw, unsigned char width) override;
    /// Rounded to the nearest whole number, halves away from zero.
    unsigned long long get(double value, unsigned char width) override;
};

#endif
