#include "CommandRecorder.h"
#include "Screen.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"

#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace
{

const QStringList started("1 2 0 0 0");
const QStringList stopped("1 3 0 0 0");

/// A panel with something above it that can go, and another window beside.
struct Jog {
    QWidget window;
    QWidget other;
    QWidget* above = new QWidget;
    VelocityControl* panel = new VelocityControl;
    QPushButton* button = User::find<QPushButton>(panel, "btnJogLeft");
    CommandRecorder sent{panel};
    QMenu menu{panel};
    bool byKey = false;

    Jog()
    {
        auto* layout = new QVBoxLayout(&window);
        above->setFixedHeight(60);
        layout->addWidget(above);
        layout->addWidget(panel);
        layout->addStretch();
        menu.addAction("Copy");
        panel->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(panel, &QWidget::customContextMenuRequested, [this] { popUp(); });
        other.resize(200, 100);
        Screen::show(&other, {600, 400});
        Screen::show(&window);
        Screen::pass(250); // a window manager may have second thoughts about who is active
        Screen::activate(&window);
    }
    ~Jog() { Screen::letGo(); }

    void popUp() { menu.popup(Screen::middle(button) + QPoint(40, 40)); }
    void press() const { byKey ? Screen::keyDown("space") : Screen::press(); }
    void release() const { byKey ? Screen::keyUp("space") : Screen::release(); }
};

using Gesture = std::function<void(Jog&)>;

void hideAndShow(QWidget* widget)
{
    widget->hide();
    Screen::pass(50);
    widget->show();
    Screen::pass(100);
}

/// What happens while a hand holds the button.
const struct {
    const char* name;
    bool alsoByKey;
    Gesture gesture;
} rows[] = {
    {"let go", true, [](Jog& jog) { jog.release(); }},
    {"let go after a while", true,
     [](Jog& jog) {
         Screen::pass(1000); // in which the keyboard repeats
         jog.release();
     }},
    {"context menu", true, [](Jog& jog) { Screen::click(jog.button, Qt::RightButton); }},
    {"popup", true, [](Jog& jog) { jog.popUp(); }},
    {"another window", true, [](Jog& jog) { Screen::activate(&jog.other); }},
    {"dialog of another window", true,
     [](Jog& jog) {
         auto* dialog = new QDialog(&jog.other);
         dialog->setModal(true);
         dialog->move(600, 400);
         dialog->show();
         QVERIFY(Screen::waitFor([&] { return dialog->isActiveWindow(); }));
     }},
    {"panel hidden", true, [](Jog& jog) { hideAndShow(jog.panel); }},
    {"window hidden", true, [](Jog& jog) { hideAndShow(&jog.window); }},
    {"button moved away", false,
     [](Jog& jog) {
         const QPoint before = Screen::middle(jog.button);
         jog.above->hide();
         QVERIFY(Screen::waitFor([&] { return Screen::middle(jog.button) != before; }));
         jog.release();
     }},
    {"grabbed by another", false,
     [](Jog& jog) {
         jog.above->grabMouse();
         jog.release();
         jog.above->releaseMouse();
     }},
};

} // namespace

/// Real presses of a jog button, whose stop has to come whatever happens on the screen.
class HeldButtonScreenTest : public TestCase
{
    Q_OBJECT
    std::unique_ptr<Screen::WindowManager> m_manager;

private Q_SLOTS:
    void aJogThatNobodyHoldsEnds_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("byKey");
        QTest::addColumn<bool>("isManaged");
        for (const bool isManaged : {false, true}) {
            for (int i = 0; i < int(std::size(rows)); ++i) {
                for (const bool byKey : {false, true}) {
                    if (!byKey || rows[i].alsoByKey)
                        QTest::addRow("%s%s%s", rows[i].name, byKey ? ", by key" : "",
                                      isManaged ? ", with a window manager" : "")
                            << i << byKey << isManaged;
                }
            }
        }
    }
    void aJogThatNobodyHoldsEnds()
    {
        QFETCH(int, row);
        QFETCH(bool, isManaged);
        if (isManaged && !m_manager)
            m_manager = std::make_unique<Screen::WindowManager>();
        Jog jog;
        QFETCH(bool, byKey);
        jog.byKey = byKey;
        Screen::moveTo(jog.button);
        jog.button->setFocus();
        jog.press();
        Screen::waitFor([&] { return !jog.sent.commands().isEmpty(); });
        QCOMPARE(jog.sent.takeLines(), started);
        rows[row].gesture(jog);
        QVERIFY(Screen::waitFor([&] { return !jog.sent.commands().isEmpty(); }));
        QVERIFY(!jog.button->isDown());
        for (const int x : {1, 0}) // the pointer trembles in a hand that holds on
            Screen::moveTo(Screen::middle(jog.button) + QPoint(x, 0));
        Screen::pass(50);
        jog.release();
        Screen::pass(20);
        QCOMPARE(jog.sent.takeLines(), stopped);
    }

    void aPressInAnInactiveWindowStarts()
    {
        Jog jog;
        Screen::activate(&jog.other);
        Screen::moveTo(jog.button);
        Screen::press();
        Screen::pass(100);
        QCOMPARE(jog.sent.takeLines(), started);
        Screen::release();
        QCOMPARE(jog.sent.takeLines(), stopped);
    }
};

AXR_TEST_MAIN(HeldButtonScreenTest)
#include "HeldButtonScreenTest.moc"
