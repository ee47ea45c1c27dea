#include "Command.h"
#include "Graph.h"
#include "Screen.h"
#include "TestCase.h"
#include "User.h"
#include "ValueOverTimeGraph.h"

#include <QGraphicsScene>
#include <QGraphicsView>

namespace
{

/// A graph in a window of its own, and a source that feeds it by the clock.
struct LiveGraph {
    ValueOverTimeGraph graph;
    QTimer source;
    int curves;

    explicit LiveGraph(int curveCount, int height = 100) : curves(curveCount)
    {
        for (int i = 0; i < curves; ++i)
            graph.addGraph(new Graph(1, 0, 6, static_cast<char>(i), QString::number(i),
                                     QColor::fromHsv(i * 60, 255, 200)));
        graph.resize(500, 300);
        Screen::show(&graph);
        graph.clearValues();
        graph.startDrawing();
        QObject::connect(&source, &QTimer::timeout, &graph, [this, height, step = 0]() mutable {
            ++step;
            for (int i = 0; i < curves; ++i) {
                Command reply(1, 6, static_cast<char>(i), 0, step * (i + 3) % 20 * height / 20);
                reply.setStatus(100);
                reply.setValid(true);
                graph.IN_replyValue(&reply);
            }
        });
        source.start(10);
        Screen::pass(300);
    }
    QGraphicsView* view() const { return User::find<QGraphicsView>(&graph, "graphicsView"); }
};

} // namespace

/// What a live graph shows on the screen while its own clock and the event loop run.
class GraphScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void moves_data()
    {
        QTest::addColumn<int>("curves");
        QTest::addColumn<int>("height");
        QTest::newRow("no curve") << 0 << 0;
        QTest::newRow("one") << 1 << 100;
        QTest::newRow("four") << 4 << 100;
        QTest::newRow("zeros") << 4 << 0;
    }
    void moves()
    {
        QFETCH(int, curves);
        QFETCH(int, height);
        LiveGraph live(curves, height);
        QVERIFY(Screen::changes(live.view()) >= 9);
        live.graph.hide();
        Screen::pass(100);
        Screen::show(&live.graph);
        QVERIFY(Screen::changes(live.view()) >= 9);
        live.graph.resize(640, 400);
        Screen::pass(100);
        QVERIFY(Screen::changes(live.view()) >= 9);
        const QImage picture = Screen::picture(live.view());
        for (int i = 0; i < curves; ++i)
            QVERIFY(Screen::has(picture,
                                QColor::fromHsv((height > 0 ? i : curves - 1) * 60, 255, 200), 40));
    }

    /// With time stopped the picture stands as long as no sample brings another range.
    void pauses()
    {
        LiveGraph live(2);
        live.graph.stopDrawing();
        live.source.stop();
        QVERIFY(Screen::stands(live.view()));
        live.graph.startDrawing();
        QVERIFY(Screen::changes(live.view()) >= 9); // the time axis
        live.graph.stopDrawing();
        QVERIFY(Screen::stands(live.view()));
        live.source.start();
        QVERIFY(Screen::stands(live.view()));
    }

    void secondView()
    {
        LiveGraph live(2);
        QGraphicsView second(live.view()->scene());
        second.resize(600, 400);
        Screen::show(&second, {700, 40});
        QVERIFY(Screen::changes(&second) >= 9);
        QVERIFY(Screen::changes(live.view()) >= 9);
    }

    /// Whatever is in the scene follows its own updates, too.
    void itemOfTheHost()
    {
        LiveGraph live(0);
        live.graph.stopDrawing();
        QGraphicsScene* scene = live.view()->scene();
        auto* item = scene->addRect(QRectF(100, 50, 60, 40), QPen(Qt::NoPen), QColor("purple"));
        item->setZValue(1000);
        QVERIFY(Screen::waitFor(
            [&] { return Screen::has(Screen::picture(live.view()), QColor("purple")); }));
    }
};

AXR_TEST_MAIN(GraphScreenTest)
#include "GraphScreenTest.moc"
