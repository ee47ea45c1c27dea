#include "CommandRecorder.h"
#include "CurrentControl.h"
#include "FieldFace_p.h"
#include "PanelTable.h"
#include "PositionControl.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"

#include <QSpinBox>

class MotionPanelsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void panels_data()
    {
        QTest::addColumn<PanelRow>("row");
        QTest::newRow("VelocityControl") << panelRow<VelocityControl>(
            Members::Axis,
            [](VelocityControl& panel) {
                panel.setTitle("Axis 2");
                panel.setAddress(2);
                panel.setMotorBank(1);
                panel.setActualVelocityCommandAndRange(3, -100, 100);
                panel.setActualVelocityCommandAndRange(toByte(200), 7, 7);
                panel.setTargetVelocityRange(-3000, 3000);
                panel.setTargetVelocityRange(5, 5);
                panel.setTargetVelocitySingleStep(10);
                panel.setActualText("Actual");
                panel.setTargetText("Target");
            },
            R"(
            set up: gbVelocityControl title Axis 2; lblActualVelocity=Actual;
                sbActualVelocity tip AP 200 (-100..100); lblTargetVelocity=Target;
                sbTargetVelocity tip MST/ROR/ROL (-3000..3000)
            sbTargetVelocity type 500: sbTargetVelocity=500
            sbTargetVelocity key Up: sbTargetVelocity=510
            btnRight click: 2 1 0 1 510
            btnLeft click: 2 2 0 1 510
            btnStop click: 2 3 0 1 0
            btnJogLeft press: 2 2 0 1 510
            btnJogLeft release: 2 3 0 1 0
            btnJogLeft hold: 2 2 0 1 510; 2 3 0 1 0
            btnJogRight press: 2 1 0 1 510
            btnJogRight release: 2 3 0 1 0
            btnJogRight hold: 2 1 0 1 510; 2 3 0 1 0
            update: 2 6 200 1 0
            IN_replyValue 2 6 200 1 77: sbActualVelocity=77
            IN_replyValue 2 6 200 1 101: sbActualVelocity=100)");
        QTest::newRow("CurrentControl") << panelRow<CurrentControl>(
            Members::Axis,
            [](CurrentControl& panel) {
                panel.setTargetCurrentCommandAndRange(toByte(155), 0, 5000);
                panel.setActualCurrentCommandAndRange(8, -900, 900);
                panel.setActualText("Actual");
                panel.setTargetText("Target");
            },
            R"(
            set up: lblActualCurrent=Actual; sbActualCurrent tip AP 8 (-900..900);
                lblTargetCurrent=Target; sbTargetCurrent tip AP 155 (0..5000)
            sbTargetCurrent type 500: sbTargetCurrent=500
            btnRight click: 1 5 155 0 500
            btnLeft click: 1 5 155 0 -500
            btnStop click: 1 5 155 0 0
            btnJogLeft press: 1 5 155 0 -500
            btnJogLeft release: 1 5 155 0 0
            btnJogLeft hold: 1 5 155 0 -500; 1 5 155 0 0
            btnJogRight press: 1 5 155 0 500
            btnJogRight release: 1 5 155 0 0
            btnJogRight hold: 1 5 155 0 500; 1 5 155 0 0
            update: 1 6 8 0 0
            IN_replyValue 1 6 155 0 9:
            IN_replyValue 1 6 8 0 -901: sbActualCurrent=-900)");
        QTest::newRow("PositionControl") << panelRow<PositionControl>(
            Members::Axis,
            [](PositionControl& panel) {
                panel.setActualPositionCommandAndRange(1, 0, 0);
                panel.setTargetPositionCommandAndRange(2, -5000, 5000);
                panel.setTargetPositionSingleStep(10);
                panel.setClearOnNullCommand(20);
                panel.setClearOnceCommand(21);
            },
            R"(
            set up: sbActualPosition tip AP 1 (-2147483647..2147483647); btnClear tip AP 1;
                btnClearOnNull tip AP 20; sbTargetPosition tip AP 2 (-5000..5000)
            btnClear click: 1 5 1 0 0
            btnClearOnNull click: 1 5 21 0 1; 1 5 20 0 1
            btnStop click: 1 4 1 0 0
            sbTargetPosition type 1000: sbTargetPosition=1000
            btnMoveAbsolute click: 1 4 0 0 1000
            sbTargetPosition type 90: sbTargetPosition=90
            sbTargetPosition key Up: sbTargetPosition=100
            cmbRelativeTo choose target position: cmbRelativeTo=target position
            btnMoveRelative click: 1 4 0 0 1100
            btnMoveRelative click: 1 4 0 0 1200
            cmbRelativeTo choose actual position: cmbRelativeTo=actual position
            btnMoveRelative click: 1 4 1 0 100
            cmbRelativeTo choose target position: cmbRelativeTo=target position
            btnMoveRelative click: 1 4 0 0 1400
            update: 1 6 1 0 0
            IN_replyValue 1 6 1 0 -77: sbActualPosition=-77)");
        QTest::newRow("VelocityRampControl") << panelRow<VelocityRampControl>(
            Members::Axis,
            [](VelocityRampControl& panel) {
                panel.setMaxVelocityCommand(4);
                panel.setMaxVelocitySingleStep(5);
                panel.setMaxVelocityCaption("V");
                panel.setAccelerationCommandAndRange(11, 1, 9000);
                panel.setAccelerationSingleStep(6);
                panel.setAccelerationCaption("A");
                panel.setEnableRampCommand(12);
            },
            R"(
            set up: lblMaxVelocity=V; sbMaxVelocity tip AP 4 (-2.14748e+09..2.14748e+09);
                gbRampEnabler tip AP 12; lblAcceleration=A; sbAcceleration=1;
                sbAcceleration tip AP 11 (1..9000)
            update: 1 6 4 0 0; 1 6 11 0 0; 1 6 12 0 0
            IN_replyValue 1 6 4 0 3000: sbMaxVelocity=3,000
            IN_replyValue 1 6 11 0 9000: sbAcceleration=9,000
            IN_replyValue 1 6 11 0 9001:
            IN_replyValue 1 6 11 0 -7: sbAcceleration=1
            IN_replyValue 1 6 12 0 0: 1 5 12 0 0; gbRampEnabler=0
            IN_replyValue 1 6 12 0 0:
            IN_replyValue 1 6 12 0 2: 1 5 12 0 1; gbRampEnabler=1
            sbMaxVelocity type 250: sbMaxVelocity=250
            sbMaxVelocity key Up: sbMaxVelocity=255
            sbMaxVelocity key Return: 1 5 4 0 255
            sbAcceleration key Up: sbAcceleration=7
            sbAcceleration key Return: 1 5 11 0 7
            gbRampEnabler key Space: 1 5 12 0 0; gbRampEnabler=0)");
        QTest::newRow("equal numbers") << panelRow<VelocityRampControl>(
            nullptr, [](VelocityRampControl&) {}, R"(
            set up:
            IN_replyValue 1 6 0 0 5: sbMaxVelocity=5; sbAcceleration=5
)");
        QTest::newRow("CurrentControl, MST") << panelRow<CurrentControl>(
            nullptr, [](CurrentControl& panel) { panel.setUseMSTForStop(true); }, R"(
            set up:
            sbTargetCurrent type 8: sbTargetCurrent=8
            btnJogLeft press: 1 5 0 0 -8
            btnJogLeft release: 1 3 0 0 0
            btnStop click: 1 3 0 0 0)");
        QTest::newRow("PositionControl, MST, absolute") << panelRow<PositionControl>(
            nullptr,
            [](PositionControl& panel) {
                panel.setActualPositionCommandAndRange(1, -1000, 1000);
                panel.setUseMSTForStop(true);
                panel.setUseMVPAbsForRel(true);
            },
            R"(
            set up: sbActualPosition tip AP 1 (-1000..1000); btnClear tip AP 1
            btnStop click: 1 3 0 0 0
            sbTargetPosition type 100: sbTargetPosition=100
            btnMoveRelative click: 1 4 0 0 100
            IN_replyValue 1 6 1 0 1000: sbActualPosition=1000
            btnMoveRelative click: 1 4 0 0 1100
            IN_replyValue 1 6 1 0 1001:
            btnMoveRelative click: 1 4 0 0 1101
            IN_replyValue 1 6 1 0 -70000: sbActualPosition=-1000
            btnMoveRelative click: 1 4 0 0 -69900
            IN_replyValue 1 6 1 0 2147483647: sbActualPosition=1000
            btnMoveRelative click: 1 4 0 0 2147483647)");
    }
    void panels()
    {
        QFETCH(PanelRow, row);
        checkPanel(row);
    }

    void whatIsClippedStaysKnown()
    {
        PositionControl panel;
        const auto* face = FieldFace::in(User::find<QSpinBox>(&panel, "sbActualPosition"));
        CommandRecorder sent(&panel);
        QVERIFY(!panel.isActualPositionKnown());
        panel.setUseMVPAbsForRel(true);
        panel.setActualPositionCommandAndRange(1, -1000, 1000);
        Command beyond = reply(1, 6, 1, 0, 1001);
        panel.IN_replyValue(&beyond);
        QCOMPARE(face->sign(), FieldSign::More);
        for (const int bound : {5000, 100}) { // what is shown stays clipped
            panel.setActualPositionCommandAndRange(1, -bound, bound);
            panel.on_btnMoveRelative_clicked();
            QCOMPARE(sent.takeLines(), QStringList("1 4 0 0 1001"));
        }
        QVERIFY(panel.isActualPositionKnown());
        const VelocityControl other; // a field without a parameter narrows its digits, too
        QVERIFY(FieldFace::in(User::find<QSpinBox>(&other, "sbTargetVelocity")));
    }

    void aJogStopsTheAxisThatItStarted()
    {
        CurrentControl panel;
        const auto set = [&panel](int address, int bank, int number) {
            panel.setAddress(toByte(address));
            panel.setMotorBank(toByte(bank));
            panel.setTargetCurrentCommand(toByte(number));
        };
        CommandRecorder sent(&panel);
        for (const bool byMst : {false, true}) {
            set(1, 0, 155);
            panel.setUseMSTForStop(false);
            panel.on_btnJogRight_pressed();
            set(7, 1, 156);
            panel.setUseMSTForStop(byMst);
            panel.on_btnJogRight_released();
            panel.on_btnJogRight_released(); // of no press
            QCOMPARE(sent.takeLines(),
                     byMst ? (QStringList{"1 5 155 0 0", "1 3 0 0 0", "7 3 0 1 0"})
                           : (QStringList{"1 5 155 0 0", "1 5 155 0 0", "7 5 156 1 0"}));
        }
    }
};

AXR_TEST_MAIN(MotionPanelsTest)
#include "MotionPanelsTest.moc"
