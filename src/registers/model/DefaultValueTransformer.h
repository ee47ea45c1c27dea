#ifndef DEFAULTVALUETRANSFORMER_H
#define DEFAULTVALUETRANSFORMER_H

#include "ValueTransformer.h"

/// The register's bits as an unsigned number.
class AXRGUI_EXPORT DefaultValueTransformer : public ValueTransformer
{
    Q_OBJECT
public:
    explicit DefaultValueTransformer(QObject* parent = nullptr);

    /// Bits above the width do not count; 64 bits and more are taken as they are.
    double get(unsigned long long raw, unsigned char width) override;
    unsigned long long get(double value, unsigned char width) override;
};

#endif
