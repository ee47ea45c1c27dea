#include "Bytes.h"
#include "TestCase.h"
#include "User.h"
#include "WDirectMode.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

namespace
{

const int ValueLimit = 2147483647;

QSpinBox* field(const WDirectMode& console, const char* name)
{
    return User::find<QSpinBox>(&console, name);
}

/// The reply group: "address command status bank value".
QString shown(const WDirectMode& console)
{
    QStringList values;
    for (const char* name : {"Address", "Command", "Type", "MotorBank", "Value"})
        values << QString::number(
            field(console, qPrintable(QString("sbReply%1").arg(name)))->value());
    return values.join(' ');
}

/// Composes a request and clicks "Send".
void send(const WDirectMode& console, const QString& command, int type, int motorBank, int value)
{
    User::find<QComboBox>(&console, "cbCommand")->setCurrentText(command);
    field(console, "sbRequestType")->setValue(type);
    field(console, "sbRequestMotorBank")->setValue(motorBank);
    field(console, "sbRequestValue")->setValue(value);
    User::click(User::find<QPushButton>(&console, "btnSend"));
}

void reply(WDirectMode& console, int command, int type, int motorBank, int status, int data)
{
    console.requestedCommand(toByte(9), toByte(command), toByte(type), toByte(motorBank),
                             toByte(status), data);
}

} // namespace

class DirectModeTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void listsEveryInstruction()
    {
        const WDirectMode console;
        const auto* list = User::find<QComboBox>(&console, "cbCommand");
        QStringList texts;
        for (int i = 0; i < list->count(); ++i) {
            texts << list->itemText(i);
            QCOMPARE(list->itemData(i, Qt::UserRole),
                     QVariant(list->itemText(i).section(' ', 0, 0).toInt()));
        }
        const QString expected =
            "1 - ROR,2 - ROL,3 - MST,4 - MVP,5 - SAP,6 - GAP,7 - STAP,8 - RSAP,9 - SGP,10 - GGP,"
            "11 - STGP,12 - RSGP,13 - RFS,14 - SIO,15 - GIO,19 - CALC,20 - COMP,21 - JC,22 - JA,"
            "23 - CSUB,24 - RSUB,25 - EI,26 - DI,27 - WAIT,28 - STOP,29 - SAC,30 - SCO,31 - GCO,"
            "32 - CCO,33 - CALCX,34 - AAP,35 - AGP,36 - CLE,37 - VECT,38 - RETI,39 - ACO,64 - UF0,"
            "65 - UF1,66 - UF2,67 - UF3,68 - UF4,69 - UF5,70 - UF6,71 - UF7,142 - RD";
        QCOMPARE(texts, expected.split(','));
        QCOMPARE(list->currentIndex(), 0);
    }

    void sendsUnsignedBytes()
    {
        WDirectMode console;
        QSignalSpy sent(&console, SIGNAL(doRequest(char, char, char, char, int)));
        QCOMPARE(u8(console.getAddress()), quint8(1));
        console.setAddress(toByte(200));
        QCOMPARE(u8(console.getAddress()), quint8(200));
        QVERIFY(!field(console, "sbRequestAddress")->isEnabled());

        send(console, "142 - RD", 255, 128, -ValueLimit);
        QCOMPARE(sent.count(), 1);
        QList<int> bytes;
        for (int i = 0; i < 4; ++i)
            bytes << u8(sent.first().at(i).value<char>());
        QCOMPARE(bytes, (QList<int>{200, 142, 255, 128}));
        QCOMPARE(sent.first().at(4).toInt(), -ValueLimit);

        reply(console, 142, 255, 128, 201, 7);
        QCOMPARE(shown(console), QString("9 142 201 128 7"));
    }

    void keepsItsSize()
    {
        WDirectMode console;
        console.show();
        QCOMPARE(console.size(), QSize(500, 190));
    }

    void valueFieldTakesNoSmallestInteger()
    {
        const WDirectMode console;
        QSpinBox* value = field(console, "sbRequestValue");
        value->setValue(ValueLimit);
        QCOMPARE(value->value(), ValueLimit);
        value->setValue(-ValueLimit - 1);
        QCOMPARE(value->value(), -ValueLimit);
    }

    void matchesOneReplyToTheLastRequest_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("motorBank");
        QTest::addColumn<QString>("expected");
        QTest::newRow("match") << 6 << 200 << 2 << "9 6 100 2 1234";
        QTest::newRow("foreign command") << 5 << 200 << 2 << "0 0 0 0 0";
        QTest::newRow("foreign type") << 6 << 201 << 2 << "0 0 0 0 0";
        QTest::newRow("foreign bank") << 6 << 200 << 3 << "0 0 0 0 0";
        QTest::newRow("replaced request") << 1 << 0 << 0 << "0 0 0 0 0";
        QTest::newRow("no request") << 0 << 0 << 0 << "0 0 0 0 0";
    }
    void matchesOneReplyToTheLastRequest()
    {
        QFETCH(int, command);
        QFETCH(int, type);
        QFETCH(int, motorBank);
        WDirectMode console;
        send(console, "1 - ROR", 0, 0, 0);
        send(console, "6 - GAP", 200, 2, 0);
        reply(console, command, type, motorBank, 100, 1234);
        QTEST(shown(console), "expected");

        const QString before = shown(console);
        if (before == "0 0 0 0 0") // still pending
            reply(console, 6, 200, 2, 100, 1234);
        reply(console, 6, 200, 2, 4, 99);
        reply(console, 0, 0, 0, 4, 99);
        QCOMPARE(shown(console), QString("9 6 100 2 1234"));
    }

    void ignoresZerosBeforeTheFirstRequest()
    {
        WDirectMode console;
        reply(console, 0, 0, 0, 100, 1);
        QCOMPARE(shown(console), QString("0 0 0 0 0"));
    }

    void showsDirectResultUntested()
    {
        WDirectMode console;
        console.requestResult(toByte(250), toByte(142), toByte(17), toByte(129), toByte(3), -5);
        QCOMPARE(shown(console), QString("250 142 129 3 -5"));
    }

    void hostAnswersInsideTheRequest()
    {
        WDirectMode console;
        connect(&console, &WDirectMode::doRequest, &console,
                [&](char address, char command, char type, char motorBank, int value) {
                    console.requestedCommand(address, command, type, motorBank, 100, value + 1);
                });
        send(console, "5 - SAP", 4, 1, 41);
        QCOMPARE(shown(console), QString("1 5 100 1 42"));
        reply(console, 5, 4, 1, 100, 0);
        QCOMPARE(shown(console), QString("1 5 100 1 42"));
    }

    void hostDeletesTheConsoleInsideTheRequest()
    {
        QPointer<WDirectMode> console = new WDirectMode;
        connect(console, &WDirectMode::doRequest, this, [&] { delete console; });
        console->on_btnSend_clicked();
        QVERIFY(!console);
    }
};

AXR_TEST_MAIN(DirectModeTest)
#include "DirectModeTest.moc"
