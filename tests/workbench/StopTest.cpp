#include "CapturePage.h"
#include "CommandText.h"
#include "Connection.h"
#include "Global.h"
#include "Instruction.h"
#include "ParameterCatalogue.h"
#include "RampPage.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "WRamDebug.h"
#include "Workbench.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

namespace Number = AxisParameterNumber;

namespace
{

/// The connected workbench, with everything that leaves for the module.
struct Bench : Workbench {
    QStringList sent;

    explicit Bench(const QStringList& arguments = {})
        : Workbench(WorkbenchOptions::parse(
              QStringList{"axrworkbench", "--photo", "x", "--connect"} + arguments, pageNames()))
    {
        QObject::connect(&link(), &ModuleLink::sent, this,
                         [this](const Command& request) { sent << requestText(request); });
        show();
        advance(500);
    }

    void command(Instruction instruction, int type, int value, int axis = 0)
    {
        link().command(Command(1, toByte(instruction), toByte(type), toByte(axis), value));
    }
    bool waitFor(const std::function<bool()>& condition)
    {
        QElapsedTimer time;
        for (time.start(); !condition() && !time.hasExpired(30000);) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            advance(5);
        }
        return condition();
    }
    bool hasSent(const QString& start) const
    {
        return std::any_of(sent.begin(), sent.end(),
                           [&start](const QString& each) { return each.startsWith(start); });
    }
    QWidget* capturePage() { return findChild<CapturePage*>(); }
    /// In the mode of velocities, from 0 to 1000 rpm or from 1000 to 1000.
    void startCapture(int from, int trigger, int threshold)
    {
        showPage("capture");
        User::find<QComboBox>(capturePage(), "cmbTargetMode")->setCurrentIndex(1);
        User::find<QSpinBox>(capturePage(), "sbFromTarget")->setValue(from);
        User::find<QComboBox>(capturePage(), "cmbTriggerType")->setCurrentIndex(trigger);
        User::find<QSpinBox>(capturePage(), "sbTriggerValue")->setValue(threshold);
        sent.clear();
        User::click(User::find<QPushButton>(capturePage(), "btnStart"));
    }
    QString driven() const
    {
        static const QRegularExpression motion("^(ROR|ROL|MVP|SAP [02] |SAP 155 )");
        return sent.filter(motion).join(", ");
    }
};

enum Trigger { Always, VelocityLower = 3, VelocityHigher = 4 };

struct State {
    const char* name;
    std::function<void(Bench&)> begin;
};

const State states[] = {
    {"both axes turn",
     [](Bench& bench) {
         bench.command(Instruction::ROR, 0, 2000);
         bench.command(Instruction::ROL, 0, 2000, 1);
         bench.advance(1000);
     }},
    {"a jog is held",
     [](Bench& bench) {
         bench.showPage("motion");
         auto* panel = User::find<VelocityControl>(&bench, "VelocityControl0");
         User::find<QSpinBox>(panel, "sbTargetVelocity")->setValue(2000);
         User::press(User::find<QPushButton>(panel, "btnJogLeft"));
         bench.advance(1000);
     }},
    {"a move is on its way", [](Bench& bench) { bench.command(Instruction::MVP, 1, 1000000); }},
    {"driven by current",
     [](Bench& bench) { bench.command(Instruction::SAP, Number::TargetCurrent, 500); }},
    {"commands wait",
     [](Bench& bench) {
         Simulated::Weather slow;
         slow.minimumDelay = slow.maximumDelay = 80;
         bench.simulator().link.setWeather(slow);
         bench.command(Instruction::ROR, 0, 2000);
         bench.advance(5);
         bench.command(Instruction::ROL, 0, 2000, 1);
         bench.command(Instruction::MVP, 1, 1000000);
     }},
    {"a move asks whether it may",
     [](Bench& bench) {
         bench.showPage("ramp");
         bench.advance(500);
         Simulated::Weather slow;
         slow.minimumDelay = slow.maximumDelay = 20;
         bench.simulator().link.setWeather(slow);
         User::click(User::find<QPushButton>(&bench, "btnRampMove"));
         bench.advance(30);
         QCOMPARE(bench.findChild<RampPage*>()->move().state(), RampMove::State::Preparing);
     }},
    {"a ramp is turned",
     [](Bench& bench) {
         bench.showPage("ramp");
         bench.advance(500);
         User::click(User::find<QPushButton>(&bench, "btnRampMove"));
         bench.advance(500);
         QCOMPARE(bench.findChild<RampPage*>()->move().state(), RampMove::State::Moving);
     }},
};

const State captures[] = {
    {"has just begun", [](Bench& bench) { bench.startCapture(0, Always, 0); }},
    {"rests at its start target",
     [](Bench& bench) {
         bench.startCapture(1000, VelocityHigher, 3000);
         QVERIFY(bench.waitFor([&] { return bench.hasSent("SAP 2 "); }));
     }},
    {"waits for a trigger that does not come",
     [](Bench& bench) {
         bench.startCapture(0, VelocityHigher, 3000);
         QVERIFY(bench.waitFor([&] { return bench.hasSent("RD 6"); }));
     }},
    {"waits for the axis to brake",
     [](Bench& bench) {
         bench.startCapture(1000, VelocityLower, 500);
         QVERIFY(bench.waitFor([&] { return bench.hasSent("RD 6"); }));
     }},
    {"fetches and drives back",
     [](Bench& bench) {
         bench.startCapture(0, Always, 0);
         QVERIFY(bench.waitFor([&] { return bench.hasSent("RD 3"); }));
     }},
    {"is asking",
     [](Bench& bench) { // the stop comes inside the handler of one of its requests
         auto* context = new QObject(&bench);
         QObject::connect(&bench.link(), &ModuleLink::sent, context,
                          [&bench, context](const Command& request) {
                              if (!requestText(request).startsWith("SAP 2 = 1000"))
                                  return;
                              context->disconnect();
                              context->deleteLater();
                              bench.stopAxes();
                          });
         bench.startCapture(0, VelocityHigher, 3000);
         QVERIFY(bench.waitFor([&] { return bench.hasSent("MST"); }));
     }},
};

struct Stop {
    const char* name;
    std::function<void(Bench&)> press;
};

const Stop stops[] = {
    {"STOP", [](Bench& bench) { bench.stopAxes(); }},
    {"the page's Stop",
     [](Bench& bench) { User::click(User::find<QPushButton>(bench.capturePage(), "btnStop")); }},
    {"the page's Stop, then STOP",
     [](Bench& bench) {
         User::click(User::find<QPushButton>(bench.capturePage(), "btnStop"));
         QCoreApplication::processEvents();
         bench.stopAxes();
     }},
    {"the panel's end", [](Bench& bench) { delete bench.findChild<WRamDebug*>(); }},
    {"disconnecting",
     [](Bench& bench) {
         User::click(User::find<QPushButton>(bench.findChild<Connection*>(), "btnDisconnect"));
         bench.advance(100);
         User::click(User::find<QPushButton>(bench.findChild<Connection*>(), "btnConnect"));
     }},
    {"closing", [](Bench& bench) { bench.close(); }},
};

} // namespace

Q_DECLARE_METATYPE(State)
Q_DECLARE_METATYPE(Stop)

/// From any state, after a stop every axis comes to rest within its ramp, and stays there.
class StopTest : public TestCase
{
    Q_OBJECT
private:
    void expectStanding(Bench& bench)
    {
        QVERIFY(bench.waitFor([] { return Global::instance()->registeredThreads().isEmpty(); }));
        bench.advance(2000);
        for (int i = 0; i < 100; ++i) {
            QCoreApplication::processEvents();
            bench.advance(50);
            for (int axis = 0; axis < SimulatedModule::Axes; ++axis)
                QVERIFY2(bench.simulator().module.axis(axis).velocity() == 0,
                         qPrintable(bench.sent.join(", ")));
        }
    }

private Q_SLOTS:
    void nothingMovesAfterAStop_data()
    {
        QTest::addColumn<State>("state");
        QTest::addColumn<Stop>("stop");
        for (const State& state : states)
            QTest::newRow(state.name) << state << stops[0];
        for (const State& capture : captures) {
            for (int stop : {0, 1})
                QTest::addRow("a capture %s, %s", capture.name, stops[stop].name)
                    << capture << stops[stop];
        }
        for (std::size_t stop = 2; stop < std::size(stops); ++stop)
            QTest::addRow("a capture that drives, %s", stops[stop].name)
                << captures[3] << stops[stop];
    }
    void nothingMovesAfterAStop()
    {
        QFETCH(State, state);
        QFETCH(Stop, stop);
        Bench bench;
        state.begin(bench);
        if (QTest::currentTestFailed())
            return;
        bench.sent.clear();
        stop.press(bench);
        const bool isOfTheRun = stop.name == QByteArray("the panel's end"); // it drives back first
        expectStanding(bench);
        if (isOfTheRun)
            QVERIFY(bench.hasSent("MST"));
        else
            QCOMPARE(bench.driven(), QString());
    }

    void aReleaseAfterTheStopIsNoClick()
    {
        Bench bench;
        bench.showPage("motion");
        auto* panel = User::find<VelocityControl>(&bench, "VelocityControl0");
        for (const char* name : {"btnRight", "btnJogLeft"}) {
            auto* button = User::find<QPushButton>(panel, name);
            User::press(button);
            bench.advance(100);
            QTest::keyClick(&bench, Qt::Key_F12);
            bench.advance(100);
            bench.sent.clear();
            User::release(button);
            bench.advance(100);
            QCOMPARE(bench.driven(), QString());
            QVERIFY(!button->isDown());
        }
    }

    /// The next capture works as ever.
    void aCaptureAfterAStop()
    {
        Bench bench;
        bench.startCapture(0, VelocityHigher, 3000);
        QVERIFY(bench.waitFor([&] { return bench.hasSent("RD 6"); }));
        bench.stopAxes();
        auto* start = User::find<QPushButton>(bench.capturePage(), "btnStart");
        QVERIFY(bench.waitFor([&] { return start->isEnabled(); }));
        bench.startCapture(0, Always, 0);
        auto* page = bench.findChild<CapturePage*>();
        QVERIFY(bench.waitFor([&] { return start->isEnabled(); }));
        QCOMPARE(page->fetched(), SimulatedRecorder::BufferSize);
    }

    void everyStopIsTold()
    {
        Bench bench;
        bench.sent.clear();
        bench.stopAxes();
        QCOMPARE(bench.sent, QStringList({"MST 0 = 0, axis 0", "MST 0 = 0, axis 1"}));
    }
};

AXR_TEST_MAIN(StopTest)
#include "StopTest.moc"
