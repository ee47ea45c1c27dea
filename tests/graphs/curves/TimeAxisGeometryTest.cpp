#include "TestCase.h"
#include "TimeAxisGeometry_p.h"

#include <algorithm>
#include <climits>

namespace
{

using Geometry = TimeAxisGeometry;

constexpr int FontHeight = 20; // so the axis is 30 px from either end
constexpr double LeftMargin = 60;

/// Number of ticks, of those without a label, and the outermost ones as "value@row".
QString ticks(const Geometry& geometry)
{
    const auto labelled = std::count_if(geometry.begin(), geometry.end(),
                                        [](const auto& tick) { return tick.hasLabel(); });
    const auto count = std::distance(geometry.begin(), geometry.end());
    const Geometry::ValueTick low = geometry.bottommost();
    const Geometry::ValueTick high = geometry.topmost();
    return QString("%1 -%2: %3@%4..%5@%6")
        .arg(count)
        .arg(count - labelled)
        .arg(low.value)
        .arg(low.y)
        .arg(high.value)
        .arg(high.y);
}

/// Of a widget of this width: "x:second" of each major tick, "x" of the others.
QString timeTicks(double width, qint64 now)
{
    QStringList list;
    const Geometry geometry(width, 260, 0, 100, LeftMargin, FontHeight);
    geometry.forEachTimeTick(now, [&list](const Geometry::TimeTick& tick) {
        list << (tick.isMajor ? QString("%1:%2").arg(tick.x).arg(tick.second)
                              : QString::number(tick.x));
    });
    return list.join(' ');
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
            {0, 125, 260, 230, "11 -5: 0@230..125@30"},
            {-100, 5, 260, 39.5238095238095, "11 -4: -100@230..5@30"}, // zero is not marked
            {0, 3, 260, 230, "11 -0: 0@230..3@30"},
            {100, 0, 260, 30, "11 -0: 100@230..0@30"}, // upside down
            {INT_MIN, INT_MAX, 260, 129.999999976717,
             "9 -6: -2.14748e+09@217.889..2.14748e+09@40.1111"},
        };
        for (const auto& row : rows) {
            const Geometry geometry(400, row.height, row.min, row.max, LeftMargin, FontHeight);
            QCOMPARE(geometry.zeroLine(), row.zeroLine);
            QCOMPARE(ticks(geometry), QString(row.ticks));
        }
    }

    /// Whatever the size, there are ticks within it and the outermost ones differ in value.
    void anySize()
    {
        const int limits[] = {INT_MIN, -101, -100, -10, -1, 0, 9, 50, 100, 4711000, INT_MAX};
        for (double height : {0., 30., 61., 75., 100., 140., 600., 4000.}) {
            for (int i = 0; i < 121; ++i) {
                const int min = limits[i / 11];
                const int max = limits[i % 11];
                if (min == max)
                    continue;
                const Geometry geometry(400, height, min, max, LeftMargin, FontHeight);
                const auto count = std::distance(geometry.begin(), geometry.end());
                QVERIFY(count >= 1 && count <= Geometry::MaximumValueTicks);
                if (height < 3 * FontHeight) // no room between the ends
                    continue;
                QVERIFY(geometry.topmost().y <= geometry.bottommost().y);
                QVERIFY(geometry.topmost().y >= geometry.top() - 2);
                QVERIFY(geometry.bottommost().y <= geometry.bottom() + 2);
                if (min < max && height >= 140)
                    QVERIFY(geometry.topmost().value > geometry.bottommost().value);
            }
        }
    }

    void timeAxis()
    {
        const struct {
            double width;
            qint64 now;
            const char* ticks;
        } rows[] = {
            {200, 1000, "200:1 180 160 140 120 100:0 80"}, // 10 px right of the axis it ends
            {200, 1010, "199:1 179 159 139 119 99:0 79"},
            {200, 1011, "198:1 178 158 138 118 98:0 78"},
            {120, 1234567890123, "107:30 87"},
            {71, 60000, "71:0"}, // a minute is full
            {70, 60000, ""},
            {0, 60000, ""},
            {120, -500, "110 90"}, // before the epoch
        };
        for (const auto& row : rows)
            QCOMPARE(timeTicks(row.width, row.now), QString(row.ticks));
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
            const Geometry geometry(400, 260, row.min, row.max, LeftMargin, FontHeight);
            QCOMPARE(geometry.timeTickLine({100, 0, true}), row.major);
            QCOMPARE(geometry.timeTickLine({100, 0, false}), row.minor);
            QCOMPARE(geometry.timeLabel({100, 0, true}, 30), row.label);
            QVERIFY(geometry.timeLabel({9, 0, true}, 30).x() < 0);
            QCOMPARE(geometry.timeRows().top, row.firstRow);
            QCOMPARE(geometry.timeRows().bottom, row.behind);
            QCOMPARE(geometry.captionBottom(), 60);
        }
        const Geometry geometry(400, 260, 0, 100, LeftMargin, FontHeight);
        const Geometry::ValueTick tick{129.75, 50};
        QCOMPARE(geometry.valueTickLine(tick), QLine(55, 129, 65, 129));
        QCOMPARE(geometry.valueLabel(tick, 25), QPoint(20, 138));
    }
};

QTEST_GUILESS_MAIN(TimeAxisGeometryTest)
#include "TimeAxisGeometryTest.moc"
