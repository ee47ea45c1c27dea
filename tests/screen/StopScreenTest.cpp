#include "ColorPicker.h"
#include "TestCase.h"
#include "TurningBench.h"

#include <QtWidgets>

namespace
{

/// What a real click opens, and the class of it.
struct Opened {
    const char* page;
    QByteArray type;
    std::function<void(QWidget* page)> open; // may return only once it has closed
};

void click(QWidget* page, const char* name, Qt::MouseButton button = Qt::LeftButton)
{
    Screen::click(User::find<QWidget>(page, name), button);
}

const QString stopOfTheAxis = "MST 0 = 0, axis 0";

const Opened rows[] = {
    {"motion", "", [](QWidget*) {}},
    {"motion", "QMenu", [](QWidget* page) { click(page, "sbTargetVelocity", Qt::RightButton); }},
    {"graph", "QMenu", [](QWidget* page) { click(page, "graphicsView", Qt::RightButton); }},
    {"graph", "GraphSelector",
     [](QWidget* page) {
         Screen::onceOpen([](QWidget* menu) {
             Screen::click(
                 menu, static_cast<QMenu*>(menu)->actionGeometry(menu->actions().last()).center());
         });
         click(page, "graphicsView", Qt::RightButton);
     }},
    {"graph", "QFileDialog",
     [](QWidget* page) {
         if (!User::find<QWidget>(page, "cbLog")->isVisible()) {
             click(page, "btnHideController");
             Screen::pass(500);
         }
         click(page, "cbLog");
     }},
    {"registers", "QFileDialog", [](QWidget* page) { click(page, "btnOpen"); }},
    {"console", "QComboBoxPrivateContainer", [](QWidget* page) { click(page, "cbCommand"); }},
    {"colours", "ColorPickerPopup",
     [](QWidget* page) { Screen::click(page->findChild<ColorPicker*>()); }},
    {"capture", "QComboBoxPrivateContainer",
     [](QWidget* page) {
         Screen::onceOpen([](QWidget* dialog) { click(dialog, "lookInCombo"); });
         click(page, "btnSave");
     }},
};

QWidget* whatIsOpen()
{
    return QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                             : QApplication::activeModalWidget();
}

} // namespace

class StopScreenTest : public TestCase
{
    Q_OBJECT
    std::unique_ptr<Screen::WindowManager> m_manager;
    std::unique_ptr<TurningBench> m_shown; // kept by a row that leaves it as it was

    std::unique_ptr<TurningBench> show(bool isManaged = false)
    {
        if (isManaged && !m_manager) {
            m_shown.reset();
            m_manager = std::make_unique<Screen::WindowManager>();
        }
        return m_shown ? std::move(m_shown) : std::make_unique<TurningBench>();
    }

private Q_SLOTS:
    void cleanupTestCase() { m_shown.reset(); }

    /// Not even a hand that still holds the button starts the axis again, and nothing weaker than a
    /// stop comes last: a jog's own end is for the current a target of 0, which lets the axis
    /// coast.
    void aHeldJogIsStopped_data()
    {
        QTest::addColumn<QString>("panel");
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("isStrayed");
        QTest::newRow("velocity") << "VelocityControl0"
                                  << "sbTargetVelocity" << false;
        QTest::newRow("velocity, strayed") << "VelocityControl0"
                                           << "sbTargetVelocity" << true;
        QTest::newRow("current") << "CurrentControl0"
                                 << "sbTargetCurrent" << false;
    }
    void aHeldJogIsStopped()
    {
        QFETCH(QString, panel);
        QFETCH(QString, target);
        QFETCH(bool, isStrayed);
        auto shown = show();
        auto* held = User::find<QWidget>(shown->showPage("motion"), panel);
        User::find<QSpinBox>(held, target)->setValue(500);
        const auto* jog = User::find<QPushButton>(held, "btnJogLeft");
        const QPoint on = Screen::middle(jog);
        const QPoint beside = on + QPoint(0, jog->height());
        Screen::moveTo(on);
        Screen::press();
        QVERIFY(shown->reaches(400));
        if (isStrayed)
            Screen::moveTo(beside);
        Screen::key("F12");
        for (const QPoint& place : {beside, on, on + QPoint(1, 0), beside, on})
            Screen::moveTo(place);
        QVERIFY(shown->stands());
        Screen::release();
        QVERIFY(shown->stands());
        QCOMPARE(shown->sent.filter("axis 0").last(), stopOfTheAxis);
        m_shown = std::move(shown);
    }

    /// A capture that is stopped in its rest, or while it waits for its trigger, lets the axis be.
    void aCaptureStays()
    {
        auto shown = show();
        auto* page = shown->showPage("capture");
        User::find<QComboBox>(page, "cmbTargetMode")->setCurrentIndex(1);
        for (bool isInItsRest : {true, false}) {
            User::find<QSpinBox>(page, "sbFromTarget")->setValue(isInItsRest ? 0 : 1000);
            User::find<QComboBox>(page, "cmbTriggerType")->setCurrentIndex(isInItsRest ? 4 : 3);
            User::find<QSpinBox>(page, "sbTriggerValue")->setValue(isInItsRest ? 3000 : 500);
            shown->sent.clear();
            const auto isPolling = [&] { return !shown->sent.filter("RD 6").isEmpty(); };
            click(page, "btnStart");
            Screen::pass(300);
            QVERIFY(isInItsRest || (Screen::waitFor(isPolling) && shown->reaches(100)));
            QCOMPARE(isPolling(), !isInItsRest);
            if (!isInItsRest)
                click(page, "btnStop");
            Screen::key("F12");
            QVERIFY(shown->stands());
        }
        m_shown = std::move(shown);
    }

    /// A drag takes every key, but not this one.
    void theKeyStopsDuringADrag()
    {
        auto shown = show();
        auto* text = User::find<QLabel>(shown->showPage("ramp"), "lblPlan");
        shown->turn();
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
                isStopped = Screen::waitFor([&] { return shown->axis.velocity() == 0; }, 2000);
                Screen::release();
            },
            300);
        Screen::moveTo(text, word + QPoint(30, 0));
        Screen::pass(500);
        QVERIFY(Screen::waitFor([&] { return isStopped; }));
        m_shown = std::move(shown);
    }

    /// What a click opens comes to the screen; one click or key stops, and Escape closes it.
    void whateverIsOpen_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("byKey");
        QTest::addColumn<bool>("isManaged");
        for (const auto& [how, byKey, isManaged] : {std::tuple("key", true, false),
                                                    {"click", false, false},
                                                    {"click with a window manager", false, true}}) {
            for (int row = 0; row < int(std::size(rows)); ++row)
                QTest::addRow("%s on %s, %s", rows[row].type.constData(), rows[row].page, how)
                    << row << byKey << isManaged;
        }
    }
    void whateverIsOpen()
    {
        QFETCH(int, row);
        QFETCH(bool, byKey);
        QFETCH(bool, isManaged);
        auto shown = show(isManaged);
        auto* page = shown->showPage(rows[row].page);
        shown->turn();
        shown->sent.clear();
        const QImage before = Screen::picture();
        bool isOnScreen = false;
        bool isStopped = false;
        int looks = 0;
        QTimer look;
        connect(&look, &QTimer::timeout, &look, [&] {
            QWidget* open = whatIsOpen();
            if ((open ? open->metaObject()->className() : "") != rows[row].type || ++looks < 15)
                return; // the click that opens a list has still to let go
            look.stop();
            isOnScreen = !open || Screen::waitFor([&] {
                const QRect place(open->mapToGlobal(QPoint()), open->size());
                return before.rect().contains(place) &&
                       Screen::picture(place) != before.copy(place);
            });
            if (byKey)
                Screen::key("F12");
            else
                click(&shown->bench, "btnStopAll");
            isStopped = Screen::waitFor([&] { return shown->axis.velocity() == 0; });
            for (int i = 0; i < 5 && whatIsOpen(); ++i)
                Screen::key("Escape");
        });
        look.start(20);
        rows[row].open(page);
        QVERIFY(Screen::waitFor([&] { return isStopped; }, 20000));
        QVERIFY(isOnScreen);
        QVERIFY(shown->stands());
        QCOMPARE(shown->sent.count(stopOfTheAxis), 1);
        QVERIFY(Screen::waitFor([] { return !whatIsOpen(); }));
        m_shown = std::move(shown);
    }

    /// The button cannot be taken away, pushed out or covered.
    void theButtonStays()
    {
        for (const auto& [look, size] : {std::pair("on", "8"), {"off", "20"}}) {
            Workbench bench(WorkbenchOptions::parse(
                {"axrworkbench", "--photo", "x", "--theme", look, "--font-size", size},
                Workbench::pageNames()));
            Screen::show(&bench);
            auto* stop = User::find<QToolButton>(&bench, "btnStopAll");
            const auto isWhole = [&] {
                const auto isSeen = [&](QPoint place) {
                    return QApplication::widgetAt(stop->mapToGlobal(place)) == stop;
                };
                return stop->isVisible() && stop->width() >= stop->sizeHint().width() &&
                       isSeen({1, 1}) && isSeen(stop->rect().bottomRight() - QPoint(1, 1));
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
    }
};

AXR_TEST_MAIN(StopScreenTest)
#include "StopScreenTest.moc"
