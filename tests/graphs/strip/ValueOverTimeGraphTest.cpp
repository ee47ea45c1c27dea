#include "ValueOverTimeGraph.h"
#include "AppSettings.h"
#include "BasicTools.h"
#include "Bytes.h"
#include "Graph.h"
#include "GraphCaptionItem.h"
#include "GraphController.h"
#include "GraphItem.h"
#include "GraphSelector.h"
#include "Numbers.h"
#include "ShownGraph.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "User.h"
#include "XTimeAxisItem.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QMenu>
#include <QSignalSpy>
#include <QTableWidget>

#include <climits>
#include <random>

namespace
{

/// Called with the next menu, once it is there.
void onMenu(std::function<void(QMenu*)> action)
{
    QTimer::singleShot(0, [action = std::move(action)] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
            action(menu);
        else
            onMenu(action);
    });
}

/// As a host has it painted, without the view.
QImage rendered(const ShownGraph& chart)
{
    QImage image(chart.view()->viewport()->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(chart.view()->renderHints());
    chart.view()->scene()->render(&painter);
    return image;
}

int greatestDifference(const QImage& a, const QImage& b)
{
    const auto byte = [](const QImage& image, int x, int y) { return image.constScanLine(y)[x]; };
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < 4 * a.width(); ++x) // bytes
            greatest = qMax(greatest, qAbs(byte(a, x, y) - byte(b, x, y)));
    }
    return greatest;
}

} // namespace

class ValueOverTimeGraphTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void asBuilt()
    {
        ValueOverTimeGraph graph;
        QCOMPARE(graph.size(), QSize(275, 166));
        QCOMPARE(graph.windowTitle(), QString("value vs. time"));
        QCOMPARE(graph.statusTip(), QString("use right mouse button for more items"));
        QCOMPARE(graph.contextMenuPolicy(), Qt::CustomContextMenu);
        const struct {
            const char* object;
            const char* property;
            int value;
        } rows[] = {
            {"horizontalLayout", "spacing", 0},
            {"verticalLayout", "spacing", 0},
            {"graphicsView", "frameShadow", QFrame::Plain},
            {"graphicsView", "verticalScrollBarPolicy", Qt::ScrollBarAlwaysOff},
            {"graphicsView", "horizontalScrollBarPolicy", Qt::ScrollBarAlwaysOff},
            {"graphicsView", "renderHints", 0x0f},
            {"graphicsView", "cacheMode", QGraphicsView::CacheBackground},
            {"graphicsView", "resizeAnchor", QGraphicsView::AnchorUnderMouse},
            {"graphicsView", "viewportUpdateMode", QGraphicsView::FullViewportUpdate},
            {"btnHideController", "checkable", true},
            {"btnHideController", "checked", true},
            {"btnHideController", "flat", true},
        };
        for (const auto& row : rows)
            QCOMPARE(User::find<QObject>(&graph, row.object)->property(row.property).toInt(),
                     row.value);
        QCOMPARE(User::find<GraphController>(&graph, "graphController")->title(), QString());
        auto* outer = User::find<QHBoxLayout>(&graph, "horizontalLayout");
        QCOMPARE(outer->contentsMargins(), QMargins(9, 9, 0, 9));
        QCOMPARE(outer->stretch(0), 1);
        QCOMPARE(User::find<QVBoxLayout>(&graph, "verticalLayout")->contentsMargins(), QMargins());

        ShownGraph chart;
        QCOMPARE(chart.range(), QString("-100..100"));
        QVERIFY(chart.button("btnScaleDynamic")->isChecked());
        QCOMPARE(chart.items<XTimeAxisItem>().at(0)->zValue(), -123.0);
        QCOMPARE(chart.items<GraphCaptionItem>().at(0)->zValue(), 100.0);
        QCOMPARE(chart.items<MarkerItem>().at(0)->zValue(), 123.3);
        QCOMPARE(chart.items<MarkerItem>().at(1)->zValue(), 123.7);
        chart.addCurves(3);
        const auto curves = chart.items<GraphItem>();
        QCOMPARE(curves.size(), 3);
        QCOMPARE(curves.at(2)->zValue(), 1.0);
        QCOMPARE(curves.at(2)->getCommand(), char(3));
    }

    void redFrame()
    {
        ShownGraph chart;
        chart.graph->setDrawBoundingEnabled(true);
        QVERIFY(chart.items<QGraphicsLineItem>().isEmpty());
        chart.rebuild();
        QRectF frame;
        for (const auto* line : chart.items<QGraphicsLineItem>()) {
            QCOMPARE(line->pen().color(), QColor(Qt::red));
            frame |= QRectF(line->line().p1(), line->line().p2());
        }
        QCOMPARE(chart.items<QGraphicsLineItem>().size(), 4);
        QCOMPARE(frame, chart.view()->sceneRect());
    }

    void ticksOnlyWhileVisible()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.take(1, 0, Start);
        chart.take(1, 999, Start);
        QSignalSpy scales(chart.graph, &ValueOverTimeGraph::scaleChanged);
        chart.graph->hide();
        QMetaObject::invokeMethod(chart.graph, "updateItemClock");
        QCOMPARE(scales.size(), 0);
        chart.graph->show();
        QMetaObject::invokeMethod(chart.graph, "updateItemClock");
        QVERIFY(scales.size() > 0);
    }

    void panelIsHidden()
    {
        ShownGraph chart;
        auto* panel = User::find<GraphController>(chart.graph, "graphController");
        const int wide = chart.view()->width();
        QVERIFY(panel->isHidden());
        QCOMPARE(panel->maximumSize(), QSize(0, 0));
        chart.button("btnHideController")->click();
        QCoreApplication::sendPostedEvents();
        QVERIFY(panel->isVisible());
        QCOMPARE(panel->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        QVERIFY(chart.view()->width() < wide);
        QCOMPARE(chart.view()->sceneRect().size(), QSizeF(chart.view()->viewport()->size()));
        chart.button("btnHideController")->click();
        QVERIFY(panel->isHidden());
    }

    void minimumSizeFollowsTheFont()
    {
        ShownGraph chart;
        for (int points : {10, 20, 8, 20}) {
            chart.graph->setFont(QFont(QString("DejaVu Sans"), points));
            const QFontMetrics metrics(chart.graph->font());
            QCOMPARE(chart.graph->minimumHeight(), 13 * metrics.height());
            QCOMPARE(chart.graph->minimumSize(), chart.graph->minimumSizeHint());
            const auto* base = static_cast<const QWidget*>(chart.graph);
            QCOMPARE(chart.graph->minimumWidth(),
                     base->minimumSizeHint().width() +
                         2 * metrics.horizontalAdvance("actual position"));
        }
    }

    void dynamicScaling()
    {
        const struct {
            QVector<int> first;
            QVector<int> second;
            const char* range;
            int shown; // markers, 1 minimum, 2 maximum
        } rows[] = {
            {{0, 100}, {40, 60}, "0..100", 2},
            {{-100, 0}, {-5, -6}, "-100..0", 1},
            {{1, 19}, {-3, 2}, "-5..20", 3},
            {{50, 50}, {50, 50}, "49..51", 0},
            {{0, 0}, {0, 0}, "-1..1", 0},
            {{1, 2, 3}, {7}, "-100..100", 0}, // one of them has too few: it holds all
            {{1}, {7, 8}, "-100..100", 0},
            {{}, {}, "-100..100", 0},
            {{2000000000, 2000000001}, {2000000002, 2000000000}, "200000000..2147483647", 3},
            {{INT_MIN, INT_MAX}, {0, 0}, "-2147483647..2147483647", 3},
            {{-2000000000, -2000000001}, {-2000000002, -2000000000}, "-2147483647..-200000000", 3},
        };
        for (const auto& row : rows) {
            ShownGraph chart;
            chart.addCurves(2);
            QSignalSpy scales(chart.graph, &ValueOverTimeGraph::scaleChanged);
            for (int value : row.first)
                chart.take(1, value, Start);
            for (int value : row.second)
                chart.take(2, value, Start);
            chart.frame(Start);
            QCOMPARE(scales.isEmpty(), row.range == QString("-100..100"));
            QCOMPARE(chart.range(), QString(row.range));
            QCOMPARE(chart.markers().contains("123.3@"), bool(row.shown & 1));
            QCOMPARE(chart.markers().contains("123.7@"), bool(row.shown & 2));
            chart.button("btnScaleManually")->click();
            chart.update(Start);
            QCOMPARE(chart.markers(), QString());
        }
    }

    void markersLieAtTheirValues()
    {
        ShownGraph chart;
        chart.addCurves(1);
        qreal top = 0;
        qreal bottom = 0;
        qreal low = 0;
        qreal high = 0;
        auto* axis = chart.items<XTimeAxisItem>().at(0);
        connect(axis, &XTimeAxisItem::updateYMinMax, [&](qreal a, qreal b) {
            top = a;
            bottom = b;
        });
        connect(axis, &XTimeAxisItem::updateMinMaxValue, [&](qreal a, qreal b) {
            low = a;
            high = b;
        });
        chart.take(1, -13, Start);
        chart.take(1, 87, Start);
        chart.frame(Start);
        QCOMPARE(chart.range(), QString("-20..100"));
        const double scale = (bottom - top) / (high - low);
        QVERIFY(scale > 1);
        QCOMPARE(chart.markers(), QString("123.3@%1 123.7@%2")
                                      .arg(qRound(bottom - (-13 - low) * scale))
                                      .arg(qRound(top + (high - 87) * scale)));
    }

    /// Whatever the data, the panel shows their range after two frames: the first may find the
    /// minimum's box still limited by the old maximum.
    void anyRange()
    {
        std::mt19937 random(3);
        ShownGraph chart;
        chart.addCurves(1);
        QSignalSpy scales(chart.graph, &ValueOverTimeGraph::scaleChanged);
        const auto number = [&random] { return static_cast<int>(random()) >> (random() % 32); };
        for (int i = 0; i < 1000; ++i) {
            const int base = number();
            const int values[] = {toInt(qint64(base) + number()), toInt(qint64(base) + number())};
            chart.graph->getGraphs().at(0)->clearValues();
            for (int value : values)
                chart.take(1, value, Start);
            scales.clear();
            chart.update(Start);
            QVERIFY(scales.size() < 10);
            int min = qMin(qMax(values[0], values[1]), qMin(214783647, qMin(values[0], values[1])));
            int max = qMax(-214783648, qMax(values[0], values[1]));
            const QPair<int, int> data(min, max);
            BasicTools::adjustLinearAxis(min, max);
            if (!scales.isEmpty())
                QCOMPARE(scales.last(), QVariantList() << min << max);
            chart.update(Start);
            if (data != qMakePair(min, max)) // else it need not tell again
                QCOMPARE(chart.range(), QString("%1..%2").arg(qMax(min, -INT_MAX)).arg(max));
        }
    }

    void manualScaling()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.take(1, 5, Start);
        chart.take(1, 500, Start);
        chart.button("btnScaleManually")->click();
        chart.box("sbMax")->setValue(100);
        chart.box("sbMin")->setValue(0);
        QSignalSpy values(chart.items<XTimeAxisItem>().at(0), &XTimeAxisItem::updateMinMaxValue);
        chart.frame(Start);
        QCOMPARE(values.last().at(0).toDouble(), 0.0);
        QCOMPARE(values.last().at(1).toDouble(), 100.0);
        QCOMPARE(chart.markers(), QString());
        chart.box("sbMin")->setValue(100); // both ends alike
        chart.frame(Start);
        QCOMPARE(values.last().at(0).toDouble(), 99.0);
        QCOMPARE(values.last().at(1).toDouble(), 101.0);
        chart.button("btnScaleDynamic")->click();
        chart.frame(Start);
        QCOMPARE(chart.range(), QString("0..500"));
        QVERIFY(!chart.markers().isEmpty());
    }

    void standsStillWhenStopped()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.graph->startDrawing();
        for (int i = 0; i < 200; ++i)
            chart.take(1, i % 2 ? 0 : 100, Start + 10 * i);
        const QImage running = chart.frame(Start + 2000);
        chart.button("btnStop")->click();
        for (int i = 0; i < 50; ++i)
            chart.take(1, i % 2 ? 0 : 100, Start + 2010 + 10 * i);
        QCOMPARE(chart.frame(Start + 2500), running);
        QCOMPARE(chart.valueCount(), 250);
        chart.button("btnStart")->click();
        QVERIFY(chart.frame(Start + 2500) != running);
    }

    void holdsUntilAllCurvesHaveTwoSamples()
    {
        ShownGraph chart;
        chart.addCurves(2);
        chart.graph->startDrawing();
        const auto run = [&chart](int command, int step) {
            for (int i = 0; i < 100; ++i)
                chart.take(command, 50 + step * (i % 10), chart.time + 11);
        };
        run(1, 0); // without markers, which hide first
        run(2, 0);
        const QImage before = chart.frame(chart.time);
        chart.graph->getGraphs().at(1)->clearValues();
        run(1, 7);
        chart.take(2, 5, chart.time);
        QCOMPARE(chart.frame(chart.time), before);
        // what is out of date goes all the same
        const int count = chart.valueCount();
        for (int i = 0; i < 400; ++i) {
            run(1, 0);
            chart.update(chart.time);
        }
        QVERIFY(chart.valueCount() < 10 * count);
        // a scene that is built meanwhile has all of the other curve
        chart.rebuild();
        run(1, 9);
        run(2, 5);
        const QImage after = chart.frame(chart.time);
        QVERIFY(after != before);
        chart.rebuild();
        QCOMPARE(chart.frame(chart.time), after);
    }

    void repliesFindTheirCurves()
    {
        ShownGraph chart;
        chart.graph->addGraph(new Graph(1, 2, 3, 4, "a", Qt::red));
        chart.graph->addGraph(new Graph(toByte(200), 2, 3, 4, "b", Qt::red));
        chart.graph->addGraph(new Graph(1, 2, 3, 4, "c", Qt::red));
        chart.graph->addGraph(nullptr);
        chart.graph->addGraph(chart.graph->getGraphs().at(0));
        QCOMPARE(chart.graph->getGraphs().size(), 3);
        chart.rebuild();
        const struct {
            Command reply;
            QVector<int> counts;
        } rows[] = {
            {reply(1, 3, 4, 2, 0), {1, 0, 1}}, {reply(200, 3, 4, 2, 0), {1, 1, 1}},
            {reply(2, 3, 4, 2, 0), {1, 1, 1}}, {reply(1, 4, 4, 2, 0), {1, 1, 1}},
            {reply(1, 3, 5, 2, 0), {1, 1, 1}}, {reply(1, 3, 4, 3, 0), {1, 1, 1}},
        };
        for (const auto& row : rows) {
            Command answer = row.reply;
            chart.graph->IN_replyValue(&answer);
            for (int i = 0; i < 3; ++i)
                QCOMPARE(chart.valueCount(i), row.counts.at(i));
        }
        chart.graph->IN_replyValue(nullptr);
        // the curves are gone, what is drawn is not yet
        chart.graph->removeAllGraphs();
        for (int i = 0; i < 3; ++i) {
            Command answer = reply(1, 3, 4, 2, i);
            chart.graph->IN_replyValue(&answer);
            chart.frame(Start + i);
        }
        QCOMPARE(chart.items<GraphItem>().size(), 3);
        chart.rebuild();
        QCOMPARE(chart.items<GraphItem>().size(), 0);
    }

    void samplesBeforeTheFirstFrame()
    {
        for (bool isShown : {false, true}) {
            ShownGraph chart;
            chart.graph->setVisible(isShown);
            chart.addCurves(2);
            chart.graph->startDrawing();
            for (int i = 0; i < 10; ++i) {
                chart.take(1, i, Start + 13 * i);
                chart.update(chart.time + 5); // the other curve has no samples: nothing is laid out
            }
            QCOMPARE(chart.valueCount(), 10);
        }
    }

    /// No sample goes because of the clock, whether the picture runs or not.
    void clockIsSet()
    {
        constexpr qint64 Hour = 3600 * 1000;
        for (bool isRunning : {true, false}) {
            for (qint64 jump : {Hour, -Hour}) {
                ShownGraph chart;
                chart.addCurves(1);
                if (isRunning)
                    chart.graph->startDrawing();
                qint64 now = Start;
                chart.frame(now);
                const auto run = [&](int samples) {
                    for (int i = 0; i < samples; ++i) {
                        now += 7;
                        chart.take(1, i % 50, now);
                        if (i % 6 == 0)
                            chart.update(now);
                        if (i % 60 == 0)
                            chart.paint();
                    }
                };
                run(100);
                now += jump;
                if (!isRunning)
                    chart.graph->clearValues();
                run(100);
                const QList<TValue> values = chart.graph->getGraphs().at(0)->getValues();
                QVERIFY(values.size() >= 100);
                for (int i = 0; i < 100; ++i)
                    QCOMPARE(values.at(values.size() - 1 - i).time, now - 7 * i);
            }
        }
    }

    void anySize()
    {
        for (const QSize& size : {QSize(0, 0), QSize(5, 5), QSize(40, 40), QSize(100, 60),
                                  QSize(4000, 30), QSize(30, 3000), QSize(420, 260)}) {
            ShownGraph chart(size);
            chart.addCurves(4);
            chart.graph->startDrawing();
            for (int i = 0; i < 100; ++i) {
                for (int k = 1; k <= 4; ++k)
                    chart.take(k, i * k - 50, Start + 7 * i);
                if (i % 10 == 9) {
                    chart.update(chart.time);
                    chart.paint();
                }
                if (i == 50)
                    chart.resize(size + QSize(3, 2));
            }
        }
    }

    void anyValue()
    {
        ShownGraph chart;
        chart.addCurves(2);
        chart.graph->startDrawing();
        const double values[] = {qQNaN(), qInf(), -qInf(), 1e300, -1e300, 3e9, 0, -1};
        qint64 now = Start;
        for (double value : values) {
            for (Graph* curve : chart.graph->getGraphs()) {
                now += 20;
                curve->addValue(value, now);
                curve->addValue(value, now);
            }
            chart.frame(now);
        }
        chart.graph->clearValues();
        for (int value : {0, 100})
            for (int command : {1, 2})
                chart.take(command, value, now);
        chart.frame(now);
        QCOMPARE(chart.range(), QString("0..100"));
    }

    /// The picture that scrolls is the one that a new scene draws at once, to the pixel: both draw
    /// the same lines between whole pixels, wherever they are cut off.
    void scrolledPicture()
    {
        constexpr qint64 Hour = 3600 * 1000;
        std::mt19937 random(6);
        const auto dice = [&random](int sides) { return static_cast<int>(random() % sides); };
        ShownGraph charts[2]; // the second one is built anew
        for (ShownGraph& chart : charts) {
            chart.resize({600, 300});
            chart.addCurves(4);
            chart.graph->startDrawing();
        }
        const int pauses[] = {4, 9, 40, 600}; // ms
        qint64 next[4] = {Start, Start, Start, Start};
        int values[4] = {};
        qint64 now = Start;
        const auto take = [&charts](int curve, int value, qint64 at) {
            for (ShownGraph& chart : charts)
                chart.take(curve + 1, value, at);
        };
        const auto inBoth = [&charts](const std::function<void(ShownGraph&)>& action) {
            for (ShownGraph& chart : charts)
                action(chart);
        };
        for (int curve = 0; curve < 4; ++curve)
            take(curve, curve * 20, now - 1);
        inBoth([now](ShownGraph& chart) { chart.frame(now); });
        for (int frame = 0; frame < 1000; ++frame) {
            now += 37 + dice(7);
            if (frame == 600 || frame == 800) {
                const qint64 jump = frame == 600 ? -Hour : Hour;
                now += jump;
                for (qint64& time : next)
                    time += jump;
            }
            if (frame == 720)
                now -= 300; // the youngest samples are to come once more
            for (int curve = 0; curve < 4; ++curve) {
                for (; next[curve] <= now; next[curve] += 1 + dice(2 * pauses[curve])) {
                    const int step = curve < 3 ? 20 : 800; // the last one has long, steep lines
                    values[curve] = qBound(-400, values[curve] + dice(2 * step + 1) - step, 400);
                    take(curve, values[curve], next[curve]);
                }
            }
            if (frame > 600 && frame % 97 == 50)           // and with it no picture
                take(dice(4), dice(800) - 400, now - 120); // late
            if (frame % 150 == 100)
                inBoth([](ShownGraph& chart) { chart.graph->stopDrawing(); });
            if (frame % 150 == 112)
                inBoth([](ShownGraph& chart) { chart.graph->startDrawing(); });
            if (frame == 650)
                inBoth([](ShownGraph& chart) { chart.button("btnScaleManually")->click(); });
            if (frame > 650 && frame % 40 == 0)
                inBoth(
                    [&](ShownGraph& chart) { chart.box("sbMax")->setValue(100 + frame % 3 * 50); });
            if (frame % 200 == 180)
                inBoth([](ShownGraph& chart) { chart.graph->setDataPointsEnabled(false); });
            if (frame % 4) {
                inBoth([now](ShownGraph& chart) {
                    chart.update(now);
                    chart.paint();
                });
                continue;
            }
            charts[1].rebuild();
            QImage pictures[2];
            // The first painting lays out a new axis, and the third one of a look is a picture's.
            for (int i = 0; i < 3; ++i) {
                for (int k = 0; k < 2; ++k) {
                    charts[k].update(now);
                    pictures[k] = charts[k].paint();
                }
            }
            QVERIFY2(pictures[0] == pictures[1], qPrintable(QString("frame %1").arg(frame)));
            const int difference = greatestDifference(pictures[0], rendered(charts[0]));
            QVERIFY2(difference < 10,
                     qPrintable(QString("frame %1: %2").arg(frame).arg(difference)));
        }
    }

    /// Its curves' lines are a picture of their graph, but not when one is painted alone.
    void itemsPaintedAlone()
    {
        ShownGraph chart({420, 260});
        chart.addCurves(2);
        chart.graph->startDrawing();
        chart.graph->setDataPointsEnabled(false);
        for (int i = 0; i < 2000; i += 4) {
            chart.take(1, i % 100, Start + i);
            chart.take(2, 50, Start + i);
        }
        QGraphicsView second(chart.view()->scene());
        for (int i = 0; i < 3; ++i) {
            chart.frame(chart.time);
            if (i == 2)
                second.grab();
            for (GraphItem* item : chart.items<GraphItem>()) {
                QImage image(chart.view()->viewport()->size(), QImage::Format_RGB32);
                image.fill(Qt::white);
                const QImage empty = image.copy();
                QPainter painter(&image);
                painter.translate(item->pos());
                item->paint(&painter, nullptr, nullptr);
                QVERIFY(image != empty);
            }
            QCOMPARE(chart.paint(), chart.paint());
        }
    }

    void frozenPictureSurvivesAClockSetBack()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.graph->startDrawing();
        for (int i = 0; i < 100; ++i)
            chart.take(1, i % 7 * 10, Start + 30 * i);
        chart.frame(Start + 3000);
        chart.graph->stopDrawing();
        const QImage frozen = chart.frame(Start + 3000);
        for (int back : {1000, 3600000}) {
            chart.take(1, 33, Start + 3000 - back);
            QVERIFY(chart.frame(Start + 3000 - back) == frozen);
        }
        QCOMPARE(chart.graph->getGraphs().first()->valueCount(), 102);
        chart.rebuild();
        chart.frame(Start + 3000);
        QVERIFY(chart.frame(Start + 3000) == frozen);
        chart.graph->startDrawing();
        chart.frame(Start - 597000);
        QVERIFY(chart.frame(Start - 597000) != frozen);
    }

    void framesInsideASignal()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.graph->startDrawing();
        int told = 0;
        connect(chart.graph, &ValueOverTimeGraph::scaleChanged, chart.graph, [&] {
            ++told;
            chart.graph->updateScene();
        });
        chart.take(1, 0, Start);
        chart.take(1, 77, Start + 10);
        chart.frame(Start + 20);
        QVERIFY2(told > 0 && told < 20, qPrintable(QString::number(told)));
    }

    void hiddenGraphKeepsItsSamples()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.graph->startDrawing();
        chart.frame(Start);
        chart.graph->hide();
        for (int i = 0; i < 3000; ++i)
            chart.take(1, i, Start + 100 * i); // five minutes
        QCOMPARE(chart.graph->getGraphs().first()->valueCount(), 3000);
    }

    void contextMenu()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.graph->startDrawing();
        for (int i = 0; i < 100; ++i)
            chart.take(1, i % 2 * 90 + 5, Start + 30 * i);
        const struct {
            const char* chosen;
            const char* before;
        } rows[] = {
            {"", "+Bold points -Points only +Show min/max marker"},
            {"Points only", "+Bold points -Points only +Show min/max marker"},
            {"Bold points", "+Bold points +Points only +Show min/max marker"},
            {"Show min/max marker", "-Bold points +Points only +Show min/max marker"},
            {"Points only", "-Bold points +Points only -Show min/max marker"},
            {"", "-Bold points -Points only -Show min/max marker"},
        };
        QImage before = chart.frame(Start + 3000);
        for (const auto& row : rows) {
            QStringList entries;
            QStringList tips;
            onMenu([&](QMenu* menu) {
                QAction* chosen = nullptr;
                for (QAction* action : menu->actions()) {
                    if (action->isSeparator())
                        continue;
                    entries << (action->isChecked() ? '+' : '-') + action->text();
                    tips << action->statusTip();
                    if (action->text() == row.chosen)
                        chosen = action;
                }
                menu->setActiveAction(chosen);
                QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
            });
            emit chart.graph->customContextMenuRequested(QPoint(20, 20));
            QCOMPARE(entries.join(' '), QString(row.before));
            QCOMPARE(tips, QStringList({"paint bolded points", "don't paint lines between points",
                                        "display range of minimum and maximum values"}));
            const QImage after = chart.frame(Start + 3000);
            QCOMPARE(after == before, QString(row.chosen).isEmpty());
            before = after;
        }
        onMenu([&chart](QMenu*) {
            delete chart.graph;
            chart.graph = nullptr;
        });
        chart.graph->contextMenuRequest(QPoint(20, 20));
        QVERIFY(!chart.graph);
    }

    void selection()
    {
        ShownGraph chart;
        chart.addCurves(2);
        chart.graph->setAppSettingKey("curves");
        chart.graph->setChartSelectorEnabled(true);
        TraceCommand offered(1, 10, toByte(200), 2, "variable");
        QList<TraceCommand*> list = {&offered};
        chart.graph->addTraceableParameters(&list);
        const auto select = [&chart](const std::function<void(GraphSelector*)>& action) {
            onMenu([action](QMenu* menu) {
                QCOMPARE(menu->actions().last()->text(), QString("Select items ..."));
                QCOMPARE(menu->actions().last()->statusTip(), QString("add given value to graph"));
                QTimer::singleShot(0, [action] {
                    auto* dialog = qobject_cast<GraphSelector*>(QApplication::activeModalWidget());
                    QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
                    action(dialog);
                });
                menu->setActiveAction(menu->actions().last());
                QTest::keyClick(menu, Qt::Key_Return);
            });
            chart.graph->contextMenuRequest(QPoint(20, 20));
        };
        QSignalSpy changed(chart.graph, &ValueOverTimeGraph::graphSelectionChanged);
        const QList<Graph*> before = chart.graph->getGraphs();
        select([](GraphSelector* dialog) { dialog->reject(); });
        QCOMPARE(chart.graph->getGraphs(), before);
        QCOMPARE(changed.size(), 0);

        const QString kept = before.at(1)->getLabel();
        select([](GraphSelector* dialog) {
            emit dialog->getSelectionTable()->cellClicked(0, 0);
            User::find<QComboBox>(dialog, "cbGroupSelector")->setCurrentText("all");
            emit User::find<QTableWidget>(dialog, "twAvailable")->cellClicked(0, 0);
            dialog->accept();
        });
        QCOMPARE(changed.size(), 1);
        const QList<Graph*> after = chart.graph->getGraphs();
        QCOMPARE(after.size(), 2);
        QCOMPARE(after.at(0)->getLabel(), kept);
        QCOMPARE(after.at(0)->valueCount(), 0);
        QCOMPARE(u8(after.at(1)->getType()), quint8(200));
        QCOMPARE(u8(after.at(1)->getMotorBank()), quint8(2));
        const auto stored = AppSettings().getParaMapVariant("curves");
        QCOMPARE(stored.keys(), QStringList({"0000" + kept, "0001variable"}));
        QCOMPARE(stored.last().value("ba").toByteArray(), QByteArray("\x01\x02\x0a\xc8"));
        QCOMPARE(stored.last().value("col").value<QColor>(), after.at(1)->getColor());

        select([&chart](GraphSelector*) { // the dialog goes with the graph
            delete chart.graph;
            chart.graph = nullptr;
        });
        QVERIFY(!chart.graph);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void settings()
    {
        {
            ShownGraph chart;
            chart.graph->setAppSettingKey("key");
            chart.button("btnScaleManually")->click();
            chart.box("sbMin")->setValue(-7);
            chart.box("sbMax")->setValue(8);
        }
        ShownGraph chart;
        QSignalSpy selections(chart.graph, &ValueOverTimeGraph::graphSelectionChanged);
        AppSettings().saveParaMapVariant({{"0000a", {{"ba", QByteArray(4, 1)}}}}, "key");
        chart.addCurves(1);
        chart.button("btnGraphDefault")->click();
        QCOMPARE(selections.size(), 0); // nothing is stored without a key
        QCOMPARE(AppSettings().getParaMapVariant("key").size(), 1);
        chart.graph->setAppSettingKey("key");
        QCOMPARE(chart.range(), QString("-7..8"));
        QVERIFY(chart.button("btnScaleManually")->isChecked());
        chart.button("btnGraphDefault")->click();
        QCOMPARE(selections.size(), 1);
        QVERIFY(AppSettings().getParaMapVariant("key").isEmpty());
        QCOMPARE(chart.graph->getGraphs().size(), 1);
    }

    void curvesChangedInASignal()
    {
        for (int i = 0; i < 2; ++i) {
            ShownGraph chart;
            chart.addCurves(2);
            for (int value : {0, 999})
                for (int command : {1, 2})
                    chart.take(command, value, Start);
            connect(chart.graph, &ValueOverTimeGraph::scaleChanged, [&chart, i] {
                if (i == 0)
                    chart.graph->clearValues();
                chart.graph->removeAllGraphs();
                chart.addCurves(3);
            });
            chart.frame(Start);
            QCOMPARE(chart.items<GraphItem>().size(), 3);
        }
    }

    void deletedInASignal()
    {
        const std::function<void(ShownGraph&)> triggers[] = {
            [](ShownGraph& chart) { QMetaObject::invokeMethod(chart.graph, "updateItemClock"); },
            [](ShownGraph& chart) { chart.graph->updateScene(); },
            [](ShownGraph& chart) { chart.button("btnGraphDefault")->click(); },
            [](ShownGraph& chart) { chart.box("sbMax")->setValue(50); },
        };
        for (const auto& trigger : triggers) {
            ShownGraph chart;
            chart.graph->setAppSettingKey("key");
            chart.addCurves(1);
            chart.take(1, 0, Start);
            chart.take(1, 999, Start + 1);
            const auto remove = [&chart] {
                delete chart.graph;
                chart.graph = nullptr;
            };
            connect(chart.graph, &ValueOverTimeGraph::scaleChanged, remove);
            connect(chart.graph, &ValueOverTimeGraph::graphSelectionChanged, remove);
            trigger(chart);
            QVERIFY(!chart.graph);
        }
    }
};

AXR_TEST_MAIN(ValueOverTimeGraphTest)
#include "ValueOverTimeGraphTest.moc"
