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
            [&] { return qFuzzyIsNull(shown.bench.link().module().axis(0).velocity()); }));
        QVERIFY(Screen::stands(shaft));
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
        shown.bench.link().wire().setSilent(true);
        QVERIFY(Screen::waitFor([&] { return Screen::has(Screen::picture(strip), "crimson"); }));
        QVERIFY(Screen::changes(strip) >= 8);
    }
};

AXR_TEST_MAIN(WorkbenchScreenTest)
#include "WorkbenchScreenTest.moc"
