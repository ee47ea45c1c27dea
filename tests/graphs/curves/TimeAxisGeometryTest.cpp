#include "BasicTools.h"
#include "TestCase.h"
#include "TimeAxisGeometry_p.h"

#include <climits>

namespace
{

using Geometry = TimeAxisGeometry;

constexpr int FontHeight = 20; // so the axis is 30 px from either end
constexpr double LeftMargin = 60;

/// "value@row" of the ticks that follow each other in the same distance as a first and a last one;
/// in brackets without a label.
QString valueTicks(const Geometry& geometry)
{
    QStringList list;
    for (const Geometry::ValueTick& tick : geometry) {
        const QString text =
            QString("%1@%2").arg(BasicTools::intInsertDot(tick.value, 1)).arg(tick.y);
        list << (tick.hasLabel() ? text : '[' + text + ']');
    }
    return list.join(' ');
}

QString ends(const Geometry& geometry)
{
    return QString("%1@%2..%3@%4")
        .arg(geometry.bottommost().value)
        .arg(geometry.bottommost().y)
        .arg(geometry.topmost().value)
        .arg(geometry.topmost().y);
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
        const char* fromZero = "0.0@230 10.0@210 20.0@190 30.0@170 40.0@150 50.0@130 60.0@110 "
                               "70.0@90 80.0@70 90.0@50 100.0@30";
        const struct {
            int min;
            int max;
            double height;
            double zeroLine;
            const char* ticks;
            const char* ends;
        } rows[] = {
            {0, 100, 260, 230, fromZero, "0@230..100@30"},
            {-100, 100, 260, 130,
             "0.0@130 25.0@105 50.0@80 75.0@55 100.0@30 -25.0@155 -50.0@180 -75.0@205 -100.0@230",
             "-100@230..100@30"},
            // 105 would stand out at the top
            {-30, 100, 960, 722.307692307692,
             "0.0@722 15.0@622 30.0@522 45.0@422 60.0@322 75.0@222 90.0@122 -15.0@822 -30.0@922",
             "-30@922..90@122"},
            {0, 125, 260, 230,
             "0.0@230 [12.5@210] 25.0@190 [37.5@170] 50.0@150 [62.5@130] 75.0@110 [87.5@90] "
             "100.0@70 [112.5@50] 125.0@30",
             "0@230..125@30"},
            // a zero close to an end is not marked
            {-100, 5, 260, 39.5238095238095,
             "5.0@30 -5.5@50 -16.0@70 [-26.5@90] -37.0@110 [-47.5@130] -58.0@150 [-68.5@170] "
             "-79.0@190 [-89.5@210] -100.0@230",
             "-100@230..5@30"},
            {100, 200, 260, 230, nullptr, "100@230..200@30"},
            {-200, -100, 260, 30, nullptr, "-200@230..-100@30"},
            {100, 0, 260, 30, nullptr, "100@230..0@30"}, // upside down
            {-1, 9, 260, 210, nullptr, "-1@230..9@30"},
            {-100, 30, 960, 237.692307692308, nullptr, "-90@837..30@37"}, // as above, at the bottom
            {INT_MIN, INT_MAX, 260, 129.999999976717, nullptr,
             "-2.14748e+09@217.889..2.14748e+09@40.1111"},
        };
        for (const auto& row : rows) {
            const Geometry geometry(400, row.height, row.min, row.max, LeftMargin, FontHeight);
            QCOMPARE(geometry.zeroLine(), row.zeroLine);
            if (row.ticks)
                QCOMPARE(valueTicks(geometry), QString(row.ticks));
            QCOMPARE(ends(geometry), QString(row.ends));
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
