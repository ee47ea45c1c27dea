#ifndef REGISTER_H
#define REGISTER_H

#include "AXRGuiExport.h"

#include <QMap>
#include <QObject>
#include <QString>

#include <memory>
#include <type_traits>

class ValueTransformer;

/// One hardware register or bit field of a chip: what it is, and its present value. The raw value
/// is an unsigned 64-bit number, the physical value a double, and a transformer stands between
/// them. Nothing here talks to a chip.
///
/// Access kinds are 1 read, 2 write, 3 both, 7 write one and read another, 15 read clears; every
/// other is none. Only bit 1 (value 2) has an effect: without it every write is refused.
///
/// A write that is refused gives false and changes nothing. Belongs to one thread.
class AXRGUI_EXPORT Register : public QObject
{
    Q_OBJECT
public:
    /// The range is the widest that `width` bits can mean, signed or not: for 8 bits -127..255. The
    /// tick is 1.
    /// \param offset lowest bit of a field within its register; for others the host's business
    /// \param width in bits; above 63 the range is -2^63..2^64
    /// \param resetValue also the value at the start, whatever it is
    Register(QString title, unsigned char offset, unsigned char width, int access,
             unsigned long long resetValue);
    ~Register() override;

    QString getTitle() const { return m_title; }
    /// A set that holds this as a fraction keeps it under its earlier title.
    void setTitle(QString title) { m_title = std::move(title); }
    QString getDescription() const { return m_description; }
    void setDescription(const QString& description) { m_description = description; }
    unsigned char getOffset() const { return m_offset; }
    void setOffset(unsigned char offset) { m_offset = offset; }
    unsigned char getWidth() const { return m_width; }
    int getAccess() const { return m_access; }
    void setAccess(int access) { m_access = access; }
    unsigned long long getResetValue() const { return m_resetValue; }

    // Permitted physical values, both ends included. What is not a number is ignored, and so is
    // infinity by setRange() and setTick(). The present value stays, also outside.
    double getMin() const { return m_min; }
    void setMin(double minimum);
    double getMax() const { return m_max; }
    void setMax(double maximum);
    /// In either order.
    void setRange(double a, double b);
    void setRange(double a, double tick, double b);
    /// Step of the physical value. One that is not whole snaps values that are checked.
    double getTick() const { return m_tick; }
    void setTick(double tick);
    /// The fewest decimal places that show the tick in full, by floating point arithmetic: 2 for
    /// 0.25, 16 for a third, 17 for the sum of 0.1 and 0.2. 51 when 50 do not, as for 1e-60.
    unsigned char getDecimals() const { return m_decimals; }

    /// \param transformer stays the host's, and must outlive this register and its clones; null
    /// puts the default one back, which takes the bits as an unsigned number
    void setValueTransformer(ValueTransformer* transformer);

    /// Refused from now on, compared with the raw value as it is given, above the width too.
    void addRestrictedValue(unsigned long long raw);

    /// Whether the raw value may be written: access, not restricted, above the width all zeros or
    /// all ones, physical value in the range.
    bool checkValue(unsigned long long raw) const;
    /// Whether the physical value may be written; one between two ticks is checked as the nearer.
    bool checkValue(double value) const;

    /// Writes a raw value.
    bool setValue(unsigned long long raw);
    /// Writes a raw value, with its sign in all upper bits.
    bool setValue(int raw);
    /// Writes the raw value that the transformer makes of a physical one as it is given: what lies
    /// between two ticks is not moved to one, but the transformer cuts or rounds (the default one
    /// makes 2 of 2.9). Refused unless both this raw value and that of the nearest tick may be
    /// written.
    bool setValue(double value);

    // Other whole numbers are raw values too; signed ones keep their sign in all upper bits.
    template <class T, class = std::enable_if_t<std::is_integral<T>::value>>
    bool checkValue(T raw) const
    {
        return checkValue(static_cast<unsigned long long>(raw));
    }
    template <class T, class = std::enable_if_t<std::is_integral<T>::value>>
    bool setValue(T raw)
    {
        return setValue(static_cast<unsigned long long>(raw));
    }

    // Null pointers are ignored.
    void getValue(unsigned long long* raw) const; ///< The raw value.
    void getValue(int* raw) const;                ///< Its lower 32 bits.
    void getValue(double* value) const;           ///< The physical value.

    // Where several fit, as for int, bool, float or a debug stream, say which one with a
    // static_cast to the type of the operator.
    operator unsigned long long() const; ///< The raw value.
    operator long long() const;          ///< The raw value.
    operator double() const;             ///< The physical value.
    /// "\nTitle: 8Bit @ 0x4(4) = 0xA5(165) -> Access:  READ": offset, raw and physical value.
    operator QString() const;

    /// Whether a write succeeded since the start or the last resetWasWritten().
    bool wasWritten() const { return m_wasWritten; }
    void resetWasWritten() { m_wasWritten = false; }

    /// The value becomes the reset value, restricted or not. Whether it was written stays.
    void reset() { m_value = m_resetValue; }

    /// Begins with a blank: " READ_WRITE".
    QString getAccessString() const;

    /// A new register with everything but the restricted values. It holds this one's value only if
    /// it may be written, else the reset value. The caller owns it.
    Register* clone() const;

protected:
    /// What is alike in a clone, but for the value.
    void copyRules(const Register& other);
    double physical(unsigned long long raw) const;
    /// The text up to the access, with the value as `value`.
    QString text(const QString& value) const;

    bool m_wasWritten = false;
    QString m_title;
    QString m_description;
    unsigned char m_offset;
    unsigned char m_width;
    unsigned char m_decimals = 0;
    int m_access;
    mutable unsigned long long m_value; // a set composes it when it is read
    unsigned long long m_resetValue;
    double m_min;
    double m_max;
    double m_tick = 1.0;

private:
    QMap<unsigned long long, bool> m_restrictedValues;
    ValueTransformer* m_transformer;
    std::shared_ptr<ValueTransformer> m_defaultTransformer; // of this and its clones
};

#endif
