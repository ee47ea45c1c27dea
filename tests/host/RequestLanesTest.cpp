#include "RequestLanes.h"
#include "Instruction.h"
#include "TestCase.h"

namespace
{

const QMap<QString, Command> requests = {{"read1", Command(1, toByte(Instruction::GAP), 1, 0, 0)},
                                         {"read2", Command(1, toByte(Instruction::GAP), 2, 0, 0)},
                                         {"set", Command(1, toByte(Instruction::SAP), 4, 0, 700)},
                                         {"turn0", Command(1, toByte(Instruction::ROR), 0, 0, 500)},
                                         {"turn1", Command(1, toByte(Instruction::ROL), 0, 1, 500)},
                                         {"arm", Command(1, toByte(Instruction::RD), 4, 0, 0)},
                                         {"stop0", Command(1, toByte(Instruction::MST), 0, 0, 0)},
                                         {"stop1", Command(1, toByte(Instruction::MST), 0, 1, 0)}};

QString nameOf(const Command& request)
{
    return *std::find_if(requests.keyBegin(), requests.keyEnd(), [&request](const QString& name) {
        return requests[name].getCommand() == request.getCommand() &&
               requests[name].getType() == request.getType() &&
               requests[name].getMotorBank() == request.getMotorBank();
    });
}

} // namespace

class RequestLanesTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    /// Steps: a name is added, "!" ahead of others; "<" is its answer, "<!" a refusal; a number
    /// lets so many ms pass; "STOP" stops both axes, "END" abandons all. Then come, in what
    /// happens: ">" sent, "=" answered, "x" given up with the number of its reason; and last
    /// whether something Stops, Commands or Idles, the reads and the time-outs.
    void script_data()
    {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("happens");
        const char* const rows[][3] = {
            {"commands overtake reads, which wait once", "read1 read2 read1 set 1 <set 1 <read1 1",
             ">set =set >read1 =read1 >read2 - - - 1 0"},
            {"one at a time, the urgent one first", "set !turn0 1 1 50", ">turn0 - C - 0 0"},
            {"nobody waits for others", "read1 1 <read2 <set <read1 <read1",
             ">read1 =read1 - - I 0 0"},
            {"a read is tried three times", "read1 1 99 1 99 1 100 100",
             ">read1 >read1 >read1 - - I 0 3"},
            {"the lost read is behind the others", "read1 read2 1 100 <read2 1",
             ">read1 >read2 =read2 >read1 - - - 1 0"},
            {"not twice either", "read1 1 read1 100 <read1 1 100",
             ">read1 >read1 =read1 - - I 0 0"},
            {"a command is sent once", "set 1 99 read1 1 1", ">set xset4 >read1 - - - 1 1"},
            {"the recorder is asked three times, in its order", "arm set 1 100 100 100",
             ">arm >arm >arm xarm3 >set - C - 0 3"},
            {"a command waits for less than a second", "turn0 1 set 999",
             ">turn0 xturn04 >set - C - 0 1"},
            {"and not a second", "turn0 1 set 1000", ">turn0 xset5 xturn04 - - I 0 1"},
            {"a stop waits for nothing, the others for it", "read1 1 stop0 set 1 <read1 1 <stop0 1",
             ">read1 >stop0 =read1 =stop0 >set - C - 0 0"},
            {"the same stop is one", "stop0 stop0 1 stop0 1 <stop0 1", ">stop0 =stop0 - - I 0 0"},
            {"until it is acknowledged", "stop0 1 100 100 100 100 <!stop0 1",
             ">stop0 >stop0 >stop0 >stop0 >stop0 =stop0 >stop0 S C - 0 0"},
            {"it overtakes what moves its axis", "turn0 turn1 set stop0 1 <stop0 1",
             "xturn01 >stop0 =stop0 >turn1 - C - 0 0"},
            {"all stops overtake all commands",
             "turn0 1 turn1 read1 stop0 set STOP <stop1 99 1 <stop0 1",
             ">turn0 xturn02 xturn11 xset1 >stop0 >stop1 =stop1 >stop0 =stop0 >read1 - - - 1 0"},
            {"but no read on its way", "read1 1 STOP STOP <read1 <stop0 <stop1",
             ">read1 >stop0 >stop1 >stop0 >stop1 =read1 =stop0 =stop1 - - I 0 0"},
            {"both time out as one", "STOP 100 <stop0",
             ">stop0 >stop1 >stop0 >stop1 =stop0 S C - 0 0"},
            {"the end of all", "turn0 1 stop0 set read1 read2 END 1000",
             ">turn0 xturn06 xstop06 xset6 - - I 0 0"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << row[1] << row[2];
    }
    void script()
    {
        QFETCH(QString, steps);
        const QStringList reasons = {"overtaken by the stop",
                                     "overtaken by the stop; it may have been executed",
                                     "no answer",
                                     "no answer; it may have been executed or not",
                                     "could not be sent in time",
                                     "the end"};
        RequestLanes lanes;
        qint64 now = 1000;
        QStringList seen;
        const auto tell = [&](const QVector<RequestLanes::GivenUp>& givenUp) {
            for (const auto& each : givenUp)
                seen << QString("x%1%2")
                            .arg(nameOf(each.request))
                            .arg(reasons.indexOf(each.reason) + 1);
        };
        const auto send = [&] {
            for (const Command& request : lanes.takeNext(now))
                seen << '>' + nameOf(request);
        };
        for (QString step : steps.split(' ')) {
            const bool isAnswer = step.startsWith('<');
            const bool isSpecial = step.contains('!');
            const Command request = requests.value(step.remove('<').remove('!'));
            if (isAnswer) {
                Command reply = request;
                reply.setStatus(isSpecial ? 16 : 100);
                if (const auto answered = lanes.takeAnswered(reply))
                    seen << '=' + nameOf(answered->request);
            } else if (step == "STOP") {
                tell(lanes.stopAll({requests["stop0"], requests["stop1"]}, now));
                send();
            } else if (step == "END") {
                tell(lanes.abandon("the end"));
            } else if (const int passed = step.toInt()) {
                now += passed;
                tell(lanes.takeExpired(now));
                send();
            } else if (isSpecial) {
                lanes.addUrgent(request, now);
            } else if (step.startsWith("read")) {
                lanes.addRead(request, now);
            } else if (step.startsWith("stop")) {
                tell(lanes.addStop(request, now, [&request](const Command& waiting) {
                    return nameOf(waiting).startsWith("turn") &&
                           waiting.getMotorBank() == request.getMotorBank();
                }));
            } else {
                lanes.addCommand(request, now);
            }
        }
        seen << (lanes.isStopping() ? "S" : "-") << (lanes.isCommanding() ? "C" : "-")
             << (lanes.isIdle() ? "I" : "-") << QString::number(lanes.reads())
             << QString::number(lanes.timeOuts());
        QTEST(seen.join(' '), "happens");
    }
};

AXR_TEST_MAIN(RequestLanesTest)
#include "RequestLanesTest.moc"
