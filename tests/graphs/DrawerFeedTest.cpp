#include "Chart.h"
#include "SimpleScaledDrawer.h"
#include "TestCase.h"

#include <QImage>
#include <QThread>

/// A worker feeds samples while the window paints and the charts change.
class DrawerFeedTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void losesNothing()
    {
        constexpr int Count = 200000;
        SimpleScaledDrawer drawer;
        drawer.setChartSize(Count);
        Chart fed(1, 2, 6, 3, "fed", Qt::red);
        drawer.addChart(&fed);
        QImage image(drawer.size(), QImage::Format_RGB32);
        const std::unique_ptr<QThread> worker(QThread::create([&drawer] {
            for (int i = 0; i < Count; ++i) {
                drawer.requestedTraceValue(1, 6, 3, 2, i);
                drawer.requestedTraceValue(1, 6, 4, 2, i);
            }
        }));
        worker->start();
        do {
            Chart passing(1, 2, 6, 4, "passing", Qt::blue); // dies while it is fed
            drawer.addChart(&passing);
            drawer.render(&image);
            QList<double> shared = fed.getValues();
            for (int i = 0; i < shared.size(); ++i)
                QCOMPARE(shared.at(i), double(i));
            drawer.setChartSize(Count);
            drawer.removeChart(1, 2, 6, 4);
        } while (!worker->wait(QDeadlineTimer(0)));
        const QList<double> values = fed.getValues();
        QCOMPARE(values.size(), Count);
        for (int i = 0; i < Count; ++i)
            QCOMPARE(values.at(i), double(i));
    }
};

AXR_TEST_MAIN(DrawerFeedTest)
#include "DrawerFeedTest.moc"
