#include "SimulatedLink.h"
#include "CommandRecorder.h"
#include "Instruction.h"
#include "SimulatedModule.h"
#include "TestCase.h"

#include <cmath>

namespace N = AxisParameterNumber;

namespace
{

const Command Question(1, toByte(Instruction::GAP), toByte(N::MaxCurrent), 0, 0);

QStringList lines(const QVector<Command>& replies)
{
    QStringList texts;
    for (const Command& reply : replies)
        texts << QString("%1: %2").arg(u8(reply.getStatus())).arg(line(reply));
    return texts;
}

// The counters that are not 0
QString text(const SimulatedLink::Counters& c)
{
    const std::pair<const char*, int> all[] = {{"sent", c.sent},
                                               {"requestsLost", c.requestsLost},
                                               {"unanswered", c.unanswered},
                                               {"repliesLost", c.repliesLost},
                                               {"duplicated", c.duplicated},
                                               {"late", c.late},
                                               {"foreign", c.foreign},
                                               {"failed", c.failed},
                                               {"resets", c.resets},
                                               {"delivered", c.delivered}};
    QStringList texts;
    for (const auto& [name, count] : all) {
        if (count)
            texts << QString("%1 %2").arg(name).arg(count);
    }
    return texts.join(' ');
}

Weather storm(quint32 seed)
{
    Weather weather;
    weather.seed = seed;
    weather.maximumDelay = 20;
    weather.lateness = 100;
    weather.bootTime = 30;
    weather.requestLoss = weather.replyLoss = weather.duplicate = weather.lateReply = 0.1;
    weather.foreignReply = weather.failureStatus = 0.1;
    weather.spontaneousReset = 0.02;
    return weather;
}

} // namespace

Q_DECLARE_METATYPE(double Weather::*)

class SimulatedLinkTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void repliesTakeTheirTime()
    {
        SimulatedModule module;
        SimulatedLink link(module);
        Weather weather;
        weather.minimumDelay = 3;
        weather.maximumDelay = 7;
        link.setWeather(weather);
        QVector<int> arrivals(10);
        for (int i = 0; i < 500; ++i) {
            link.send(Question);
            for (int time = 0; time < 10; ++time, link.advance(1))
                arrivals[time] += link.takeReplies().size();
        }
        for (int time = 0; time < 10; ++time) {
            const bool possible = time >= 3 && time <= 7;
            QVERIFY2(possible ? arrivals[time] > 50 : arrivals[time] == 0,
                     qPrintable(QString::number(time)));
        }
        QCOMPARE(module.upTime(), qint64(5000));
    }

    // One kind of weather at its full strength: what three requests bring within a second.
    void kinds_data()
    {
        QTest::addColumn<double Weather::*>("chance");
        QTest::addColumn<QStringList>("replies");
        QTest::addColumn<QString>("counters");
        const QString ok = "100: 1 6 6 0 5000";
        const QString fault = "16: 1 6 6 0 0";
        const QStringList none;
        const QStringList three{ok, ok, ok};
        QTest::newRow("loss") << &Weather::requestLoss << none << "sent 3 requestsLost 3";
        QTest::newRow("reply loss") << &Weather::replyLoss << none << "sent 3 repliesLost 3";
        QTest::newRow("duplicate")
            << &Weather::duplicate << three + three << "sent 3 duplicated 3 delivered 6";
        QTest::newRow("late") << &Weather::lateReply << three << "sent 3 late 3 delivered 3";
        QTest::newRow("failure") << &Weather::failureStatus << QStringList{fault, fault, fault}
                                 << "sent 3 failed 3 delivered 3";
        // the second and the third meet a booting module
        QTest::newRow("reset") << &Weather::spontaneousReset << none
                               << "sent 3 unanswered 2 resets 1";
    }
    void kinds()
    {
        QFETCH(double Weather::*, chance);
        SimulatedModule module;
        SimulatedLink link(module);
        Weather weather;
        weather.*chance = 1;
        link.setWeather(weather);
        for (int i = 0; i < 3; ++i)
            link.send(Question);
        link.advance(500);
        const QStringList early = lines(link.takeReplies());
        link.advance(501);
        const QStringList all = early + lines(link.takeReplies());
        QTEST(all, "replies");
        QTEST(text(link.counters()), "counters");
        QCOMPARE(early.isEmpty(), all.isEmpty() || chance == &Weather::lateReply);
    }

    void lossAndFailureChangeTheModuleAsTheySay()
    {
        const Command change(1, toByte(Instruction::SAP), toByte(N::MaxCurrent), 0, 321);
        const auto valueAfter = [&change](double Weather::*chance) {
            SimulatedModule module;
            SimulatedLink link(module);
            Weather weather;
            weather.*chance = 1;
            link.setWeather(weather);
            link.send(change);
            return module.axis(0).read(N::MaxCurrent);
        };
        QCOMPARE(valueAfter(&Weather::requestLoss), 5000);
        QCOMPARE(valueAfter(&Weather::failureStatus), 5000);
        QCOMPARE(valueAfter(&Weather::replyLoss), 321);
    }

    void foreignRepliesMatchNothingAsked()
    {
        SimulatedModule module;
        SimulatedLink link(module);
        Weather weather;
        weather.foreignReply = 1;
        link.setWeather(weather);
        std::array<int, 4> changed{};
        for (int i = 0; i < 2000; ++i) {
            link.send(Question);
            link.advance(1);
            const QVector<Command> replies = link.takeReplies();
            QCOMPARE(replies.size(), 2);
            const Command& foreign = replies.first();
            const bool differs[] = {foreign.getAddress() != Question.getAddress(),
                                    foreign.getCommand() != Question.getCommand(),
                                    foreign.getType() != Question.getType(),
                                    foreign.getMotorBank() != Question.getMotorBank()};
            QCOMPARE(std::count(std::begin(differs), std::end(differs), true), 1);
            ++changed[size_t(std::find(differs, differs + 4, true) - differs)];
            QCOMPARE(lines(replies).last(), QString("100: 1 6 6 0 5000"));
        }
        for (int count : changed)
            QVERIFY(count > 400);
    }

    void silenceAndBoot()
    {
        SimulatedModule module;
        SimulatedLink link(module);
        const auto answers = [&link] {
            link.send(Question);
            link.advance(1);
            return lines(link.takeReplies());
        };
        module.execute(Command(1, toByte(Instruction::SAP), toByte(N::MaxCurrent), 0, 1234));
        module.execute(Command(1, toByte(Instruction::STAP), toByte(N::MaxCurrent), 0, 0));
        link.setSilent(true);
        QCOMPARE(answers(), QStringList());
        link.setSilent(false);
        QCOMPARE(answers(), QStringList("100: 1 6 6 0 1234"));
        link.resetModule();
        QCOMPARE(answers(), QStringList());
        link.advance(298);
        QCOMPARE(answers(), QStringList());
        QCOMPARE(answers(), QStringList("100: 1 6 6 0 1234"));
        link.send(Command(2, toByte(Instruction::GAP), 0, 0, 0)); // for another module
        link.advance(1000);
        QCOMPARE(lines(link.takeReplies()), QStringList());
    }

    void seedRepeats()
    {
        const auto session = [](quint32 seed, int piece) {
            SimulatedModule module;
            SimulatedLink link(module);
            link.setWeather(storm(seed));
            QStringList log;
            for (int i = 0; i < 1000; ++i) {
                link.send(Command(1, toByte(5 + i % 2), toByte(N::UndervoltageLimit), 0, i % 500));
                for (int time = 0; time < 12; time += piece)
                    link.advance(piece);
                log << lines(link.takeReplies());
            }
            link.advance(1000);
            log << lines(link.takeReplies()) << text(link.counters());
            return log;
        };
        const QStringList log = session(5, 12);
        QCOMPARE(session(5, 1), log);
        QVERIFY(session(6, 12) != log);

        SimulatedModule module;
        SimulatedLink link(module);
        link.setWeather(storm(5));
        const auto& c = link.counters();
        for (int i = 0; i < 1000; ++i, link.advance(12))
            link.send(Question);
        link.advance(1000);
        link.takeReplies();
        // each reply that left the module arrived, with its copy and its foreign companion
        QCOMPARE(c.delivered, c.sent - c.requestsLost - c.unanswered - c.resets - c.repliesLost +
                                  c.duplicated + c.foreign);
        for (int count : {c.requestsLost, c.repliesLost, c.duplicated, c.late, c.foreign, c.failed})
            QVERIFY2(count > 50 && count < 150, qPrintable(text(c)));
        QVERIFY(c.resets > 5 && c.unanswered > 5);
    }

    void impossibleWeather()
    {
        SimulatedModule module;
        SimulatedLink link(module);
        Weather weather;
        weather.requestLoss = std::nan("");
        weather.replyLoss = -1;
        weather.duplicate = 7;
        weather.minimumDelay = -5;
        weather.maximumDelay = -10;
        weather.lateness = std::numeric_limits<int>::max();
        link.setWeather(weather);
        QCOMPARE(link.weather().duplicate, 1.0);
        QCOMPARE(link.weather().maximumDelay, 0);
        QCOMPARE(link.weather().lateness, 3600000);
        link.send(Question);
        QCOMPARE(link.takeReplies().size(), 2);
        link.advance(-1);
        link.send(Question);
        QCOMPARE(link.takeReplies().size(), 2);
    }
};

AXR_TEST_MAIN(SimulatedLinkTest)
#include "SimulatedLinkTest.moc"
