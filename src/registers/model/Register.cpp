#include "Register.h"

#include "DefaultValueTransformer.h"
#include "Logging.h"
#include "RegisterBits_p.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace
{

constexpr int WriteAccess = 2;
constexpr unsigned char MostDecimals = 51;

void announceType()
{
    static const int id = [] {
        const int type = qRegisterMetaType<Register*>("Register");
        qCDebug(axrRegisters) << "Register::Register(QString, quint8, quint8, int, quint64)"
                              << "Register:" << type;
        return type;
    }();
    Q_UNUSED(id)
}

bool isWhole(double number) { return number == std::round(number); }

unsigned char decimalsOf(double tick)
{
    for (unsigned char decimals = 0; decimals < MostDecimals; ++decimals) {
        if (isWhole(std::pow(10.0, decimals) * tick))
            return decimals;
    }
    return MostDecimals;
}

} // namespace

Register::Register(QString title, unsigned char offset, unsigned char width, int access,
                   unsigned long long resetValue)
    : m_title(std::move(title))
    , m_offset(offset)
    , m_width(width)
    , m_access(access)
    , m_value(resetValue)
    , m_resetValue(resetValue)
    , m_defaultTransformer(std::make_shared<DefaultValueTransformer>())
{
    m_transformer = m_defaultTransformer.get();
    const unsigned long long highest = RegisterBits::mask(width);
    m_min = static_cast<double>(-static_cast<long long>(highest >> 1U));
    m_max = static_cast<double>(highest); // of 64 ones, 2^64: the nearest double
    announceType();
}

Register::~Register() = default;

void Register::setMin(double minimum)
{
    if (!std::isnan(minimum))
        m_min = minimum;
}

void Register::setMax(double maximum)
{
    if (!std::isnan(maximum))
        m_max = maximum;
}

void Register::setRange(double a, double b)
{
    if (std::isfinite(a) && std::isfinite(b))
        std::tie(m_min, m_max) = std::minmax(a, b);
}

void Register::setRange(double a, double tick, double b)
{
    setRange(a, b);
    setTick(tick);
}

void Register::setTick(double tick)
{
    if (!std::isfinite(tick))
        return;
    m_tick = tick;
    m_decimals = decimalsOf(tick);
}

void Register::setValueTransformer(ValueTransformer* transformer)
{
    m_transformer = transformer ? transformer : m_defaultTransformer.get();
}

void Register::addRestrictedValue(unsigned long long raw) { m_restrictedValues.insert(raw, true); }

bool Register::checkValue(unsigned long long raw) const
{
    if (!(m_access & WriteAccess) || m_restrictedValues.contains(raw))
        return false;
    if (m_width < RegisterBits::AllBits) {
        const unsigned long long above = raw >> m_width;
        if (above != 0 && above != ~0ULL >> m_width)
            return false;
    }
    const double value = physical(raw);
    return value >= m_min && value <= m_max;
}

bool Register::checkValue(double value) const
{
    // Written so that what is not a number is refused.
    if (!(m_access & WriteAccess) || !(value >= m_min && value <= m_max))
        return false;
    if (!isWhole(m_tick))
        value = m_tick * std::round(value / m_tick);
    return checkValue(m_transformer->get(value, m_width));
}

bool Register::setValue(unsigned long long raw)
{
    if (!checkValue(raw))
        return false;
    m_value = raw;
    m_wasWritten = true;
    return true;
}

bool Register::setValue(int raw) { return setValue(static_cast<unsigned long long>(raw)); }

bool Register::setValue(double value)
{
    return checkValue(value) && setValue(m_transformer->get(value, m_width));
}

void Register::getValue(unsigned long long* raw) const
{
    if (raw)
        *raw = m_value;
}

void Register::getValue(int* raw) const
{
    if (raw)
        *raw = static_cast<int>(static_cast<quint32>(m_value));
}

void Register::getValue(double* value) const
{
    if (value)
        *value = physical(m_value);
}

Register::operator unsigned long long() const { return m_value; }

Register::operator long long() const { return static_cast<long long>(m_value); }

Register::operator double() const { return physical(m_value); }

Register::operator QString() const
{
    return text(QStringLiteral("0x%1(%2)")
                    .arg(QString::number(m_value, 16).toUpper(),
                         QString::number(physical(m_value), 'g', 10)));
}

QString Register::getAccessString() const
{
    switch (m_access) {
    case 1:
        return QStringLiteral(" READ");
    case 2:
        return QStringLiteral(" WRITE");
    case 3:
        return QStringLiteral(" READ_WRITE");
    case 7:
        return QStringLiteral(" WRITE_X_READ_Y");
    case 15:
        return QStringLiteral(" READ_CLEAR");
    default:
        return QStringLiteral(" NONE");
    }
}

Register* Register::clone() const
{
    auto* copy = new Register(m_title, m_offset, m_width, m_access, m_resetValue);
    copy->copyRules(*this);
    copy->setValue(m_value);
    if (!m_wasWritten)
        copy->resetWasWritten();
    return copy;
}

void Register::copyRules(const Register& other)
{
    m_description = other.m_description;
    m_max = other.m_max;
    m_min = other.m_min;
    setTick(other.m_tick);
    m_transformer = other.m_transformer;
    m_defaultTransformer = other.m_defaultTransformer;
}

double Register::physical(unsigned long long raw) const { return m_transformer->get(raw, m_width); }

QString Register::text(const QString& value) const
{
    const QString offset = QString::number(m_offset, 16).toUpper();
    return QLatin1Char('\n') + m_title +
           QStringLiteral(": %1Bit @ 0x%2(%3) = ").arg(m_width).arg(offset).arg(m_offset) + value +
           QStringLiteral(" -> Access: ") + getAccessString();
}
