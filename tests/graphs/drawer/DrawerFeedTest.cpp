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
        bool isInOrder = true;
        do {
            Chart passing(1, 2, 6, 4, "passing", Qt::blue); // dies while it is fed
            drawer.addChart(&passing);
            drawer.render(&image);
            const QList<double> shared = fed.getValues();
            for (int i = 0; i < shared.size(); ++i)
                isInOrder = isInOrder && shared.at(i) == i;
            drawer.setChartSize(Count);
            drawer.removeChart(1, 2, 6, 4);
        } while (!isFed);
        worker.join();
        QVERIFY(isInOrder);
        const QList<double> values = fed.getValues();
        QCOMPARE(values.size(), Count);
        for (int i = 0; i < Count; ++i)
            QCOMPARE(values.at(i), double(i));
    }
};

AXR_TEST_MAIN(DrawerFeedTest)
#include "DrawerFeedTest.moc"
