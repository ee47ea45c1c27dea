#include "TrapezialRamp.h"
#include "AbstractRamp.h"
#include "BasicTools.h"
#include "SpinBox.h"
#include "TestCase.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsRectItem>
#include <QGraphicsScene>

#include <random>

namespace
{

constexpr QSizeF Area(340, 100);
constexpr double Drawn = 300; // of the width
constexpr double Ms = 1000 * 131072.0 / 16000000.0;

struct Parameters {
    double vmax = 2000;
    double v1 = 1000;
    double vstart = 100;
    double vstop = 200;
    double a1 = 50;
    double amax = 40;
    double dmax = 30;
    double d1 = 20;
    bool noDistance = true;
    double distance = 0;

    QString text(TrapezialRamp& ramp) const
    {
        ramp.ramp(vmax, v1, vstart, vstop, a1, amax, dmax, d1, noDistance, distance);
        return ramp.str();
    }
};

QString text(double number) { return BasicTools::intInsertDot(number, 1); }

/// Time in ms and length in steps of a change.
long double duration(long double from, long double to, long double a)
{
    return std::abs(to - from) * Ms / a;
}
long double steps(long double upper, long double lower, long double a)
{
    return (upper * upper - lower * lower) / a / 256;
}

/// What a ramp that reaches its peak takes, in closed form.
struct Expected {
    long double time;
    long double length;

    Expected(const Parameters& p, long double peak, long double v1)
        : time(duration(p.vstart, v1, p.a1) + duration(v1, peak, p.amax) +
               duration(peak, v1, p.dmax) + duration(v1, p.vstop, p.d1))
        , length(steps(v1, p.vstart, p.a1) + steps(peak, v1, p.amax) + steps(peak, v1, p.dmax) +
                 steps(v1, p.vstop, p.d1))
    {
    }
};

/// The number behind a place of the text.
double numberAfter(const QString& text, const QString& before)
{
    QString rest = text.mid(text.indexOf(before) + before.size()).remove(QLatin1Char(','));
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^-?[0-9.]+")).match(rest);
    return match.captured().toDouble();
}

/// \param rounded what the single precision of a square may add
bool isNear(long double seen, long double expected, long double rounded = 0)
{
    return std::abs(seen - expected) <= 0.051L + 1e-6L * std::abs(expected) + rounded;
}

} // namespace

class TrapezialRampTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void textsLetterByLetter()
    {
        const double reached = double(Expected(Parameters(), 2000, 1000).length);
        const QString begin = "<htm><b>Time from VSTART to VSTOP: <></b>  ";
        const struct {
            Parameters parameters;
            QString text;
        } rows[] = {
            {Parameters(), begin + text(double(Expected(Parameters(), 2000, 1000).time)) + " ms (" +
                               text(reached) + " steps)</html>"},
            {{0, 0, 0, 0, 0, 0, 0, 0},
             begin + text(2 * Ms) + " ms (" + text(2.0 / 256) +
                 " steps) <span style=\"color:red;\"> A1 = 0! AMAX = 0! DMAX = 0! D1 = "
                 "0!</span></html>"},
            {{10, 11, 10, 10, 1, 1, 1, -1},
             begin + "1,000.0 ms (0.0 steps) <span style=\"color:red;\"> D1 = 0! V1 exceed "
                     "VMAX</span></html>"},
            {{10, 5, 6, 7, 1, 1, 1, 1},
             begin + text(13 * Ms) + " ms (" + text((200.0 - 36 - 49) / 256) +
                 " steps) <span style=\"color:white; background:red;\"> VSTART exceed V1 "
                 "!</span> <span style=\"color:red;\"> VSTOP exceed V1 !</span></html>"},
        };
        for (const auto& row : rows) {
            TrapezialRamp ramp(Area);
            QCOMPARE(row.parameters.text(ramp), row.text);
        }
        // exactly as long as needed: not reached, by its own value
        Parameters p{16, 8, 0, 0, 1, 1, 1, 1, false, 2.0};
        TrapezialRamp ramp(Area);
        QVERIFY(ramp.peak() == 0 && ramp.duration() == 0 && ramp.steps() == 0);
        QVERIFY(p.text(ramp).startsWith("Vmax not reached <16.0> <htm>"));
        p.distance = 18; // 16 steps at 16 a second
        QVERIFY2(p.text(ramp).contains(" + 1,000.0 ms (18.0 steps)"), qPrintable(ramp.str()));
        const double changing = 2 * 16 * Ms / 1000; // s
        QCOMPARE(ramp.duration(), 1 + changing);
        QVERIFY(ramp.peak() == 16 && ramp.steps() == 18);
        p.distance = -0.125; // x = 0.125 / (2 / 256)
        QVERIFY2(p.text(ramp).startsWith("V1 not reached <4.0<htm>"), qPrintable(ramp.str()));
        QVERIFY(ramp.peak() == 4 && ramp.steps() == 0.125);
        QCOMPARE(ramp.duration(), changing / 4);
        QCOMPARE(ramp.polygon().at(3).y(), ramp.polygon().at(4).y());
        QCOMPARE(ramp.polygon().at(3).y(), 75.0);
    }

    /// What decides a case, and what is held in single precision.
    void borders()
    {
        TrapezialRamp ramp(Area);
        // as long as both outer phases: their velocity, but in the second case
        QVERIFY2(Parameters({16, 8, 0, 0, 1, 1, 1, 1, false, 0.5})
                     .text(ramp)
                     .startsWith("Vmax not reached <8.0> <htm>"),
                 qPrintable(ramp.str()));
        QVERIFY2(Parameters({16, 8, 0, 0, 1, 1, 1, 1, false, 0.499})
                     .text(ramp)
                     .startsWith("V1 not reached <8.0<htm>"),
                 qPrintable(ramp.str()));
        // VSTART above V1: both outer phases are -0.5 steps, and their magnitude counts
        QVERIFY2(Parameters({16, 8, 16, 0, 1, 1, 1, 1, false, 0.9})
                     .text(ramp)
                     .startsWith("Vmax not reached <10.7> <htm>"), // 128 x (0.9 - 0.5) + 8^2
                 qPrintable(ramp.str()));
        // and here they leave no square above 0
        QVERIFY2(Parameters({16, 1, 16, 0, 1, 1, 1, 1, false, 0})
                     .text(ramp)
                     .startsWith("Vmax not reached <1.0> <htm>"),
                 qPrintable(ramp.str()));
        // compared as given, not with the 1 that VMAX becomes
        QVERIFY(Parameters({0.25, 0.5, 0, 0, 1, 1, 1, 1}).text(ramp).contains(" V1 exceed VMAX"));
        // 2^24 + 1 has no single
        QVERIFY2(Parameters({2e7, 2e7, 16777217, 2e7, 1, 1, 1, 1})
                     .text(ramp)
                     .contains(text((2e7 - 16777216) * Ms) + " ms"),
                 qPrintable(ramp.str()));
        Parameters({8192, 8192, 0, 0, 1, 1, 1, 1, false, -16777217.0 / 128}).text(ramp);
        QCOMPARE(ramp.polygon().at(4).y(), 50.0);
        Parameters({8192, 0, 0, 0, 1, 1, 1, 1, false, 16777217.0 / 128}).text(ramp);
        QCOMPARE(ramp.polygon().at(4).y(), 50.0);
    }

    void polygonAndPath()
    {
        TrapezialRamp ramp(Area);
        QVERIFY(ramp.str().isEmpty() && ramp.polygon().isEmpty());
        Parameters{100, 50, 25, 0, 1, 2, 4, 8}.text(ramp);
        const double times[] = {25, 25, 0, 12.5, 6.25};
        const double ys[] = {50, 0, 0, 50, 100};
        QCOMPARE(ramp.polygon().size(), 10);
        QCOMPARE(ramp.polygon().at(0), QPointF(0, 100));
        QCOMPARE(ramp.polygon().at(1), QPointF(20, 100));
        QCOMPARE(ramp.polygon().at(2), QPointF(20, 75));
        double x = 20;
        for (int i = 0; i < 5; ++i) {
            x += times[i] / 68.75 * Drawn;
            QVERIFY(qAbs(ramp.polygon().at(3 + i).x() - x) < 1e-9);
            QCOMPARE(ramp.polygon().at(3 + i).y(), ys[i]);
        }
        QCOMPARE(ramp.polygon().at(8), QPointF(320, 100));
        QCOMPARE(ramp.polygon().at(9), QPointF(340, 100));

        const QPainterPath path = ramp.path();
        int circles = 0;
        for (int i = 1; i < path.elementCount(); ++i)
            circles += path.elementAt(i).type == QPainterPath::MoveToElement &&
                       path.elementAt(i + 1).type == QPainterPath::CurveToElement;
        QCOMPARE(circles, 5); // the points above the base line
        QCOMPARE(path.elementAt(0).x, 0.0);
        QCOMPARE(path.currentPosition(), QPointF(340, 100));
    }

    void standingStill()
    {
        TrapezialRamp ramp(Area);
        Parameters{5, 5, 5, 5, 1, 1, 1, 1}.text(ramp);
        for (int i = 2; i < 9; ++i)
            QCOMPARE(ramp.polygon().at(i).x(), 20.0);
    }

    /// Durations and lengths in the three cases and at their borders, in closed form.
    void againstTheClosedForm_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 4; ++seed)
            QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed;
    }
    void againstTheClosedForm()
    {
        QFETCH(unsigned, seed);
        std::mt19937 random(seed);
        const auto number = [&random](double from, double to) {
            return std::uniform_real_distribution<double>(from, to)(random);
        };
        int cases[4] = {};
        for (int round = 0; round < 3000; ++round) {
            Parameters p;
            p.vmax = number(1, 100000);
            p.v1 = number(0, p.vmax);
            p.vstart = double(float(number(0, p.v1)));
            p.vstop = number(0, p.v1);
            for (double* a : {&p.a1, &p.amax, &p.dmax, &p.d1})
                *a = std::exp(number(0, 10));
            const Expected full(p, p.vmax, p.v1);
            const double outer = double(Expected(p, p.v1, p.v1).length);
            p.noDistance = round % 5 == 0;
            const double length = double(full.length);
            const double distances[] = {length * number(1.01, 3), number(outer, length),
                                        number(0, 0.999) * outer, -number(0, 2) * length};
            p.distance = distances[random() % 4];
            TrapezialRamp ramp(Area);
            const QString text = p.text(ramp);
            const QString where = QString("round %1: %2").arg(round).arg(text);
            long double peak = p.vmax;
            long double cruise = 0;
            Expected wanted = full;
            int which = 0;
            if (!p.noDistance && p.distance > length) {
                which = 1;
                cruise = (p.distance - full.length) / p.vmax; // s
                wanted.length += cruise * p.vmax;
            } else if (!p.noDistance && p.distance >= outer) {
                which = 2;
                // both inner phases together cover what the outer ones leave
                peak =
                    std::sqrt(256 * (p.distance - outer) / (1 / p.amax + 1 / p.dmax) + p.v1 * p.v1);
                wanted = Expected(p, peak, p.v1);
                QVERIFY2(isNear(wanted.length, p.distance), qPrintable(where));
            } else if (!p.noDistance) {
                which = 3;
                peak = std::sqrt(256 * std::abs(p.distance) / (1 / p.a1 + 1 / p.d1));
                wanted = Expected(p, peak, peak);
            }
            ++cases[which];
            const QString starts[] = {"<htm>", "<htm>", "Vmax not reached <", "V1 not reached <"};
            QVERIFY2(text.startsWith(starts[which]), qPrintable(where));
            if (which > 1)
                QVERIFY2(isNear(numberAfter(text, "<"), peak), qPrintable(where));
            QVERIFY2(isNear(numberAfter(text, "<></b>  "), wanted.time), qPrintable(where));
            if (which == 1)
                QVERIFY2(isNear(numberAfter(text, " + "), 1000 * cruise), qPrintable(where));
            const long double rounded =
                1e-7L * steps(peak, 0, qMin(qMin(p.a1, p.d1), qMin(p.amax, p.dmax)));
            QVERIFY2(isNear(numberAfter(text, " ms ("), wanted.length, rounded), qPrintable(where));
            const long double all = wanted.time + 1000 * cruise;
            const double top = ramp.polygon().at(4).y();
            QVERIFY2(std::abs(top - double(100 - 100 * peak / p.vmax)) < 1e-3, qPrintable(where));
            QVERIFY2(std::abs(ramp.polygon().at(7).x() - (all > 0 ? 320 : 20)) < 1e-6,
                     qPrintable(where));
        }
        for (int each : cases)
            QVERIFY(each > 100);
    }

    /// Whatever comes in, all that comes out can be shown and drawn.
    void everythingIsFinite()
    {
        std::mt19937 random(7);
        const double awkward[] = {0,    -1,   1,     1e-300, 1e300,    -1e300,
                                  1e39, 1e19, 2e-39, NAN,    INFINITY, -INFINITY};
        const auto any = [&] {
            if (random() % 2)
                return awkward[random() % (sizeof awkward / sizeof *awkward)];
            return std::ldexp(double(random()) - 2147483648.0, int(random() % 60) - 30);
        };
        for (int round = 0; round < 20000; ++round) {
            TrapezialRamp ramp(Area);
            const Parameters p{
                any(), any(), any(), any(), any(), any(), any(), any(), random() % 4 == 0, any()};
            const QString text = p.text(ramp);
            QVERIFY2(!text.contains("nan") && !text.contains("inf"), qPrintable(text));
            for (const QPointF& point : ramp.polygon())
                QVERIFY2(std::isfinite(point.x()) && std::isfinite(point.y()), qPrintable(text));
            QVERIFY(!ramp.path().isEmpty());
        }
    }

    void parametersFromSpinBoxes()
    {
        const struct {
            const char* name;
            double value;
        } boxes[] = {{"sbMaxPosVel_V1", 2000}, // the first part counts
                     {"sbV1", 1000},
                     {"VStartBox", 100},
                     {"sbVStop", 200},
                     {"sbA1", 50},
                     {"sbAcceleration", 40},
                     {"sbDeceleration", 30},
                     {"sbD1", 20},
                     {"sbVSTART", 999}}; // another case
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        QGraphicsScene scene;
        scene.addItem(new QGraphicsRectItem);
        scene.addItem(new QGraphicsProxyWidget); // without a widget
        layout->addStretch();
        const auto make = [](const char* name, double value) {
            auto* box = new SpinBox;
            box->setObjectName(name);
            box->setMaximum(100000.0);
            box->setValue(value);
            return box;
        };
        for (const auto& box : boxes) {
            layout->addWidget(make(box.name, box.value));
            scene.addWidget(make(box.name, box.value));
        }
        auto* foreign = new QSpinBox;
        foreign->setObjectName("sbV1");
        layout->addWidget(foreign);
        TrapezialRamp expected(Area);
        TrapezialRamp seen(Area);
        const QString text = Parameters().text(expected);
        seen.ramp(layout, true, 1111.1);
        QCOMPARE(seen.str(), text);
        TrapezialRamp fromScene(Area);
        fromScene.ramp(scene.items(), true, 1111.1);
        QCOMPARE(fromScene.str(), text);
        QCOMPARE(fromScene.polygon(), expected.polygon());
        fromScene.ramp(static_cast<QLayout*>(nullptr), true, 0);
        fromScene.ramp(QList<QGraphicsItem*>{nullptr}, true, 0);
        QVERIFY(fromScene.str().contains("A1 = 0!"));
    }

    void otherFormsHaveNoRamp()
    {
        for (int mode : {1, -1, 1000}) {
            AbstractRamp none(static_cast<AbstractRamp::rampMode>(mode), Area);
            none.ramp(2, 1, 0, 0, 1, 1, 1, 1, true, 0);
            QCOMPARE(int(none.mode()), mode);
            QVERIFY(none.str().isEmpty() && none.path().isEmpty());
            QCOMPARE(none.size(), QSizeF(-1, -1));
        }
        AbstractRamp ramp(AbstractRamp::Trapezoid, Area);
        ramp.ramp(2, 1, 0, 0, 1, 1, 1, 1, true, 0);
        QVERIFY(!ramp.str().isEmpty() && !ramp.path().isEmpty());
        QCOMPARE(ramp.size(), Area);
    }
};

AXR_TEST_MAIN(TrapezialRampTest)
#include "TrapezialRampTest.moc"
