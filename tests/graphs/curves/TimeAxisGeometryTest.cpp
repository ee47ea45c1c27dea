#include "TestCase.h"
#include "TimeAxisGeometry_p.h"

#include <algorithm>
#include <climits>

namespace
{

using Geometry = TimeAxisGeometry;

/// Of a widget 400 px wide, with an axis at 60 and lines of 20: it is 30 px from either end.
Geometry geometryOf(int min, int max, double height = 260, double width = 400)
{
    return {width, height, min, max, 60, 20};
}

/// Number of ticks, of those without a label, and the outermost ones as "value@row".
QString ticks(const Geometry& geometry)
{
    const auto count = std::distance(geometry.begin(), geometry.end());
    const auto labelled = std::count_if(geometry.begin(), geometry.end(),
                                        [](const auto& tick) { return tick.hasLabel(); });
    const Geometry::ValueTick low = geometry.bottommost();
    const Geometry::ValueTick high = geometry.topmost();
    const QString text("%1 -%2: %3@%4..%5@%6");
    return text.arg(count)
        .arg(count - labelled)
        .arg(low.value)
        .arg(low.y)
        .arg(high.value)
        .arg(high.y);
}

} // namespace

class TimeAxisGeometryTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void valueAxis()
    {
        const struct {
            int min;
            int max;
            double height;
            double zeroLine;
            const char* ticks;
        } rows[] = {
            {0, 100, 260, 230, "11 -0: 0@230..100@30"},
            {100, 200, 260, 230, "11 -0: 100@230..200@30"},
            {-200, -100, 260, 30, "11 -0: -200@230..-100@30"},
            {-100, 100, 260, 130, "9 -0: -100@230..100@30"},
            {-30, 100, 960, 722.307692307692, "9 -0: -30@922..90@122"}, // 105 would stand out
            {-100, 30, 960, 237.692307692308, "9 -0: -90@837..30@37"},  // at the bottom, too
            {-5, 100, 1060, 982.380952380952, "9 -8: 0@982..88.8889@93.1111"}, // no step below
            {0, 125, 260, 230, "11 -5: 0@230..125@30"},
            {-100, 5, 260, 39.5238095238095, "11 -4: -100@230..5@30"}, // zero is not marked
            {100, 0, 260, 30, "11 -0: 100@230..0@30"},                 // upside down
            {INT_MIN, INT_MAX, 260, 129.999999976717,
             "9 -6: -2.14748e+09@217.889..2.14748e+09@40.1111"},
        };
        for (const auto& row : rows) {
            const Geometry geometry = geometryOf(row.min, row.max, row.height);
            QCOMPARE(geometry.zeroLine(), row.zeroLine);
            QCOMPARE(ticks(geometry), QString(row.ticks));
        }
    }

    void timeAxis()
    {
        const struct {
            double width;
            qint64 now;
            const char* ticks; // "x:second" of a major one, "x" of the others
        } rows[] = {
            {200, 1000, "200:1 180 160 140 120 100:0 80"}, // 10 px right of the axis it ends
            {200, 1010, "199:1 179 159 139 119 99:0 79"},
            {200, 1011, "198:1 178 158 138 118 98:0 78"},
            {71, 60000, "71:0"}, // a minute is full
            {70, 60000, ""},
            {120, -500, "110 90"}, // before the epoch
        };
        for (const auto& row : rows) {
            QStringList list;
            geometryOf(0, 100, 260, row.width).forEachTimeTick(row.now, [&](const auto& tick) {
                const QString second = tick.isMajor ? QString(":%1").arg(tick.second) : QString();
                list << QString::number(tick.x) + second;
            });
            QCOMPARE(list.join(' '), QString(row.ticks));
        }
    }

    void places()
    {
        const struct {
            int min;
            int max;
            QLine major;
            QLine minor;
            QPoint label; // 30 px wide
            int firstRow; // of all this
            int behind;
        } rows[] = {
            {-100, 100, {100, 145, 100, 115}, {100, 137, 100, 123}, {85, 165}, 113, 187},
            {-100, 0, {100, 45, 100, 30}, {100, 37, 100, 30}, {85, 23}, 1, 47},
            {0, 100, {100, 230, 100, 215}, {100, 230, 100, 223}, {85, 250}, 213, 272},
        };
        for (const auto& row : rows) {
            const Geometry geometry = geometryOf(row.min, row.max);
            QCOMPARE(geometry.timeTickLine({100, 0, true}), row.major);
            QCOMPARE(geometry.timeTickLine({100, 0, false}), row.minor);
            QCOMPARE(geometry.timeLabel({100, 0, true}, 30), row.label);
            QCOMPARE(geometry.timeRows().top, row.firstRow);
            QCOMPARE(geometry.timeRows().bottom, row.behind);
            QCOMPARE(geometry.captionBottom(), 60);
            QCOMPARE(geometry.valueTickLine({129.75, 50}), QLine(55, 129, 65, 129));
            QCOMPARE(geometry.valueLabel({129.75, 50}, 25), QPoint(20, 138));
        }
    }
};

QTEST_GUILESS_MAIN(TimeAxisGeometryTest)
#include "TimeAxisGeometryTest.moc"
