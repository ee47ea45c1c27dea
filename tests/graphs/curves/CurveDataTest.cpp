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

const double NaN = std::numeric_limits<double>::quiet_NaN();

struct Arrival {
    double value;
    qint64 time;
};

qint64 slotOf(qint64 time) { return static_cast<qint64>(std::floor(time / 10.0)); }

using Column = std::vector<double>; // slot, time, first, lowest, highest, last

/// \param arrivals in their order, numbers only
std::vector<Column> columnsOf(const std::deque<Arrival>& arrivals)
{
    std::vector<Column> list;
    for (const auto& [value, time] : arrivals) {
        const auto slot = static_cast<double>(slotOf(time));
        if (list.empty() || list.back()[0] != slot)
            list.push_back({slot, static_cast<double>(time), value, value, value, value});
        Column& column = list.back();
        column[3] = std::min(column[3], value);
        column[4] = std::max(column[4], value);
        column[5] = value;
    }
    return list;
}

std::vector<Column> columnsOf(const CurveColumns& columns)
{
    std::vector<Column> list;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto& column = columns[i];
        list.push_back({static_cast<double>(column.slot), static_cast<double>(column.time),
                        column.first, column.lowest, column.highest, column.last});
    }
    return list;
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
            std::deque<double> model;
            for (int i = 0; i < 4000; ++i) {
                const unsigned what = random() % 1000;
                if (what == 0) {
                    history.clear();
                    model.clear();
                } else if (static_cast<int>(what % 100) < growth || model.empty()) {
                    const double value = random() % 40 ? static_cast<int>(random() % 19) - 9 : NaN;
                    history.append({value, i});
                    model.push_back(value);
                } else {
                    history.removeFirst();
                    model.pop_front();
                }
                QCOMPARE(history.size(), model.size());
                double lowest = 99; // without numbers both stay
                double highest = -99;
                for (std::size_t k = 0; k < model.size(); ++k) {
                    QCOMPARE(history[k].value, model[k]);
                    lowest = std::fmin(lowest, model[k]);
                    highest = std::fmax(highest, model[k]);
                }
                double low = 99;
                double high = -99;
                QCOMPARE(history.extremes(&low, &high), lowest <= highest);
                QCOMPARE(low, lowest);
                QCOMPARE(high, highest);
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
            std::deque<Arrival> arrivals;
            qint64 time = -300; // through the epoch, where division cuts to the other side
            qint64 timeOut = std::numeric_limits<int>::min();
            for (int i = 0; i < 150; ++i) {
                const int back = random() % 50 == 0 ? static_cast<int>(random() % 200) : 0;
                time += static_cast<int>(random() % 12) - back;
                if (random() % 20 == 0) {
                    timeOut = time - static_cast<int>(random() % 100);
                    columns.setTimeOutTime(timeOut);
                }
                const double value =
                    random() % 30 == 0 ? NaN : static_cast<int>(random() % 100) - 50;
                columns.append(value, time);
                if (!std::isnan(value))
                    arrivals.push_back({value, time});
                while (!arrivals.empty() && slotOf(arrivals.front().time) < slotOf(timeOut))
                    arrivals.pop_front();

                const std::vector<Column> expected = columnsOf(arrivals);
                QVERIFY(columnsOf(columns) == expected);
                QCOMPARE(columns.isAscending(), std::is_sorted(expected.begin(), expected.end()));
                if (!columns.isAscending())
                    continue;
                const qint64 wanted = time - static_cast<int>(random() % 200);
                std::size_t at = 0;
                while (at < columns.size() && columns[at].slot < slotOf(wanted))
                    ++at;
                QCOMPARE(columns.find(slotOf(wanted)), at);
                while (at < columns.size() && columns[at].time <= wanted)
                    ++at;
                QCOMPARE(columns.findAfter(wanted), at);
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
        QCOMPARE(columns.takeChange(CurveColumns::Dots), qint64(10)); // each reader has its own
        columns.setTimeOutTime(125);
        columns.append(NaN, 0);
        QCOMPARE(columns.size(), std::size_t(3));
        QCOMPARE(columns.takeChange(CurveColumns::Lines),
                 CurveColumns::Nothing); // out of date, out of sight
        columns.clear();
        QCOMPARE(columns.takeChange(CurveColumns::Lines), qint64(15));
        QVERIFY(columns.isAscending());
        for (int i = 0; i < 60000; ++i) // from two sources, of which one lags behind for good
            columns.append(i, 1000 + 10 * i - i % 2 * 500);
        QCOMPARE(columns.size(), std::size_t(50000));
        QCOMPARE(columns[columns.size() - 1].last, 59999.0);
    }

    /// A picture that stands still takes nothing that would be seen in it.
    void frozen()
    {
        CurveColumns columns;
        columns.freeze(100);
        columns.add(1, 100);
        QVERIFY(columns.isIncomplete());
        columns.add(2, 101);
        QCOMPARE(columns.size(), std::size_t(1));
        columns.clear();
        QVERIFY(!columns.isIncomplete());
        columns.unfreeze();
        columns.add(1, 100);
        QVERIFY(columns.size() == 1 && !columns.isIncomplete());
    }
};

QTEST_GUILESS_MAIN(CurveDataTest)
#include "CurveDataTest.moc"
