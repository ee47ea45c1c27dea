#include "CommandRecorder.h"
#include "Numbers.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "ValueKey.h"

#include <cmath>

class CommandTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void usersOfATraceCommand()
    {
        TraceCommand trace(1, 6, 3, 0, "velocity");
        QCOMPARE(trace.getUsedCounter(), 1);
        trace.incUsedCounter();
        for (int left : {1, 0, 0}) {
            trace.decUsedCounter();
            QCOMPARE(trace.getUsedCounter(), left);
        }
    }

    void theSameValue()
    {
        const TraceCommand trace(char(-1), 6, 3, 0, QString());
        QVERIFY(isSameValue(trace, reply(255, 6, 3, 0, 77)));
        for (const Command& other : {reply(254, 6, 3, 0, 0), reply(255, 5, 3, 0, 0),
                                     reply(255, 6, 2, 0, 0), reply(255, 6, 3, 1, 0)})
            QVERIFY(!isSameValue(trace, other));
    }

    void conversionsClamp()
    {
        const int min = std::numeric_limits<int>::min();
        const int max = std::numeric_limits<int>::max();
        const struct {
            double value;
            int cut;
            int rounded;
        } rows[] = {{2.5, 2, 3},          {-2.5, -2, -2},      {-2.6, -2, -3},
                    {max, max, max},      {1e300, max, max},   {-1e300, min, min},
                    {HUGE_VAL, max, max}, {std::nan(""), 0, 0}};
        for (const auto& row : rows) {
            QCOMPARE(toInt(row.value), row.cut);
            QCOMPARE(roundToInt(row.value), row.rounded);
        }
    }
};

AXR_TEST_MAIN(CommandTest)
#include "CommandTest.moc"
