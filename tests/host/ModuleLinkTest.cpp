#include "ModuleLink.h"
#include "CommandRecorder.h"
#include "Instruction.h"
#include "Journal.h"
#include "SignalLog.h"
#include "SimulatedWire.h"
#include "TestCase.h"

namespace Number = AxisParameterNumber;

namespace
{

Command request(Instruction instruction, int type, int value = 0, int axis = 0)
{
    return Command(1, toByte(instruction), toByte(type), toByte(axis), value);
}

struct PluggableWire : SimulatedWire {
    using SimulatedWire::SimulatedWire;
    bool isPlugged = true;
    bool open() override { return isPlugged && SimulatedWire::open(); }
};

/// An open link with all that it sends, takes and gives up.
struct Traffic {
    HostClock clock;
    PluggableWire wire{clock, {}};
    QPointer<ModuleLink> link = new ModuleLink(clock, wire, SimulatedWire::profile());
    Journal journal{*link};
    SignalLog log{link, {"sent", "answered", "gaveUp"}};

    Traffic() { link->open(); }
    ~Traffic() { delete link; }
    /// Of this signal, since the last call for any.
    QStringList take(const QString& signal)
    {
        return log.takeLines().filter(signal + ' ').replaceInStrings(signal + ' ', "");
    }
    void setDelay(int delay)
    {
        Simulated::Weather slow;
        slow.minimumDelay = slow.maximumDelay = delay;
        wire.link().setWeather(slow);
    }
    Command ask(const Command& request)
    {
        Command reply;
        link->doDirectRequest(new Command(request), &reply);
        return reply;
    }
    double velocity(int axis) { return wire.module().axis(axis).velocity(); }
};

} // namespace

class ModuleLinkTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void stopAllLeavesOnce()
    {
        Traffic traffic;
        traffic.setDelay(20);
        traffic.link->command(request(Instruction::ROR, 0, 500));
        traffic.clock.advance(2); // on its way
        traffic.link->command(request(Instruction::ROL, 0, 600, 1));
        traffic.log.takeLines();
        traffic.link->stopAll();
        QCOMPARE(traffic.log.takeLines(),
                 QStringList({"sent 1 3 0 0 0", "sent 1 3 0 1 0",
                              "gaveUp 1 1 0 0 500 overtaken by the stop; it may have been executed",
                              "gaveUp 1 2 0 1 600 overtaken by the stop"}));
        QVERIFY(traffic.link->isStopping());
        traffic.clock.advance(20);
        QVERIFY(!traffic.link->isStopping());
        QCOMPARE(traffic.take("answered"),
                 QStringList({"1 3 0 0 0 1 3 0 0 0", "1 3 0 1 0 1 3 0 1 0"}));
        QCOMPARE(traffic.link->answers(), 2);
        QCOMPARE(traffic.journal.sent(), 3);
        QStringList told;
        for (const Journal::Entry& entry : traffic.journal.entries())
            told << entry.text().section("   ->   ", 0, 0);
        QCOMPARE(told.size(), 4);
        QCOMPARE(told.filter("MST").size(), 2);
        traffic.clock.advance(2000);
        QCOMPARE(traffic.velocity(0), 0.0);
        QCOMPARE(traffic.velocity(1), 0.0);
    }

    void stopOfOneAxis()
    {
        Traffic traffic;
        traffic.link->command(request(Instruction::ROR, 0, 500));
        traffic.clock.advance(1000);
        traffic.log.takeLines();
        QStringList overtaken;
        for (const Command& motion :
             {request(Instruction::ROR, 0, 600), request(Instruction::ROL, 0, 600),
              request(Instruction::MVP, 1, 9999),
              request(Instruction::SAP, Number::TargetPosition, 9999),
              request(Instruction::SAP, Number::TargetVelocity, 600),
              request(Instruction::SAP, Number::TargetCurrent, 600)}) {
            traffic.link->command(motion);
            overtaken << line(motion) + " overtaken by the stop";
        }
        traffic.link->command(request(Instruction::MST, 0, 0, 2)); // no such axis
        traffic.link->command(Command(9, toByte(Instruction::ROL), 0, 0, 600));
        traffic.link->command(Command(9, toByte(Instruction::MST), 0, 0, 0));
        traffic.link->command(request(Instruction::ROL, 0, 600, 1));
        traffic.link->command(request(Instruction::SAP, Number::Acceleration, 777));
        traffic.link->command(request(Instruction::MST, 0));
        QVERIFY(traffic.link->isStopping());
        QCOMPARE(traffic.take("gaveUp"), overtaken);
        traffic.link->finishCommands();
        QCOMPARE(traffic.take("sent"), QStringList({"1 3 0 0 0", "1 3 0 2 0", "9 2 0 0 600",
                                                    "9 3 0 0 0", "1 2 0 1 600", "1 5 11 0 777"}));
        traffic.clock.advance(2000);
        QCOMPARE(traffic.velocity(0), 0.0);
        QCOMPARE(qRound(traffic.velocity(1)), -600);
    }

    /// A silent module is noticed also when nobody asks anything.
    void silence()
    {
        Traffic traffic;
        traffic.wire.link().setSilent(true);
        traffic.clock.advance(199);
        QCOMPARE(traffic.take("sent"), QStringList());
        traffic.clock.advance(300);
        QCOMPARE(traffic.link->state(), ModuleLink::State::Answering);
        traffic.clock.advance(1);
        QCOMPARE(traffic.link->state(), ModuleLink::State::Silent);
        QCOMPARE(traffic.link->silentFor(), 500);
        QCOMPARE(traffic.take("sent").count("1 6 3 0 0"), 4);
        traffic.link->stopAll();
        traffic.link->finishCommands();
        QVERIFY(traffic.link->isOpen() && traffic.link->isStopping());
        QCOMPARE(traffic.link->silentFor(), 1500); // no longer
        traffic.wire.link().setSilent(false);
        traffic.clock.advance(102);
        QVERIFY(!traffic.link->isStopping());
        QCOMPARE(traffic.link->state(), ModuleLink::State::Answering);
        QVERIFY(traffic.link->silentFor() < 102);
        traffic.take("sent");
        traffic.clock.advance(1000);
        const int alive = traffic.take("sent").count("1 6 3 0 0");
        QVERIFY2(alive == 4 || alive == 5, qPrintable(QString::number(alive)));
    }

    void badWeatherLosesNoRead()
    {
        Traffic traffic;
        Simulated::Weather weather;
        weather.seed = 5;
        weather.replyLoss = weather.duplicate = 0.2;
        weather.foreignReply = 0.3;
        weather.lateReply = 0.1;
        traffic.wire.link().setWeather(weather);
        traffic.wire.module().axis(0).write(Number::ActualPosition, 1234);
        for (int i = 0; i < 200; ++i) {
            traffic.link->read(request(Instruction::GAP, Number::ActualPosition));
            traffic.clock.advance(400);
        }
        const QStringList answers = traffic.take("answered");
        const int right = answers.count("1 6 1 0 0 1 6 1 0 1234");
        QVERIFY2(right >= 195, qPrintable(QString::number(right)));
        QCOMPARE(right + answers.count("1 6 3 0 0 1 6 3 0 0"), answers.size());
    }

    void directRequest()
    {
        Traffic traffic;
        const qint64 begin = traffic.clock.now() - traffic.wire.module().upTime();
        traffic.setDelay(30);
        QCOMPARE(traffic.ask(request(Instruction::GAP, Number::MaxVelocity)).getValue(), 4000);
        QCOMPARE(traffic.link->time() - begin, 31);
        QCOMPARE(traffic.wire.module().upTime(), 31); // on the same clock
        traffic.setDelay(200);
        QVERIFY(!traffic.ask(request(Instruction::SAP, 4, 700)).isValid());
        QCOMPARE(traffic.clock.now() - begin, 132);
        // a stop while it is on its way ends it, as does the end of the link
        for (const bool isStop : {true, false}) {
            const QObject context;
            connect(traffic.link, &ModuleLink::sent, &context, [&](const Command& request) {
                if (carries(request.getCommand(), Instruction::GAP))
                    isStop ? traffic.link->stopAll() : traffic.link->close();
            });
            QVERIFY(!traffic.ask(request(Instruction::GAP, 1)).isValid());
            QCOMPARE(traffic.take("gaveUp").filter("1 6 1 0 0").size(), int(isStop));
        }
        QVERIFY(!traffic.ask(request(Instruction::GAP, 1)).isValid());
        traffic.link->doDirectRequest(nullptr, nullptr);
        traffic.link->open();
        traffic.link->doDirectRequest(new Command(request(Instruction::GAP, 1)), nullptr);
        QCOMPARE(traffic.log.takeLines(), QStringList());
    }

    void openAndClosed()
    {
        Traffic traffic;
        traffic.link->open(2); // the stops go there now
        traffic.link->stopAll();
        QCOMPARE(traffic.take("sent"), QStringList({"2 3 0 0 0", "2 3 0 1 0"}));
        traffic.link->command(request(Instruction::ROR, 0, 5));
        traffic.link->read(request(Instruction::GAP, 1));
        emit traffic.wire.lost("unplugged");
        QCOMPARE(traffic.take("gaveUp"), QStringList({"2 3 0 0 0 unplugged", "2 3 0 1 0 unplugged",
                                                      "1 1 0 0 5 unplugged"}));
        QVERIFY(!traffic.wire.isOpen());
        traffic.wire.isPlugged = false;
        traffic.link->open();
        QCOMPARE(traffic.link->state(), ModuleLink::State::Closed);
        traffic.link->command(request(Instruction::ROR, 0, 5));
        traffic.link->read(request(Instruction::GAP, 1));
        traffic.link->stopAll();
        traffic.clock.advance(1000);
        QCOMPARE(traffic.log.takeLines(), QStringList("gaveUp 1 1 0 0 5 not connected"));
        QVERIFY(!traffic.link->hasRoom(0));
    }

    void roomOnASlowLink()
    {
        Traffic traffic;
        traffic.setDelay(30);
        for (int type : {1, 3, 4})
            traffic.link->read(request(Instruction::GAP, type));
        const qint64 asked = traffic.clock.now();
        traffic.clock.advance(40);                        // the second is on its way
        traffic.link->read(request(Instruction::GAP, 5)); // by somebody else
        QVERIFY(!traffic.link->hasRoom(asked));
        QVERIFY(traffic.link->hasRoom(asked - 1));
        QCOMPARE(traffic.link->pendingReads(), 3);
        traffic.clock.advance(30);
        QVERIFY(traffic.link->hasRoom(asked));
        QCOMPARE(traffic.link->answerTime(), 30);
        traffic.setDelay(1);
        traffic.clock.advance(10000);
        QCOMPARE(traffic.link->answerTime(), 1);
    }

    /// A host may delete the link in any of its signals.
    void deletedInside()
    {
        const std::function<void(Traffic&)> gestures[] = {
            [](Traffic& traffic) { traffic.link->stopAll(); },
            [](Traffic& traffic) { traffic.ask(request(Instruction::GAP, 1)); },
            [](Traffic& traffic) { traffic.clock.advance(1100); },
            [](Traffic& traffic) { emit traffic.wire.lost("unplugged"); }};
        QStringList ended;
        for (const char* signal : {"sent", "answered", "gaveUp", "stateChanged"}) {
            for (std::size_t gesture = 0; gesture < std::size(gestures); ++gesture) {
                Traffic traffic;
                traffic.setDelay(qstrcmp(signal, "answered") == 0 ? 99 : 2000);
                for (int type : {1, 2})
                    traffic.link->command(request(Instruction::SAP, type));
                if (endsInside(traffic.link, signal, [&] { gestures[gesture](traffic); }))
                    ended << QString("%1 %2").arg(signal).arg(gesture);
            }
        }
        QCOMPARE(ended, QStringList({"sent 0", "sent 1", "sent 2", "answered 1", "answered 2",
                                     "gaveUp 0", "gaveUp 1", "gaveUp 2", "gaveUp 3",
                                     "stateChanged 1", "stateChanged 2", "stateChanged 3"}));
    }
};

AXR_TEST_MAIN(ModuleLinkTest)
#include "ModuleLinkTest.moc"
