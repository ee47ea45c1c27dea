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
        removeFirst();
    while (!isAscending() && m_columns.size() > MostUnordered)
        removeFirst();
}

void CurveColumns::removeFirst()
{
    if (m_columns.size() > 1 && m_columns[1].slot < m_columns[0].slot)
        --m_descents;
    m_columns.removeFirst();
}

void CurveColumns::add(double value, qint64 time)
{
    if (std::isnan(value))
        return;
    if (time <= m_frozenUntil) {
        m_incomplete = true;
        return;
    }
    const qint64 slot = slotOf(time);
    noteChange(slot);
    if (m_columns.isEmpty() || m_columns.back().slot != slot) {
        if (!m_columns.isEmpty()) { // a line from the column before leads to this one
            const qint64 before = m_columns.back().slot;
            noteChange(before);
            m_descents += before > slot;
        }
        m_columns.append({slot, time, value, value, value, value});
        return;
    }
    Column& column = m_columns.back();
    column.lowest = qMin(column.lowest, value);
    column.highest = qMax(column.highest, value);
    column.last = value;
}

void CurveColumns::clear()
{
    if (!m_columns.isEmpty())
        noteChange(m_columns.front().slot);
    m_columns.clear();
    m_descents = 0;
    m_incomplete = false;
}

void CurveColumns::noteChange(qint64 slot)
{
    for (qint64& change : m_changes)
        change = qMin(change, slot);
}

qint64 CurveColumns::takeChange(Reader reader) { return std::exchange(m_changes[reader], Nothing); }

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
