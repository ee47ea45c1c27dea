#include "Bytes.h"
#include "FieldFace_p.h"
#include "TestCase.h"
#include "User.h"
#include "WDirectMode.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

namespace
{

QSpinBox* field(const WDirectMode& console, const QString& name)
{
    return User::find<QSpinBox>(&console, "sb" + name);
}

/// The reply group: "address command status bank value".
QString shown(const WDirectMode& console)
{
    QStringList values;
    for (const char* name : {"Address", "Command", "Type", "MotorBank", "Value"})
        values << QString::number(field(console, QString("Reply") + name)->value());
    return values.join(' ');
}

/// Composes a request and clicks "Send".
void send(const WDirectMode& console, const QString& command, int type, int motorBank, int value)
{
    User::find<QComboBox>(&console, "cbCommand")->setCurrentText(command);
    field(console, "RequestType")->setValue(type);
    field(console, "RequestMotorBank")->setValue(motorBank);
    field(console, "RequestValue")->setValue(value);
    User::click(User::find<QPushButton>(&console, "btnSend"));
}

void reply(WDirectMode& console, int command, int type, int motorBank, int value)
{
    console.requestedCommand(9, toByte(command), toByte(type), toByte(motorBank), 100, value);
}

} // namespace

class DirectModeTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void listsEveryInstruction()
    {
        WDirectMode console;
        const auto* list = User::find<QComboBox>(&console, "cbCommand");
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts << list->itemText(i);
        const QString expected =
            "1 - ROR,2 - ROL,3 - MST,4 - MVP,5 - SAP,6 - GAP,7 - STAP,8 - RSAP,9 - SGP,10 - GGP,"
            "11 - STGP,12 - RSGP,13 - RFS,14 - SIO,15 - GIO,19 - CALC,20 - COMP,21 - JC,22 - JA,"
            "23 - CSUB,24 - RSUB,25 - EI,26 - DI,27 - WAIT,28 - STOP,29 - SAC,30 - SCO,31 - GCO,"
            "32 - CCO,33 - CALCX,34 - AAP,35 - AGP,36 - CLE,37 - VECT,38 - RETI,39 - ACO,64 - UF0,"
            "65 - UF1,66 - UF2,67 - UF3,68 - UF4,69 - UF5,70 - UF6,71 - UF7,142 - RD";
        QCOMPARE(texts, expected.split(','));
        console.show();
        QCOMPARE(console.size(), QSize(500, 190));
    }

    // The host answers at once, with the type as status.
    void bytesAreUnsigned()
    {
        WDirectMode console;
        connect(&console, &WDirectMode::doRequest, this,
                [&console](char address, char command, char type, char motorBank, int value) {
                    console.requestedCommand(address, command, type, motorBank, type, value);
                });
        console.setAddress(toByte(200));
        send(console, "142 - RD", 255, 128, -2147483647 - 1); // limited to the field's range
        reply(console, 142, 255, 128, 0);
        QCOMPARE(shown(console), QString("200 142 255 128 -2147483647"));
        // a direct result is shown without having been asked for
        console.requestResult(toByte(250), toByte(142), toByte(17), toByte(129), toByte(3), -5);
        QCOMPARE(shown(console), QString("250 142 129 3 -5"));

        // the one value that the field cannot show has a sign in front, the next one has none
        const FieldFace* face = FieldFace::in(User::find<QSpinBox>(&console, "sbReplyValue"));
        for (const int below : {1, 0}) {
            console.requestResult(1, 6, 0, 100, 0, -2147483647 - below);
            QCOMPARE(face->sign(), below ? FieldSign::Less : FieldSign::None);
        }
    }

    void oneReplyToTheLastRequest()
    {
        WDirectMode console;
        reply(console, 0, 0, 0, 1);
        send(console, "1 - ROR", 0, 0, 0);
        send(console, "6 - GAP", 200, 2, 0);
        const int foreign[][3] = {{5, 200, 2}, {6, 201, 2}, {6, 200, 3}, {1, 0, 0}, {0, 0, 0}};
        for (const auto& [command, type, motorBank] : foreign)
            reply(console, command, type, motorBank, 7);
        QCOMPARE(shown(console), QString("0 0 0 0 0"));
        reply(console, 6, 200, 2, 1234);
        QCOMPARE(shown(console), QString("9 6 100 2 1234"));
        reply(console, 6, 200, 2, 99);
        reply(console, 0, 0, 0, 99);
        QCOMPARE(shown(console), QString("9 6 100 2 1234"));
    }
};

AXR_TEST_MAIN(DirectModeTest)
#include "DirectModeTest.moc"
