#ifndef REGISTERSET_H
#define REGISTERSET_H

#include "Register.h"

#include <QList>
#include <QMap>

/// A register that is made of named bit fields, its fractions: reading composes its value from
/// theirs, writing cuts a value into them. A fraction's offset is its lowest bit in the set. Sets
/// can hold sets.
///
/// The operations of the same name hide those of Register: through a Register* a set is a plain
/// register. A set within a set is used as one, too: it gives the value that it composed last, and
/// takes a value without handing it on to its fractions.
///
/// The set owns no fraction, not even those of its clones: they must live as long as it is used,
/// and the caller of clone() gets the copies from getFractions() and deletes them.
class AXRGUI_EXPORT RegisterSet : public Register
{
    Q_OBJECT
public:
    /// Without fractions: width 0, access 0, reset value 0.
    RegisterSet(QString title, unsigned char offset);

    /// A fraction of the same title is replaced; what it gave to width, reset value and access
    /// stays. Null, the set itself and a set that holds it are ignored. Sets the range to all that
    /// the width can hold, and the width never goes beyond 255.
    void addFraction(Register* fraction);

    /// Null if there is none of this title.
    Register* getFraction(QString title) const;
    /// Null if there is none of this title, or it is no set.
    RegisterSet* getFractionSet(QString title) const;
    /// By title.
    QList<Register*> getFractions() const { return m_fractions.values(); }
    int getFractionCount() const { return m_fractions.size(); }

    /// Whether every fraction would take its bits. Bits of no fraction, and the set's own access,
    /// range and restricted values, do not count.
    bool checkValue(unsigned long long raw) const;
    /// Gives every fraction its bits, or none. The stored value of the set catches up when it is
    /// read next.
    bool setValue(unsigned long long raw);

    // They compose; bits of a fraction that ends above bit 63 take no part. Null is ignored.
    void getValue(unsigned long long* raw) const; ///< The raw value.
    void getValue(int* raw) const;                ///< Its lower 32 bits.
    void getValue(double* value) const;           ///< The physical value.
    operator unsigned long long() const;          ///< The raw value.
    operator double() const;                      ///< The physical value.
    /// As of Register, but the number in brackets is the raw value, and both numbers are signed;
    /// then the fractions in braces.
    operator QString() const;

    /// Of the fractions; the set's own stays.
    void resetWasWritten();

    /// With clones of all fractions. They hold the values that the set composed last, where they
    /// may be written. The caller owns the set and its fractions.
    Register* clone() const;

private:
    unsigned long long compose() const;
    bool holds(const Register* searched) const;

    QMap<QString, Register*> m_fractions; // by title
};

#endif
