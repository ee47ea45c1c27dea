#ifndef VALUETRANSFORMER_H
#define VALUETRANSFORMER_H

#include "AXRGuiExport.h"

#include <QObject>

/// Converts between the raw bits of a register and its physical value. This one takes the bits as
/// an unsigned number.
///
/// A physical value becomes raw bits without being masked to the register's width. One that has no
/// raw number is bounded: not a number gives 0, 2^64 and more all ones, less than -2^63 bit 63
/// alone.
class AXRGUI_EXPORT ValueTransformer : public QObject
{
    Q_OBJECT
public:
    explicit ValueTransformer(QObject* parent = nullptr);

    /// Raw to physical.
    /// \param width of the register in bits; not looked at here
    virtual double get(unsigned long long raw, unsigned char width);
    /// Physical to raw, cut towards zero; a negative value gives its two's complement in 64 bits.
    virtual unsigned long long get(double value, unsigned char width);
};

#endif
