#include "Chart.h"
#include "Command.h"
#include "DrawerArea.h"
#include "RamDebugThread_p.h"
#include "Recorder.h"
#include "Screen.h"
#include "SimpleScaledDrawer.h"
#include "TestCase.h"
#include "User.h"
#include "WRamDebug.h"

#include <QPushButton>

#include <atomic>
#include <thread>

namespace
{

/// Feeds a drawer from a thread of its own.
class Feed
{
public:
    explicit Feed(SimpleScaledDrawer& drawer)
        : m_thread([this, &drawer] {
            for (int i = 0; !m_isOver; ++i) {
                drawer.requestedTraceValue(1, 6, 3, 0, 5000 + i % 7 * (i % 50));
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
        })
    {
    }
    ~Feed()
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_isOver{false};
    std::thread m_thread;
};

} // namespace

class CaptureScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void theScaledDrawerLivesWhileItIsFed()
    {
        Chart chart(1, 0, 6, 3, "fed", Qt::red); // outlives the drawer
        SimpleScaledDrawer drawer;
        drawer.addChart(&chart);
        drawer.startDrawing();
        drawer.resize(700, 300);
        Screen::show(&drawer);
        auto* area = User::find<DrawerArea>(&drawer, "drawer");
        const QRect axis(area->mapToGlobal({2, 2}), QSize(95, area->height() - 4));
        {
            const Feed feed(drawer);
            QVERIFY(Screen::waitFor([&] { return chart.getValues().size() > 500; }, 20000));
            const QImage labels = Screen::picture(axis);
            QVERIFY(Screen::has(labels, Qt::black));
            QVERIFY(Screen::changes(area) >= 8);
            QCOMPARE(Screen::picture(axis), labels); // the range does not hop
            drawer.hide();
            drawer.show();
            QVERIFY(Screen::changes(area) >= 8);
        }
        QVERIFY(Screen::stands(area));
        QVERIFY(Screen::has(Screen::picture(area), Qt::red));
    }

    /// Start and Stop by Space, one after the other, and the sign that the run is still ending.
    void aRunThatEnds()
    {
        RamDebugThread::Shared::settleTime = 20; // ms
        WRamDebug panel;
        bool isComplete = false;
        connect(&panel, &WRamDebug::doDirectRequest, &panel, [&](Command* request, Command* reply) {
            *reply = *request;
            reply->setValue(carries(request->getType(), Recorder::Type::State) ? !isComplete : 1);
            reply->setValid(true);
            delete request;
        });
        Screen::show(&panel);
        auto* start = User::find<QPushButton>(&panel, "btnStart");
        auto* stop = User::find<QPushButton>(&panel, "btnStop");
        const auto hasSign = [&] {
            const QRect place(start->mapToGlobal({0, -start->y()}), QSize(30, start->y()));
            return Screen::has(Screen::picture(place), QColor(0xff, 0x99, 0));
        };
        Screen::click(start);
        QVERIFY(!start->isEnabled() && stop->isEnabled() && !hasSign());
        Screen::key("space");
        QVERIFY(start->isEnabled() && panel.isMeasuring());
        QVERIFY(Screen::waitFor(hasSign));
        isComplete = true;
        QVERIFY(Screen::waitFor([&] { return !panel.isMeasuring() && !hasSign(); }));
        isComplete = false;
        Screen::key("space");
        QVERIFY(panel.isMeasuring());
        panel.abort();
        QVERIFY(Screen::waitFor([&] { return !panel.isMeasuring() && !hasSign(); }));
        QVERIFY(start->hasFocus());
    }
};

AXR_TEST_MAIN(CaptureScreenTest)
#include "CaptureScreenTest.moc"
