#ifndef VALUEKEY_H
#define VALUEKEY_H

#include <QtGlobal>

/// What tells one value of a module from every other: the address, command, type and motor bank of
/// the request that reads it and of the reply that brings it.
struct ValueKey {
    char address = 0;
    char command = 0;
    char type = 0;
    char motorBank = 0;

    /// The key of whatever has these four getters: a request, a reply, a trace command, a curve.
    template <class Source>
    static ValueKey of(const Source& source)
    {
        return {source.getAddress(), source.getCommand(), source.getType(), source.getMotorBank()};
    }

    bool operator==(const ValueKey& other) const { return packed() == other.packed(); }
    bool operator!=(const ValueKey& other) const { return !(*this == other); }

    /// The four bytes as one number, in the order above.
    constexpr quint32 packed() const
    {
        return quint32(quint8(address)) << 24 | quint32(quint8(command)) << 16 |
               quint32(quint8(type)) << 8 | quint32(quint8(motorBank));
    }
};

/// Whether both are the same value.
template <class One, class Other>
bool isSameValue(const One& one, const Other& other)
{
    return ValueKey::of(one) == ValueKey::of(other);
}

#endif
