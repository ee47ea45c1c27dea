#include "GraphController.h"
#include "AppSettings.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "User.h"

#include <QAbstractButton>
#include <QSpinBox>

namespace
{

constexpr int DynamicId = -2; // as a button group numbers its buttons
constexpr int ManualId = -3;

QAbstractButton* button(const QWidget& panel, const QString& name)
{
    return User::find<QAbstractButton>(&panel, name);
}

/// Which of Start and Stop is enabled, the scaling, whether the range can be edited, and the range.
QString shown(const QWidget& panel)
{
    const auto pick = [](bool is, const char* text) { return is ? text : ""; };
    const auto* min = User::find<QSpinBox>(&panel, "sbMin");
    const auto* max = User::find<QSpinBox>(&panel, "sbMax");
    return QString("%1%2%3%4%5%6%7..%8")
        .arg(pick(button(panel, "btnStop")->isEnabled(), "running "),
             pick(button(panel, "btnStart")->isEnabled(), "stopped "),
             pick(button(panel, "btnScaleDynamic")->isChecked(), "dynamic "),
             pick(button(panel, "btnScaleManually")->isChecked(), "manual "),
             pick(min->isEnabled(), "min "), pick(max->isEnabled(), "max "))
        .arg(min->value())
        .arg(max->value());
}

using Stored = QMap<QString, QVariant>;

/// A panel that has these values to load.
std::unique_ptr<GraphController> panelOf(const Stored& values)
{
    AppSettings settings;
    for (auto value = values.begin(); value != values.end(); ++value)
        settings.setValue("key/graphController/" + value.key(), value.value());
    auto panel = std::make_unique<GraphController>();
    panel->setObjectName("graphController");
    panel->handleScaleChanged(-100, 100);
    return panel;
}

} // namespace

class GraphControllerTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void buttons()
    {
        GraphController panel;
        SignalLog log(&panel);
        const struct {
            const char* button;
            const char* emitted;
            const char* shown;
        } clicks[] = {
            {"btnStart", "", "running dynamic 0..4000"},
            {"btnStop", "stopGraph", "stopped dynamic 0..4000"},
            {"btnStop", "", "stopped dynamic 0..4000"},
            {"btnStart", "startGraph", "running dynamic 0..4000"},
            {"btnClear", "clearGraph", "running dynamic 0..4000"},
            {"btnSave", "saveGraph", "running dynamic 0..4000"},
            {"btnScaleDynamic", "scaleDynamic", "running dynamic 0..4000"},
            {"btnScaleManually", "scaleManually", "running manual min max 0..4000"},
            {"btnScaleManually", "scaleManually", "running manual min max 0..4000"},
            {"btnGraphDefault", "scaleDynamic,setDefaultCharts", "running dynamic 0..4000"},
            {"cbLog", "startLogging true", "running dynamic 0..4000"},
        };
        for (const auto& row : clicks) {
            button(panel, row.button)->click();
            QCOMPARE(log.takeLines().join(','), QString(row.emitted));
            QCOMPARE(shown(panel), QString(row.shown));
        }
        panel.rejectLogging();
        panel.rejectLogging();
        QCOMPARE(log.takeLines(), QStringList("startLogging false"));
        panel.show();
        button(panel, "btnStop")->setFocus();
        for (const char* next : {"btnStart", "btnStop"}) {
            QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
            QCOMPARE(panel.focusWidget(), button(panel, next));
        }
    }

    void rangeNeverCrosses()
    {
        GraphController panel;
        auto* min = User::find<QSpinBox>(&panel, "sbMin");
        auto* max = User::find<QSpinBox>(&panel, "sbMax");
        panel.handleScaleChanged(0, 100);
        SignalLog log(&panel);
        QStringList lines; // with the bound that the other box still has
        log.onSignal([&](const QString& line) {
            lines << QString("%1 (%2)").arg(line).arg(line[1] == 'i' ? max->minimum()
                                                                     : min->maximum());
        });
        const auto told = [&lines] { return std::exchange(lines, {}).join(", "); };
        panel.handleScaleChanged(200, 400);
        QCOMPARE(told(), QString("minValueChanged 100 (-2147483647), maxValueChanged 400 (100)"));
        panel.handleScaleChanged(200, 400);
        QCOMPARE(told(), QString("minValueChanged 200 (100)"));
        panel.setMaxValue(-7); // not below the minimum
        QCOMPARE(told(), QString("maxValueChanged 200 (400)"));
        panel.setMinValue(201);
        QCOMPARE(told(), QString());
        max->stepUp();
        min->stepDown();
        QCOMPARE(told(), QString("maxValueChanged 300 (200), minValueChanged 100 (200)"));
    }

    void loads_data()
    {
        QTest::addColumn<Stored>("values");
        QTest::addColumn<QString>("emitted");
        QTest::addColumn<QString>("after");
        const QString untouched = "running dynamic -100..100";
        const struct {
            const char* name;
            Stored values;
            QString emitted;
            QString after;
        } rows[] = {
            {"nothing", {}, "scaleDynamic", untouched},
            {"wider, manual",
             {{"checkedId", ManualId}, {"sbMax", 900}, {"sbMin", -900}},
             "scaleManually,maxValueChanged 900,minValueChanged -900",
             "running manual min max -900..900"},
            {"below",
             {{"checkedId", DynamicId}, {"sbMax", -300}, {"sbMin", -500}},
             "scaleDynamic,maxValueChanged -100,minValueChanged -500,maxValueChanged -300",
             "running dynamic -500..-300"},
            {"inverted",
             {{"sbMax", -50}, {"sbMin", 50}},
             "scaleDynamic,maxValueChanged -50,minValueChanged -50",
             "running dynamic -50..-50"},
            {"unknown button", {{"checkedId", 5}}, "", untouched},
            {"no numbers",
             {{"checkedId", "x"}, {"sbMax", "9e9"}, {"sbMin", QSize(1, 2)}},
             "scaleDynamic",
             untouched},
            {"beyond int",
             {{"checkedId", qint64(1) << 32}, {"sbMax", (qint64(1) << 32) + 7}, {"sbMin", 1e300}},
             "scaleDynamic",
             untouched},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.values << row.emitted << row.after;
    }
    void loads()
    {
        QFETCH(Stored, values);
        QFETCH(QString, after);
        const auto panel = panelOf(values);
        panel->setEnabled(false); // a click would not get through
        SignalLog log(panel.get());
        panel->setAppSettingsKey(QString());
        QCOMPARE(log.takeLines(), QStringList());
        panel->setAppSettingsKey("key");
        QTEST(log.takeLines().join(','), "emitted");
        panel->setEnabled(true);
        QCOMPARE(shown(*panel), after);
    }

    void storesAtTheEnd()
    {
        GraphController().setAppSettingsKey(QString());
        QVERIFY(AppSettings().allKeys().isEmpty());
        auto panel = panelOf({});
        panel->setAppSettingsKey("key");
        button(*panel, "btnScaleManually")->click();
        panel->handleScaleChanged(-5, 60);
        panel.reset();
        const AppSettings settings;
        QStringList lines;
        for (const QString& key : settings.allKeys())
            lines << key + " " + settings.value(key, QVariant()).toString();
        QCOMPARE(lines,
                 QStringList({"key/graphController/checkedId -3", "key/graphController/sbMax 60",
                              "key/graphController/sbMin -5"}));
    }

    void hostDeletesThePanelInsideAnEmission()
    {
        const struct {
            const char* signal;
            const char* button; // empty: the settings are loaded
        } rows[] = {{"stopGraph()", "btnStop"},
                    {"scaleDynamic()", "btnGraphDefault"},
                    {"setDefaultCharts()", "btnGraphDefault"},
                    {"scaleManually()", "btnScaleManually"},
                    {"scaleManually()", ""},
                    {"minValueChanged(int)", ""},
                    {"maxValueChanged(int)", ""}};
        for (const auto& row : rows) {
            auto* panel =
                panelOf({{"checkedId", ManualId}, {"sbMax", 900}, {"sbMin", -900}}).release();
            QVERIFY(endsInside(panel, row.signal, [&] {
                if (*row.button)
                    User::click(button(*panel, row.button));
                else
                    panel->setAppSettingsKey("key");
            }));
        }
    }
};

AXR_TEST_MAIN(GraphControllerTest)
#include "GraphControllerTest.moc"
