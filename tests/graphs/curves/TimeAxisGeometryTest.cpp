#include "BasicTools.h"
#include "TestCase.h"
#include "TimeAxisGeometry_p.h"

#include <climits>

namespace
{

using Geometry = TimeAxisGeometry;

constexpr int FontHeight = 20; // so the axis is 30 px from either end
constexpr double LeftMargin = 60;

const char* name(Geometry::Zone zone)
{
    return zone == Geometry::Zone::NearTop      ? "top"
           : zone == Geometry::Zone::NearBottom ? "bottom"
                                                : "middle";
}

/// "value@row" of each tick; in brackets when it has no label.
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
QString timeTicks(double width, qint64 now, double leftMargin = LeftMargin)
{
    QStringList list;
    const Geometry geometry(width, 260, 0, 100, leftMargin, FontHeight);
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
            const char* zone;
            double zeroLine;
            const char* ticks;
            const char* ends;
        } rows[] = {
            {0, 100, 260, "bottom", 230,
             "0.0@230 10.0@210 20.0@190 30.0@170 40.0@150 50.0@130 60.0@110 70.0@90 80.0@70 "
             "90.0@50 100.0@30",
             "0@230..100@30"},
            {-100, 0, 260, "top", 30,
             "0.0@30 -10.0@50 -20.0@70 -30.0@90 -40.0@110 -50.0@130 -60.0@150 -70.0@170 "
             "-80.0@190 -90.0@210 -100.0@230",
             "-100@230..0@30"},
            {100, 200, 260, "bottom", 230,
             "100.0@230 110.0@210 120.0@190 130.0@170 140.0@150 150.0@130 160.0@110 170.0@90 "
             "180.0@70 190.0@50 200.0@30",
             "100@230..200@30"},
            {-200, -100, 260, "top", 30,
             "-100.0@30 -110.0@50 -120.0@70 -130.0@90 -140.0@110 -150.0@130 -160.0@150 "
             "-170.0@170 -180.0@190 -190.0@210 -200.0@230",
             "-200@230..-100@30"},
            {-100, 100, 260, "middle", 130,
             "0.0@130 25.0@105 50.0@80 75.0@55 100.0@30 -25.0@155 -50.0@180 -75.0@205 -100.0@230",
             "-100@230..100@30"},
            // 105 would stand out at the top
            {-30, 100, 960, "middle", 722.307692307692,
             "0.0@722 15.0@622 30.0@522 45.0@422 60.0@322 75.0@222 90.0@122 -15.0@822 -30.0@922",
             "-30@922..90@122"},
            {0, 3, 260, "bottom", 230,
             "0.0@230 0.3@210 0.6@190 0.9@170 1.2@150 1.5@130 1.8@110 2.1@90 2.4@70 2.7@50 3.0@30",
             "0@230..3@30"},
            {0, 125, 260, "bottom", 230,
             "0.0@230 [12.5@210] 25.0@190 [37.5@170] 50.0@150 [62.5@130] 75.0@110 [87.5@90] "
             "100.0@70 [112.5@50] 125.0@30",
             "0@230..125@30"},
            // a zero close to an end is not marked
            {-100, 5, 260, "top", 39.5238095238095,
             "5.0@30 -5.5@50 -16.0@70 [-26.5@90] -37.0@110 [-47.5@130] -58.0@150 [-68.5@170] "
             "-79.0@190 [-89.5@210] -100.0@230",
             "-100@230..5@30"},
            // upside down
            {100, 0, 260, "top", 30,
             "0.0@30 10.0@50 20.0@70 30.0@90 40.0@110 50.0@130 60.0@150 70.0@170 80.0@190 90.0@210 "
             "100.0@230",
             "100@230..0@30"},
            {INT_MIN, INT_MAX, 260, "middle", 129.999999976717,
             "0.0@129 [536,870,911.8@106.778] [1,073,741,823.5@84.5556] [1,610,612,735.3@62.3333] "
             "2,147,483,647.0@40.1111 [-536,870,911.8@151.222] [-1,073,741,823.5@173.444] "
             "[-1,610,612,735.3@195.667] -2,147,483,647.0@217.889",
             "-2.14748e+09@217.889..2.14748e+09@40.1111"},
        };
        for (const auto& row : rows) {
            const Geometry geometry(400, row.height, row.min, row.max, LeftMargin, FontHeight);
            QCOMPARE(name(geometry.zone()), row.zone);
            QCOMPARE(geometry.zeroLine(), row.zeroLine);
            QCOMPARE(valueTicks(geometry), QString(row.ticks));
            QCOMPARE(ends(geometry), QString(row.ends));
        }
    }

    /// Whatever the size, there are ticks within it and the outermost ones differ in value.
    void anySize()
    {
        const int limits[] = {INT_MIN, -1000000, -101, -100, -10, -1,      0,
                              1,       9,        50,   100,  333, 4711000, INT_MAX};
        for (double height : {0., 5., 30., 60., 61., 75., 100., 140., 166., 600., 4000.}) {
            for (int min : limits) {
                for (int max : limits) {
                    if (min == max)
                        continue;
                    const Geometry geometry(400, height, min, max, LeftMargin, FontHeight);
                    const auto count = std::distance(geometry.begin(), geometry.end());
                    QVERIFY(count >= 1 && count <= Geometry::MaximumValueTicks);
                    if (height < 3 * FontHeight) // no room between the ends
                        continue;
                    QVERIFY(geometry.topmost().y <= geometry.bottommost().y);
                    for (const Geometry::ValueTick& tick : geometry) {
                        QVERIFY(tick.y >= geometry.top() - 2);
                        QVERIFY(tick.y <= geometry.bottom() + 2);
                    }
                    if (min < max && height >= 140)
                        QVERIFY(geometry.topmost().value > geometry.bottommost().value);
                }
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
            {200, 1005, "199:1 179 159 139 119 99:0 79"},
            {200, 1010, "199:1 179 159 139 119 99:0 79"},
            {200, 1011, "198:1 178 158 138 118 98:0 78"},
            {200, 1199, "180:1 160 140 120 100 80:0"},
            {120, 1234567890123, "107:30 87"},
            {120, 1234567890000, "120:30 100 80"},
            {71, 60000, "71:0"}, // a minute is full
            {70, 60000, ""},
            {0, 60000, ""},
            {10, 60000, ""},
            {120, -500, "110 90"}, // before the epoch
        };
        for (const auto& row : rows)
            QCOMPARE(timeTicks(row.width, row.now), QString(row.ticks));
        // the ticks of a second move by a pixel each 10 ms and keep their number
        for (int passed = 0; passed < 1000; passed += 10) {
            const QString tick = QString("%1:7").arg(400 - passed / 10);
            QVERIFY(timeTicks(400, 7000 + passed).split(' ').contains(tick));
        }
    }

    void placesOfTimeLabels()
    {
        const struct {
            int min;
            int max;
            QLine major;
            QLine minor;
            QPoint label; // 30 px wide
        } rows[] = {
            {-100, 100, {100, 145, 100, 115}, {100, 137, 100, 123}, {85, 165}},
            {-100, 0, {100, 45, 100, 30}, {100, 37, 100, 30}, {85, 23}},
            {0, 100, {100, 230, 100, 215}, {100, 230, 100, 223}, {85, 250}},
        };
        for (const auto& row : rows) {
            const Geometry geometry(400, 260, row.min, row.max, LeftMargin, FontHeight);
            QCOMPARE(geometry.timeTickLine({100, 0, true}), row.major);
            QCOMPARE(geometry.timeTickLine({100, 0, false}), row.minor);
            QCOMPARE(geometry.timeLabel({100, 0, true}, 30), row.label);
            QVERIFY(geometry.timeLabel({9, 0, true}, 30).x() < 0);
        }
        const Geometry geometry(400, 260, 0, 100, LeftMargin, FontHeight);
        const Geometry::ValueTick tick{129.75, 50};
        QCOMPARE(geometry.valueTickLine(tick), QLine(55, 129, 65, 129));
        QCOMPARE(geometry.valueLabel(tick, 25), QPoint(20, 138));
    }
};

QTEST_GUILESS_MAIN(TimeAxisGeometryTest)
#include "TimeAxisGeometryTest.moc"
