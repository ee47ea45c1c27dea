#include "Command.h"
#include "Bytes.h"
#include "CommandHandlerInterface.h"
#include "Instruction.h"
#include "MotorController.h"
#include "Numbers.h"
#include "TestCase.h"
#include "TraceCommand.h"

#include <cmath>

class CommandTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void requestAndReply()
    {
        const Command request(toByte(1), toByte(142), toByte(200), toByte(3), -7);
        QCOMPARE(u8(request.getAddress()), quint8(1));
        QVERIFY(carries(request.getCommand(), Instruction::RD));
        QCOMPARE(u8(request.getType()), quint8(200));
        QCOMPARE(u8(request.getMotorBank()), quint8(3));
        QCOMPARE(request.getValue(), -7);
        QVERIFY(!request.isValid());
        QVERIFY(!Command().isValid());
    }

    void traceCommandCounts()
    {
        TraceCommand trace(1, 6, 3, 0, "velocity");
        QCOMPARE(trace.getUsedCounter(), 1);
        trace.incUsedCounter();
        trace.decUsedCounter();
        trace.decUsedCounter();
        trace.decUsedCounter();
        QCOMPARE(trace.getUsedCounter(), 0);
        QCOMPARE(trace.getCaption(), QString("velocity"));
    }

    void handlerWithoutLink()
    {
        CommandHandlerInterface handler;
        Command reply;
        handler.doDirectRequest(new Command(1, 6, 3, 0, 0), &reply);
        handler.setHistoryNameEnabled(true);
        QVERIFY(!reply.isValid());
    }

    void motorControllerDefaults()
    {
        MotorController controller;
        QCOMPARE(u8(controller.getAddress()), quint8(1));
        QCOMPARE(u8(controller.getMotorBank()), quint8(0));
    }

    void conversionsClamp_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("cut");
        QTest::addColumn<int>("rounded");
        const int min = std::numeric_limits<int>::min();
        const int max = std::numeric_limits<int>::max();
        QTest::newRow("half") << 2.5 << 2 << 3;
        QTest::newRow("negative half") << -2.5 << -2 << -2;
        QTest::newRow("negative") << -2.6 << -2 << -3;
        QTest::newRow("largest") << 2147483647.0 << max << max;
        QTest::newRow("too large") << 1e300 << max << max;
        QTest::newRow("too small") << -1e300 << min << min;
        QTest::newRow("infinite") << HUGE_VAL << max << max;
        QTest::newRow("not a number") << std::nan("") << 0 << 0;
    }
    void conversionsClamp()
    {
        QFETCH(double, value);
        QTEST(toInt(value), "cut");
        QTEST(roundToInt(value), "rounded");
    }
};

AXR_TEST_MAIN(CommandTest)
#include "CommandTest.moc"
