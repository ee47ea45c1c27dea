#include "Chart.h"

#include "ShortLock_p.h"

#include <utility>

Chart::Chart(char address, char motorBank, char command, char type, QString label, QColor color)
    : m_command(command), m_type(type), m_label(std::move(label)), m_color(std::move(color))
{
    setAddress(address);
    setMotorBank(motorBank);
}

void Chart::setMaxValues(int maxValues)
{
    if (maxValues < 0)
        return;
    const auto lock = shortLock(m_valuesMutex);
    m_maxValues = maxValues;
}

void Chart::addValue(double value)
{
    const auto lock = shortLock(m_valuesMutex);
    m_values.append(value);
    if (m_values.size() > m_maxValues)
        m_values.erase(m_values.begin(), m_values.end() - m_maxValues);
}

void Chart::clearValues()
{
    const auto lock = shortLock(m_valuesMutex);
    m_values.clear();
}

QList<double> Chart::getValues() const
{
    const auto lock = shortLock(m_valuesMutex);
    return m_values;
}

QList<double>* Chart::copyValues() const
{
    auto* copy = new QList<double>(getValues());
    copy->detach();
    return copy;
}

void Chart::copyValues(qint64 skipped, qint64 count, std::vector<double>* values) const
{
    const auto lock = shortLock(m_valuesMutex);
    const auto last = static_cast<int>(qMax<qint64>(0, m_values.size() - qMax<qint64>(0, skipped)));
    const auto first = static_cast<int>(qMax<qint64>(0, last - qMax<qint64>(0, count)));
    values->assign(m_values.begin() + first, m_values.begin() + last);
}
