#include "Chart.h"
#include "ChartSelector.h"
#include "DrawerArea.h"
#include "DrawerFrame_p.h"
#include "PaintLog.h"
#include "SignalLog.h"
#include "SimpleDrawer.h"
#include "SimpleScaledDrawer.h"
#include "SimpleScaledGraphController.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "User.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolTip>

#include <limits>

namespace
{

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr int IntMax = std::numeric_limits<int>::max();
constexpr char Far = static_cast<char>(200);

using Values = QList<double>;

Values fill(Chart& chart, const Values& values)
{
    for (double value : values)
        chart.addValue(value);
    return chart.getValues();
}

/// An area with 200 columns, and what a paint of it draws and emits.
struct Area {
    Area() : area(nullptr) { area.resize(320, 240); }
    QStringList drawn()
    {
        PaintLog device(area.size());
        area.render(&device, QPoint(), QRegion(), QWidget::RenderFlags());
        return device.takeLines();
    }
    QString paint()
    {
        drawn();
        return log.takeLines().join(", ").remove("changedChartWidth ").remove("scaleChanged ");
    }
    DrawerArea area;
    SignalLog log{&area};
};

/// Answers the next modal dialog once it is on the screen.
template <class Dialog>
void whenAsked(const std::function<void(Dialog*)>& answer)
{
    QTimer::singleShot(0, qApp, [answer] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog && QTest::qWaitForWindowExposed(dialog))
            answer(dialog);
    });
}

} // namespace

class ScaledDrawerTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void chartKeepsTheNewest()
    {
        Chart chart(1, 2, 6, 3, "label", Qt::red);
        const Values before = fill(chart, QVector<double>(101, 5).toList());
        QCOMPARE(before.size(), 100);
        chart.setMaxValues(2);
        chart.setMaxValues(-1);
        const std::unique_ptr<Values> copy(chart.copyValues());
        QCOMPARE(fill(chart, {7}), Values({5, 7}));
        QCOMPARE(*copy, before);
        chart.setMaxValues(0);
        QCOMPARE(fill(chart, {7}), Values());

        DrawerArea area(nullptr);
        area.addChart(nullptr);
        area.addChart(&chart);
        QCOMPARE(fill(chart, QVector<double>(1001, 5).toList()).size(), 1000);
        area.setChartSize(3);
        QCOMPARE(fill(chart, {6, 7, 8}), Values({6, 7, 8}));
        const struct {
            qint64 skipped, count;
            std::vector<double> expected;
        } rows[] = {{0, 2, {7, 8}}, {1, 1, {7}}, {-5, 9, {6, 7, 8}},      {3, 2, {}},
                    {2, 5, {6}},    {0, -1, {}}, {qint64(1) << 40, 1, {}}};
        for (const auto& row : rows) {
            std::vector<double> some;
            chart.copyValues(row.skipped, row.count, &some);
            QVERIFY(some == row.expected);
        }
    }

    /// Where each line, label and dot is, with 2 pixels for 1.
    void picture()
    {
        Area shown;
        QFont font;
        font.setPixelSize(12);
        shown.area.setFont(font);
        font.setPixelSize(10); // of which it makes this
        const QFontMetrics metrics(font);
        const int end = 20 + metrics.height() + 186; // of the plot
        shown.area.resize(320, end + 20);
        shown.area.setYAxisCaption("caption");
        shown.area.doManualScaling();
        shown.area.setMinValue(-31);
        shown.area.setMaxValue(62);
        Chart one(1, 0, 6, 1, "one", Qt::red);
        Chart two(1, 0, 6, 2, "two", Qt::blue);
        Chart hidden(1, 0, 6, 3, "hidden with a long label", Qt::green);
        for (Chart* chart : {&one, &hidden, &two})
            shown.area.addChart(chart);
        hidden.setVisible(false);
        hidden.addValue(5);
        fill(one, {62, 0, -31, 99, -32, 10});
        fill(two, {64}); // up to 5 pixels above the plot
        QStringList expected{"#ffffff rect 0,0 320,%1", "#000000 rect 0,0 319,%2",
                             "#000000 line 100,%3 300,%3", "#000000 line 100,%3 100,%4",
                             "#000000 text %5,%6 caption"};
        for (int i = 0; i <= 10; ++i) {
            const int y = int(end - i * 18.6);
            if (i > 0)
                expected << QString("#000000 line 98,%1 102,%1").arg(y);
            expected << QString("#000000 text 20,%1 %2").arg(y + 5).arg(-31 + i * 9.3);
        }
        expected << "#a0a0a4 line 100,%7 300,%7";
        const auto at = [&expected, end](const char* what, int x, int height, const char* rest) {
            expected << QString("%1 %2,%3 %4").arg(what).arg(x).arg(end - height).arg(rest);
            return expected.last();
        };
        const int legend = 300 - metrics.horizontalAdvance(hidden.getLabel());
        const QString newest = at("#ff0000 rect", 298, 82, "1,1");
        at("#ff0000 rect", 295, 0, "1,1");
        at("#ff0000 rect", 294, 62, "1,1");
        const QString sixth = at("#ff0000 rect", 293, 186, "1,1");
        at("#ff0000 text", legend, 124, "one");
        at("#0000ff rect", 298, 190, "1,1");
        at("#0000ff text", legend, 104, "two");
        QCOMPARE(shown.drawn().join('\n'), expected.join('\n')
                                               .arg(end + 20)
                                               .arg(end + 19)
                                               .arg(end)
                                               .arg(end - 186)
                                               .arg(100 + metrics.horizontalAdvance(' '))
                                               .arg(end - 196)
                                               .arg(end - 62));
        shown.area.setDrawingInterval(0, 9, 4); // 5 back
        QVERIFY(shown.drawn().contains(QString(sixth).replace("293", "298")));
        shown.area.setDrawingInterval(0, 0, 0);
        shown.area.setResolution(3);
        shown.area.setResolution(0);
        QVERIFY(shown.drawn().contains(QString(sixth).replace("293", "297")));
        font.setPointSizeF(10);
        QCOMPARE(DrawerFrame::smallFont(font).pointSizeF(), 9.4);
    }

    void geometry()
    {
        const DrawerGeometry plain({320, 240}, 14, -50, 150);
        QCOMPARE(plain.zeroY(), 220 - 46 - 1); // cut, not rounded: 46.5 below
        const QMap<int, bool> heights{{28, false}, {29, true}, {220, true}, {221, false}};
        for (int y : heights.keys())
            QCOMPARE(plain.isInPlot(y), heights[y]);
        QVERIFY(!plain.isInPlot(plain.y(1e300)) && !plain.isInPlot(plain.y(NoNumber)));
        const QVector<QVector<int>> places{{20, 201, 1},  {99, 208, 1},   {20, 194, 1},
                                           {19, 201, -1}, {100, 201, -1}, {20, 209, -1},
                                           {20, 220, 0},  {20, 34, 10},   {20, 26, -1}};
        for (const auto& place : places)
            QCOMPARE(plain.tickAt({place[0], place[1]}, 14), place[2]);
        QCOMPARE(DrawerGeometry({320, 240}, 14, -IntMax - 1, IntMax).y(IntMax), 34);
        const DrawerGeometry none({320, 240}, 14, 5, 5);
        QCOMPARE(none.tickY(10), 220);
        QVERIFY(!none.isInPlot(none.y(5)));
        QCOMPARE(DrawerGeometry({100, 53}, 14, 0, 100).tickAt({30, 33}, 14), -1);
    }

    void walk()
    {
        const struct {
            std::vector<double> values; // newest last
            int resolution;
            const char* range;
            int columns;
        } rows[] = {
            {{50}, 1, "0 49..51", 1},
            {{NoNumber}, 1, "1 2147483647..-214783648", 0},
            {{-5.5, 2.5}, 1, "0 -6..3", 1},
            {{1, 2, 3, 4, 5, 6, 7}, 3, "0 0..8", 2},
            {{999, 99, 1, 1}, 1, "0 0..100", 2}, // the one at which the walk ends counts
            {{1e300, -1e300}, 1, "0 -2147483648..2147483647", 0},
            {{-2e9}, 1, "0 -2000000001..-214783648", 0},
            {{IntMax}, 1, "0 2147483647..2147483647", 0},
        };
        for (const auto& row : rows) {
            const DrawerGeometry geometry({122, 240}, 14, 0, 100);
            DrawerColumns columns;
            DrawerRange range;
            const auto& rects = columns.walk(row.values, row.resolution, geometry, &range);
            QCOMPARE(
                QString("%1 %2..%3").arg(range.isEmpty).arg(range.minimum()).arg(range.maximum()),
                QString(row.range));
            QCOMPARE(static_cast<int>(rects.size()), row.columns);
            QCOMPARE(DrawerColumns::walkLength(geometry, row.resolution), 3 * row.resolution);
        }
    }

    void dynamicRange()
    {
        Area shown;
        DrawerArea& area = shown.area;
        Chart one(1, 0, 6, 1, "one", Qt::red);
        Chart hidden(1, 0, 6, 2, "hidden", Qt::red);
        hidden.setVisible(false);
        hidden.addValue(5000);
        area.addChart(&hidden);
        area.addChart(&one);
        for (const char* expected : {"200, -100 100", "200"})
            QCOMPARE(shown.paint(), QString(expected));
        area.addTraceValue(1, 0, 6, 1, 500);
        area.addTraceValue(1, 6, 1, 0, 9999); // nobody's
        QCOMPARE(shown.paint(), QString("200, 499 501"));
        fill(one, QVector<double>(201, 20).toList()); // the first one is out of sight
        QCOMPARE(shown.paint(), QString("200, 19 21"));
        area.setDrawingInterval(0, 300, 270); // 30 back
        QCOMPARE(shown.paint(), QString("200, 19 501"));
        area.setDrawingInterval(0, 300, -IntMax);
        QCOMPARE(shown.paint(), QString("200, -100 100"));
        area.doManualScaling();
        area.setMaxValue(-100);
        area.setDrawingInterval(0, 0, 0);
        QCOMPARE(shown.paint(), QString("200"));
        area.doDynamicScaling();
        area.clearValues();
        area.resize(1, 1); // stays 100 x 100
        QCOMPARE(shown.paint(), QString("-20, -100 100"));
        area.removeChart(1, 0, 6, 1);
        QCOMPARE(*area.getCharts(), QList<Chart*>({&hidden}));
    }

    void labelsInFullByToolTip()
    {
        DrawerArea area(nullptr);
        area.resize(320, 240);
        area.doManualScaling();
        area.setMinValue(-IntMax - 1);
        area.setMaxValue(IntMax);
        const int fontHeight = QFontMetrics(DrawerFrame::smallFont(area.font())).height();
        const DrawerGeometry geometry(area.size(), fontHeight, -IntMax - 1, IntMax);
        const auto tipAt = [&](int x, int tick) {
            const QPoint place(x, geometry.tickY(tick));
            QHelpEvent event(QEvent::ToolTip, place, area.mapToGlobal(place));
            const bool isTaken = QApplication::sendEvent(&area, &event) && event.isAccepted();
            return isTaken ? QToolTip::text() : QString();
        };
        QCOMPARE(tipAt(30, 0), QString("-2147483648"));
        QCOMPARE(tipAt(30, 1), QString("-1717986918.5"));
        QCOMPARE(tipAt(200, 5), QString());
    }

    void scrollBar()
    {
        SimpleScaledDrawer drawer;
        SimpleDrawer plain;
        const auto state = [](const DrawerPanel& panel) {
            const auto* bar = User::find<QScrollBar>(&panel, "scrollBar");
            return QString("%1..%2 %3").arg(bar->minimum()).arg(bar->maximum()).arg(bar->value());
        };
        auto* bar = User::find<QScrollBar>(&drawer, "scrollBar");
        QCOMPARE(state(drawer), QString("0..999 999"));
        QCOMPARE(bar->singleStep(), 100);
        const std::pair<int, const char*> widths[] = {
            {200, "200..999 999"},     {300, "300..999 700"},     {800, "800..999 800"},
            {1200, "1200..1200 1200"}, {1100, "1100..1100 1100"}, {400, "400..999 999"}};
        for (const auto& [width, expected] : widths) {
            if (width == 300)
                bar->setValue(700);
            drawer.handleChangedChartWidth(width);
            QCOMPARE(state(drawer), QString(expected));
        }
        drawer.setChartSize(-IntMax - 1);
        QCOMPARE(state(drawer), QString("0..0 0"));
        QCOMPARE(state(plain), QString("0..999 999"));
        plain.setChartSize(-IntMax - 1);
        QCOMPARE(state(plain), QString("%1..%1 %1").arg(-IntMax - 1));

        // the timer paints, and scrolling does at once
        auto* area = User::find<DrawerArea>(&plain, "drawerArea");
        Chart chart(1, 2, 6, 3, "", Qt::red);
        plain.setChartSize(400);
        plain.addChart(&chart);
        fill(chart, {50, 70});
        plain.setYAxisCaption("speed");
        QCOMPARE(plain.windowTitle() + area->getYAxisCaption(), QString("speedspeed"));
        plain.resize(300, 200);
        plain.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plain));
        const auto* plainBar = User::find<QScrollBar>(&plain, "scrollBar");
        QCOMPARE(area->geometry() | plainBar->geometry(), plain.rect());
        QCOMPARE(state(plain), QString("180..399 399"));
        User::find<QScrollBar>(&plain, "scrollBar")->setValue(398);
        QCOMPARE(area->getMaxValue(), 51);
        plain.startDrawing();
        chart.addValue(90);
        QTRY_COMPARE_WITH_TIMEOUT(area->getMaxValue(), 71, 900); // each 100 ms
        area->setRepaintInterval(3600000);
        plain.startDrawing();
        area->setRepaintInterval(1);
        chart.addValue(110);
        QTRY_COMPARE(area->getMaxValue(), 91);
        plain.stopDrawing();
        chart.addValue(0);
        QTest::qWait(5);
        QCOMPARE(area->getMaxValue(), 91);
    }

    /// The panel beside the drawer, used by hand and followed when the host scales.
    void scaling()
    {
        SimpleScaledDrawer drawer;
        Chart chart(1, 2, 6, 3, "", Qt::red);
        drawer.addChart(&chart);
        drawer.requestedTraceValue(1, 6, 3, 2, 70);
        drawer.requestedTraceValue(1, 2, 6, 3, 99);
        auto* panel = drawer.findChild<SimpleScaledGraphController*>();
        auto* area = User::find<DrawerArea>(&drawer, "drawer");
        SignalLog log(panel);
        const auto click = [panel](const char* name) {
            User::find<QAbstractButton>(panel, name)->click();
        };
        const auto state = [&] {
            drawer.grab();
            const bool manual = User::find<QAbstractButton>(panel, "btnScaleManually")->isChecked();
            return QString("%1 %2..%3: %4")
                .arg(manual ? "manual" : "dynamic")
                .arg(area->getMinValue())
                .arg(area->getMaxValue())
                .arg(log.takeLines().join(", "));
        };
        QCOMPARE(state(), QString("dynamic 69..71: minValueChanged 69, maxValueChanged 71"));
        click("btnScaleManually");
        chart.addValue(-70);
        QCOMPARE(state(), QString("manual 69..71: scaleManually"));
        panel->setSingleStep(3);
        User::find<QSpinBox>(panel, "sbMin")->stepDown();
        User::find<QSpinBox>(panel, "sbMax")->stepUp();
        QCOMPARE(state(), QString("manual 66..74: minValueChanged 66, maxValueChanged 74"));
        click("btnScaleDynamic");
        QCOMPARE(state(), QString("dynamic -71..71: scaleDynamic, minValueChanged -71, "
                                  "maxValueChanged 71"));
        click("btnClearCharts");
        QCOMPARE(chart.getValues(), Values());
        panel->setTitle("title");
        QCOMPARE(panel->findChild<QGroupBox*>()->title(), QString("title"));
        const auto* min = User::find<QSpinBox>(panel, "sbMin");
        const auto* max = User::find<QSpinBox>(panel, "sbMax");
        for (bool hasMin : {false, true}) {
            panel->setMinValueEnabled(hasMin);
            QCOMPARE(min->isEnabled(), hasMin); // at once
            for (bool dynamic : {true, false}) {
                panel->setDynamic(dynamic);
                QVERIFY(max->isEnabled() != dynamic);
                QCOMPARE(min->isEnabled(), hasMin && !dynamic);
            }
        }

        panel->setDynamic(true);
        drawer.setEnabled(false);
        drawer.doManualScaling();
        log.takeLines();
        const std::pair<int, int> ranges[] = {
            {-50, 50}, {5000, 6000}, {-6000, -5000}, {0, IntMax}, {-IntMax, 0}};
        for (const auto& [low, high] : ranges) {
            for (bool isMinFirst : {true, false}) {
                drawer.setMinValue(0);
                drawer.setMaxValue(1);
                if (isMinFirst)
                    drawer.setMinValue(low);
                drawer.setMaxValue(high);
                drawer.setMinValue(low);
                QCOMPARE(state(), QString("manual %1..%2: ").arg(low).arg(high));
                QVERIFY(min->value() == low && max->value() == high);
            }
        }
        drawer.doDynamicScaling();
        QVERIFY(state().startsWith("dynamic -100..100"));
    }

    void selection()
    {
        SimpleScaledDrawer drawer;
        drawer.setYAxisCaption("speed");
        Chart chart(1, 0, 6, 3, "host's", Qt::red);
        chart.addValue(1);
        drawer.addChart(&chart);
        TraceCommand same(1, 6, 3, 0, "other name");
        TraceCommand position(Far, 6, 1, 2, "position");
        QList<TraceCommand*> all{&same, &position, nullptr};
        drawer.addTraceableParameters(&all);
        drawer.addTraceableParameters(nullptr);
        SignalLog log(&drawer);
        auto* area = User::find<DrawerArea>(&drawer, "drawer");
        QTest::mouseClick(area, Qt::RightButton);
        drawer.setChartSelectorEnabled(true);
        QTest::mouseClick(area, Qt::LeftButton);
        QString seen;
        /// Clicks cells, counted from 1 and those of the selected ones below 0.
        const auto choose = [&](const QVector<int>& cells, bool accept) {
            whenAsked<ChartSelector>([&](ChartSelector* dialog) {
                auto* available = User::find<QTableWidget>(dialog, "twAvailable");
                QTableWidget* selected = dialog->getSelectionTable();
                for (int column : cells)
                    emit(column < 0 ? selected : available)->cellClicked(0, qAbs(column) - 1);
                seen = QString::number(dialog->isParameterSelected("6"));
                for (const QTableWidget* table : {available, selected}) {
                    seen += ", ";
                    for (int row = 0; row < table->rowCount(); ++row)
                        seen += table->item(row, 2)->text() +
                                table->item(row, 3)->background().color().name();
                }
                seen += QString(" %1 %2 %3 %4 %5 %6 ")
                            .arg(selected->showGrid())
                            .arg(available->showGrid())
                            .arg(selected->tabKeyNavigation())
                            .arg(selected->rowHeight(selected->rowCount() - 1))
                            .arg(selected->columnWidth(0))
                            .arg(selected->columnWidth(2)) +
                        dialog->windowTitle();
                accept ? dialog->accept() : dialog->reject();
            });
            QTest::mouseClick(area, Qt::RightButton);
            return log.takeLines().size();
        };
        QCOMPARE(choose({3, 1}, false), 1); // the second one is no row
        QCOMPARE(seen, QString("1, , host's#ff0000position#c0c0c0 "
                               "0 0 0 20 50 215 Select charts for \"speed\" graph"));
        QCOMPARE(*drawer.getCharts(), QList<Chart*>({&chart}));
        QCOMPARE(choose({1, -2}, true), 1);
        QCOMPARE(seen.section(' ', 0, 2), QString("1, host's#ff0000, position#c0c0c0"));
        QCOMPARE(chart.getValues(), Values({1}));
        const Chart* chosen = drawer.getCharts()->first();
        QCOMPARE(chosen->getLabel() + chosen->getColor().name(), QString("position#c0c0c0"));
        drawer.requestedTraceValue(Far, 6, 1, 2, 5);
        QCOMPARE(chosen->getValues(), Values({5}));
        drawer.addChart(&chart);
        drawer.removeChart(Far, 2, 6, 1); // dies
        QCOMPARE(*drawer.getCharts(), QList<Chart*>({&chart}));
        drawer.removeAllTraceableParameter();
        choose({}, false);
        QVERIFY(seen.startsWith("1, , host's#ff0000 "));

        auto* dying = new SimpleScaledDrawer;
        dying->setChartSelectorEnabled(true);
        bool isClosed = false;
        whenAsked<ChartSelector>([&](ChartSelector* dialog) {
            delete dying;
            isClosed = !dialog->isVisible();
        });
        QTest::mousePress(User::find<DrawerArea>(dying, "drawer"), Qt::RightButton);
        QVERIFY(isClosed);
    }

    void colors()
    {
        TraceCommand position(1, 6, 1, 2, "position");
        QList<TraceCommand*> all{&position};
        const QPointer<ChartSelector> selector(new ChartSelector(nullptr, nullptr, &all));
        auto* table = User::find<QTableWidget>(selector, "twAvailable");
        const auto colorAfter = [&](const std::function<void(QColorDialog*)>& answer) {
            whenAsked<QColorDialog>([&](QColorDialog* dialog) {
                dialog->setCurrentColor(Qt::green);
                answer(dialog);
            });
            table->selectRow(0);
            emit table->cellClicked(0, 4);
            return selector ? table->item(0, 3)->background().color() : QColor();
        };
        QCOMPARE(colorAfter(&QDialog::reject), QColor(Qt::lightGray));
        QCOMPARE(colorAfter(&QDialog::accept), QColor(Qt::green));
        QVERIFY(table->selectedItems().isEmpty());
        emit table->cellClicked(-1, 0); // no such row
        QCOMPARE(selector->getSelectionTable()->rowCount(), 0);
        colorAfter([&](QColorDialog*) { delete selector; }); // and its dialog
        QVERIFY(!selector);
    }
};

AXR_TEST_MAIN(ScaledDrawerTest)
#include "ScaledDrawerTest.moc"
