#include "TrapezialRamp.h"
#include "AbstractRamp.h"
#include "SpinBox.h"
#include "TestCase.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsRectItem>
#include <QGraphicsScene>

#include <random>

namespace
{

constexpr QSizeF Area(340, 100); // 300 are drawn upon

struct Parameters {
    double vmax, v1, vstart, vstop, a1, amax, dmax, d1;
    bool noDistance;
    double distance;

    void take(TrapezialRamp& ramp) const
    {
        ramp.ramp(vmax, v1, vstart, vstop, a1, amax, dmax, d1, noDistance, distance);
    }
};

} // namespace

class TrapezialRampTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    /// Each case, its borders and what is held in single precision.
    void ramps()
    {
        const struct {
            Parameters parameters;
            QString text;    // "|" for what each begins with
            QString numbers; // peak, duration, steps; corners without the base line
        } rows[] = {
            {{2000, 1000, 100, 200, 50, 40, 30, 20, true, 1111},
             "|953.0 ms (948.4 steps)",
             "2000 0.953003 948.438; 20,95 66.4183,50 130.888,0 130.888,0 216.848,50 320,90"},
            {{0.25, 0.5, 0, 0, 0, 0, 0, 0, true, 0},
             "|16.4 ms (0.0 steps) <span style=\"color:red;\"> A1 = 0! AMAX = 0! DMAX = 0! D1 = 0! "
             "V1 exceed VMAX</span>",
             "1 0.016384 0.0078125; 20,100 95,50 170,0 170,0 245,50 320,100"},
            {{10, 11, 10, 10, 1, 1, 1, -1, true, 0},
             "|1,000.0 ms (0.0 steps) <span style=\"color:red;\"> D1 = 0! V1 exceed VMAX</span>",
             "10 1 0; 20,0 20,0 20,0 20,0 20,0 20,0"},
            {{10, 5, 6, 7, 1, 1, 1, 1, true, 0},
             "|106.5 ms (0.4 steps) <span style=\"color:white; background:red;\"> VSTART exceed V1 "
             "!</span> <span style=\"color:red;\"> VSTOP exceed V1 !</span>",
             "10 0.106496 0.449219; 20,40 43.0769,50 158.462,0 158.462,0 273.846,50 320,30"},
            {{2000, 1000, 100, 200, 50, 40, 30, 20, false, 2000},
             "|953.0 + 525.8 ms (2,000.0 steps)",
             "2000 1.47878 2000; 20,95 49.9143,50 91.462,0 198.127,0 253.524,50 320,90"},
            {{2000, 1000, 100, 200, 50, 40, 30, 20, false, 500},
             "Vmax not reached <1,425.5> |678.5 ms (500.0 steps)",
             "1425.48237 0.67846 500; 20,95 85.2018,50 123.733,28.7259 123.733,28.7259 175.107,50 "
             "320,90"},
            {{2000, 1000, 100, 200, 50, 40, 30, 20, false, -100},
             "V1 not reached <604.7|248.5 ms (91.4 steps)",
             "604.743153 0.24848 91.4062; 20,95 119.844,69.7628 119.844,69.7628 119.844,69.7628 "
             "119.844,69.7628 320,90"},
            {{16, 8, 0, 0, 1, 1, 1, 1, false, 2},
             "Vmax not reached <16.0> |262.1 ms (2.0 steps)",
             "16 0.262144 2; 20,100 95,50 170,0 170,0 245,50 320,100"},
            {{16, 8, 0, 0, 1, 1, 1, 1, false, 0.5},
             "Vmax not reached <8.0> |131.1 ms (0.5 steps)",
             "8 0.131072 0.5; 20,100 170,50 170,50 170,50 170,50 320,100"},
            {{16, 8, 16, 0, 1, 1, 1, 1, false, 0.9},
             "Vmax not reached <10.7> |175.9 ms (-0.1 steps) <span style=\"color:white; "
             "background:red;\"> VSTART exceed V1 !</span>",
             "10.7331261 0.175852 -0.1; 20,0 131.803,50 170,32.918 170,32.918 208.197,50 320,100"},
            {{16, 1, 16, 0, 1, 1, 1, 1, false, 0},
             "Vmax not reached <1.0> |131.1 ms (-1.0 steps) <span style=\"color:white; "
             "background:red;\"> VSTART exceed V1 !</span>",
             "1 0.131072 -0.992188; 20,0 301.25,93.75 301.25,93.75 301.25,93.75 301.25,93.75 "
             "320,100"},
            {{20000000, 20000000, 16777217, 20000000, 1, 1, 1, 1, true, 0},
             "|26,401,046.5 ms (462,988,372,224.0 steps)",
             "20000000 26401 4.62988e+11; 20,16.1139 320,0 320,0 320,0 320,0 320,0"},
            {{8192, 8192, 0, 0, 1, 1, 1, 1, false, -16777217 / 128.0},
             "V1 not reached <4,096.0|67,108.9 ms (131,072.0 steps)",
             "4096 67.1089 131072; 20,100 170,50 170,50 170,50 170,50 320,100"},
            {{8192, 0, 0, 0, 1, 1, 1, 1, false, 16777217 / 128.0},
             "Vmax not reached <4,096.0> |67,108.9 ms (131,072.0 steps)",
             "4096 67.1089 131072; 20,100 20,100 170,50 170,50 320,100 320,100"}};
        for (const auto& row : rows) {
            TrapezialRamp ramp(Area);
            QVERIFY(ramp.str().isEmpty() && ramp.polygon().isEmpty());
            QVERIFY(ramp.peak() == 0 && ramp.duration() == 0 && ramp.steps() == 0);
            row.parameters.take(ramp);
            QCOMPARE(ramp.str(),
                     QString(row.text).replace("|", "<htm><b>Time from VSTART to VSTOP: <></b>  ") +
                         "</html>");
            QPolygonF polygon = ramp.polygon();
            QCOMPARE(polygon.takeFirst(), QPointF(0, 100));
            QCOMPARE(polygon.takeFirst(), QPointF(20, 100));
            QCOMPARE(polygon.takeLast(), QPointF(340, 100));
            QCOMPARE(polygon.takeLast(), QPointF(polygon.last().x(), 100));
            QString numbers =
                QString::asprintf("%.9g %.6g %.6g;", ramp.peak(), ramp.duration(), ramp.steps());
            for (const QPointF& point : qAsConst(polygon))
                numbers += QString::asprintf(" %.6g,%.6g", point.x(), point.y());
            QCOMPARE(numbers, row.numbers);
        }
    }

    void path()
    {
        TrapezialRamp ramp(Area);
        Parameters{100, 50, 25, 0, 1, 2, 4, 8, true, 0}.take(ramp);
        const QPainterPath path = ramp.path();
        QList<QRectF> circles;
        for (int i = 0; i + 1 < path.elementCount(); ++i) {
            if (path.elementAt(i).isMoveTo() && path.elementAt(i + 1).isCurveTo())
                circles << QRectF(path.elementAt(i).x - 4, path.elementAt(i).y - 2, 4, 4);
        }
        QCOMPARE(circles.size(), 5); // round the points above the base line
        for (int i = 0; i < 5; ++i)
            QCOMPARE(circles.at(i).center(), ramp.polygon().at(2 + i));
        QCOMPARE(QPointF(path.elementAt(0)), QPointF(0, 100));
        QCOMPARE(path.currentPosition(), QPointF(340, 100));
    }

    /// Whatever comes in, all that comes out can be shown and drawn.
    void everythingIsFinite()
    {
        std::mt19937 random(7);
        const double awkward[] = {0,    -1,   1,     1e-300,  1e300,  -1e300,
                                  1e39, 1e19, 2e-39, qQNaN(), qInf(), -qInf()};
        const auto any = [&] {
            if (random() % 2)
                return awkward[random() % std::size(awkward)];
            return std::ldexp(double(random()) - 2147483648.0, int(random() % 60) - 30);
        };
        for (int round = 0; round < 5000; ++round) {
            TrapezialRamp ramp(Area);
            Parameters{any(), any(), any(), any(), any(), any(), any(), any(), random() % 4 == 0,
                       any()}
                .take(ramp);
            QVERIFY2(!ramp.str().contains("nan") && !ramp.str().contains("inf"),
                     qPrintable(ramp.str()));
            QVERIFY(std::isfinite(ramp.peak() + ramp.duration() + ramp.steps()));
            for (const QPointF& point : ramp.polygon())
                QVERIFY2(std::isfinite(point.x() + point.y()), qPrintable(ramp.str()));
        }
    }

    void parametersFromSpinBoxes()
    {
        const std::pair<QString, double> boxes[] = {
            {"sbMaxPosVel_V1", 2000}, // the first part counts
            {"sbV1", 1000},           {"VStartBox", 100},     {"sbVStop", 200}, {"sbA1", 50},
            {"sbAcceleration", 40},   {"sbDeceleration", 30}, {"sbD1", 20},     {"sbVSTART", 999}};
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        layout->addStretch();
        auto* foreign = new QSpinBox;
        foreign->setObjectName("sbV1");
        layout->addWidget(foreign);
        QGraphicsScene scene;
        scene.addItem(new QGraphicsRectItem);
        scene.addItem(new QGraphicsProxyWidget); // without a widget
        for (const auto& [name, value] : boxes) {
            for (bool isInScene : {false, true}) {
                auto* box = new SpinBox;
                box->setObjectName(name);
                box->setMaximum(100000.0);
                box->setValue(value);
                if (isInScene)
                    scene.addWidget(box);
                else
                    layout->addWidget(box);
            }
        }
        TrapezialRamp expected(Area);
        TrapezialRamp nothing(Area);
        AbstractRamp ramp(AbstractRamp::Trapezoid, Area);
        for (const auto& [noDistance, distance] : {std::pair(true, 500.0), {false, 500.0}}) {
            Parameters{2000, 1000, 100, 200, 50, 40, 30, 20, noDistance, distance}.take(expected);
            ramp.ramp(layout, noDistance, distance);
            QCOMPARE(ramp.str(), expected.str());
            ramp.ramp(static_cast<QLayout*>(nullptr), noDistance, distance);
            Parameters{0, 0, 0, 0, 0, 0, 0, 0, noDistance, distance}.take(nothing);
            QVERIFY(ramp.str() == nothing.str() && ramp.path() == nothing.path());
            ramp.ramp(scene.items() + QList<QGraphicsItem*>{nullptr}, noDistance, distance);
            QCOMPARE(ramp.str(), expected.str());
            QVERIFY(ramp.path() == expected.path() && ramp.size() == Area);
            QVERIFY(ramp.peak() == expected.peak() && ramp.duration() == expected.duration());
            QCOMPARE(ramp.steps(), expected.steps());
        }
    }

    void otherFormsHaveNoRamp()
    {
        for (int mode : {1, -1, 1000}) {
            AbstractRamp none(static_cast<AbstractRamp::rampMode>(mode), Area);
            none.ramp(2, 1, 0, 0, 1, 1, 1, 1, true, 0);
            none.ramp(static_cast<QLayout*>(nullptr), true, 0);
            none.ramp(QList<QGraphicsItem*>(), true, 0);
            QVERIFY(none.mode() == mode && none.str().isEmpty() && none.path().isEmpty());
            QVERIFY(none.peak() == 0 && none.duration() == 0 && none.steps() == 0);
            QCOMPARE(none.size(), QSizeF(-1, -1));
        }
    }
};

AXR_TEST_MAIN(TrapezialRampTest)
#include "TrapezialRampTest.moc"
