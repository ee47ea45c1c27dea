#ifndef CURVECOLUMNS_P_H
#define CURVECOLUMNS_P_H

#include "Ring_p.h"

#include <QtGlobal>

#include <array>
#include <limits>

/// What of a curve can be seen, kept as the samples arrive: successive ones of one pixel column, 10
/// ms of the clock, are folded into a stroke. A frame then costs what its columns cost, however
/// many samples there were, and while time passes the strokes only move to the left.
///
/// The columns stand in the order of arrival. Mostly they ascend in time, too, and are found by
/// search. When the clock was set back, or two sources feed a curve, they do not, and are walked
/// one by one; then only the last MostUnordered are kept, so that a frame stays affordable.
class CurveColumns
{
public:
    static constexpr int Milliseconds = 10;

    struct Column {
        qint64 slot; ///< time / 10
        qint64 time; ///< of the first sample, ms
        double first;
        double lowest;
        double highest;
        double last;
    };

    static qint64 slotOf(qint64 time);

    /// Columns of which no sample is as young as `time` are dropped when the next one arrives.
    void setTimeOutTime(qint64 time) { m_timeOutSlot = slotOf(time); }
    /// A picture that stands still at `time` stays as it is: what would be seen in it is not taken.
    void freeze(qint64 time) { m_frozenUntil = time; }
    void unfreeze() { m_frozenUntil = std::numeric_limits<qint64>::min(); }
    /// Whether something was not taken since the last clear().
    bool isIncomplete() const { return m_incomplete; }

    /// "Not a number" is passed over.
    void add(double value, qint64 time);
    /// The same for a sample that just arrived: what is timed out goes.
    void append(double value, qint64 time);
    void clear();

    std::size_t size() const { return m_columns.size(); }
    const Column& operator[](std::size_t index) const { return m_columns[index]; }
    /// Whether the slots rise from column to column.
    bool isAscending() const { return m_descents == 0; }
    /// Index of the first column at or behind this slot; of ascending columns.
    std::size_t find(qint64 slot) const;

    /// Index of the first column that began after this time; of ascending columns.
    std::size_t findAfter(qint64 time) const;

    static constexpr qint64 Nothing = std::numeric_limits<qint64>::max();
    enum Reader { Lines, Dots, ReaderCount };
    /// The first slot at which the curve looks different since this reader's last call, or Nothing.
    /// What was only dropped at the front does not count.
    qint64 takeChange(Reader reader);

private:
    static constexpr std::size_t MostUnordered = 50000;

    void removeFirst();
    void noteChange(qint64 slot);

    Ring<Column> m_columns;
    std::size_t m_descents = 0; // columns before the one that came before them
    qint64 m_frozenUntil = std::numeric_limits<qint64>::min();
    bool m_incomplete = false;
    std::array<qint64, ReaderCount> m_changes{Nothing, Nothing};
    qint64 m_timeOutSlot = std::numeric_limits<qint64>::min();
};

#endif
