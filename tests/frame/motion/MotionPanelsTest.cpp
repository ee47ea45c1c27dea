#include "CommandRecorder.h"
#include "CurrentControl.h"
#include "FieldFace_p.h"
#include "PositionControl.h"
#include "SpinBox.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSpinBox>

#include <functional>

namespace
{

template <class Panel>
QString toolTip(const Panel& panel, const char* name)
{
    return User::find<QWidget>(&panel, name)->toolTip();
}

void set(const QWidget& panel, const char* name, int value)
{
    User::find<QSpinBox>(&panel, name)->setValue(value);
}

int shown(const QWidget& panel, const char* name)
{
    return User::find<QSpinBox>(&panel, name)->value();
}

void click(const QWidget& panel, const char* name)
{
    User::click(User::find<QPushButton>(&panel, name));
}

void deliver(AxisPanel& panel, Command command) { panel.IN_replyValue(&command); }

} // namespace

Q_DECLARE_METATYPE(std::function<void(QWidget*, QPushButton*)>)

class MotionPanelsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void slotsNameExistingObjects()
    {
        // A slot without its object would warn, and a warning fails.
        VelocityControl velocity;
        CurrentControl current;
        PositionControl position;
        VelocityRampControl ramp;
        for (AxisPanel* panel :
             std::initializer_list<AxisPanel*>{&velocity, &current, &position, &ramp}) {
            const auto* frame = panel->findChild<QGroupBox*>();
            panel->setTitle("Axis 2");
            QCOMPARE(frame->title(), QString("Axis 2"));
        }
    }

    void velocityButtons()
    {
        VelocityControl panel;
        panel.setAddress(2);
        panel.setMotorBank(1);
        set(panel, "sbTargetVelocity", 500);
        CommandRecorder sent(&panel);
        click(panel, "btnRight");
        click(panel, "btnLeft");
        click(panel, "btnStop");
        QCOMPARE(sent.takeLines(), QStringList({"2 1 0 1 500", "2 2 0 1 500", "2 3 0 1 0"}));
        click(panel, "btnJogLeft");
        click(panel, "btnJogRight");
        QCOMPARE(sent.takeLines(),
                 QStringList({"2 2 0 1 500", "2 3 0 1 0", "2 1 0 1 500", "2 3 0 1 0"}));
        panel.setActualVelocityCommand(3);
        panel.updateValues();
        QCOMPARE(sent.takeLines(), QStringList("2 6 3 1 0"));
    }

    void velocityTexts()
    {
        VelocityControl panel;
        QCOMPARE(User::find<QLabel>(&panel, "lblActualVelocity")->text(),
                 QString("Actual vel. [rpm] "));
        panel.setActualVelocityCommandAndRange(toByte(200), -100, 100);
        QCOMPARE(toolTip(panel, "sbActualVelocity"), QString("AP 200 (-100..100)"));
        panel.setActualVelocityCommandAndRange(3, 7, 7);
        QCOMPARE(toolTip(panel, "sbActualVelocity"), QString("AP 3 (-100..100)"));
        panel.setTargetVelocityRange(5, 5);
        QCOMPARE(toolTip(panel, "sbTargetVelocity"), QString("MST/ROR/ROL (0..100000)"));
        panel.setTargetVelocityRange(-3000, 3000);
        QCOMPARE(toolTip(panel, "sbTargetVelocity"), QString("MST/ROR/ROL (-3000..3000)"));
    }

    void repliesAreFiltered_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("bank");
        QTest::addColumn<bool>("taken");
        QTest::newRow("match") << 130 << 6 << 200 << 129 << true;
        QTest::newRow("echo of a change") << 130 << 5 << 200 << 129 << false;
        QTest::newRow("other address") << 131 << 6 << 200 << 129 << false;
        QTest::newRow("other bank") << 130 << 6 << 200 << 0 << false;
        QTest::newRow("other type") << 130 << 6 << 201 << 129 << false;
    }
    void repliesAreFiltered()
    {
        QFETCH(int, address);
        QFETCH(int, command);
        QFETCH(int, type);
        QFETCH(int, bank);
        VelocityControl panel;
        panel.setAddress(toByte(130));
        panel.setMotorBank(toByte(129));
        panel.setActualVelocityCommand(toByte(200));
        CommandRecorder sent(&panel);
        Command answer = reply(address, command, type, bank, 77);
        answer.setStatus(3); // the host delivers only what it wants applied
        deliver(panel, answer);
        QFETCH(bool, taken);
        QCOMPARE(shown(panel, "sbActualVelocity"), taken ? 77 : 0);
        panel.IN_replyValue(nullptr);
        QCOMPARE(sent.takeLines(), QStringList());
    }

    void currentButtons()
    {
        CurrentControl panel;
        panel.setTargetCurrentCommandAndRange(155 - 256, 0, 5000);
        QCOMPARE(toolTip(panel, "sbTargetCurrent"), QString("AP 155 (0..5000)"));
        panel.setActualCurrentCommand(8);
        set(panel, "sbTargetCurrent", 500);
        CommandRecorder sent(&panel);
        click(panel, "btnRight");
        click(panel, "btnLeft");
        click(panel, "btnStop");
        QCOMPARE(sent.takeLines(), QStringList({"1 5 155 0 500", "1 5 155 0 -500", "1 5 155 0 0"}));
        panel.setUseMSTForStop(true);
        click(panel, "btnJogLeft");
        QCOMPARE(sent.takeLines(), QStringList({"1 5 155 0 -500", "1 3 0 0 0"}));
        panel.updateValues();
        QCOMPARE(sent.takeLines(), QStringList("1 6 8 0 0"));
        deliver(panel, reply(1, 6, 155, 0, 9));
        QCOMPARE(shown(panel, "sbActualCurrent"), 0);
        deliver(panel, reply(1, 6, 8, 0, -999999));
        QCOMPARE(shown(panel, "sbActualCurrent"), -99999);
    }

    void jogEndsWhenNobodyHoldsIt_data()
    {
        QTest::addColumn<std::function<void(QWidget*, QPushButton*)>>("end");
        using End = std::function<void(QWidget*, QPushButton*)>;
        const auto row = [](const char* name, const End& end) { QTest::newRow(name) << end; };
        const auto tell = [row](const char* name, QEvent::Type type, bool toWindow) {
            row(name, [=](QWidget* panel, QPushButton* button) {
                QEvent event(type);
                QCoreApplication::sendEvent(toWindow ? panel->window() : button, &event);
            });
        };
        row("panel hidden", [](QWidget* panel, QPushButton*) { panel->hide(); });
        row("box hidden", [](QWidget*, QPushButton* button) { button->parentWidget()->hide(); });
        row("hidden", [](QWidget*, QPushButton* button) { button->hide(); });
        row("panel disabled", [](QWidget* panel, QPushButton*) { panel->setEnabled(false); });
        row("popup", [](QWidget* panel, QPushButton*) {
            QMenu menu(panel);
            menu.addAction("Copy");
            menu.popup(panel->mapToGlobal(QPoint(0, 0)));
        });
        row("focus", [](QWidget* panel, QPushButton*) {
            User::find<QSpinBox>(panel, "sbTargetCurrent")->setFocus();
        });
        row("grab", [](QWidget* panel, QPushButton* button) {
            panel->grabMouse();
            QEvent any(QEvent::User);
            QCoreApplication::sendEvent(button, &any);
            panel->releaseMouse();
        });
        row("let go over another", [](QWidget* panel, QPushButton*) { User::release(panel); });
        row("let go beside", [](QWidget*, QPushButton* button) {
            QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-3, 5));
        });
        row("second button",
            [](QWidget*, QPushButton* button) { QTest::mousePress(button, Qt::RightButton); });
        row("pressed twice", [](QWidget*, QPushButton* button) { User::press(button); });
        row("Space", [](QWidget*, QPushButton* button) { QTest::keyPress(button, Qt::Key_Space); });
        row("Escape",
            [](QWidget*, QPushButton* button) { QTest::keyClick(button, Qt::Key_Escape); });
        tell("window not active", QEvent::WindowDeactivate, true);
        tell("window blocked", QEvent::WindowBlocked, true);
        tell("touch cancelled", QEvent::TouchCancel, true);
        tell("grab lost", QEvent::UngrabMouse, false);
    }
    void jogEndsWhenNobodyHoldsIt()
    {
        using End = std::function<void(QWidget*, QPushButton*)>;
        QFETCH(End, end);
        for (const bool byKey : {false, true}) {
            CurrentControl panel;
            panel.setTargetCurrentCommand(7);
            panel.show();
            panel.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&panel));
            auto* button = User::find<QPushButton>(&panel, "btnJogRight");
            button->setFocus();
            CommandRecorder sent(&panel);
            byKey ? QTest::keyPress(button, Qt::Key_Space) : User::press(button);
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, {}, " ", true);
            QCoreApplication::sendEvent(button, &repeat);
            QCOMPARE(sent.takeLines(), QStringList("1 5 7 0 0"));
            end(&panel, button);
            QCOMPARE(sent.takeLines(), QStringList("1 5 7 0 0"));
            QVERIFY(!button->isDown());
            for (QWidget* widget : {static_cast<QWidget*>(&panel), button->parentWidget(),
                                    static_cast<QWidget*>(button)})
                widget->show();
            panel.setEnabled(true);
            // Still held: one pixel over the button must not start the axis again.
            QMouseEvent move(QEvent::MouseMove, button->rect().center(), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(button, &move);
            byKey ? QTest::keyRelease(button, Qt::Key_Space) : User::release(button);
            QCOMPARE(sent.takeLines(), QStringList());
            User::click(button);
            QCOMPARE(sent.takeLines(), (QStringList{"1 5 7 0 0", "1 5 7 0 0"}));
        }
    }

    void jogFollowsThePointerThatStrays()
    {
        VelocityControl panel;
        panel.show();
        auto* button = User::find<QPushButton>(&panel, "btnJogLeft");
        CommandRecorder sent(&panel);
        const auto moveTo = [button](QPoint place) {
            QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(button, &move);
        };
        const QStringList started("1 2 0 0 0");
        const QStringList stopped("1 3 0 0 0");
        User::press(button);
        QCOMPARE(sent.takeLines(), started);
        moveTo({-5, 5});
        QCOMPARE(sent.takeLines(), stopped);
        moveTo({5, 5});
        QCOMPARE(sent.takeLines(), started);
        moveTo({-5, 5});
        QCOMPARE(sent.takeLines(), stopped);
        QEvent inactive(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&panel, &inactive);
        moveTo({5, 5});
        User::release(button);
        QCOMPARE(sent.takeLines(), QStringList());
    }

    void jogEndsBeforeTheHostsWindow()
    {
        struct Window : QWidget {
            bool isWhole = true;
            ~Window() override { isWhole = false; }
        };
        auto* window = new Window;
        auto* panel = new CurrentControl(window);
        CommandRecorder sent(panel);
        window->show();
        User::press(User::find<QPushButton>(panel, "btnJogRight"));
        sent.takeLines();
        QVector<bool> whole;
        sent.onCommand([&](const Command&) { whole << window->isWhole; });
        window->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(whole, QVector<bool>{true});
    }

    void jogEndsWithThePanel()
    {
        for (const bool isLater : {false, true}) {
            for (const bool isWindow : {false, true}) {
                QPointer<QWidget> window = new QWidget;
                auto* panel = new CurrentControl(window);
                panel->setTargetCurrentCommand(7);
                CommandRecorder sent(panel);
                window->show();
                User::press(User::find<QPushButton>(panel, "btnJogRight"));
                panel->on_btnJogLeft_pressed(); // by the host, which never releases it
                sent.takeLines();
                QWidget* victim = isWindow ? window.data() : panel;
                if (isLater) {
                    victim->deleteLater();
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                } else {
                    delete victim;
                }
                QCOMPARE(sent.takeLines(), (QStringList{"1 5 7 0 0", "1 5 7 0 0"}));
                delete window;
            }
        }
    }

    void keyThatIsLetGoStopsAtOnce()
    {
        VelocityControl panel;
        User::find<QPushButton>(&panel, "btnJogLeft")->setFocus();
        panel.show();
        CommandRecorder sent(&panel);
        for (int i = 0; i < 3; ++i) { // within one and the same millisecond
            QTest::keyPress(panel.windowHandle(), Qt::Key_Space);
            QTest::keyRelease(panel.windowHandle(), Qt::Key_Space);
            QCOMPARE(sent.takeLines(), (QStringList{"1 2 0 0 0", "1 3 0 0 0"}));
        }
    }

    void jogStopsTheAxisThatItStarted()
    {
        CurrentControl panel;
        const auto set = [&panel](int address, int bank, int number) {
            panel.setAddress(toByte(address));
            panel.setMotorBank(toByte(bank));
            panel.setTargetCurrentCommand(toByte(number));
        };
        CommandRecorder sent(&panel);
        auto* button = User::find<QPushButton>(&panel, "btnJogRight");
        for (const bool byMst : {false, true}) {
            set(1, 0, 155);
            User::press(button);
            set(7, 1, 156);
            panel.setUseMSTForStop(byMst);
            User::release(button);
            panel.on_btnJogRight_released();
            QCOMPARE(sent.takeLines(),
                     byMst ? (QStringList{"1 5 155 0 0", "1 3 0 0 0", "7 3 0 1 0"})
                           : (QStringList{"1 5 155 0 0", "1 5 155 0 0", "7 5 156 1 0"}));
            panel.setUseMSTForStop(false);
        }
        set(1, 0, 155);
        panel.on_btnJogLeft_pressed();
        set(7, 1, 156);
        panel.on_btnJogLeft_released();
        QCOMPARE(sent.takeLines(), (QStringList{"1 5 155 0 0", "1 5 155 0 0"}));
    }

    void positionButtons()
    {
        PositionControl panel;
        panel.setActualPositionCommandAndRange(1, 0, 0);
        panel.setClearOnNullCommand(20);
        panel.setClearOnceCommand(21);
        QCOMPARE(toolTip(panel, "btnClear"), QString("AP 1"));
        QCOMPARE(toolTip(panel, "btnClearOnNull"), QString("AP 20"));
        QCOMPARE(toolTip(panel, "sbActualPosition"), QString("AP 1 (-2147483647..2147483647)"));
        CommandRecorder sent(&panel);
        click(panel, "btnClear");
        click(panel, "btnClearOnNull");
        QCOMPARE(sent.takeLines(), QStringList({"1 5 1 0 0", "1 5 21 0 1", "1 5 20 0 1"}));
        click(panel, "btnStop");
        panel.setUseMSTForStop(true);
        click(panel, "btnStop");
        QCOMPARE(sent.takeLines(), QStringList({"1 4 1 0 0", "1 3 0 0 0"}));
        panel.updateValues();
        QCOMPARE(sent.takeLines(), QStringList("1 6 1 0 0"));
    }

    void relativeMoves()
    {
        PositionControl panel;
        panel.setActualPositionCommand(1);
        auto* relativeTo = User::find<QComboBox>(&panel, "cmbRelativeTo");
        CommandRecorder sent(&panel);
        set(panel, "sbTargetPosition", 1000);
        click(panel, "btnMoveAbsolute");
        set(panel, "sbTargetPosition", 100);
        relativeTo->setCurrentText("target position");
        for (int i = 0; i < 3; ++i)
            click(panel, "btnMoveRelative");
        QCOMPARE(sent.takeLines(),
                 QStringList({"1 4 0 0 1000", "1 4 0 0 1100", "1 4 0 0 1200", "1 4 0 0 1300"}));
        relativeTo->setCurrentText("actual position");
        deliver(panel, reply(1, 6, 1, 0, 2147483600));
        click(panel, "btnMoveRelative");
        panel.setUseMVPAbsForRel(true);
        click(panel, "btnMoveRelative");
        QCOMPARE(sent.takeLines(), QStringList({"1 4 1 0 100", "1 4 0 0 2147483647"}));
        relativeTo->setCurrentText("target position"); // which the two moves above moved on, too
        click(panel, "btnMoveRelative");
        QCOMPARE(sent.takeLines(), QStringList("1 4 0 0 1600"));
    }

    void clippedRepliesAreNoGroundToMoveFrom()
    {
        PositionControl panel;
        const auto* shown = User::find<QSpinBox>(&panel, "sbActualPosition");
        panel.setActualPositionCommandAndRange(1, -1000, 1000);
        panel.setUseMVPAbsForRel(true);
        set(panel, "sbTargetPosition", 100);
        CommandRecorder sent(&panel);
        const auto moves = [&](int answer, const char* line, FieldSign sign) {
            deliver(panel, reply(1, 6, 1, 0, answer));
            click(panel, "btnMoveRelative");
            return sent.takeLines() == QStringList(line) && FieldFace::in(shown)->sign() == sign;
        };
        QVERIFY(!panel.isActualPositionKnown());
        click(panel, "btnMoveRelative");
        QCOMPARE(sent.takeLines(), QStringList("1 4 0 0 100"));
        QVERIFY(moves(1000, "1 4 0 0 1100", FieldSign::None));
        QVERIFY(panel.isActualPositionKnown());
        QVERIFY(moves(1001, "1 4 0 0 1101", FieldSign::More));
        QVERIFY(moves(-70000, "1 4 0 0 -69900", FieldSign::Less));
        QVERIFY(moves(2147483647, "1 4 0 0 2147483647", FieldSign::More));
        panel.setActualPositionCommandAndRange(1, -5000, 5000); // leaves what is shown
        QCOMPARE(shown->value(), 1000);
        QVERIFY(FieldFace::in(shown)->isClipped());
        QVERIFY(moves(3000, "1 4 0 0 3100", FieldSign::None));
        panel.setActualPositionCommandAndRange(1, -100, 100);
        click(panel, "btnMoveRelative");
        QCOMPARE(sent.takeLines(), QStringList("1 4 0 0 3100"));
        QVERIFY(FieldFace::in(shown)->isClipped());
    }

    void rampParameters()
    {
        VelocityRampControl panel;
        auto* velocity = User::find<SpinBox>(&panel, "sbMaxVelocity");
        auto* enabler = User::find<QGroupBox>(&panel, "gbRampEnabler");
        panel.setMaxVelocityCommand(4);
        QCOMPARE(velocity->toolTip(), QString("AP 4 (-2.14748e+09..2.14748e+09)"));
        panel.setMaxVelocityCommandAndRange(4, 0, 4000);
        panel.setAccelerationCommandAndRange(11, 1, 9000);
        panel.setEnableRampCommand(12);
        QCOMPARE(enabler->toolTip(), QString("AP 12"));
        CommandRecorder sent(&panel);
        panel.updateValues();
        QCOMPARE(sent.takeLines(), QStringList({"1 6 4 0 0", "1 6 11 0 0", "1 6 12 0 0"}));

        deliver(panel, reply(1, 6, 4, 0, 3000));
        deliver(panel, reply(1, 6, 4, 0, 4001)); // dropped
        deliver(panel, reply(1, 6, 11, 0, -7));  // clipped: only the maximum is looked at
        QCOMPARE(velocity->value(), 3000.0);
        QCOMPARE(User::find<SpinBox>(&panel, "sbAcceleration")->value(), 1.0);
        QCOMPARE(sent.takeLines(), QStringList());
        deliver(panel, reply(1, 6, 12, 0, 0));
        deliver(panel, reply(1, 6, 12, 0, 0));
        QCOMPARE(sent.takeLines(), QStringList("1 5 12 0 0"));

        velocity->selectAll();
        User::type(velocity, "250");
        QCOMPARE(sent.takeLines(), QStringList());
        QTest::keyClick(velocity, Qt::Key_Return);
        QCOMPARE(sent.takeLines(), QStringList("1 5 4 0 250"));
        enabler->setChecked(true);
        QCOMPARE(sent.takeLines(), QStringList("1 5 12 0 1"));
    }

    void equalNumbersAllTakeTheValue()
    {
        VelocityRampControl panel;
        deliver(panel, reply(1, 6, 0, 0, 5));
        QCOMPARE(User::find<SpinBox>(&panel, "sbMaxVelocity")->value(), 5.0);
        QCOMPARE(User::find<SpinBox>(&panel, "sbAcceleration")->value(), 5.0);
    }

    void hostMayDeleteThePanelInsideAnEmission()
    {
        for (const char* button : {"btnClearOnNull", "btnMoveRelative"}) {
            auto* panel = new PositionControl;
            CommandRecorder sent(panel);
            sent.onCommand([panel](const Command&) { delete panel; });
            User::find<QPushButton>(panel, button)->click();
            QCOMPARE(sent.takeLines().size(), 1);
        }
        auto* ramp = new VelocityRampControl;
        CommandRecorder sent(ramp);
        sent.onCommand([ramp](const Command&) { delete ramp; });
        ramp->updateValues();
        QCOMPARE(sent.takeLines().size(), 1);
    }

    void randomRepliesSendOnlyTheEnablerEcho()
    {
        VelocityRampControl ramp;
        PositionControl position;
        ramp.setEnableRampCommand(12);
        CommandRecorder fromRamp(&ramp);
        CommandRecorder fromPosition(&position);
        QRandomGenerator random(7);
        for (int i = 0; i < 20000; ++i) {
            Command command = reply(random.bounded(3), 5 + random.bounded(2), random.bounded(14),
                                    random.bounded(2), i % 3 ? int(random.generate()) : 0);
            ramp.IN_replyValue(&command);
            position.IN_replyValue(&command);
        }
        QCOMPARE(fromPosition.takeLines(), QStringList());
        const QStringList lines = fromRamp.takeLines();
        QVERIFY(!lines.isEmpty());
        for (const QString& line : lines)
            QVERIFY2(line.startsWith("1 5 12 0 "), qPrintable(line));
    }
};

AXR_TEST_MAIN(MotionPanelsTest)
#include "MotionPanelsTest.moc"
