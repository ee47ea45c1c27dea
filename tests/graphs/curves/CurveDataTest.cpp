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

qint64 slotOf(qint64 time) { return static_cast<qint64>(std::floor(time / 10.0)); }

/// Columns in the order of arrival, of samples that are numbers.
std::vector<CurveColumns::Column> columnsOf(const std::deque<TValue>& samples)
{
    std::vector<CurveColumns::Column> list;
    for (const auto& [value, time] : samples) {
        if (list.empty() || list.back().slot != slotOf(time))
            list.push_back({slotOf(time), time, value, value, value, value});
        list.back().lowest = std::min(list.back().lowest, value);
        list.back().highest = std::max(list.back().highest, value);
        list.back().last = value;
    }
    return list;
}

bool isSame(const CurveColumns::Column& a, const CurveColumns::Column& b)
{
    return a.slot == b.slot && a.time == b.time && a.first == b.first && a.lowest == b.lowest &&
           a.highest == b.highest && a.last == b.last;
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
        const auto dice = [&random](int sides) { return static_cast<int>(random() % sides); };
        for (int round = 0; round < 60; ++round) {
            CurveColumns columns;
            std::deque<TValue> samples;
            qint64 time = -300; // through the epoch, where division cuts to the other side
            qint64 timeOut = std::numeric_limits<int>::min();
            for (int i = 0; i < 150; ++i) {
                time += dice(12) - (dice(50) ? 0 : dice(200));
                if (dice(20) == 0)
                    columns.setTimeOutTime(timeOut = time - dice(100));
                const double value = dice(30) ? dice(100) - 50 : NaN;
                columns.append(value, time);
                if (!std::isnan(value))
                    samples.push_back({value, time});
                while (!samples.empty() && slotOf(samples.front().time) < slotOf(timeOut))
                    samples.pop_front();

                const auto expected = columnsOf(samples);
                const qint64 wanted = time - dice(200);
                std::size_t before = 0; // and the same by time:
                std::size_t notAfter = 0;
                bool isAscending = true;
                QCOMPARE(columns.size(), expected.size());
                for (std::size_t k = 0; k < expected.size(); ++k) {
                    QVERIFY(isSame(columns[k], expected[k]));
                    before += expected[k].slot < slotOf(wanted);
                    notAfter += expected[k].time <= wanted;
                    isAscending =
                        isAscending && (k == 0 || expected[k - 1].slot < expected[k].slot);
                }
                QCOMPARE(columns.isAscending(), isAscending);
                if (!isAscending)
                    continue;
                QCOMPARE(columns.find(slotOf(wanted)), before);
                QCOMPARE(columns.findAfter(wanted), notAfter);
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
        columns.append(NaN, 0); // the first two go, out of sight
        QCOMPARE(columns.size(), std::size_t(3));
        QCOMPARE(columns.takeChange(CurveColumns::Lines), CurveColumns::Nothing);
        columns.freeze(300); // and so nothing that would be seen is taken
        columns.append(1, 300);
        QVERIFY(columns.isIncomplete());
        columns.clear();
        QCOMPARE(columns.takeChange(CurveColumns::Lines), qint64(15));
        QVERIFY(columns.isAscending() && !columns.isIncomplete());
        columns.append(1, 301);
        columns.unfreeze();
        columns.append(1, 300);
        QVERIFY(columns.size() == 1 && !columns.isIncomplete());
        columns.clear();
        for (int i = 0; i < 60000; ++i) // from two sources, of which one lags behind for good
            columns.append(i, 1000 + 10 * i - i % 2 * 500);
        QCOMPARE(columns.size(), std::size_t(50000));
        QCOMPARE(columns[columns.size() - 1].last, 59999.0);
    }
};

QTEST_GUILESS_MAIN(CurveDataTest)
#include "CurveDataTest.moc"
