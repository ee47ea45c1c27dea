#include "ShaftView.h"
#include "TestCase.h"
#include "TurningBench.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

class WorkbenchScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
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

    void theShaftTurnsWhileTheAxisDoes()
    {
        TurningBench shown;
        auto* panel = User::find<QWidget>(&shown.bench, "VelocityControl0");
        auto* shaft = shown.bench.findChild<ShaftView*>();
        QVERIFY(Screen::stands(shaft));
        Screen::click(User::find<QWidget>(panel, "sbTargetVelocity"));
        Screen::key("ctrl+a");
        Screen::type("37\n");
        Screen::click(User::find<QWidget>(panel, "btnRight"));
        QVERIFY(shown.reaches(36));
        QVERIFY(Screen::changes(shaft) >= 8);
        Screen::key("F12");
        QVERIFY(shown.stands());
        QVERIFY(Screen::stands(shaft));
    }

    void pagesTurnByKey()
    {
        TurningBench shown("markers");
        const auto* list = User::find<QListWidget>(&shown.bench, "lwPages");
        for (const auto& [key, row] :
             {std::pair("ctrl+Next", 10), {"ctrl+Next", 10}, {"ctrl+Prior", 9}, {"ctrl+1", 0}}) {
            Screen::key(key);
            QCOMPARE(list->currentRow(), row);
        }
    }

    void theStripTellsOfSilence()
    {
        TurningBench shown;
        auto* strip = User::find<QLabel>(&shown.bench, "lblLinkState");
        QVERIFY(Screen::stands(strip));
        shown.bench.simulator().link.setSilent(true);
        QVERIFY(Screen::waitFor([&] { return Screen::has(Screen::picture(strip), "crimson"); }));
        QVERIFY(Screen::changes(strip) >= 8);
    }
};

AXR_TEST_MAIN(WorkbenchScreenTest)
#include "WorkbenchScreenTest.moc"
