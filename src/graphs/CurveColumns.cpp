#include "CurveColumns_p.h"

#include <cmath>
#include <utility>

qint64 CurveColumns::slotOf(qint64 time)
{
    return time >= 0 ? time / Milliseconds : (time + 1) / Milliseconds - 1;
}

void CurveColumns::append(double value, qint64 time)
{
    add(value, time);
    while (!m_columns.isEmpty() && m_columns.front().slot < m_timeOutSlot)
        m_columns.removeFirst();
}

void CurveColumns::add(double value, qint64 time)
{
    if (std::isnan(value))
        return;
    const qint64 slot = slotOf(time);
    if (m_frozen && !m_columns.isEmpty() && m_columns.back().slot > slot) {
        m_incomplete = true;
        return;
    }
    while (!m_columns.isEmpty() && m_columns.back().slot > slot)
        m_columns.removeLast();
    if (m_columns.isEmpty() || m_columns.back().slot < slot) {
        // a line from the column before leads to this one
        m_change = qMin(m_change, m_columns.isEmpty() ? slot : m_columns.back().slot);
        m_columns.append({slot, time, value, value, value, value});
        return;
    }
    m_change = qMin(m_change, slot);
    Column& column = m_columns.back();
    column.lowest = qMin(column.lowest, value);
    column.highest = qMax(column.highest, value);
    column.last = value;
}

void CurveColumns::clear()
{
    if (!m_columns.isEmpty())
        m_change = qMin(m_change, m_columns.front().slot);
    m_columns.clear();
    m_incomplete = false;
}

qint64 CurveColumns::takeChange() { return std::exchange(m_change, Nothing); }

std::size_t CurveColumns::find(qint64 slot) const
{
    std::size_t first = 0;
    std::size_t behind = m_columns.size();
    while (first < behind) {
        const std::size_t middle = (first + behind) / 2;
        if (m_columns[middle].slot < slot)
            first = middle + 1;
        else
            behind = middle;
    }
    return first;
}

std::size_t CurveColumns::findAfter(qint64 time) const
{
    const std::size_t index = find(slotOf(time));
    return index < m_columns.size() && m_columns[index].time <= time ? index + 1 : index;
}
