#include "Chart.h"
#include "ChartSelector.h"
#include "DrawerArea.h"
#include "DrawerGeometry_p.h"
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

constexpr int Width = 320; // 200 columns
constexpr int Newest = Width - 1 - 21;
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr int IntMax = std::numeric_limits<int>::max();

using Values = QList<double>;

Values fill(Chart& chart, int count)
{
    for (int i = 0; i < count; ++i)
        chart.addValue(i);
    return chart.getValues();
}

/// An area of its own, and what it emits.
struct Area {
    Area() : area(nullptr)
    {
        area.resize(Width, 240);
        QObject::connect(&area, &DrawerArea::changedChartWidth,
                         [this](int width) { emitted << QString::number(width); });
        QObject::connect(&area, &DrawerArea::scaleChanged, [this](int min, int max) {
            emitted << QString("%1..%2").arg(min).arg(max);
        });
    }
    QImage paint() { return area.grab().toImage(); }
    QString paintAndTell()
    {
        emitted.clear();
        paint();
        return emitted.join(' ');
    }
    DrawerGeometry geometry(int min, int max) const
    {
        QFont font = area.font();
        font.setPointSizeF((font.pointSizeF() + 8.8) * 0.5);
        return {area.size(), QFontMetrics(font).height(), min, max};
    }

    DrawerArea area;
    QStringList emitted;
};

bool isRed(const QImage& image, int x, int y)
{
    const QColor color = image.pixelColor(x, y);
    return color.red() > 200 && color.green() < 60 && color.blue() < 60;
}

} // namespace

class ScaledDrawerTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void chartKeepsTheNewest()
    {
        Chart chart(1, 2, 6, 3, "label", Qt::red);
        QCOMPARE(fill(chart, 101).size(), 100);
        QCOMPARE(chart.getValues().first(), 1.0);
        chart.setMaxValues(2);
        chart.setMaxValues(-1);
        QCOMPARE(chart.getValues().size(), 100);
        const Values before = chart.getValues();
        const std::unique_ptr<Values> copy(chart.copyValues());
        chart.addValue(7);
        QCOMPARE(chart.getValues(), Values({100, 7}));
        QCOMPARE(before.size(), 100);
        QCOMPARE(*copy, before);
        chart.setMaxValues(0);
        QCOMPARE(fill(chart, 1), Values());

        DrawerArea area(nullptr);
        area.addChart(&chart);
        QCOMPARE(fill(chart, 1001).size(), 1000);
        area.setChartSize(3);
        QCOMPARE(fill(chart, 9), Values({6, 7, 8}));
        std::vector<double> some;
        const struct {
            qint64 skipped;
            qint64 count;
            std::vector<double> expected;
        } rows[] = {{0, 2, {7, 8}}, {1, 1, {7}}, {-5, 9, {6, 7, 8}},
                    {3, 2, {}},     {2, 5, {6}}, {qint64(1) << 40, 1, {}},
                    {0, -1, {}}};
        for (const auto& row : rows) {
            chart.copyValues(row.skipped, row.count, &some);
            QVERIFY(some == row.expected);
        }
    }

    void geometry()
    {
        const DrawerGeometry plain({320, 240}, 14, -50, 150);
        QCOMPARE(plain.columns(), 200);
        QCOMPARE(plain.yBottom, 220);
        QCOMPARE(plain.yTop, 34);
        QCOMPARE(plain.y(-50), 220);
        QCOMPARE(plain.y(150), 34);
        QCOMPARE(plain.zeroY(), 220 - 46 - 1); // cut, not rounded: 46.5 below
        QCOMPARE(plain.tickY(1), 201);
        QCOMPARE(plain.tickValue(10), 150.0);
        QVERIFY(plain.isInPlot(29) && !plain.isInPlot(28));
        QVERIFY(plain.isInPlot(220) && !plain.isInPlot(221));
        QVERIFY(!plain.isInPlot(plain.y(1e300)) && !plain.isInPlot(plain.y(NoNumber)));

        QCOMPARE(plain.tickAt({20, 201}, 14), 1);
        QCOMPARE(plain.tickAt({99, 201 + 7}, 14), 1);
        for (const QPoint& beside : {QPoint(19, 201), QPoint(100, 201), QPoint(20, 201 + 9)})
            QCOMPARE(plain.tickAt(beside, 14), -1);

        const DrawerGeometry widest({320, 240}, 14, -IntMax - 1, IntMax);
        QCOMPARE(widest.y(IntMax), 34);
        const DrawerGeometry none({320, 240}, 14, 5, 5);
        QCOMPARE(none.tickY(10), 220);
        QVERIFY(!none.isInPlot(none.y(5)));
        QVERIFY(!DrawerGeometry({100, 53}, 14, 0, 100).hasPlot());
        QCOMPARE(DrawerGeometry({100, 53}, 14, 0, 100).columns(), 0);
    }

    void walk()
    {
        const struct {
            std::vector<double> values; // newest last
            int resolution;
            const char* range; // empty: no sample seen
            int columns;
        } rows[] = {
            {{}, 1, "", 0},
            {{50}, 1, "49..51", 1},
            {{NoNumber, NoNumber}, 1, "", 0},
            {{-5.5, 2.5}, 1, "-6..3", 1},
            {{1, 2, 3, 4, 5, 6, 7}, 3, "0..8", 2},
            {{2, 1}, 1, "0..3", 2},       // the 2 comes after 1 has widened to it
            {{99, 1, 1}, 1, "0..100", 2}, // the one at which the walk ends counts
            {{999, 99, 1, 1}, 1, "0..100", 2},
            {{1e300, -1e300}, 1, "-2147483648..2147483647", 0},
            {{-2e9}, 1, "-2000000001..-214783648", 0},
            {{-214783647}, 1, "-214783648..-214783646", 0},
            {{IntMax}, 1, "2147483647..2147483647", 0},
        };
        for (const auto& row : rows) {
            DrawerGeometry geometry({122, 240}, 14, 0, 100);
            DrawerColumns columns;
            DrawerRange range;
            const auto& rects = columns.walk(row.values, row.resolution, geometry, &range);
            const QString text = range.isEmpty
                                     ? QString()
                                     : QString("%1..%2").arg(range.minimum()).arg(range.maximum());
            QCOMPARE(text, QString(row.range));
            QCOMPARE(static_cast<int>(rects.size()), row.columns);
        }
    }

    void dynamicRange()
    {
        Area shown;
        Chart one(1, 0, 6, 1, "one", Qt::red);
        Chart hidden(1, 0, 6, 2, "hidden", Qt::red);
        QCOMPARE(shown.paintAndTell(), QString("200 -100..100"));
        QCOMPARE(shown.paintAndTell(), QString("200"));
        shown.area.addChart(&one);
        shown.area.addChart(&hidden);
        hidden.setVisible(false);
        hidden.addValue(5000);
        QCOMPARE(shown.paintAndTell(), QString("200"));
        shown.area.addTraceValue(1, 0, 6, 1, 500);
        shown.area.addTraceValue(1, 6, 1, 0, 9999); // nobody's
        QCOMPARE(shown.paintAndTell(), QString("200 499..501"));
        for (int i = 0; i < 201; ++i)
            one.addValue(20); // the first one is out of sight
        QCOMPARE(shown.paintAndTell(), QString("200 19..21"));
        shown.area.setDrawingInterval(0, 300, 270); // 30 back
        QCOMPARE(shown.paintAndTell(), QString("200 19..501"));
        shown.area.setDrawingInterval(0, 300, -IntMax);
        QCOMPARE(shown.paintAndTell(), QString("200 -100..100"));
        shown.area.doManualScaling();
        shown.area.setMinValue(7);
        shown.area.setMaxValue(7);
        shown.area.setDrawingInterval(0, 0, 0);
        QCOMPARE(shown.paintAndTell(), QString("200"));
        shown.area.doDynamicScaling();
        shown.area.clearValues();
        QCOMPARE(shown.paintAndTell(), QString("200 -100..100"));
        shown.area.resize(100, 100); // no room for a column
        QCOMPARE(shown.paintAndTell(), QString("-20"));
        shown.area.removeChart(1, 0, 6, 1);
        QCOMPARE(*shown.area.getCharts(), QList<Chart*>({&hidden}));
    }

    void rangeOfASteadySignalStands()
    {
        Area shown;
        Chart chart(1, 0, 6, 1, "", Qt::red);
        shown.area.addChart(&chart);
        fill(chart, 7);
        QCOMPARE(shown.paintAndTell(), QString("200 -1..7"));
        for (int i = 0; i < 20; ++i) {
            chart.addValue(i % 7);
            QCOMPARE(shown.paintAndTell(), QString("200"));
        }
    }

    void labelsInFullByToolTip()
    {
        Area shown;
        shown.area.doManualScaling();
        shown.area.setMinValue(-IntMax - 1);
        shown.area.setMaxValue(IntMax);
        const DrawerGeometry geometry = shown.geometry(-IntMax - 1, IntMax);
        const auto tipAt = [&shown](const QPoint& place) {
            QHelpEvent event(QEvent::ToolTip, place, shown.area.mapToGlobal(place));
            QApplication::sendEvent(&shown.area, &event);
            return event.isAccepted() ? QToolTip::text() : QString();
        };
        QCOMPARE(tipAt({30, geometry.tickY(0)}), QString("-2147483648"));
        QCOMPARE(tipAt({30, geometry.tickY(1)}), QString("-1717986918.5"));
        QCOMPARE(tipAt({30, geometry.tickY(10)}), QString("2147483647"));
        QCOMPARE(tipAt({200, geometry.tickY(5)}), QString());
    }

    void paintsOneColumnForASample()
    {
        Area shown;
        shown.area.doManualScaling();
        Chart chart(1, 0, 6, 1, "", Qt::red);
        shown.area.addChart(&chart);
        for (int value : {80, 40, 10})
            chart.addValue(value);
        const DrawerGeometry geometry = shown.geometry(0, 100);
        const int at80 = geometry.y(80);
        const int at40 = geometry.y(40);
        QImage image = shown.paint();
        QVERIFY(isRed(image, Newest - 2, at80));
        QVERIFY(isRed(image, Newest - 1, at40));
        QVERIFY(isRed(image, Newest, geometry.y(10)));
        QVERIFY(!isRed(image, Newest - 3, at80) && !isRed(image, Newest, at40));
        QVERIFY(image.pixelColor(100, geometry.y(50)).value() < 200);
        QCOMPARE(image.pixelColor(Newest - 50, at80), QColor(Qt::white));

        shown.area.setDrawingInterval(0, 9, 8);
        QVERIFY(isRed(shown.paint(), Newest, at40));
        shown.area.setDrawingInterval(0, 0, 0);
        shown.area.setResolution(3);
        shown.area.setResolution(0);
        image = shown.paint();
        QVERIFY(isRed(image, Newest, at80) && !isRed(image, Newest - 1, at40));
        chart.setVisible(false);
        QVERIFY(!isRed(shown.paint(), Newest, at80));
    }

    void scrollBar()
    {
        SimpleScaledDrawer drawer;
        auto* bar = User::find<QScrollBar>(&drawer, "scrollBar");
        const auto state = [bar] {
            return QString("%1..%2 %3").arg(bar->minimum()).arg(bar->maximum()).arg(bar->value());
        };
        QCOMPARE(state(), QString("0..999 999"));
        QCOMPARE(bar->singleStep(), 100);
        drawer.show(); // a warning about a repaint inside a paint fails the test
        QVERIFY(QTest::qWaitForWindowExposed(&drawer));
        const struct {
            int width;
            int value; // -1: untouched
            const char* state;
        } rows[] = {{200, -1, "200..999 999"},     {300, 700, "300..999 700"},
                    {800, -1, "800..999 800"},     {1200, -1, "1200..1200 1200"},
                    {1100, -1, "1100..1100 1100"}, {400, -1, "400..999 999"}};
        drawer.hide();
        for (const auto& row : rows) {
            if (row.value >= 0)
                bar->setValue(row.value);
            drawer.handleChangedChartWidth(row.width);
            QCOMPARE(state(), QString(row.state));
        }
        for (int size : {1, 0, -IntMax - 1}) {
            drawer.setChartSize(size);
            QCOMPARE(state(), QString("0..0 0"));
        }
        drawer.show();
        QVERIFY(QTest::qWaitForWindowExposed(&drawer));
        drawer.setChartSize(500);
        drawer.resize(900, 300); // more columns than samples, found out in a paint
        QTRY_VERIFY(bar->value() > 499);
        const int columns = User::find<DrawerArea>(&drawer, "drawer")->width() - 120;
        QCOMPARE(state(), QString("%1..%1 %1").arg(columns));

        SimpleDrawer plain;
        bar = User::find<QScrollBar>(&plain, "scrollBar");
        plain.setChartSize(-IntMax - 1);
        QCOMPARE(bar->maximum(), -IntMax - 1);
        plain.setChartSize(0);
        QCOMPARE(bar->maximum(), -1);
    }

    void controller()
    {
        SimpleScaledGraphController panel;
        QStringList told;
        const auto tell = [&told](const QString& text) { told << text; };
        using Panel = SimpleScaledGraphController;
        auto* min = User::find<QSpinBox>(&panel, "sbMin");
        auto* max = User::find<QSpinBox>(&panel, "sbMax");
        connect(&panel, &Panel::clear, [&] { tell("clear"); });
        connect(&panel, &Panel::scaleManually, [&] { tell("manually"); });
        connect(&panel, &Panel::scaleDynamic, [&] { tell("dynamic"); });
        connect(&panel, &Panel::minValueChanged,
                [&](int value) { tell(QString("min %1 (%2)").arg(value).arg(max->minimum())); });
        connect(&panel, &Panel::maxValueChanged,
                [&](int value) { tell(QString("max %1 (%2)").arg(value).arg(min->maximum())); });
        const auto state = [&](const char* expected) {
            const QString text = QString("%1%2 %3").arg(min->isEnabled()).arg(max->isEnabled());
            const bool isSame = text.arg(told.join(", ")) == QString(expected);
            if (!isSame)
                qDebug() << text << told;
            told.clear();
            return isSame;
        };
        QVERIFY(state("00 "));
        panel.setDynamic(false);
        QVERIFY(state("11 manually"));
        panel.setDynamic(false);
        panel.setDynamic(true);
        QVERIFY(state("00 manually, dynamic"));
        panel.setMinValueEnabled(false);
        panel.setDynamic(false);
        QVERIFY(state("01 manually"));
        panel.setMinValueEnabled(true);
        QVERIFY(state("11 "));
        User::click(User::find<QWidget>(&panel, "btnClearCharts"));
        QVERIFY(state("11 clear"));
        panel.handleScaleChanged(-7, 90);
        QVERIFY(state("11 min -7 (-2147483647), max 90 (2147483647)"));
        panel.handleScaleChanged(100, 200); // cut off at the old maximum
        QVERIFY(state("11 min 90 (-7), max 200 (90)"));
    }

    void panelScalesTheDrawer()
    {
        SimpleScaledDrawer drawer;
        Chart chart(1, 2, 6, 3, "", Qt::red);
        drawer.addChart(&chart);
        drawer.requestedTraceValue(1, 6, 3, 2, 70);
        drawer.requestedTraceValue(1, 2, 6, 3, 99);
        QCOMPARE(chart.getValues(), Values({70}));
        drawer.grab();
        auto* panel = User::find<QWidget>(&drawer, "graphController");
        auto* min = User::find<QSpinBox>(panel, "sbMin");
        QCOMPARE(min->value(), 69);
        QCOMPARE(User::find<QSpinBox>(panel, "sbMax")->value(), 71);
        User::find<QAbstractButton>(panel, "btnScaleManually")->click();
        chart.addValue(-70);
        drawer.grab();
        QCOMPARE(min->value(), 69);
        User::find<QAbstractButton>(panel, "btnScaleDynamic")->click();
        drawer.grab();
        QCOMPARE(min->value(), -71);
        User::find<QAbstractButton>(panel, "btnClearCharts")->click();
        QCOMPARE(chart.getValues(), Values());
    }

    void panelFollowsTheHost()
    {
        SimpleScaledDrawer drawer;
        auto* panel = drawer.findChild<SimpleScaledGraphController*>();
        auto* min = User::find<QSpinBox>(panel, "sbMin");
        auto* max = User::find<QSpinBox>(panel, "sbMax");
        QStringList told;
        using Panel = SimpleScaledGraphController;
        connect(panel, &Panel::scaleManually, [&] { told << "manually"; });
        connect(panel, &Panel::scaleDynamic, [&] { told << "dynamic"; });
        connect(panel, &Panel::minValueChanged, [&] { told << "min"; });
        connect(panel, &Panel::maxValueChanged, [&] { told << "max"; });
        const auto isDynamic = [panel] {
            return User::find<QAbstractButton>(panel, "btnScaleDynamic")->isChecked();
        };
        drawer.setEnabled(false);
        drawer.doManualScaling();
        drawer.setEnabled(true);
        QVERIFY(!isDynamic() && min->isEnabled() && max->isEnabled());
        const struct {
            int min;
            int max;
        } ranges[] = {{-50, 50}, {5000, 6000}, {-6000, -5000}, {0, IntMax}, {-IntMax, 0}};
        for (const auto& range : ranges) {
            for (bool isMinFirst : {true, false}) {
                drawer.setMinValue(0);
                drawer.setMaxValue(1);
                if (isMinFirst)
                    drawer.setMinValue(range.min);
                drawer.setMaxValue(range.max);
                drawer.setMinValue(range.min);
                QCOMPARE(min->value(), range.min);
                QCOMPARE(max->value(), range.max);
                auto* area = User::find<DrawerArea>(&drawer, "drawer");
                QCOMPARE(area->getMinValue(), range.min);
                QCOMPARE(area->getMaxValue(), range.max);
            }
        }
        drawer.doDynamicScaling();
        QVERIFY(isDynamic() && !min->isEnabled() && !max->isEnabled());
        QCOMPARE(told, QStringList());
    }

    void selection()
    {
        SimpleScaledDrawer drawer;
        drawer.setYAxisCaption("speed");
        Chart chart(1, 0, 6, 3, "host's", Qt::red);
        chart.addValue(1);
        drawer.addChart(&chart);
        TraceCommand same(1, 6, 3, 0, "other name");
        TraceCommand position(static_cast<char>(200), 6, 1, 2, "position");
        QList<TraceCommand*> offered{&same, &position, nullptr};
        drawer.addTraceableParameters(&offered);
        drawer.addTraceableParameters(nullptr);
        QSignalSpy changed(&drawer, &SimpleScaledDrawer::chartSelectionChanged);
        auto* area = User::find<DrawerArea>(&drawer, "drawer");

        QTest::mouseClick(area, Qt::RightButton); // not allowed
        drawer.setChartSelectorEnabled(true);
        QTest::mouseClick(area, Qt::LeftButton);
        QCOMPARE(changed.count(), 0);

        const auto choose = [&](auto answer) {
            QTimer::singleShot(0, &drawer, [answer] {
                auto* dialog = qobject_cast<ChartSelector*>(QApplication::activeModalWidget());
                if (dialog && QTest::qWaitForWindowExposed(dialog))
                    answer(dialog, User::find<QTableWidget>(dialog, "twAvailable"));
            });
            QTest::mouseClick(area, Qt::RightButton);
        };
        choose([](ChartSelector* dialog, QTableWidget* available) {
            QCOMPARE(dialog->windowTitle(), QString("Select charts for \"speed\" graph"));
            QCOMPARE(available->rowCount(), 1);
            emit available->cellClicked(0, 2);
            QVERIFY(dialog->isParameterSelected("6"));
            dialog->reject();
        });
        QCOMPARE(changed.count(), 1);
        QCOMPARE(*drawer.getCharts(), QList<Chart*>({&chart}));
        QCOMPARE(chart.getValues().size(), 1);

        choose([](ChartSelector* dialog, QTableWidget* available) {
            emit available->cellClicked(0, 0);
            emit dialog->getSelectionTable()->cellClicked(0, 1);
            QCOMPARE(available->rowCount(), 1);
            QCOMPARE(available->item(0, 3)->background().color(), QColor(Qt::red));
            dialog->accept();
        });
        QCOMPARE(changed.count(), 2);
        QCOMPARE(drawer.getCharts()->size(), 1);
        const Chart* chosen = drawer.getCharts()->first();
        QCOMPARE(chosen->getLabel(), QString("position"));
        QCOMPARE(chosen->getColor(), QColor(Qt::lightGray));
        drawer.requestedTraceValue(static_cast<char>(200), 6, 1, 2, 5);
        QCOMPARE(chosen->getValues(), Values({5}));
        drawer.addChart(&chart);
        drawer.removeChart(static_cast<char>(200), 2, 6, 1); // dies
        QCOMPARE(*drawer.getCharts(), QList<Chart*>({&chart}));
        QCOMPARE(chart.getValues().size(), 1);
    }

    void selectionOfADrawerThatDies()
    {
        QPointer<SimpleScaledDrawer> drawer(new SimpleScaledDrawer);
        drawer->setChartSelectorEnabled(true);
        bool isClosed = false;
        QTimer::singleShot(0, [&] {
            const QPointer<QWidget> dialog(QApplication::activeModalWidget());
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            delete drawer;
            isClosed = !dialog->isVisible();
            if (!isClosed)
                dialog->close();
        });
        QTest::mousePress(User::find<DrawerArea>(drawer, "drawer"), Qt::RightButton);
        QVERIFY(!drawer && isClosed);
    }

    void colors()
    {
        TraceCommand position(1, 6, 1, 2, "position");
        QList<TraceCommand*> offered{&position};
        const QPointer<ChartSelector> selector(new ChartSelector(nullptr, nullptr, &offered));
        auto* available = User::find<QTableWidget>(selector, "twAvailable");
        QPointer<QColorDialog> dialog;
        const auto colorAfter = [&](auto answer) {
            QTimer::singleShot(0, [&] {
                dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
                if (dialog && QTest::qWaitForWindowExposed(dialog))
                    answer();
            });
            emit available->cellClicked(0, 4);
            return selector ? available->item(0, 3)->background().color() : QColor();
        };
        const auto choose = [&](const QColor& color, QDialog::DialogCode code) {
            return colorAfter([&, color, code] {
                dialog->setCurrentColor(color);
                code == QDialog::Accepted ? dialog->accept() : dialog->reject();
            });
        };
        QCOMPARE(choose(Qt::blue, QDialog::Rejected), QColor(Qt::lightGray));
        QCOMPARE(choose(Qt::green, QDialog::Accepted), QColor(Qt::green));
        QVERIFY(!dialog && available->selectedItems().isEmpty());
        emit available->cellClicked(1, 0); // no such row
        QCOMPARE(selector->getSelectionTable()->rowCount(), 0);
        colorAfter([&] { delete selector; }); // and its dialog
        QVERIFY(!selector && !dialog);
    }
};

AXR_TEST_MAIN(ScaledDrawerTest)
#include "ScaledDrawerTest.moc"
