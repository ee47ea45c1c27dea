#include "SampleHistory_p.h"

#include <cmath>

void SampleHistory::append(const TValue& sample)
{
    const quint64 number = m_firstNumber + m_values.size();
    m_values.append(sample);
    if (std::isnan(sample.value))
        return;
    while (!m_lowest.isEmpty() && m_lowest.back().value >= sample.value)
        m_lowest.removeLast();
    m_lowest.append({number, sample.value});
    while (!m_highest.isEmpty() && m_highest.back().value <= sample.value)
        m_highest.removeLast();
    m_highest.append({number, sample.value});
}

void SampleHistory::removeFirst()
{
    if (!m_lowest.isEmpty() && m_lowest.front().number == m_firstNumber)
        m_lowest.removeFirst();
    if (!m_highest.isEmpty() && m_highest.front().number == m_firstNumber)
        m_highest.removeFirst();
    m_values.removeFirst();
    ++m_firstNumber;
}

void SampleHistory::clear()
{
    m_firstNumber += m_values.size();
    m_values.clear();
    m_lowest.clear();
    m_highest.clear();
}

bool SampleHistory::extremes(double* lowest, double* highest) const
{
    if (m_lowest.isEmpty())
        return false;
    *lowest = m_lowest.front().value;
    *highest = m_highest.front().value;
    return true;
}
