#include "RampPage.h"
#include "Connection.h"
#include "Instruction.h"
#include "OpenBench.h"
#include "RampCurve.h"
#include "SpinBox.h"
#include "TestCase.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace Number = AxisParameterNumber;

namespace
{

/// A connected workbench at its ramp page.
struct RampBench : OpenBench {
    RampPage* page;
    QPushButton* move;

    explicit RampBench(const QStringList& arguments = {})
        : OpenBench("ramp", arguments)
        , page(findChild<RampPage*>())
        , move(User::find<QPushButton>(page, "btnRampMove"))
    {
        open(500);
        while (link().pendingReads() > 1) // all that the pages ask for at first
            advance(500);
    }

    void enter(const char* box, double value) { User::find<SpinBox>(page, box)->setValue(value); }
    QString shown(const char* label) const { return User::find<QLabel>(page, label)->text(); }
    bool isIdle() const { return page->move().state() == RampMove::State::Idle; }
    void finish()
    {
        for (int i = 0; i < 2000 && !isIdle(); ++i)
            advance(50);
    }
    int moves() const { return sent.filter("MVP").size(); }
};

} // namespace

class RampPageTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void sendsOnlyOnThePress()
    {
        RampBench ramp;
        ramp.enter("sbMaxPosVel", 50000);
        ramp.enter("sbAcceleration", 1000);
        ramp.advance(1000);
        QVERIFY(ramp.sent.isEmpty());
        User::find<QCheckBox>(ramp.page, "cbLeft")->setChecked(true);
        const int before = ramp.axis().read(Number::ActualPosition);
        QVERIFY(ramp.shown("lblPlan").contains("698 rpm") &&
                ramp.shown("lblPlan").contains("1705 rpm/s"));
        ramp.link().read( // another page's, answered before those of the move
            Command(1, toByte(Instruction::GAP), toByte(Number::Temperature), 0, 0));
        User::click(ramp.move);
        QVERIFY(!ramp.move->isEnabled());
        ramp.finish();
        // 50000 x 0.9537 x 60 / 4096, and that of 1000 divided by k
        QCOMPARE(ramp.sent, (QStringList{"SAP 4 = 698, axis 0", "SAP 11 = 1705, axis 0",
                                         "MVP 1 = -100000, axis 0"}));
        QCOMPARE(ramp.axis().read(Number::ActualPosition), before - 100000);
        QVERIFY(ramp.move->isEnabled());
        QCOMPARE(ramp.page->move().peak(), 698.0);
    }

    void valuesThatTheAxisCannotTake()
    {
        const struct {
            const char* box;
            double value;
        } rows[] = {{"sbMaxPosVel", 0},
                    {"sbMaxPosVel", 20}, // 0.28 rpm
                    {"sbMaxPosVel", 8388607},
                    {"sbAcceleration", 0}};
        RampBench ramp;
        for (const auto& row : rows) {
            const double good = User::find<SpinBox>(ramp.page, row.box)->value();
            QVERIFY(ramp.move->isEnabled());
            ramp.enter(row.box, row.value);
            QVERIFY2(!ramp.move->isEnabled(), row.box);
            QVERIFY(ramp.shown("lblPlan").contains("out of"));
            User::click(ramp.move);
            ramp.advance(100);
            ramp.enter(row.box, good);
        }
        QVERIFY(ramp.sent.isEmpty());
    }

    void axesThatMustNotBeMoved()
    {
        const struct {
            quint8 number;
            int value;
            const char* reason;
        } rows[] = {{Number::TargetVelocity, 100, "turns already"},
                    {Number::EnableRamp, 0, "switched off"},
                    {Number::EncoderSteps, 5000, "have changed"}};
        for (const auto& row : rows) {
            RampBench ramp;
            ramp.axis().write(row.number, row.value); // as another host would
            ramp.simulator().module.advance(500);
            User::click(ramp.move);
            ramp.finish();
            QVERIFY2(ramp.shown("lblTurned").contains(row.reason), row.reason);
            // a panel repeats the switch that it was told
            for (const char* of : {"SAP 4 ", "SAP 11 ", "MVP"})
                QVERIFY2(ramp.sent.filter(of).isEmpty(), row.reason);
        }
    }

    /// The calculation's internal units and those of the axis are the same: without a part of
    /// constant velocity both ramps take the same time to the same peak.
    void unitsAreTrue()
    {
        RampBench ramp;
        for (const char* box : {"sbA1", "sbAcceleration", "sbDeceleration", "sbD1"})
            ramp.enter(box, 1500);
        for (const char* box : {"sbVStart", "sbVStop"})
            ramp.enter(box, 0);
        for (double distance : {5000.0, 12000.0, 25000.0}) {
            ramp.enter("sbDistance", distance);
            const double peak = std::sqrt(256 * distance * 1500 / 2); // v^2 / a / 256, twice
            const double time = 2 * peak * 131072 / 16000 / 1500;     // ms
            User::click(ramp.move);
            ramp.finish();
            const RampMove& turned = ramp.page->move();
            const double rpm = peak * (16000000.0 / 16777216) * 60 / 4096;
            QVERIFY2(std::abs(turned.peak() - rpm) < 2 + 0.003 * rpm,
                     qPrintable(QString("%1 for %2").arg(turned.peak()).arg(rpm)));
            QVERIFY2(std::abs(turned.duration() - time) < 3 + 0.003 * time,
                     qPrintable(QString("%1 for %2").arg(turned.duration()).arg(time)));
            QVERIFY(ramp.page->result().contains("not reached"));
        }
    }

    /// However soon the stop comes after the press, the axis stands and stays.
    void stopAtAnyInstant()
    {
        RampBench ramp({"--delay", "25", "--seed", "3"});
        int preparing = 0;
        int moving = 0;
        for (int after = 0; after < 260; after += 7) {
            for (bool isKey : {false, true}) {
                QVERIFY(ramp.move->isEnabled());
                User::click(ramp.move);
                ramp.advance(after);
                preparing += ramp.page->move().state() == RampMove::State::Preparing;
                moving += ramp.page->move().state() == RampMove::State::Moving;
                const int position = ramp.axis().read(Number::ActualPosition);
                if (isKey)
                    ramp.stopAxes();
                else
                    User::click(User::find<QPushButton>(ramp.page, "btnRampStop"));
                const int moves = ramp.moves();
                ramp.advance(4000);
                const QByteArray where = QString("after %1 ms").arg(after).toLatin1();
                QVERIFY2(ramp.moves() == moves, where);
                QVERIFY2(ramp.axis().velocity() == 0.0, where);
                QVERIFY2(ramp.axis().read(Number::ActualPosition) - position < 20000, where);
                QVERIFY2(ramp.isIdle(), where);
            }
        }
        QVERIFY(preparing > 10 && moving > 10);
    }

    /// Whatever gets lost, the axis starts once at the most, and with the values of the page.
    void badWeather()
    {
        RampBench ramp;
        bool isTaken = true;
        QObject::connect(&ramp.link(), &ModuleLink::sent, &ramp, [&](const Command& request) {
            if (carries(request.getCommand(), Instruction::MVP))
                isTaken = isTaken && ramp.axis().read(Number::MaxVelocity) == 1397 &&
                          ramp.axis().read(Number::Acceleration) == 3411;
        });
        int moved = 0;
        for (unsigned seed = 1; seed <= 25; ++seed) {
            const QByteArray where = QString("seed %1").arg(seed).toLatin1();
            ramp.axis().write(Number::MaxVelocity, 100); // what a lost request would leave
            ramp.axis().write(Number::Acceleration, 100);
            Simulated::Weather weather;
            weather.seed = seed;
            weather.maximumDelay = 8;
            weather.requestLoss = 0.06;
            weather.replyLoss = 0.15;
            weather.failureStatus = 0.08;
            weather.duplicate = weather.foreignReply = weather.lateReply = 0.05;
            ramp.wire().setWeather(weather);
            ramp.sent.clear();
            QVERIFY2(ramp.move->isEnabled(), where);
            User::click(ramp.move);
            ramp.finish();
            QVERIFY2(ramp.isIdle() && ramp.moves() <= 1, where);
            ramp.wire().setWeather(Simulated::Weather());
            ramp.advance(3000);
            QVERIFY2(isTaken && ramp.moves() <= 1, where);
            if (ramp.page->move().peak() > 0) {
                ++moved;
                QVERIFY2(std::abs(ramp.page->move().peak() - 1397) <= 1, where);
            }
        }
        QVERIFY(moved >= 5);
    }

    void aModuleThatWasSilentIsNotMoved()
    {
        for (int after : {0, 1, 2, 3, 4, 5}) {
            RampBench ramp;
            User::click(ramp.move);
            ramp.advance(after);
            const bool isMoving = ramp.page->move().state() == RampMove::State::Moving;
            ramp.wire().setSilent(true);
            ramp.showPage("console"); // where the page is not polled
            ramp.advance(5000);
            ramp.wire().setSilent(false);
            const int moves = ramp.moves();
            ramp.advance(2000);
            ramp.showPage("ramp");
            ramp.advance(3000);
            QVERIFY(ramp.isIdle());
            QCOMPARE(ramp.moves(), moves);
            QVERIFY(isMoving || ramp.axis().velocity() == 0.0);
        }
    }

    void disconnectedWhileItMoves()
    {
        RampBench ramp;
        User::click(ramp.move);
        ramp.advance(300);
        QVERIFY(ramp.page->move().state() == RampMove::State::Moving);
        User::click(User::find<QPushButton>(ramp.findChild<Connection*>(), "btnDisconnect"));
        ramp.advance(100);
        QVERIFY(ramp.isIdle() && !ramp.move->isEnabled());
        QVERIFY(ramp.shown("lblTurned").contains("disconnected"));
    }

    void aLongRecordBecomesCoarser()
    {
        RampBench ramp;
        ramp.enter("sbMaxPosVel", 4000); // 56 rpm
        ramp.enter("sbDistance", 50000);
        User::click(ramp.move);
        ramp.finish();
        const QVector<QPointF>& samples = ramp.page->move().samples();
        const double duration = ramp.page->move().duration();
        QVERIFY(std::abs(duration - (50000 / 4096.0 / 56 * 60 + 56 / 3411.0) * 1000) < 5);
        QVERIFY(samples.size() < 4000 && samples.size() > 1500);
        for (int i = 1; i < samples.size(); ++i)
            QVERIFY(samples.at(i).x() >= samples.at(i - 1).x());
        QCOMPARE(samples.last().y(), 0.0);
        QVERIFY(std::abs(samples.last().x() - duration) < 100);
    }

    void placesOfTheDrawing()
    {
        const RampCurveGeometry to({0, 0, 800, 400}, QFontMetricsF(QFont()), 200, 50);
        QCOMPARE(to.at({0, 0}), to.plot.bottomLeft());
        QCOMPARE(to.at({200, 50}), to.plot.topRight());
        const struct {
            double span;
            int parts;
            double step;
        } rows[] = {{100000, 6, 20000}, {1, 5, 0.2}, {7, 7, 1}, {1320, 8, 200}, {0.9, 6, 0.2}};
        for (const auto& row : rows)
            QCOMPARE(RampCurveGeometry::tickStep(row.span, row.parts), row.step);
        RampCurve curve;
        curve.resize(800, 400);
        curve.setMeasured(
            QVector<QPointF>{{0, 0}, {NAN, 10}, {100, INFINITY}, {100, 50}, {200, 50}});
        QCOMPARE(curve.geometry().time, 200.0);
        const QPoint top = curve.geometry().at({150, 50}).toPoint();
        const QColor line = curve.grab().toImage().pixelColor(top);
        QVERIFY2(line.red() > 200 && line.blue() < 160, qPrintable(line.name())); // tomato
    }

    /// The peak stands in pointed brackets, which rich text swallows.
    void resultIsReadable()
    {
        RampBench ramp;
        ramp.enter("sbDistance", 30000);
        const QString peak = ramp.page->result().section('<', 1, 1).section('>', 0, 0);
        QVERIFY(!peak.isEmpty());
        QTextDocument shown;
        shown.setHtml(ramp.shown("lblRampResult"));
        QVERIFY2(shown.toPlainText().contains(peak + ". Vmax not reached"),
                 qPrintable(shown.toPlainText()));
    }
};

AXR_TEST_MAIN(RampPageTest)
#include "RampPageTest.moc"
