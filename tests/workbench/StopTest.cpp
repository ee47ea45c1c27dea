#include "CapturePage.h"
#include "Global.h"
#include "OpenBench.h"
#include "RamDebugThread_p.h"
#include "RampPage.h"
#include "TestCase.h"
#include "WRamDebug.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

namespace
{

/// The connected workbench, with all that leaves for the module.
struct Bench : OpenBench {
    QStringList asked;

    Bench() : OpenBench("motion")
    {
        connect(&link(), &ModuleLink::sent, this,
                [this](const Command& request) { asked << requestText(request); });
        open(500);
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
        return waitFor([&] {
            return std::any_of(asked.begin(), asked.end(), [&start](const QString& each) {
                return each.startsWith(start + ' ');
            });
        });
    }
    bool waitForRuns()
    {
        return waitFor([] { return Global::instance()->registeredThreads().isEmpty(); });
    }
    /// In the mode of velocities, from 0 to 1000 rpm or from 1000 to 1000, where it settles.
    void startCapture(int from, int trigger, int threshold, int settleTime)
    {
        RamDebugThread::Shared::settleTime = settleTime;
        showPage("capture");
        find<QComboBox>("capture", "cmbTargetMode")->setCurrentIndex(1);
        find<QSpinBox>("capture", "sbFromTarget")->setValue(from);
        find<QComboBox>("capture", "cmbTriggerType")->setCurrentIndex(trigger);
        find<QSpinBox>("capture", "sbTriggerValue")->setValue(threshold);
        asked.clear();
        User::click(find<QPushButton>("capture", "btnStart"));
    }
    /// Stops inside the handler of the request that is about to turn the axis.
    void stopInside()
    {
        auto* context = new QObject(this);
        connect(&link(), &ModuleLink::sent, context, [this, context](const Command& request) {
            if (!requestText(request).startsWith("SAP 2 = 1000"))
                return;
            context->disconnect();
            context->deleteLater();
            asked.clear();
            stopAxes();
        });
    }
    QString driven() const
    {
        static const QRegularExpression motion("^(ROR|ROL|MVP|SAP [02] |SAP 155 )");
        return asked.filter(motion).join(", ");
    }
    /// Does the steps one after the other: what a user does, or an instruction with its type, axis
    /// and value.
    void play(const QString& steps)
    {
        for (const QString& step : steps.split(", ")) {
            const QStringList word = step.split(' ');
            const auto number = [&word](int index) { return word.value(index).toInt(); };
            const auto button = [&] { return find<QPushButton>(word.at(1), word.at(2)); };
            const QString& verb = word.first();
            if (verb == "wait")
                advance(number(1));
            else if (verb == "delay")
                setDelay(number(1));
            else if (verb == "show")
                showPage(word.at(1));
            else if (verb == "press")
                User::press(button());
            else if (verb == "click")
                User::click(button());
            else if (verb == "capture")
                startCapture(number(1), number(2), number(3), number(4));
            else if (verb == "until")
                QVERIFY(waitForRequest(step.section(' ', 1)));
            else if (verb == "rampIs")
                QCOMPARE(int(findChild<RampPage*>()->move().state()), number(1));
            else if (verb == "stopInside")
                stopInside();
            else if (verb == "standsStill")
                QVERIFY(waitForRuns() && driven().isEmpty());
            else if (verb == "STOP")
                stopAxes();
            else if (verb == "events")
                QCoreApplication::processEvents();
            else if (verb == "deletePanel")
                delete findChild<WRamDebug*>();
            else if (verb == "close")
                close();
            else
                link().command(
                    Command(1, toByte(number(0)), toByte(number(1)), toByte(number(2)), number(3)));
        }
    }
};

using Row = const char* const[2];

Row states[] = {
    {"both axes turn", "1 0 0 2000, 2 0 1 2000, wait 1000"},
    {"a jog is held", "show motion, press VelocityControl0 btnJogLeft, wait 1000"},
    {"a move is on its way", "4 1 0 1000000"},
    {"driven by current", "5 155 0 500"},
    {"commands wait", "delay 80, 1 0 0 2000, wait 5, 2 0 1 2000, 4 1 0 1000000"},
    {"a move asks whether it may",
     "show ramp, wait 500, delay 20, click ramp btnRampMove, wait 30, rampIs 1"},
    {"a ramp is turned", "show ramp, wait 500, click ramp btnRampMove, wait 500, rampIs 2"},
};

// From, trigger (0 always, 3 velocity lower, 4 velocity higher), threshold, time to settle.
Row captures[] = {
    {"has just begun", "capture 0 0 0 20"},
    {"rests at its start target", "capture 1000 4 3000 20000, until SAP 2"},
    {"waits for a trigger that does not come", "capture 0 4 3000 20, until RD 6"},
    {"waits for the axis to brake", "capture 1000 3 500 20, until RD 6"},
    {"fetches and drives back", "capture 0 0 0 20, until RD 3"},
    {"is asking", "stopInside, capture 0 4 3000 20, until MST, standsStill"},
};

Row stops[] = {
    {"STOP", "STOP"},
    {"the page's Stop", "click capture btnStop"},
    {"the page's Stop, then STOP", "click capture btnStop, events, STOP"},
    {"disconnecting", "click Connection btnDisconnect, wait 100, click Connection btnConnect"},
    {"closing", "close"},
    {"the panel's end", "deletePanel"},
};

} // namespace

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
    std::unique_ptr<Bench> m_bench;

private Q_SLOTS:
    void cleanupTestCase() { m_bench.reset(); }

    void nothingMovesAfterAStop_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("stop");
        for (const auto& state : states)
            QTest::newRow(state[0]) << state[1] << stops[0][1];
        for (const auto& capture : captures) {
            for (int stop : {0, 1})
                QTest::addRow("a capture %s, %s", capture[0], stops[stop][0])
                    << capture[1] << stops[stop][1];
        }
        for (std::size_t stop = 2; stop < std::size(stops); ++stop)
            QTest::addRow("a capture that drives, %s", stops[stop][0])
                << captures[3][1] << stops[stop][1];
    }
    void nothingMovesAfterAStop()
    {
        QFETCH(QString, state);
        QFETCH(QString, stop);
        const bool drivesBack = stop == "deletePanel"; // before it stops
        const auto last = qScopeGuard([this, drivesBack] {
            if (drivesBack || QTest::currentTestFailed() || m_bench->isHidden())
                m_bench.reset();
        });
        bench().play(state);
        if (QTest::currentTestFailed())
            return;
        m_bench->asked.clear();
        m_bench->play(stop);
        QVERIFY(m_bench->waitForRuns());
        m_bench->advance(2000);
        for (int i = 0; i < 100; ++i) {
            QCoreApplication::processEvents();
            m_bench->advance(50);
            QCOMPARE(qAbs(m_bench->axis(0).velocity()) + qAbs(m_bench->axis(1).velocity()), 0.0);
        }
        if (drivesBack)
            QVERIFY(m_bench->waitForRequest("MST"));
        else
            QCOMPARE(m_bench->driven(), QString());
    }

    void aReleaseAfterTheStopIsNoClick()
    {
        bench().showPage("motion");
        for (const char* name : {"btnRight", "btnJogLeft"}) {
            auto* button = bench().find<QPushButton>("VelocityControl0", name);
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

    /// The next capture works as ever.
    void aCaptureAfterAStop()
    {
        const auto* start = bench().find<QPushButton>("capture", "btnStart");
        for (const char* steps : {"capture 0 4 3000 20, until RD 6, STOP", "capture 0 0 0 20"}) {
            bench().play(steps);
            QVERIFY(bench().waitFor([start] { return start->isEnabled(); }));
        }
        QCOMPARE(bench().findChild<CapturePage*>()->fetched(), SimulatedRecorder::BufferSize);
    }
};

AXR_TEST_MAIN(StopTest)
#include "StopTest.moc"
