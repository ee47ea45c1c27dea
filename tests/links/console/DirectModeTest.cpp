#include "Bytes.h"
#include "FieldFace_p.h"
#include "PanelTable.h"
#include "TestCase.h"
#include "User.h"
#include "WDirectMode.h"

#include <QComboBox>
#include <QSpinBox>

class DirectModeTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void console()
    {
        checkPanel(panelRow<WDirectMode>(
            "doRequest(char address, char command, char type, char motorBank, int value) "
            "requestResult(char address, char command, char type, char status, char motorBank, "
            "int value) "
            "requestedCommand(char address, char command, char type, char motorBank, char status, "
            "int data)",
            [](WDirectMode& panel) {
                panel.requestedCommand(1, 0, 0, 0, 100, 7); // none is pending
                panel.setAddress(toByte(200));
            },
            R"(
            set up: sbRequestAddress=200
            btnSend click: doRequest 200 1 0 0 0
            cbCommand choose 142 - RD: cbCommand=142 - RD
            sbRequestType type 255: sbRequestType=255
            sbRequestMotorBank type 128: sbRequestMotorBank=128
            sbRequestValue type -2147483648: sbRequestValue=-214748364
            btnSend click: doRequest 200 142 255 128 -214748364
            requestedCommand 200 1 0 0 100 7:
            requestedCommand 200 141 255 128 100 7:
            requestedCommand 200 142 254 128 100 7:
            requestedCommand 200 142 255 127 100 7:
            any requestedCommand 201 142 255 128 131 7: sbReplyAddress=201; sbReplyCommand=142;
                sbReplyType=131; sbReplyMotorBank=128; sbReplyValue=7
            requestedCommand 201 142 255 128 131 8:
            any requestResult 250 6 17 129 3 -5: sbReplyAddress=250; sbReplyCommand=6;
                sbReplyType=129; sbReplyMotorBank=3; sbReplyValue=-5)"));
    }

    void listsEveryInstruction()
    {
        const WDirectMode console;
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
    }

    /// The one value that the field cannot show has a sign in front, the next one has none.
    void valueWithoutRoom()
    {
        WDirectMode console;
        const FieldFace* face = FieldFace::in(User::find<QSpinBox>(&console, "sbReplyValue"));
        for (const int below : {1, 0}) {
            console.requestResult(1, 6, 0, 100, 0, -2147483647 - below);
            QCOMPARE(face->sign(), below ? FieldSign::Less : FieldSign::None);
        }
    }
};

AXR_TEST_MAIN(DirectModeTest)
#include "DirectModeTest.moc"
