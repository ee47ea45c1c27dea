#include "ModuleLink.h"
#include "CommandRecorder.h"
#include "Instruction.h"
#include "ParameterCatalogue.h"
#include "SimulatedWire.h"
#include "TestCase.h"

namespace Number = AxisParameterNumber;

namespace
{

Command request(Instruction instruction, int type, int value = 0, int axis = 0)
{
    return Command(1, toByte(instruction), toByte(type), toByte(axis), value);
}

/// A link, opened, with everything that it sends, takes and gives up.
struct Traffic {
    HostClock clock;
    SimulatedWire wire{clock, Simulated::Weather()};
    ModuleLink link{clock, wire, SimulatedWire::profile()};
    QStringList sent;
    QStringList answered;
    QStringList gaveUp;

    Traffic()
    {
        QObject::connect(&link, &ModuleLink::sent, [this](const Command& c) { sent << line(c); });
        QObject::connect(&link, &ModuleLink::answered,
                         [this](const Command&, const Command& c) { answered << line(c); });
        QObject::connect(&link, &ModuleLink::gaveUp,
                         [this](const Command& c, const QString&) { gaveUp << line(c); });
        link.open();
    }
};

} // namespace

class ModuleLinkTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void commandsOvertakeReads()
    {
        Traffic traffic;
        traffic.link.read(request(Instruction::GAP, 1));
        traffic.link.read(request(Instruction::GAP, 3));
        traffic.link.read(request(Instruction::GAP, 1)); // waits already
        traffic.link.command(request(Instruction::SAP, Number::Acceleration, 777));
        traffic.clock.advance(50);
        QCOMPARE(traffic.sent, QStringList({"1 5 11 0 777", "1 6 1 0 0", "1 6 3 0 0"}));
        QCOMPARE(traffic.answered, QStringList({"1 5 11 0 777", "1 6 1 0 0", "1 6 3 0 0"}));
        QCOMPARE(traffic.wire.module().axis(0).read(Number::Acceleration), 777);
    }

    void stopOvertakesAndDropsCommands()
    {
        Traffic traffic;
        Simulated::Weather slow;
        slow.minimumDelay = slow.maximumDelay = 20;
        traffic.wire.link().setWeather(slow);
        traffic.link.command(request(Instruction::ROR, 0, 500));
        traffic.clock.advance(2); // on its way
        traffic.link.command(request(Instruction::ROL, 0, 600, 1));
        traffic.link.read(request(Instruction::GAP, 1));
        traffic.sent.clear();
        traffic.link.stopAll();
        QVERIFY(traffic.link.isStopping());
        QCOMPARE(traffic.sent, QStringList({"1 3 0 0 0", "1 3 0 1 0"})); // at once
        QCOMPARE(traffic.gaveUp, QStringList({"1 1 0 0 500", "1 2 0 1 600"}));
        traffic.clock.advance(100);
        QVERIFY(!traffic.link.isStopping());
        QCOMPARE(traffic.sent, QStringList({"1 3 0 0 0", "1 3 0 1 0", "1 6 1 0 0"}));
        traffic.clock.advance(2000);
        QCOMPARE(traffic.wire.module().axis(0).velocity(), 0.0);
        QCOMPARE(traffic.wire.module().axis(1).velocity(), 0.0);
    }

    void stopOfOneAxisIsRepeatedAndDropsItsMotion()
    {
        Traffic traffic;
        traffic.link.command(request(Instruction::ROR, 0, 500));
        traffic.clock.advance(1000);
        traffic.wire.link().setSilent(true);
        const Command motions[] = {request(Instruction::ROR, 0, 600),
                                   request(Instruction::ROL, 0, 600),
                                   request(Instruction::MVP, 1, 9999),
                                   request(Instruction::SAP, Number::TargetPosition, 9999),
                                   request(Instruction::SAP, Number::TargetVelocity, 600),
                                   request(Instruction::SAP, Number::TargetCurrent, 600)};
        QStringList lines;
        for (const Command& motion : motions) {
            traffic.link.command(motion);
            lines << line(motion);
        }
        traffic.link.command(request(Instruction::SAP, Number::Acceleration, 777));
        traffic.link.command(request(Instruction::ROL, 0, 600, 1));
        traffic.link.command(request(Instruction::MST, 0));
        QCOMPARE(traffic.gaveUp, lines);
        traffic.clock.advance(500);
        QVERIFY(traffic.link.isStopping());
        traffic.wire.link().setSilent(false);
        traffic.clock.advance(2000);
        QVERIFY(!traffic.link.isStopping());
        QCOMPARE(traffic.wire.module().axis(0).velocity(), 0.0);
        QCOMPARE(traffic.wire.module().axis(0).read(Number::Acceleration), 777);
        QCOMPARE(qRound(traffic.wire.module().axis(1).velocity()), -600);
    }

    void stopThatTheModuleCannotTakeBlocksNothing()
    {
        Traffic traffic;
        traffic.link.command(request(Instruction::MST, 0, 0, 7));
        traffic.link.command(Command(9, toByte(Instruction::MST), 0, 0, 0));
        traffic.link.command(request(Instruction::SAP, Number::Acceleration, 777));
        traffic.clock.advance(200);
        QVERIFY(!traffic.link.isStopping());
        QCOMPARE(traffic.wire.module().axis(0).read(Number::Acceleration), 777);
    }

    void silentModule()
    {
        Traffic traffic;
        traffic.wire.link().setSilent(true);
        traffic.link.command(request(Instruction::ROR, 0, 500));
        traffic.link.read(request(Instruction::GAP, Number::ActualPosition));
        traffic.clock.advance(1000);
        QCOMPARE(traffic.link.state(), ModuleLink::State::Silent);
        QCOMPARE(traffic.sent.count("1 1 0 0 500"), 1); // never repeated
        QCOMPARE(traffic.sent.count("1 6 1 0 0"), 3);
        QCOMPARE(traffic.gaveUp, QStringList("1 1 0 0 500"));

        traffic.link.stopAll();
        traffic.link.command(request(Instruction::ROR, 0, 700)); // waits behind the stop
        traffic.clock.advance(1500);
        QVERIFY(traffic.link.isStopping());
        QCOMPARE(traffic.gaveUp.last(), QString("1 1 0 0 700"));
        traffic.wire.link().setSilent(false);
        traffic.clock.advance(300);
        QVERIFY(!traffic.link.isStopping());
        QCOMPARE(traffic.link.state(), ModuleLink::State::Answering);
        QVERIFY(!traffic.sent.contains("1 1 0 0 700"));
        QCOMPARE(traffic.wire.module().axis(0).velocity(), 0.0);
    }

    void quietModuleIsAskedWhetherItAnswers()
    {
        Traffic traffic;
        traffic.clock.advance(1000);
        QVERIFY(traffic.sent.size() >= 3 && traffic.sent.size() <= 5);
        traffic.wire.link().setSilent(true);
        traffic.clock.advance(600);
        QCOMPARE(traffic.link.state(), ModuleLink::State::Silent);
        traffic.wire.link().setSilent(false);
        traffic.clock.advance(150);
        QCOMPARE(traffic.link.state(), ModuleLink::State::Answering);
    }

    void badWeatherLosesNoRead()
    {
        Simulated::Weather weather;
        weather.seed = 5;
        weather.replyLoss = 0.2;
        weather.duplicate = 0.2;
        weather.foreignReply = 0.3;
        weather.lateReply = 0.1;
        HostClock clock;
        SimulatedWire wire(clock, weather);
        ModuleLink link(clock, wire, SimulatedWire::profile());
        wire.module().axis(0).write(Number::ActualPosition, 1234);
        int right = 0;
        int wrong = 0;
        connect(&link, &ModuleLink::answered, this,
                [&](const Command& asked, const Command& answer) {
                    const bool isPosition =
                        u8(asked.getType()) == Number::ActualPosition; // else the link's
                    const bool fits = answer.getType() == asked.getType() &&
                                      answer.getValue() == (isPosition ? 1234 : 0) &&
                                      answer.getMotorBank() == 0;
                    wrong += !fits;
                    right += fits && isPosition;
                });
        link.open();
        for (int i = 0; i < 200; ++i) {
            link.read(request(Instruction::GAP, Number::ActualPosition));
            clock.advance(400);
        }
        QCOMPARE(wrong, 0);
        QVERIFY2(right >= 195, qPrintable(QString::number(right)));
    }

    void directRequest()
    {
        Traffic traffic;
        Command reply;
        traffic.link.doDirectRequest(new Command(request(Instruction::GAP, Number::Acceleration)),
                                     &reply);
        QVERIFY(reply.isValid());
        QCOMPARE(reply.getValue(), traffic.wire.module().axis(0).read(Number::Acceleration));

        Command none;
        traffic.wire.link().setSilent(true);
        traffic.link.doDirectRequest(new Command(request(Instruction::GAP, 1)), &none);
        QVERIFY(!none.isValid());

        // the recorder is asked three times, in the order in which it was asked
        QCOMPARE(traffic.sent.count("1 6 1 0 0"), 3);
        traffic.link.doDirectRequest(new Command(request(Instruction::RD, 4)), &none);
        QCOMPARE(traffic.sent.count("1 142 4 0 0"), 3);
        traffic.link.doDirectRequest(new Command(request(Instruction::SAP, 4, 700)), &none);
        QCOMPARE(traffic.sent.count("1 5 4 0 700"), 1);
        QCOMPARE(traffic.gaveUp, QStringList({"1 6 1 0 0", "1 142 4 0 0", "1 5 4 0 700"}));

        // a stop while it is on its way ends it
        traffic.wire.link().setSilent(false);
        const QObject context;
        connect(&traffic.link, &ModuleLink::sent, &context, [&traffic](const Command& request) {
            if (carries(request.getCommand(), Instruction::GAP))
                traffic.link.stopAll();
        });
        traffic.link.doDirectRequest(new Command(request(Instruction::GAP, 1)), &none);
        QVERIFY(!none.isValid());
        QCOMPARE(traffic.gaveUp.last(), QString("1 6 1 0 0"));
        traffic.link.close();
        traffic.link.doDirectRequest(new Command(request(Instruction::GAP, 1)), &none);
        traffic.link.doDirectRequest(nullptr, &none);
        QVERIFY(!none.isValid());
    }

    void openedAgainStopsTheNewAddress()
    {
        Traffic traffic;
        traffic.link.open(2);
        traffic.link.stopAll();
        QCOMPARE(traffic.sent, QStringList({"2 3 0 0 0", "2 3 0 1 0"}));
    }

    void closedLinkSendsNothing()
    {
        Traffic traffic;
        traffic.link.read(request(Instruction::GAP, 1));
        traffic.link.close();
        traffic.link.command(request(Instruction::ROR, 0, 5));
        traffic.link.read(request(Instruction::GAP, 1));
        traffic.link.stopAll();
        traffic.clock.advance(100);
        QCOMPARE(traffic.sent, QStringList());
        QCOMPARE(traffic.gaveUp, QStringList("1 1 0 0 5"));
    }
};

AXR_TEST_MAIN(ModuleLinkTest)
#include "ModuleLinkTest.moc"
