#include "SimulatedLink.h"
#include "CommandRecorder.h"
#include "Instruction.h"
#include "SimulatedModule.h"
#include "TestCase.h"

#include <numeric>

namespace N = AxisParameterNumber;

namespace
{

const Command Change(1, toByte(Instruction::SAP), toByte(N::MaxCurrent), 0, 321);
const Command Question(1, toByte(Instruction::GAP), toByte(N::MaxCurrent), 0, 0);

using Simulated::Weather;
using Counters = SimulatedLink::Counters;

struct LinkedModule {
    explicit LinkedModule(const Weather& weather = {}) { link.setWeather(weather); }

    // "status: reply" of what arrives within this time
    QStringList after(int milliseconds)
    {
        link.advance(milliseconds);
        QStringList texts;
        for (const Command& reply : link.takeReplies())
            texts << QString("%1: %2").arg(u8(reply.getStatus())).arg(line(reply));
        return texts;
    }

    SimulatedModule module;
    SimulatedLink link{module};
};

} // namespace

class SimulatedLinkTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void repliesTakeTheirTime()
    {
        Weather weather;
        weather.minimumDelay = 3;
        weather.maximumDelay = 7;
        LinkedModule on(weather);
        QVector<int> arrivals(10);
        for (int i = 0; i < 500; ++i) {
            on.link.send(Question);
            for (int& count : arrivals)
                count += on.after(1).size();
        }
        QVERIFY(*std::min_element(&arrivals[2], &arrivals[7]) > 50);
        QCOMPARE(std::accumulate(&arrivals[2], &arrivals[7], 0), 500);
    }

    // One kind of weather at its full strength: what becomes of two changes within a second, as
    // "counted, replies early, replies in all: value in the module".
    void eachKind()
    {
        const struct {
            double Weather::*chance;
            int Counters::*counter;
            const char* expected;
        } cases[] = {
            {&Weather::requestLoss, &Counters::requestsLost, "2, 0, 0: 5000"},
            {&Weather::replyLoss, &Counters::repliesLost, "2, 0, 0: 321"},
            {&Weather::duplicate, &Counters::duplicated, "2, 4, 4: 321"},
            {&Weather::lateReply, &Counters::late, "2, 0, 2: 321"},
            {&Weather::foreignReply, &Counters::foreign, "2, 4, 4: 321"},
            {&Weather::failureStatus, &Counters::failed, "2, 2, 2: 5000"},
            // the second change meets a booting module
            {&Weather::spontaneousReset, &Counters::resets, "1, 0, 0: 5000"},
        };
        for (const auto& [chance, counter, expected] : cases) {
            Weather weather;
            weather.*chance = 1;
            LinkedModule on(weather);
            on.link.send(Change);
            on.link.send(Change);
            const auto early = on.after(500);
            const auto all = early + on.after(501);
            QString text = QString("%1, %2, ").arg(on.link.counters().*counter).arg(early.size());
            text += QString("%1: %2").arg(all.size()).arg(on.module.axis(0).read(N::MaxCurrent));
            QCOMPARE(text, QString(expected));
            const int status = chance == &Weather::failureStatus ? 16 : 100;
            if (!all.isEmpty())
                QCOMPARE(all.last(), QString("%1: 1 5 6 0 321").arg(status));
        }
    }

    void foreignRepliesDifferInOneField()
    {
        Weather weather;
        weather.foreignReply = 1;
        LinkedModule on(weather);
        QMap<int, int> changed;
        for (int i = 0; i < 2000; ++i) {
            on.link.send(Question);
            const QStringList fields = on.after(1).first().split(' ').mid(1);
            const QStringList asked = line(Question).split(' ');
            int differences = 0;
            for (int field = 0; field < 4; ++field)
                differences += (fields[field] != asked[field]) << (8 * field);
            ++changed[differences];
        }
        QCOMPARE(changed.keys(), (QList<int>{1, 1 << 8, 1 << 16, 1 << 24}));
        QVERIFY(*std::min_element(changed.begin(), changed.end()) > 400);
    }

    void silenceAndBoot()
    {
        LinkedModule on;
        const auto answers = [&on](int address) {
            on.link.send(Command(toByte(address), toByte(Instruction::GAP), 6, 0, 0));
            return on.after(1).size();
        };
        on.link.setSilent(true);
        QCOMPARE(answers(1), 0);
        on.link.setSilent(false);
        QCOMPARE(answers(2), 0);
        QCOMPARE(answers(1), 1);
        on.link.resetModule();
        on.link.advance(298);
        QCOMPARE(answers(1), 0);
        QCOMPARE(answers(1), 0);
        QCOMPARE(answers(1), 1);
    }

    void seedRepeats()
    {
        Counters c;
        const auto session = [&c](quint32 seed, int piece) {
            Weather weather;
            weather.seed = seed;
            weather.maximumDelay = 20;
            weather.bootTime = 30;
            weather.requestLoss = weather.replyLoss = weather.duplicate = weather.lateReply = 0.1;
            weather.foreignReply = weather.failureStatus = 0.1;
            weather.spontaneousReset = 0.02;
            LinkedModule on(weather);
            QStringList log;
            for (int i = 0; i < 1000; ++i) {
                on.link.send(i % 2 ? Question : Change);
                for (int time = 0; time < 12; time += piece)
                    on.link.advance(piece);
                log << on.after(0);
            }
            log << on.after(1000);
            c = on.link.counters();
            return log;
        };
        const QStringList log = session(5, 12);
        QCOMPARE(session(5, 1), log);
        // each reply that left the module arrived, with its copy and its foreign companion
        QCOMPARE(c.delivered, c.sent - c.requestsLost - c.unanswered - c.resets - c.repliesLost +
                                  c.duplicated + c.foreign);
        for (int count : {c.requestsLost, c.repliesLost, c.duplicated, c.late, c.foreign, c.failed})
            QVERIFY(count > 50 && count < 150);
        QVERIFY(session(6, 12) != log);
    }
};

AXR_TEST_MAIN(SimulatedLinkTest)
#include "SimulatedLinkTest.moc"
