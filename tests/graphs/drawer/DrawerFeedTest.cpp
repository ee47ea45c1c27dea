#include "Chart.h"
#include "DrawerArea.h"
#include "TestCase.h"

#include <QImage>
#include <atomic>
#include <thread>

/// A worker feeds samples while the window paints and the charts change.
class DrawerFeedTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void losesNothing()
    {
        constexpr int Count = 200000;
        DrawerArea drawer(nullptr);
        drawer.resize(400, 200);
        drawer.setChartSize(Count);
        Chart fed(1, 2, 6, 3, "fed", Qt::red);
        drawer.addChart(&fed);
        QImage image(drawer.size(), QImage::Format_RGB32);
        std::atomic<bool> isFed{false};
        std::thread worker([&] {
            for (int i = 0; i < Count; ++i) {
                drawer.addTraceValue(1, 2, 6, 3, i);
                drawer.addTraceValue(1, 2, 6, 4, i);
            }
            isFed = true;
        });
        const auto isInOrder = [](const QList<double>& values) {
            for (int i = 0; i < values.size(); ++i) {
                if (values.at(i) != i)
                    return false;
            }
            return true;
        };
        bool isShownInOrder = true;
        do {
            Chart passing(1, 2, 6, 4, "passing", Qt::blue); // dies while it is fed
            drawer.addChart(&passing);
            drawer.render(&image);
            isShownInOrder = isShownInOrder && isInOrder(fed.getValues());
            drawer.setChartSize(Count);
            drawer.removeChart(1, 2, 6, 4);
        } while (!isFed);
        worker.join();
        QVERIFY(isShownInOrder && isInOrder(fed.getValues()));
        QCOMPARE(fed.getValues().size(), Count);
    }
};

AXR_TEST_MAIN(DrawerFeedTest)
#include "DrawerFeedTest.moc"
