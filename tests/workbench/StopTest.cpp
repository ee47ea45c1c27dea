#include "CapturePage.h"
#include "Connection.h"
#include "Global.h"
#include "Instruction.h"
#include "OpenBench.h"
#include "ParameterCatalogue.h"
#include "RamDebugThread_p.h"
#include "RampPage.h"
#include "TestCase.h"
#include "VelocityControl.h"
#include "WRamDebug.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

namespace Number = AxisParameterNumber;

namespace
{

/// The connected workbench.
struct Bench : OpenBench {
    QStringList asked; // reads, too

    Bench() : OpenBench("motion")
    {
        connect(&link(), &ModuleLink::sent, this,
                [this](const Command& request) { asked << requestText(request); });
        open(500);
    }

    void command(Instruction instruction, int type, int value, int axis = 0)
    {
        link().command(Command(1, toByte(instruction), toByte(type), toByte(axis), value));
    }
    void setDelay(int delay)
    {
        Simulated::Weather weather;
        weather.minimumDelay = weather.maximumDelay = delay;
        wire().setWeather(weather);
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
    bool waitForRequest(const QString& start)
    {
        return start.isEmpty() || waitFor([&] {
                   return std::any_of(asked.begin(), asked.end(), [&start](const QString& each) {
                       return each.startsWith(start);
                   });
               });
    }
    bool waitForRuns()
    {
        return waitFor([] { return Global::instance()->registeredThreads().isEmpty(); });
    }
    QPushButton* button(const QString& page, const QString& name) const
    {
        return find<QPushButton>(page, name);
    }
    /// In the mode of velocities, from 0 to 1000 rpm or from 1000 to 1000, where it settles.
    void startCapture(int from, int trigger, int threshold, int settleTime = 20)
    {
        RamDebugThread::Shared::settleTime = settleTime;
        showPage("capture");
        find<QComboBox>("capture", "cmbTargetMode")->setCurrentIndex(1);
        find<QSpinBox>("capture", "sbFromTarget")->setValue(from);
        find<QComboBox>("capture", "cmbTriggerType")->setCurrentIndex(trigger);
        find<QSpinBox>("capture", "sbTriggerValue")->setValue(threshold);
        asked.clear();
        User::click(button("capture", "btnStart"));
    }
    QString driven() const
    {
        static const QRegularExpression motion("^(ROR|ROL|MVP|SAP [02] |SAP 155 )");
        return asked.filter(motion).join(", ");
    }
};

enum Trigger { Always, VelocityLower = 3, VelocityHigher = 4 };

/// Something under way, or a way to end it.
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
         bench.setDelay(80);
         bench.command(Instruction::ROR, 0, 2000);
         bench.advance(5);
         bench.command(Instruction::ROL, 0, 2000, 1);
         bench.command(Instruction::MVP, 1, 1000000);
     }},
    {"a move asks whether it may",
     [](Bench& bench) {
         bench.showPage("ramp");
         bench.advance(500);
         bench.setDelay(20);
         User::click(bench.button("ramp", "btnRampMove"));
         bench.advance(30);
         QCOMPARE(bench.findChild<RampPage*>()->move().state(), RampMove::State::Preparing);
     }},
    {"a ramp is turned",
     [](Bench& bench) {
         bench.showPage("ramp");
         bench.advance(500);
         User::click(bench.button("ramp", "btnRampMove"));
         bench.advance(500);
         QCOMPARE(bench.findChild<RampPage*>()->move().state(), RampMove::State::Moving);
     }},
};

/// A capture that was begun with these settings, and has come as far as this request.
State capture(const char* name, int from, Trigger trigger, int threshold, int settleTime,
              const char* request)
{
    return {name, [=](Bench& bench) {
                bench.startCapture(from, trigger, threshold, settleTime);
                QVERIFY(bench.waitForRequest(request));
            }};
}

const State captures[] = {
    capture("a capture has just begun", 0, Always, 0, 20, ""),
    capture("a capture rests at its start target", 1000, VelocityHigher, 3000, 20000, "SAP 2 "),
    capture("a capture waits for a trigger", 0, VelocityHigher, 3000, 20, "RD 6"),
    capture("a capture waits for the axis to brake", 1000, VelocityLower, 500, 20, "RD 6"),
    capture("a capture fetches and drives back", 0, Always, 0, 20, "RD 3"),
    {"a capture is asking",
     [](Bench& bench) { // the stop comes inside the handler of one of its requests
         auto* context = new QObject(&bench);
         QObject::connect(&bench.link(), &ModuleLink::sent, context,
                          [&bench, context](const Command& request) {
                              if (!requestText(request).startsWith("SAP 2 = 1000"))
                                  return;
                              context->disconnect();
                              context->deleteLater();
                              bench.asked.clear();
                              bench.stopAxes();
                          });
         bench.startCapture(0, VelocityHigher, 3000);
         QVERIFY(bench.waitForRequest("MST") && bench.waitForRuns());
         QCOMPARE(bench.driven(), QString());
     }},
};

const State stops[] = {
    {"STOP", [](Bench& bench) { bench.stopAxes(); }},
    {"the page's Stop", [](Bench& bench) { User::click(bench.button("capture", "btnStop")); }},
    {"the page's Stop, then STOP",
     [](Bench& bench) {
         User::click(bench.button("capture", "btnStop"));
         QCoreApplication::processEvents();
         bench.stopAxes();
     }},
    {"disconnecting",
     [](Bench& bench) {
         const auto* panel = bench.findChild<Connection*>();
         User::click(User::find<QPushButton>(panel, "btnDisconnect"));
         bench.advance(100);
         User::click(User::find<QPushButton>(panel, "btnConnect"));
     }},
    {"the panel's end", [](Bench& bench) { delete bench.findChild<WRamDebug*>(); }},
    {"closing", [](Bench& bench) { bench.close(); }},
};

} // namespace

Q_DECLARE_METATYPE(State)

/// From any state, after a stop every axis comes to rest within its ramp, and stays there.
class StopTest : public TestCase
{
    Q_OBJECT
private:
    /// One for all, as long as it is left as it was found.
    Bench& bench()
    {
        if (!m_bench)
            m_bench = std::make_unique<Bench>();
        m_bench->setDelay(1);
        return *m_bench;
    }
    void expectStanding(Bench& bench)
    {
        QVERIFY(bench.waitForRuns());
        bench.advance(2000);
        for (int i = 0; i < 100; ++i) {
            QCoreApplication::processEvents();
            bench.advance(50);
            for (int axis : {0, 1})
                QVERIFY2(bench.axis(axis).velocity() == 0, qPrintable(bench.sent.join(", ")));
        }
    }
    std::unique_ptr<Bench> m_bench;

private Q_SLOTS:
    void cleanupTestCase() { m_bench.reset(); }

    void nothingMovesAfterAStop_data()
    {
        QTest::addColumn<State>("state");
        QTest::addColumn<State>("stop");
        for (const State& state : states)
            QTest::newRow(state.name) << state << stops[0];
        for (const State& capture : captures) {
            for (int stop : {0, 1})
                QTest::addRow("%s, %s", capture.name, stops[stop].name) << capture << stops[stop];
        }
        for (std::size_t stop = 2; stop < std::size(stops); ++stop)
            QTest::addRow("a capture that drives, %s", stops[stop].name)
                << captures[3] << stops[stop];
    }
    void nothingMovesAfterAStop()
    {
        QFETCH(State, state);
        QFETCH(State, stop);
        const bool drivesBack = stop.name == QByteArray("the panel's end"); // before it stops
        const auto last = qScopeGuard([this, drivesBack] {
            if (drivesBack || QTest::currentTestFailed() || m_bench->isHidden())
                m_bench.reset();
        });
        Bench& bench = this->bench();
        state.begin(bench);
        if (QTest::currentTestFailed())
            return;
        bench.asked.clear();
        stop.begin(bench);
        expectStanding(bench);
        if (drivesBack)
            QVERIFY(bench.waitForRequest("MST"));
        else
            QCOMPARE(bench.driven(), QString());
    }

    void aReleaseAfterTheStopIsNoClick()
    {
        bench().showPage("motion");
        auto* panel = User::find<VelocityControl>(&bench(), "VelocityControl0");
        for (const char* name : {"btnRight", "btnJogLeft"}) {
            auto* button = User::find<QPushButton>(panel, name);
            User::press(button);
            bench().advance(100);
            QTest::keyClick(&bench(), Qt::Key_F12);
            bench().advance(100);
            bench().asked.clear();
            User::release(button);
            bench().advance(100);
            QCOMPARE(bench().driven(), QString());
            QVERIFY(!button->isDown());
        }
    }

    /// The next capture works as ever; and each stop leaves once.
    void aCaptureAfterAStop()
    {
        bench().startCapture(0, VelocityHigher, 3000);
        QVERIFY(bench().waitForRequest("RD 6"));
        bench().sent.clear();
        bench().stopAxes();
        QCOMPARE(bench().sent.mid(0, 2), QStringList({"MST 0 = 0, axis 0", "MST 0 = 0, axis 1"}));
        const auto* start = bench().button("capture", "btnStart");
        QVERIFY(bench().waitFor([start] { return start->isEnabled(); }));
        bench().startCapture(0, Always, 0);
        QVERIFY(bench().waitFor([start] { return start->isEnabled(); }));
        QCOMPARE(bench().findChild<CapturePage*>()->fetched(), SimulatedRecorder::BufferSize);
    }
};

AXR_TEST_MAIN(StopTest)
#include "StopTest.moc"
