#include "CurveColumns_p.h"
#include "Graph.h"
#include "SampleHistory_p.h"
#include "TestCase.h"

#include <cmath>
#include <deque>
#include <limits>
#include <random>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NaN = std::numeric_limits<double>::quiet_NaN();

using Column = CurveColumns::Column;
using Columns = std::vector<Column>;

Columns all(const CurveColumns& columns)
{
    Columns list;
    for (std::size_t i = 0; i < columns.size(); ++i)
        list.push_back(columns[i]);
    return list;
}

bool isSame(const Column& a, const Column& b)
{
    return a.slot == b.slot && a.time == b.time && a.first == b.first && a.lowest == b.lowest &&
           a.highest == b.highest && a.last == b.last;
}

bool isSame(const Columns& a, const Columns& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Column& c, const Column& d) { return isSame(c, d); });
}

/// An arrived sample; value is "not a number" for one that only let time pass.
struct Arrival {
    double value;
    qint64 time;
    qint64 timeOut;
};

qint64 slotOf(qint64 time) { return static_cast<qint64>(std::floor(time / 10.0)); }

/// In the order of arrival; at each, what is out of date goes from the front.
Columns expectedColumns(const std::vector<Arrival>& arrivals)
{
    std::deque<Arrival> list;
    for (const Arrival& arrival : arrivals) {
        if (!std::isnan(arrival.value))
            list.push_back(arrival);
        while (!list.empty() && slotOf(list.front().time) < slotOf(arrival.timeOut))
            list.pop_front();
    }
    Columns columns;
    for (const auto& [value, time, timeOut] : list) {
        if (columns.empty() || columns.back().slot != slotOf(time))
            columns.push_back({slotOf(time), time, value, value, value, value});
        Column& column = columns.back();
        column.lowest = std::min(column.lowest, value);
        column.highest = std::max(column.highest, value);
        column.last = value;
    }
    return columns;
}

bool isAscending(const Columns& columns)
{
    return std::is_sorted(columns.begin(), columns.end(),
                          [](const Column& a, const Column& b) { return a.slot < b.slot; });
}

/// A column and where the line from it leads to.
struct Stroke {
    Column column;
    qint64 nextSlot;
    double nextFirst;
};

std::vector<Stroke> strokes(const Columns& columns)
{
    std::vector<Stroke> list;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column& next = columns[std::min(i + 1, columns.size() - 1)];
        list.push_back({columns[i], next.slot, next.first});
    }
    return list;
}

bool contains(const std::vector<Stroke>& list, const Stroke& stroke)
{
    return std::any_of(list.begin(), list.end(), [&stroke](const Stroke& other) {
        return isSame(other.column, stroke.column) && other.nextSlot == stroke.nextSlot &&
               other.nextFirst == stroke.nextFirst;
    });
}

} // namespace

class CurveDataTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void extremesOfHistory()
    {
        std::mt19937 random(1);
        for (int growth : {30, 50, 70}) { // percent
            SampleHistory history;
            std::deque<TValue> model;
            for (int i = 0; i < 4000; ++i) {
                const unsigned what = random() % 1000;
                if (what == 0) {
                    history.clear();
                    model.clear();
                } else if (static_cast<int>(what % 100) < growth || model.empty()) {
                    const unsigned kind = random() % 40;
                    const double value = kind == 0   ? NaN
                                         : kind == 1 ? Infinity
                                         : kind == 2 ? -Infinity
                                                     : static_cast<int>(random() % 19) - 9;
                    history.append({value, i});
                    model.push_back({value, i});
                } else {
                    history.removeFirst();
                    model.pop_front();
                }
                QCOMPARE(history.size(), model.size());
                double lowest = Infinity;
                double highest = -Infinity;
                bool hasAny = false;
                for (std::size_t k = 0; k < model.size(); ++k) {
                    QCOMPARE(history[k].time, model[k].time);
                    hasAny = hasAny || !std::isnan(model[k].value);
                    lowest = std::min(lowest, std::isnan(model[k].value) ? lowest : model[k].value);
                    highest =
                        std::max(highest, std::isnan(model[k].value) ? highest : model[k].value);
                }
                double low = 7.5;
                double high = 8.5;
                QCOMPARE(history.extremes(&low, &high), hasAny);
                QCOMPARE(low, hasAny ? lowest : 7.5);
                QCOMPARE(high, hasAny ? highest : 8.5);
            }
        }
    }

    void limitsOfGraph()
    {
        const struct {
            int maxValues;
            qint64 timeOut;
            QVector<qint64> times;
            QVector<qint64> kept;
        } rows[] = {
            {3, 0, {1, 2, 3, 4, 5}, {3, 4, 5}},
            {0, 0, {1, 2}, {}},
            {-1, 0, {1, 2}, {1, 2}},            // refused: the default stays
            {9, 3, {1, 2, 3, 4}, {3, 4}},       // what is as old as the limit stays
            {9, 5, {1, 2}, {}},                 //
            {9, 3, {9, 1, 2, 4}, {9, 1, 2, 4}}, // only the first one counts: nothing younger goes
            {9, 0, {7, 7, 7}, {7, 7, 7}},
        };
        for (const auto& row : rows) {
            Graph graph(1, 2, 3, 4, "a", Qt::red);
            graph.setMaxValues(row.maxValues);
            graph.setTimeOutTime(row.timeOut);
            for (int i = 0; i < row.times.size(); ++i)
                graph.addValue(i, row.times.at(i));
            QVector<qint64> times;
            for (const TValue& sample : graph.getValues())
                times << sample.time;
            QCOMPARE(times, row.kept);
            QCOMPARE(graph.valueCount(), row.kept.size());
        }
        Graph graph(1, 2, 3, 4, "a", Qt::red);
        for (int i = 0; i < 10001; ++i)
            graph.addValue(i);
        QCOMPARE(graph.valueCount(), 10000);
        QCOMPARE(graph.getValues().first().value, 1.0);
    }

    void columns()
    {
        std::mt19937 random(2);
        for (int round = 0; round < 60; ++round) {
            CurveColumns columns;
            std::vector<Arrival> arrivals;
            qint64 time = -300; // through the epoch, where division cuts to the other side
            qint64 timeOut = std::numeric_limits<int>::min();
            for (int i = 0; i < 150; ++i) {
                const int back = random() % 25 == 0 ? static_cast<int>(random() % 200) : 0;
                time += static_cast<int>(random() % 12) - back;
                if (random() % 20 == 0) {
                    timeOut = time - static_cast<int>(random() % 100);
                    columns.setTimeOutTime(timeOut);
                }
                const double value =
                    random() % 30 == 0 ? NaN : static_cast<int>(random() % 100) - 50;
                const Columns before = all(columns);
                columns.takeChange(CurveColumns::Lines);
                columns.append(value, time);
                arrivals.push_back({value, time, timeOut});

                const Columns expected = expectedColumns(arrivals);
                QVERIFY(isSame(all(columns), expected));
                QCOMPARE(columns.isAscending(), isAscending(expected));
                if (!isAscending(before) || !isAscending(expected))
                    continue;
                verifyChange(strokes(before), strokes(expected),
                             columns.takeChange(CurveColumns::Lines), slotOf(timeOut));
            }
        }
    }

    void changes()
    {
        CurveColumns columns;
        QCOMPARE(columns.takeChange(CurveColumns::Lines), CurveColumns::Nothing);
        const struct {
            double value;
            qint64 time;
            qint64 change;
        } rows[] = {
            {1, 105, 10},                      // the first one
            {1, 109, 10},                      // in the same column
            {1, 155, 10},                      // the line to it begins at the one before
            {NaN, 200, CurveColumns::Nothing}, //
            {1, 151, 15},                      // earlier, in the same column
            {1, 200, 15},                      //
            {1, 130, 13},                      // the clock was set back
        };
        for (const auto& row : rows) {
            columns.append(row.value, row.time);
            QCOMPARE(columns.takeChange(CurveColumns::Lines), row.change);
            QCOMPARE(columns.takeChange(CurveColumns::Lines), CurveColumns::Nothing);
        }
        columns.setTimeOutTime(125);
        columns.append(NaN, 0);
        QCOMPARE(columns.size(), std::size_t(3));
        QCOMPARE(columns.takeChange(CurveColumns::Lines),
                 CurveColumns::Nothing); // out of date, out of sight
        columns.clear();
        QCOMPARE(columns.takeChange(CurveColumns::Lines), qint64(15));
        QVERIFY(columns.isAscending());
        for (int i = 0; i < 200000; ++i) // from two sources, of which one lags behind for good
            columns.append(i, 1000 + 10 * i - i % 2 * 500);
        QVERIFY(columns.size() <= 50000);
        QCOMPARE(columns[columns.size() - 1].last, 199999.0);
    }

private:
    /// Whatever differs from before starts at or behind the change, but for what was out of date.
    static void verifyChange(const std::vector<Stroke>& before, const std::vector<Stroke>& after,
                             qint64 change, qint64 timeOutSlot)
    {
        for (const Stroke& stroke : before) {
            if (stroke.column.slot >= timeOutSlot && !contains(after, stroke))
                QVERIFY(change <= stroke.column.slot);
        }
        for (const Stroke& stroke : after) {
            if (!contains(before, stroke))
                QVERIFY(change <= stroke.column.slot);
        }
    }
};

QTEST_GUILESS_MAIN(CurveDataTest)
#include "CurveDataTest.moc"
