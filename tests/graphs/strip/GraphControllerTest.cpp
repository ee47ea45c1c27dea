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

/// What is enabled and checked, and the range.
QString shown(const QWidget& panel)
{
    QStringList words;
    const auto add = [&words](bool is, const char* word) {
        if (is)
            words << word;
    };
    const auto* min = User::find<QSpinBox>(&panel, "sbMin");
    const auto* max = User::find<QSpinBox>(&panel, "sbMax");
    add(button(panel, "btnStop")->isEnabled(), "running");
    add(button(panel, "btnStart")->isEnabled(), "stopped");
    add(button(panel, "btnScaleDynamic")->isChecked(), "dynamic");
    add(button(panel, "btnScaleManually")->isChecked(), "manual");
    add(min->isEnabled(), "min");
    add(max->isEnabled(), "max");
    return words.join(' ') + QString(" %1..%2").arg(min->value()).arg(max->value());
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

    void loads()
    {
        const qint64 beyond = (qint64(1) << 32) + 7;
        const struct {
            Stored values;
            const char* emitted;
            const char* after;
        } rows[] = {
            {{}, "scaleDynamic", "running dynamic -100..100"},
            {{{"checkedId", ManualId}, {"sbMax", 900}, {"sbMin", -900}},
             "scaleManually,maxValueChanged 900,minValueChanged -900",
             "running manual min max -900..900"},
            {{{"checkedId", DynamicId}, {"sbMax", -300}, {"sbMin", -500}}, // below
             "scaleDynamic,maxValueChanged -100,minValueChanged -500,maxValueChanged -300",
             "running dynamic -500..-300"},
            {{{"sbMax", -50}, {"sbMin", 50}}, // inverted
             "scaleDynamic,maxValueChanged -50,minValueChanged -50",
             "running dynamic -50..-50"},
            {{{"checkedId", 5}}, "", "running dynamic -100..100"},
            {{{"checkedId", "x"}, {"sbMax", beyond}, {"sbMin", QSize(1, 2)}}, // no numbers
             "scaleDynamic",
             "running dynamic -100..100"},
        };
        for (const auto& row : rows) {
            AppSettings().remove("key");
            const auto panel = panelOf(row.values);
            panel->setEnabled(false); // a click would not get through
            SignalLog log(panel.get());
            panel->setAppSettingsKey(QString());
            QCOMPARE(log.takeLines(), QStringList());
            panel->setAppSettingsKey("key");
            QCOMPARE(log.takeLines().join(','), QString(row.emitted));
            panel->setEnabled(true);
            QCOMPARE(shown(*panel), QString(row.after));
            panel->setAppSettingsKey(QString()); // or its end would store
        }
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
        const QString keys[] = {"checkedId", "sbMax", "sbMin"};
        const int values[] = {ManualId, 60, -5};
        QCOMPARE(settings.allKeys().size(), 3);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(settings.value("key/graphController/" + keys[i], 0).toInt(), values[i]);
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
