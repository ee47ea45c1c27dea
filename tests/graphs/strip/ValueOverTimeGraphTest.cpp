#include "ValueOverTimeGraph.h"
#include "AppSettings.h"
#include "Bytes.h"
#include "DrawingLog.h"
#include "Graph.h"
#include "GraphCaptionItem.h"
#include "GraphController.h"
#include "GraphItem.h"
#include "GraphRange_p.h"
#include "GraphSelector.h"
#include "Numbers.h"
#include "ShownGraph.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "ValueKey.h"
#include "XTimeAxisItem.h"

#include <QComboBox>
#include <QMenu>
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

QStringList drawing(GraphItem* item)
{
    DrawingLog log;
    QPainter painter(&log);
    item->paint(&painter, nullptr);
    painter.end();
    return log.takeLines();
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
    void layout()
    {
        ShownGraph chart({700, 400});
        chart.graph->setFont(DrawingLog::font());
        chart.view()->viewport()->setFont(DrawingLog::font()); // which has a sheet of its own
        chart.graph->setYAxisCaption("value");
        chart.graph->setDrawBoundingEnabled(true);
        chart.add(1, "abc");
        chart.add(2, "de");
        QVERIFY(chart.items<QGraphicsLineItem>().isEmpty());
        chart.rebuild();
        QRectF frame;
        for (const auto* line : chart.items<QGraphicsLineItem>()) {
            QCOMPARE(line->pen().color(), QColor(Qt::red));
            frame |= QRectF(line->line().p1(), line->line().p2());
            delete line; // the other items are looked at below
        }
        const QSizeF size = chart.view()->viewport()->size();
        QCOMPARE(frame, QRectF(QPointF(), size));

        chart.takeAll({-13, 87}, Start);
        chart.frame(Start);
        QList<double> depths;
        for (const auto* item : chart.items<QGraphicsItem>())
            depths << item->zValue();
        QCOMPARE(depths, QList<double>({-123, -0.5, 0, 0.5, 100, 123.3, 123.7}));
        const auto* captions = chart.items<GraphCaptionItem>().at(0);
        QCOMPARE(captions->pos(),
                 QPointF(size.width() - 22 - 33 - 33, (size.height() - 44 - 44) / 3));
        // of -20 to 100, with ticks of 20 from -20 to 140, the last one that has room
        const auto* axis = chart.items<XTimeAxisItem>().at(0);
        QCOMPARE(axis->plotLeft(), 5 * 11 + 20 + 1.0);
        const double step = (size.height() - 2 * 33) / 9;
        const int zero = static_cast<int>(33 + 9 * step * 100 / 120);
        const auto* curve = chart.items<GraphItem>().at(1);
        QCOMPARE(curve->getCommand(), char(2));
        QCOMPARE(curve->pos(), QPointF(axis->plotLeft(), zero - 7 * step));
        QCOMPARE(curve->boundingRect().size(), QSizeF(size.width() - axis->plotLeft(), 8 * step));
        QCOMPARE(chart.markers(), QString("123.3@%1 123.7@%2")
                                      .arg(qRound(zero + step * 13 / 20))
                                      .arg(qRound(zero - step * 87 / 20)));
        QVERIFY(captions->isVisible());
        chart.add(3, QString(60, 'x')); // which have no room
        chart.rebuild();
        QVERIFY(!chart.items<GraphCaptionItem>().at(0)->isVisible());
    }

    void panelAndFont()
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
        const int base = static_cast<QWidget*>(chart.graph)->minimumSizeHint().width();
        chart.graph->setFont(DrawingLog::font());
        QCOMPARE(chart.graph->minimumSize(), QSize(base + 2 * 15 * 11, 13 * 22));
    }

    void time()
    {
        ShownGraph chart;
        chart.rebuild();
        QCOMPARE(chart.frame(Start), chart.frame(Start + 300)); // it does not start by itself
        chart.graph->startDrawing();
        const QImage running = chart.frame(Start + 300); // the axis moves
        QVERIFY(running != chart.frame(Start + 500));
        const QImage later = chart.frame(Start + 1300); // by a second: only the numbers differ
        QVERIFY(later != running);
        QCOMPARE(later.copy(0, 0, 400, 130), running.copy(0, 0, 400, 130));
        chart.addCurves(1);
        chart.takeAll({0, 999}, Start);
        SignalLog log(chart.graph);
        const auto ticks = [&] {
            QMetaObject::invokeMethod(chart.graph, "updateItemClock");
            return !log.takeLines().isEmpty();
        };
        QVERIFY(ticks());
        QVERIFY(ticks()); // again, as long as the data do not fill their range
        chart.graph->hide();
        QVERIFY(!ticks());
        for (int i = 0; i < 3000; ++i)
            chart.take(1, i, Start + 100 * i); // five minutes, of which nothing is lost
        QCOMPARE(chart.valueCount(), 3002);
        chart.graph->resize(333, 222);
        chart.graph->show();
        QVERIFY(ticks());
        QCOMPARE(chart.view()->sceneRect().size(), QSizeF(chart.view()->viewport()->size()));
        chart.graph->setClock({});
        QVERIFY(ticks());
        QSignalSpy repaints(chart.view()->scene(), &QGraphicsScene::changed);
        QTest::qWait(50); // all that is left of before
        repaints.clear();
        QVERIFY(ticks() && repaints.wait());
        chart.graph->IN_replyValue(nullptr);
        Command now = reply(1, 1, 0, 0, 5);
        chart.graph->IN_replyValue(&now);
        QVERIFY(chart.graph->getGraphs().at(0)->getValues().last().time > Start + 1000000000);
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
            {{1, 2, 3}, {7}, "-100..100", 0}, // one of them has too few: it holds all
            {{}, {}, "-100..100", 0},
            {{2000000000, 2000000001}, {2000000002, 2000000000}, "200000000..2147483647", 3},
            {{INT_MIN, INT_MAX}, {0, 0}, "-2147483647..2147483647", 3},
            {{-2000000000, -2000000001}, {-2000000002, -2000000000}, "-2147483647..-200000000", 3},
        };
        for (const auto& row : rows) {
            ShownGraph chart;
            chart.addCurves(2);
            SignalLog log(chart.graph);
            for (int value : row.first)
                chart.take(1, value, Start);
            for (int value : row.second)
                chart.take(2, value, Start);
            chart.frame(Start);
            QCOMPARE(log.takeLines().isEmpty(), row.range == QString("-100..100"));
            QCOMPARE(chart.range(), QString(row.range));
            QCOMPARE(chart.markers().contains("123.3@"), bool(row.shown & 1));
            QCOMPARE(chart.markers().contains("123.7@"), bool(row.shown & 2));
        }
        GraphRange range;
        range.minimum = range.maximum = INT_MAX; // the other side gives way
        range.separate();
        QVERIFY(range.minimum == INT_MAX - 1 && range.maximum == INT_MAX);
    }

    void manualScaling()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.takeAll({5, 500}, Start);
        chart.button("btnScaleManually")->click();
        SignalLog log(chart.items<XTimeAxisItem>().at(0), {"updateMinMaxValue"});
        const auto range = [&](int max, int min) {
            chart.box("sbMax")->setValue(max);
            chart.box("sbMin")->setValue(min);
            chart.frame(Start);
            return log.takeLines().last();
        };
        QCOMPARE(range(100, 0), QString("updateMinMaxValue 0 100"));
        QCOMPARE(range(100, 100), QString("updateMinMaxValue 99 101"));
        QCOMPARE(chart.markers(), QString());
        chart.button("btnScaleDynamic")->click();
        chart.frame(Start);
        QCOMPARE(chart.range(), QString("0..500"));
        QVERIFY(!chart.markers().isEmpty());
    }

    void standsStill()
    {
        ShownGraph chart;
        chart.addCurves(1);
        chart.graph->startDrawing();
        for (int i = 0; i < 100; ++i)
            chart.take(1, i % 7 * 10, Start + 30 * i);
        chart.frame(Start + 3000);
        chart.button("btnStop")->click();
        const QImage frozen = chart.frame(Start + 3000);
        for (int jump : {500, -1000, -3600000}) { // the clock may be set
            chart.take(1, 33, Start + 3000 + jump);
            QVERIFY(chart.frame(Start + 3000 + jump) == frozen);
        }
        QCOMPARE(chart.valueCount(), 103);
        chart.rebuild();
        chart.frame(Start + 3000);
        QVERIFY(chart.frame(Start + 3000) == frozen);
        chart.button("btnStart")->click();
        chart.take(1, 50, Start + 3000);
        const QImage complete = chart.frame(Start + 3000); // with all that came meanwhile
        QVERIFY(complete != frozen);
        chart.rebuild();
        QCOMPARE(chart.frame(Start + 3000), complete);
        chart.button("btnStop")->click();
        QVERIFY(!drawing(chart.items<GraphItem>().at(0)).isEmpty());
        chart.button("btnClear")->click(); // this is seen all the same
        QCOMPARE(drawing(chart.items<GraphItem>().at(0)), QStringList());
        QCOMPARE(chart.valueCount(), 0);
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
        run(1, 0);
        chart.update(chart.time); // nothing was ever laid out by a frame
        QCOMPARE(chart.valueCount(), 100);
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
        chart.rebuild(); // has all of the other curve
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
        const Command replies[] = {reply(1, 3, 4, 2, 0), reply(200, 3, 4, 2, 0),
                                   reply(2, 3, 4, 2, 0), reply(1, 4, 4, 2, 0),
                                   reply(1, 3, 5, 2, 0), reply(1, 3, 4, 3, 0)};
        QStringList counts;
        for (const Command& one : replies) {
            chart.graph->takeReply(one, Start);
            counts << QString("%1%2%3")
                          .arg(chart.valueCount(0))
                          .arg(chart.valueCount(1))
                          .arg(chart.valueCount(2));
        }
        QCOMPARE(counts.join(' '), QString("101 111 111 111 111 111"));
        // the curves are gone, what is drawn is not yet
        chart.graph->removeAllGraphs();
        chart.graph->takeReply(replies[0], Start);
        chart.frame(Start);
        QCOMPARE(chart.items<GraphItem>().size(), 3);
        chart.rebuild();
        QCOMPARE(chart.items<GraphItem>().size(), 0);
    }

    /// No sample goes because of the clock, whether the picture runs or not.
    void clockIsSet()
    {
        for (int run = 0; run < 4; ++run) {
            ShownGraph chart;
            chart.addCurves(1);
            if (run < 2)
                chart.graph->startDrawing();
            chart.frame(Start);
            qint64 now = Start;
            for (int i = 0; i < 200; ++i) {
                now += i != 100 ? 7 : run % 2 ? 3600000 : -3600000;
                if (i == 100)
                    chart.graph->clearValues();
                chart.take(1, i % 50, now);
                if (i % 6 == 0)
                    chart.frame(now);
            }
            QCOMPARE(chart.valueCount(), 100);
        }
    }

    void anySizeAndValue()
    {
        for (const QSize& size : {QSize(0, 0), QSize(4000, 30), QSize(30, 3000), QSize(420, 260)}) {
            ShownGraph chart(size);
            chart.addCurves(1);
            chart.graph->startDrawing();
            for (double value : {qQNaN(), qInf(), -qInf(), 1e300, -1e300, 3e9, 0., -1.}) {
                for (int i = 1; i < 3; ++i)
                    chart.graph->getGraphs().at(0)->addValue(value, chart.time + 20 * i);
                chart.frame(chart.time + 40);
                chart.resize(size + QSize(3, 2));
            }
            chart.graph->clearValues();
            chart.takeAll({0, 100}, chart.time);
            chart.frame(chart.time);
            QCOMPARE(chart.range(), QString("0..100"));
        }
    }

    /// The picture that scrolls shows what a painting of all lines at once shows. Laid over the
    /// ground as a whole, each curve may round once more.
    void scrolledPicture()
    {
        constexpr qint64 Hour = 3600 * 1000;
        std::mt19937 random(6);
        const auto dice = [&random](int sides) { return static_cast<int>(random() % sides); };
        ShownGraph chart({600, 300});
        chart.addCurves(4);
        chart.graph->setYAxisCaption("value");
        chart.graph->startDrawing();
        const int pauses[] = {4, 9, 40, 600}; // ms
        qint64 next[4] = {Start, Start, Start, Start};
        int values[4] = {};
        qint64 now = Start;
        for (int curve = 0; curve < 4; ++curve)
            chart.take(curve + 1, curve * 20, now - 1);
        chart.frame(now);
        for (int frame = 0; frame < 600; ++frame) {
            now += 37 + dice(7);
            if (frame == 300 || frame == 400) {
                const qint64 jump = frame == 300 ? -Hour : Hour;
                now += jump;
                for (qint64& time : next)
                    time += jump;
            }
            if (frame == 360)
                now -= 300; // the youngest samples are to come once more
            for (int curve = 0; curve < 4; ++curve) {
                for (; next[curve] <= now; next[curve] += 1 + dice(2 * pauses[curve])) {
                    const int step = curve < 3 ? 20 : 800; // the last one has long, steep lines
                    values[curve] = qBound(-400, values[curve] + dice(2 * step + 1) - step, 400);
                    chart.take(curve + 1, values[curve], next[curve]);
                }
            }
            if (frame > 300 && frame % 47 == 20)                     // and with it no picture
                chart.take(1 + dice(4), dice(800) - 400, now - 120); // late
            if (frame % 75 == 50)
                chart.graph->stopDrawing();
            if (frame % 75 == 58)
                chart.graph->startDrawing();
            if (frame == 325)
                chart.button("btnScaleManually")->click();
            if (frame > 325 && frame % 40 == 0)
                chart.box("sbMax")->setValue(100 + frame % 3 * 50);
            if (frame == 90)
                chart.graph->setDataPointsEnabled(false);
            if (frame == 500) {
                chart.box("sbMax")->setValue(0); // the time axis lies at the top
                chart.box("sbMin")->setValue(-400);
            }
            chart.update(now);
            const QImage picture = chart.paint();
            if (frame % 3)
                continue;
            const int difference = greatestDifference(picture, rendered(chart));
            QVERIFY2(difference < 10,
                     qPrintable(QString("frame %1: %2").arg(frame).arg(difference)));
        }
        // one that is painted alone, and not by its graph, has its lines all the same
        for (GraphItem* item : chart.items<GraphItem>())
            QVERIFY(!drawing(item).isEmpty());
        QCOMPARE(chart.paint(), chart.paint());
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
            const char* before; // which of the three are checked
        } rows[] = {{"", "1 0 1"},
                    {"Points only", "1 0 1"},
                    {"Bold points", "1 1 1"},
                    {"Show min/max marker", "0 1 1"},
                    {"Points only", "0 1 0"},
                    {"", "0 0 0"}};
        QImage before = chart.frame(Start + 3000);
        for (const auto& row : rows) {
            QStringList entries;
            QStringList checks;
            onMenu([&](QMenu* menu) {
                QAction* chosen = nullptr;
                for (QAction* action : menu->actions()) {
                    entries << action->text() + ": " + action->statusTip();
                    if (action->isCheckable())
                        checks << QString::number(action->isChecked());
                    if (*row.chosen && action->text() == row.chosen)
                        chosen = action;
                }
                menu->setActiveAction(chosen);
                QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
            });
            emit chart.graph->customContextMenuRequested(QPoint(20, 20));
            QCOMPARE(entries, QStringList({"Bold points: paint bolded points",
                                           "Points only: don't paint lines between points",
                                           "Show min/max marker: display range of minimum and "
                                           "maximum values",
                                           ": "}));
            QCOMPARE(checks.join(' '), QString(row.before));
            const QImage after = chart.frame(Start + 3000);
            QCOMPARE(after == before, QString(row.chosen).isEmpty());
            before = after;
        }
        const auto dots = [&chart](bool are) {
            chart.graph->setDataPointsEnabled(are);
            return chart.frame(Start + 3000);
        };
        const QImage without = dots(false);
        QVERIFY(dots(true) != without);
        for (int press = 0; press < 2; ++press) { // markers on and off again
            onMenu([&](QMenu* menu) {
                dots(false); // what the host changes meanwhile stays
                menu->setActiveAction(menu->actions().at(2));
                QTest::keyClick(menu, Qt::Key_Return);
            });
            chart.graph->contextMenuRequest(QPoint(20, 20));
        }
        QCOMPARE(chart.frame(Start + 3000), without);
        onMenu([&chart](QMenu*) { chart.remove(); });
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
        chart.graph->addTraceableParameters(nullptr);
        const auto select = [&chart](const std::function<void(GraphSelector*)>& action) {
            onMenu([action](QMenu* menu) {
                QCOMPARE(menu->actions().last()->text(), QString("Select items ..."));
                QCOMPARE(menu->actions().last()->statusTip(), QString("add given value to graph"));
                QTimer::singleShot(0, [action] {
                    auto* dialog = qobject_cast<GraphSelector*>(QApplication::activeModalWidget());
                    QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
                    QCOMPARE(dialog->windowType(), Qt::Dialog);
                    action(dialog);
                });
                menu->setActiveAction(menu->actions().last());
                QTest::keyClick(menu, Qt::Key_Return);
            });
            chart.graph->contextMenuRequest(QPoint(20, 20));
        };
        SignalLog log(chart.graph);
        const QList<Graph*> before = chart.graph->getGraphs();
        select([](GraphSelector* dialog) { dialog->reject(); });
        QCOMPARE(chart.graph->getGraphs(), before);
        QCOMPARE(log.takeLines(), QStringList());
        select([](GraphSelector* dialog) {
            emit dialog->getSelectionTable()->cellClicked(0, 0);
            User::find<QComboBox>(dialog, "cbGroupSelector")->setCurrentText("all");
            emit User::find<QTableWidget>(dialog, "twAvailable")->cellClicked(0, 0);
            dialog->accept();
        });
        QCOMPARE(log.takeLines(), QStringList("graphSelectionChanged"));
        QCOMPARE(chart.items<GraphItem>().at(1)->getCommand(), char(10));
        const auto stored = AppSettings().getParaMapVariant("curves");
        QCOMPARE(stored.keys(), QStringList({"0000b", "0001variable"}));
        const Graph* added = chart.graph->getGraphs().at(1);
        QVERIFY(isSameValue(*added, offered));
        QCOMPARE(stored.last().value("ba").toByteArray(), QByteArray("\x01\x02\x0a\xc8"));
        QCOMPARE(stored.last().value("col").value<QColor>(), added->getColor());

        chart.button("btnGraphDefault")->click();
        QCOMPARE(log.takeLines(), QStringList("graphSelectionChanged"));
        QVERIFY(AppSettings().getParaMapVariant("curves").isEmpty());
        QCOMPARE(chart.graph->getGraphs().size(), 2); // what is shown is the host's to decide
        chart.graph->setAppSettingKey(QString());
        chart.button("btnGraphDefault")->click();
        QCOMPARE(log.takeLines(), QStringList());
        chart.graph->clearTraceableParameter();
        select([&chart](GraphSelector* dialog) { // which goes with the graph
            QCOMPARE(User::find<QTableWidget>(dialog, "twAvailable")->rowCount(), 0);
            chart.remove();
        });
        QVERIFY(!chart.graph && !QApplication::activeModalWidget());
    }

    void hostInASignal()
    {
        const auto fill = [](ShownGraph& chart) {
            chart.graph->setAppSettingKey("key");
            chart.addCurves(2);
            chart.graph->startDrawing();
            chart.takeAll({0, 999}, Start);
        };
        const struct {
            const char* signal;
            std::function<void(ShownGraph&)> trigger;
        } deletions[] = {
            {"scaleChanged(int,int)",
             [](ShownGraph& c) { QMetaObject::invokeMethod(c.graph, "updateItemClock"); }},
            {"scaleChanged(int,int)", [](ShownGraph& c) { c.graph->updateScene(); }},
            {"scaleChanged(int,int)", [](ShownGraph& c) { c.box("sbMax")->setValue(50); }},
            {"graphSelectionChanged()",
             [](ShownGraph& c) { c.button("btnGraphDefault")->click(); }},
        };
        for (const auto& row : deletions) {
            ShownGraph chart;
            fill(chart);
            QVERIFY(endsInside(chart.graph, row.signal, [&] { row.trigger(chart); }));
            chart.graph = nullptr;
        }
        ShownGraph chart;
        fill(chart);
        int told = 0;
        connect(chart.graph, &ValueOverTimeGraph::scaleChanged, chart.graph, [&] {
            chart.graph->updateScene(); // a frame within a frame
            if (++told % 2)
                chart.graph->clearValues();
            chart.graph->removeAllGraphs();
            chart.addCurves(3);
        });
        chart.frame(Start);
        QVERIFY(told > 0 && told < 20);
        QCOMPARE(chart.items<GraphItem>().size(), 3);
    }
};

AXR_TEST_MAIN(ValueOverTimeGraphTest)
#include "ValueOverTimeGraphTest.moc"
