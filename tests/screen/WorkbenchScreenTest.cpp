#include "Connection.h"
#include "Screen.h"
#include "ShaftView.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "Workbench.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

namespace
{

WorkbenchOptions options(const QStringList& arguments)
{
    return WorkbenchOptions::parse(QStringList("axrworkbench") + arguments, Workbench::pageNames());
}

/// The connected workbench on the screen, in real time.
struct ShownBench {
    Workbench bench;

    explicit ShownBench(const QString& page) : bench(options({"--photo", "x", "--page", page}))
    {
        bench.startClock();
        Screen::show(&bench);
        bench.showPage("connection");
        Screen::click(User::find<QPushButton>(bench.findChild<Connection*>(), "btnConnect"));
        bench.showPage(page);
        if (!Screen::waitFor([&] { return bench.link().answers() > 10; }))
            qFatal("the module does not answer");
    }
    ~ShownBench() { Screen::letGo(); }
};

} // namespace

class WorkbenchScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void theShaftTurnsWhileTheAxisDoes()
    {
        ShownBench shown("motion");
        auto* panel = shown.bench.findChild<VelocityControl*>("VelocityControl0");
        auto* shaft = shown.bench.findChild<ShaftView*>();
        QVERIFY(Screen::stands(shaft));
        Screen::click(User::find<QSpinBox>(panel, "sbTargetVelocity"));
        Screen::key("ctrl+a");
        Screen::type("37\n");
        Screen::click(User::find<QPushButton>(panel, "btnRight"));
        Screen::pass(500);
        QVERIFY(Screen::changes(shaft) >= 8);
        Screen::key("F12");
        QVERIFY(Screen::waitFor(
            [&] { return qFuzzyIsNull(shown.bench.simulator().module.axis(0).velocity()); }));
        QVERIFY(Screen::stands(shaft));
    }

    /// What a real click opens comes to the screen, and Escape closes it. (Colour grid and dialog,
    /// and what STOP has to get through, have tests of their own.)
    void opensByClick_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("widget");
        QTest::addColumn<bool>("isRight");
        QTest::addColumn<QString>("keys"); // typed into what opens first
        QTest::addColumn<QByteArray>("opened");
        QTest::addColumn<bool>("isManaged");
        const struct {
            const char* page;
            const char* widget;
            bool isRight;
            const char* keys;
            const char* opened;
        } rows[] = {{"graph", "graphicsView", true, "", "QMenu"},
                    {"graph", "graphicsView", true, "Up Return", "GraphSelector"},
                    {"graph", "cbLog", false, "", "QFileDialog"},
                    {"registers", "btnOpen", false, "", "QFileDialog"},
                    {"console", "cbCommand", false, "", "QComboBoxPrivateContainer"},
                    {"motion", "sbTargetVelocity", true, "", "QMenu"}};
        for (const auto& row : rows) {
            for (bool isManaged : {false, true})
                QTest::addRow("%s %s%s", row.page, row.opened, isManaged ? ", managed" : "")
                    << row.page << row.widget << row.isRight << row.keys << QByteArray(row.opened)
                    << isManaged;
        }
    }
    void opensByClick()
    {
        QFETCH(QString, page);
        QFETCH(QString, widget);
        QFETCH(QString, keys);
        QFETCH(QByteArray, opened);
        QFETCH(bool, isManaged);
        const Screen::WindowManager manager(isManaged);
        ShownBench shown(page);
        if (page == "graph")
            Screen::click(User::find<QPushButton>(&shown.bench, "btnHideController"));
        auto* clicked = User::find<QWidget>(User::find<QWidget>(&shown.bench, page), widget);
        Screen::pass(500);
        const QImage before = Screen::picture();
        QByteArray seen;
        bool isOnScreen = false;
        const auto look = [&](QWidget* open) {
            seen = open->metaObject()->className();
            isOnScreen = Screen::waitFor([&] {
                const QRect place(open->mapToGlobal(QPoint()), open->size());
                return before.rect().contains(place) &&
                       Screen::picture(place) != before.copy(place);
            });
            for (int i = 0; i < 5 && open->isVisible(); ++i)
                Screen::key("Escape");
        };
        Screen::onceOpen([&](QWidget* open) {
            if (keys.isEmpty()) {
                look(open);
                return;
            }
            Screen::meanwhile([&] { Screen::onceOpen([&](QWidget* next) { look(next); }); }, 500);
            for (const QString& key : keys.split(' '))
                Screen::key(key);
        });
        QFETCH(bool, isRight);
        Screen::click(clicked, isRight ? Qt::RightButton : Qt::LeftButton);
        QVERIFY(Screen::waitFor([&] { return isOnScreen; }, 20000));
        QCOMPARE(seen, opened);
        QVERIFY(Screen::waitFor([] {
            return !QApplication::activePopupWidget() && !QApplication::activeModalWidget();
        }));
    }

    void pagesTurnByKey()
    {
        ShownBench shown("markers");
        const auto* list = User::find<QListWidget>(&shown.bench, "lwPages");
        for (const auto& [key, row] :
             {std::pair("ctrl+Next", 10), {"ctrl+Next", 10}, {"ctrl+Prior", 9}, {"ctrl+1", 0}}) {
            Screen::key(key);
            QCOMPARE(list->currentRow(), row);
        }
    }

    void theStripTellsOfSilence()
    {
        ShownBench shown("motion");
        auto* strip = User::find<QLabel>(&shown.bench, "lblLinkState");
        QVERIFY(Screen::stands(strip));
        shown.bench.simulator().link.setSilent(true);
        QVERIFY(Screen::waitFor([&] { return Screen::has(Screen::picture(strip), "crimson"); }));
        QVERIFY(Screen::changes(strip) >= 8);
    }
};

AXR_TEST_MAIN(WorkbenchScreenTest)
#include "WorkbenchScreenTest.moc"
