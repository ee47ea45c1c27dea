#include "RegisterSet.h"

#include "Logging.h"
#include "RegisterBits_p.h"

#include <limits>

namespace
{

constexpr int AccessBits = 0xFFFF;

int endOf(const Register& fraction) { return fraction.getOffset() + fraction.getWidth(); }

unsigned long long bitsOf(unsigned long long raw, const Register& fraction)
{
    return RegisterBits::shiftedRight(raw, fraction.getOffset()) &
           RegisterBits::mask(fraction.getWidth());
}

RegisterSet* asSet(Register* fraction)
{
    return fraction ? static_cast<RegisterSet*>(fraction->qt_metacast("RegisterSet")) : nullptr;
}

} // namespace

RegisterSet::RegisterSet(QString title, unsigned char offset)
    : Register(std::move(title), offset, 0, 0, 0)
{
}

void RegisterSet::addFraction(Register* fraction)
{
    if (!fraction || fraction == this)
        return;
    const RegisterSet* set = asSet(fraction);
    if (set && set->holds(this))
        return;
    m_width = static_cast<unsigned char>(
        qBound<int>(m_width, endOf(*fraction), std::numeric_limits<unsigned char>::max()));
    m_resetValue |= RegisterBits::shiftedLeft(fraction->getResetValue(), fraction->getOffset());
    m_access |= fraction->getAccess() & AccessBits;
    m_fractions.insert(fraction->getTitle(), fraction);
    m_min = 0.0;
    m_max = static_cast<double>(RegisterBits::mask(m_width));
    compose();
}

/// Also in the fractions of its fractions.
bool RegisterSet::holds(const Register* searched) const
{
    for (Register* fraction : m_fractions) {
        const RegisterSet* set = asSet(fraction);
        if (fraction == searched || (set && set->holds(searched)))
            return true;
    }
    return false;
}

Register* RegisterSet::getFraction(QString title) const { return m_fractions.value(title); }

RegisterSet* RegisterSet::getFractionSet(QString title) const { return asSet(getFraction(title)); }

bool RegisterSet::checkValue(unsigned long long raw) const
{
    for (const Register* fraction : m_fractions) {
        if (!fraction->checkValue(bitsOf(raw, *fraction)))
            return false;
    }
    return true;
}

bool RegisterSet::setValue(unsigned long long raw)
{
    if (!checkValue(raw))
        return false;
    for (Register* fraction : qAsConst(m_fractions)) {
        if (fraction->getTitle() == QLatin1String("reset"))
            qCDebug(axrRegisters) << "setValue"
                                  << "reset";
        fraction->setValue(bitsOf(raw, *fraction));
    }
    return true;
}

unsigned long long RegisterSet::compose() const
{
    m_value = 0;
    for (const Register* fraction : m_fractions) {
        if (endOf(*fraction) <= int(RegisterBits::AllBits))
            m_value |= RegisterBits::shiftedLeft(static_cast<unsigned long long>(*fraction) &
                                                     RegisterBits::mask(fraction->getWidth()),
                                                 fraction->getOffset());
    }
    return m_value;
}

void RegisterSet::getValue(unsigned long long* raw) const
{
    compose();
    Register::getValue(raw);
}

void RegisterSet::getValue(int* raw) const
{
    compose();
    Register::getValue(raw);
}

void RegisterSet::getValue(double* value) const
{
    compose();
    Register::getValue(value);
}

RegisterSet::operator unsigned long long() const { return compose(); }

RegisterSet::operator double() const { return physical(compose()); }

RegisterSet::operator QString() const
{
    const auto number = static_cast<qint64>(compose());
    const quint64 magnitude = number < 0 ? 0ULL - m_value : m_value;
    const QString sign = number < 0 ? QStringLiteral("-") : QString();
    QString result = text(QStringLiteral("0x%1%2(%3)")
                              .arg(sign, QString::number(magnitude, 16).toUpper())
                              .arg(number)) +
                     QStringLiteral("\n{");
    for (const Register* fraction : m_fractions)
        result += static_cast<QString>(*fraction);
    return result + QStringLiteral("\n}");
}

void RegisterSet::resetWasWritten()
{
    for (Register* fraction : qAsConst(m_fractions))
        fraction->resetWasWritten();
}

Register* RegisterSet::clone() const
{
    auto* copy = new RegisterSet(m_title, m_offset);
    for (Register* fraction : m_fractions) {
        const RegisterSet* set = asSet(fraction);
        copy->addFraction(set ? set->clone() : fraction->clone());
    }
    copy->copyRules(*this);
    copy->setValue(m_value);
    if (!m_wasWritten)
        copy->resetWasWritten();
    return copy;
}
