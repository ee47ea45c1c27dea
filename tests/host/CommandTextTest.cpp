#include "CommandText.h"
#include "Command.h"
#include "Instruction.h"
#include "TestCase.h"

class CommandTextTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void requests()
    {
        const auto text = [](int instruction, int type) {
            const Command request(1, toByte(instruction), toByte(type), 2, -7);
            return (isRead(request) ? "? " : "") + requestText(request);
        };
        const int rd = 142;
        QCOMPARE(QStringList({text(5, 200), text(6, 4), text(10, 0), text(15, 3), text(9, 3),
                              text(77, 1), text(rd, 0), text(rd, 3), text(rd, 4), text(rd, 6),
                              text(rd, 7), text(rd, 9)}),
                 QStringList({"SAP 200 = -7, axis 2", "? GAP 4 = -7, axis 2",
                              "? GGP 0 = -7, axis 2", "? GIO 3 = -7, axis 2", "SGP 3 = -7, axis 2",
                              "instruction 77 1 = -7, axis 2", "? RD 0 = -7, axis 2",
                              "? RD 3 = -7, item 2", "RD 4 = -7, trigger 2", "? RD 6 = -7, axis 2",
                              "RD 7 = -7, axis 2", "RD 9 = -7, axis 2"}));
    }
    void statuses()
    {
        QStringList seen;
        for (int status : {100, 10, 11, 12, 13, 14, 15, 16, 200}) {
            Command reply(1, 5, 4, 0, 250);
            reply.setStatus(toByte(status));
            seen << replyText(reply);
        }
        QCOMPARE(seen.takeFirst(), QString("value 250, status 100 (ok)"));
        QCOMPARE(seen.takeLast(), QString("value 250, status 200 (unknown status)"));
        QCOMPARE(
            seen.replaceInStrings(QRegularExpression(".*status "), ""),
            QStringList({"10 (unknown instruction)", "11 (unknown type)",
                         "12 (unknown motor or bank)", "13 (value out of range)", "14 (read only)",
                         "15 (cannot be stored)", "16 (could not be carried out)"}));
    }
};

AXR_TEST_MAIN(CommandTextTest)
#include "CommandTextTest.moc"
