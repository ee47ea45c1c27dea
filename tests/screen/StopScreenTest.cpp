#include "CapturePage.h"
#include "ColorPicker.h"
#include "CommandText.h"
#include "Instruction.h"
#include "PositionControl.h"
#include "Screen.h"
#include "TestCase.h"
#include "User.h"
#include "ValueOverTimeGraph.h"
#include "VelocityControl.h"
#include "Workbench.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolButton>

namespace
{

/// The connected workbench on the screen, in real time.
struct ShownBench {
    Workbench bench;
    QToolButton* stop;
    SimulatedAxis& axis;

    explicit ShownBench(const QString& page)
        : bench(
              WorkbenchOptions::parse({"axrworkbench", "--photo", "x", "--connect", "--page", page},
                                      Workbench::pageNames()))
        , stop(User::find<QToolButton>(&bench, "btnStopAll"))
        , axis(bench.simulator().module.axis(0))
    {
        bench.startClock();
        Screen::show(&bench);
        if (!Screen::waitFor([this] { return bench.link().answers() > 10; }))
            qFatal("the module does not answer");
    }
    ~ShownBench() { Screen::letGo(); }

    template <class T>
    T* find(const char* name)
    {
        return User::find<T>(&bench, name);
    }
    QPushButton* save()
    {
        return User::find<QPushButton>(bench.findChild<CapturePage*>(), "btnSave");
    }
    bool turns() const { return qAbs(axis.velocity()) > 100; }
    void turn()
    {
        bench.link().command(Command(1, toByte(Instruction::ROR), 0, 0, 300));
        if (!Screen::waitFor([this] { return turns(); }))
            qFatal("the axis does not turn");
    }
    /// Comes to rest, and stays there for five seconds of the module's clock.
    bool stands()
    {
        if (!Screen::waitFor([this] { return axis.velocity() == 0; }))
            return false;
        bool isStanding = true;
        for (int i = 0; i < 100 && isStanding; ++i) {
            Screen::pass(5);
            bench.advance(50);
            isStanding = axis.velocity() == 0;
        }
        return isStanding;
    }
};

struct Opened {
    const char* name;
    const char* page;
    /// Opens it by a click, which may return only once it has closed.
    std::function<void(ShownBench&)> open;
};

const Opened rows[] = {
    {"nothing", "motion", [](ShownBench&) {}},
    {"menu", "graph",
     [](ShownBench& shown) {
         Screen::click(shown.bench.findChild<ValueOverTimeGraph*>(), QPoint(300, 200),
                       Qt::RightButton);
     }},
    {"combo list", "motion",
     [](ShownBench& shown) {
         Screen::click(
             User::find<QComboBox>(shown.bench.findChild<PositionControl*>(), "cmbRelativeTo"));
     }},
    {"colour popup", "colours",
     [](ShownBench& shown) { Screen::click(shown.bench.findChild<ColorPicker*>()); }},
    {"file dialog", "capture", [](ShownBench& shown) { Screen::click(shown.save()); }},
    {"combo list of a file dialog", "capture",
     [](ShownBench& shown) {
         Screen::onceOpen(
             [](QWidget* dialog) { Screen::click(User::find<QComboBox>(dialog, "lookInCombo")); });
         Screen::click(shown.save());
     }},
};

} // namespace

class StopScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void oneClickOrKeyStops_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("byKey");
        QTest::addColumn<bool>("isManaged");
        for (int row = 0; row < int(std::size(rows)); ++row) {
            for (bool byKey : {false, true})
                QTest::addRow("%s, by %s", rows[row].name, byKey ? "key" : "click")
                    << row << byKey << false;
            QTest::addRow("%s, with a window manager", rows[row].name) << row << false << true;
        }
    }
    void oneClickOrKeyStops()
    {
        QFETCH(int, row);
        QFETCH(bool, byKey);
        QFETCH(bool, isManaged);
        const Screen::WindowManager manager(isManaged);
        ShownBench shown(rows[row].page);
        shown.turn();
        int stops = 0;
        connect(&shown.bench.link(), &ModuleLink::sent, this, [&stops](const Command& request) {
            stops += requestText(request) == "MST 0 = 0, axis 0";
        });
        bool isStopped = false;
        QString open;
        Screen::meanwhile(
            [&] {
                const QWidget* popup = QApplication::activePopupWidget();
                const QWidget* dialog = QApplication::activeModalWidget();
                open = popup    ? popup->metaObject()->className()
                       : dialog ? dialog->metaObject()->className()
                                : "";
                if (byKey)
                    Screen::key("F12");
                else
                    Screen::click(shown.stop);
                isStopped = Screen::waitFor([&] { return shown.axis.velocity() == 0; });
                for (int i = 0; i < 5 && (QApplication::activePopupWidget() ||
                                          QApplication::activeModalWidget());
                     ++i)
                    Screen::key("Escape");
            },
            700);
        rows[row].open(shown);
        QVERIFY(Screen::waitFor([&] { return isStopped; }, 20000));
        QCOMPARE(open.isEmpty(), row == 0);
        QCOMPARE(stops, 1);
        QVERIFY(shown.stands());
    }

    /// Not even a hand that still holds the button starts the axis again.
    void aHeldJogStaysStopped_data()
    {
        QTest::addColumn<bool>("isStrayed");
        QTest::newRow("on the button") << false;
        QTest::newRow("strayed from it") << true;
    }
    void aHeldJogStaysStopped()
    {
        QFETCH(bool, isStrayed);
        ShownBench shown("motion");
        auto* panel = shown.bench.findChild<VelocityControl*>("VelocityControl0");
        User::find<QSpinBox>(panel, "sbTargetVelocity")->setValue(500);
        const auto* jog = User::find<QPushButton>(panel, "btnJogLeft");
        const QPoint on = Screen::middle(jog);
        const QPoint beside = on + QPoint(0, jog->height());
        Screen::moveTo(on);
        Screen::press();
        QVERIFY(Screen::waitFor([&] { return shown.axis.velocity() < -400; }));
        if (isStrayed)
            Screen::moveTo(beside);
        Screen::key("F12");
        for (const QPoint& place : {beside, on, on + QPoint(1, 0), beside, on})
            Screen::moveTo(place);
        QVERIFY(shown.stands());
        Screen::release();
        QVERIFY(shown.stands());
    }

    /// Its own end is a target current of 0, which would let the axis coast.
    void aHeldCurrentIsBraked()
    {
        ShownBench shown("motion");
        auto* panel = shown.bench.findChild<QWidget*>("CurrentControl0");
        User::find<QSpinBox>(panel, "sbTargetCurrent")->setValue(300);
        Screen::moveTo(Screen::middle(User::find<QPushButton>(panel, "btnJogRight")));
        Screen::press();
        QVERIFY(Screen::waitFor([&] { return shown.axis.velocity() > 400; }));
        Command last;
        QObject::connect(&shown.bench.link(), &ModuleLink::sent, &shown.bench,
                         [&](const Command& request) {
                             if (!isRead(request))
                                 last = request;
                         });
        Screen::key("F12");
        QVERIFY(Screen::waitFor([&] { return shown.axis.velocity() == 0; }));
        Screen::release();
        QVERIFY(shown.stands());
        QCOMPARE(int(last.getCommand()), int(Instruction::MST));
    }

    /// A drag takes every key, but not this one.
    void theKeyStopsDuringADrag()
    {
        ShownBench shown("ramp");
        auto* text = shown.find<QLabel>("lblPlan");
        shown.turn();
        const QPoint word(20, 8);
        Screen::click(text, word);
        Screen::click(text, word); // selects it
        QVERIFY(text->hasSelectedText());
        Screen::pass(600);
        Screen::moveTo(text, word);
        Screen::press();
        bool isStopped = false;
        Screen::meanwhile(
            [&] {
                Screen::moveTo(text, word + QPoint(60, 0));
                Screen::key("F12");
                isStopped = Screen::waitFor([&] { return shown.axis.velocity() == 0; }, 2000);
                Screen::release();
            },
            300);
        Screen::moveTo(text, word + QPoint(30, 0));
        Screen::pass(500);
        QVERIFY(Screen::waitFor([&] { return isStopped; }));
    }

    /// The button cannot be taken away, pushed out or covered.
    void theButtonStays_data()
    {
        QTest::addColumn<QString>("look");
        QTest::addColumn<QString>("size");
        for (const char* look : {"on", "off"}) {
            for (const char* size : {"8", "20"})
                QTest::addRow("%s %s", look, size) << look << size;
        }
    }
    void theButtonStays()
    {
        QFETCH(QString, look);
        QFETCH(QString, size);
        Workbench bench(WorkbenchOptions::parse(
            {"axrworkbench", "--photo", "x", "--theme", look, "--font-size", size},
            Workbench::pageNames()));
        Screen::show(&bench);
        auto* stop = User::find<QToolButton>(&bench, "btnStopAll");
        const auto isWhole = [&] {
            return stop->isVisible() && stop->width() >= stop->sizeHint().width() &&
                   QApplication::widgetAt(stop->mapToGlobal(QPoint(1, 1))) == stop &&
                   QApplication::widgetAt(
                       stop->mapToGlobal(stop->rect().bottomRight() - QPoint(1, 1))) == stop;
        };
        for (const QPoint place :
             {stop->geometry().center(), stop->geometry().topRight() + QPoint(20, 10)}) {
            Screen::click(&bench, place, Qt::RightButton);
            QVERIFY(!QApplication::activePopupWidget());
        }
        for (const QSize wanted : {QSize(1, 1), QSize(700, 400), QSize(1400, 900)}) {
            bench.resize(wanted);
            QVERIFY(Screen::waitFor([&] { return isWhole(); }));
        }
    }

    void aCaptureStays_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("trigger");
        QTest::addColumn<bool>("inItsRest");
        QTest::addColumn<QString>("by");
        QTest::newRow("rest, key") << 0 << 4 << true << "F12";
        QTest::newRow("poll, key") << 0 << 4 << false << "F12";
        QTest::newRow("braking triggers, key") << 1000 << 3 << false << "F12";
        QTest::newRow("rest, button") << 0 << 4 << true << "STOP";
        QTest::newRow("rest, page") << 0 << 4 << true << "Stop";
        QTest::newRow("braking triggers, page and key") << 1000 << 3 << false << "Stop F12";
    }
    /// Stopped in the first second, or while it waits for its trigger, the axis stands.
    void aCaptureStays()
    {
        QFETCH(int, from);
        QFETCH(int, trigger);
        QFETCH(bool, inItsRest);
        QFETCH(QString, by);
        ShownBench shown("capture");
        shown.find<QComboBox>("cmbTargetMode")->setCurrentIndex(1);
        shown.find<QSpinBox>("sbFromTarget")->setValue(from);
        shown.find<QComboBox>("cmbTriggerType")->setCurrentIndex(trigger);
        shown.find<QSpinBox>("sbTriggerValue")->setValue(trigger == 3 ? 500 : 3000);
        bool isPolling = false;
        connect(&shown.bench.link(), &ModuleLink::sent, this, [&isPolling](const Command& request) {
            isPolling = isPolling || requestText(request).startsWith("RD 6");
        });
        auto* page = shown.bench.findChild<CapturePage*>();
        Screen::click(User::find<QPushButton>(page, "btnStart"));
        Screen::pass(300);
        QVERIFY(inItsRest || Screen::waitFor([&] { return isPolling && shown.turns(); }));
        QCOMPARE(isPolling, !inItsRest);
        if (by.startsWith("Stop"))
            Screen::click(User::find<QPushButton>(page, "btnStop"));
        if (by.endsWith("F12"))
            Screen::key("F12");
        if (by == "STOP")
            Screen::click(shown.stop);
        QVERIFY(shown.stands());
    }

    /// An unconnected page says what it needs, and a key connects.
    void theFirstMinute()
    {
        Workbench bench(WorkbenchOptions::parse(
            {"axrworkbench", "--photo", "x", "--page", "motion"}, Workbench::pageNames()));
        bench.startClock();
        Screen::show(&bench);
        auto* notice = User::find<QLabel>(&bench, "lblNeedsLink");
        QVERIFY(Screen::has(Screen::picture(notice), "#fff8d8"));
        QVERIFY(!Screen::has(Screen::picture(&bench), "gold"));
        Screen::key("alt+c");
        QVERIFY(Screen::waitFor([&] { return bench.link().answers() > 10; }));
        QVERIFY(notice->isHidden() &&
                User::find<QPushButton>(&bench, "btnConnectLast")->isHidden());
    }
};

AXR_TEST_MAIN(StopScreenTest)
#include "StopScreenTest.moc"
