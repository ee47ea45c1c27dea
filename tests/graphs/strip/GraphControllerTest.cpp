#include "GraphController.h"
#include "AppSettings.h"
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

QSpinBox* box(const QWidget& panel, const char* name) { return User::find<QSpinBox>(&panel, name); }

/// Which of Start and Stop is enabled, the scaling, whether the range can be edited, and the range.
QString shown(const QWidget& panel)
{
    const auto either = [](bool first, bool second, const char* a, const char* b) {
        return QString(first && second ? "both" : first ? a : second ? b : "none");
    };
    const QSpinBox* min = box(panel, "sbMin");
    const QSpinBox* max = box(panel, "sbMax");
    return QString("%1 %2%3%4 %5..%6")
        .arg(either(button(panel, "btnStop")->isEnabled(), button(panel, "btnStart")->isEnabled(),
                    "running", "stopped"),
             either(button(panel, "btnScaleDynamic")->isChecked(),
                    button(panel, "btnScaleManually")->isChecked(), "dynamic", "manual"))
        .arg(min->isEnabled() ? " min" : "", max->isEnabled() ? " max" : "")
        .arg(min->value())
        .arg(max->value());
}

/// Notes the signals; those of the range with the bound that the other box still has.
class Host
{
public:
    explicit Host(GraphController& panel)
    {
        GraphController* p = &panel;
        const auto note = [this, p](void (GraphController::*signal)(), const QString& line) {
            QObject::connect(p, signal, p, [this, line] { m_lines << line; });
        };
        note(&GraphController::startGraph, "start");
        note(&GraphController::stopGraph, "stop");
        note(&GraphController::clearGraph, "clear");
        note(&GraphController::saveGraph, "save");
        note(&GraphController::stopLogging, "stop logging");
        note(&GraphController::scaleManually, "manually");
        note(&GraphController::scaleDynamic, "dynamic");
        note(&GraphController::setDefaultCharts, "charts");
        QObject::connect(p, &GraphController::startLogging, p,
                         [this](bool on) { m_lines << QString("log %1").arg(on); });
        QObject::connect(p, &GraphController::minValueChanged, p, [this, p](int min) {
            m_lines << QString("min %1 (%2)").arg(min).arg(box(*p, "sbMax")->minimum());
        });
        QObject::connect(p, &GraphController::maxValueChanged, p, [this, p](int max) {
            m_lines << QString("max %1 (%2)").arg(max).arg(box(*p, "sbMin")->maximum());
        });
    }

    /// What was emitted since the last call.
    QString take() { return std::exchange(m_lines, {}).join(", "); }

private:
    QStringList m_lines;
};

using Stored = QMap<QString, QVariant>;

void store(const Stored& values)
{
    AppSettings settings;
    for (auto value = values.begin(); value != values.end(); ++value)
        settings.setValue("key/graphController/" + value.key(), value.value());
}

} // namespace

class GraphControllerTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void buttons()
    {
        GraphController panel;
        QCOMPARE(shown(panel), QString("running dynamic 0..4000"));
        Host host(panel);
        const struct {
            const char* button;
            const char* emitted;
            const char* shown;
        } clicks[] = {
            {"btnStart", "", "running dynamic 0..4000"},
            {"btnStop", "stop", "stopped dynamic 0..4000"},
            {"btnStop", "", "stopped dynamic 0..4000"},
            {"btnStart", "start", "running dynamic 0..4000"},
            {"btnClear", "clear", "running dynamic 0..4000"},
            {"btnSave", "save", "running dynamic 0..4000"},
            {"btnScaleDynamic", "dynamic", "running dynamic 0..4000"},
            {"btnScaleManually", "manually", "running manual min max 0..4000"},
            {"btnScaleManually", "manually", "running manual min max 0..4000"},
            {"btnGraphDefault", "dynamic, charts", "running dynamic 0..4000"},
            {"btnGraphDefault", "dynamic, charts", "running dynamic 0..4000"},
            {"cbLog", "log 1", "running dynamic 0..4000"},
        };
        for (const auto& row : clicks) {
            button(panel, row.button)->click();
            QCOMPARE(host.take(), QString(row.emitted));
            QCOMPARE(shown(panel), QString(row.shown));
        }
        panel.show();
        button(panel, "btnStop")->setFocus();
        for (const char* next : {"btnStart", "btnStop"}) {
            QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
            QCOMPARE(panel.focusWidget(), button(panel, next));
        }
        host.take();
        panel.rejectLogging();
        panel.rejectLogging();
        QCOMPARE(host.take(), QString("log 0"));
        QVERIFY(!button(panel, "cbLog")->isChecked());
    }

    void rangeNeverCrosses()
    {
        GraphController panel;
        panel.handleScaleChanged(0, 100);
        Host host(panel);
        panel.handleScaleChanged(200, 400);
        QCOMPARE(host.take(), QString("min 100 (-2147483647), max 400 (100)"));
        panel.handleScaleChanged(200, 400);
        QCOMPARE(host.take(), QString("min 200 (100)"));
        panel.setMaxValue(-7); // not below the minimum
        QCOMPARE(host.take(), QString("max 200 (400)"));
        panel.setMinValue(201);
        QCOMPARE(host.take(), QString());
        button(panel, "btnScaleManually")->click();
        box(panel, "sbMax")->stepUp();
        box(panel, "sbMin")->stepDown();
        QCOMPARE(host.take(), QString("manually, max 300 (200), min 100 (200)"));
        panel.handleScaleChanged(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        QCOMPARE(shown(panel), QString("running manual min max -2147483647..2147483647"));
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
            {"nothing", {}, "dynamic", untouched},
            {"wider, manual",
             {{"checkedId", ManualId}, {"sbMax", 900}, {"sbMin", -900}},
             "manually, max 900 (100), min -900 (-100)",
             "running manual min max -900..900"},
            {"above",
             {{"checkedId", DynamicId}, {"sbMax", 300}, {"sbMin", 200}},
             "dynamic, max 300 (100), min 200 (-100)",
             "running dynamic 200..300"},
            {"below",
             {{"sbMax", -300}, {"sbMin", -500}},
             "dynamic, max -100 (100), min -500 (-100), max -300 (-100)",
             "running dynamic -500..-300"},
            {"inverted",
             {{"sbMax", -50}, {"sbMin", 50}},
             "dynamic, max -50 (100), min -50 (-100)",
             "running dynamic -50..-50"},
            {"as text",
             {{"checkedId", "-3"}, {"sbMax", "50"}},
             "manually, max 50 (100)",
             "running manual min max -100..50"},
            {"unknown button", {{"checkedId", 5}}, "", untouched},
            {"no numbers",
             {{"checkedId", "x"}, {"sbMax", "9e9"}, {"sbMin", QSize(1, 2)}},
             "dynamic",
             untouched},
            {"beyond int",
             {{"checkedId", qint64(1) << 32}, {"sbMax", (qint64(1) << 32) + 7}, {"sbMin", 1e300}},
             "dynamic",
             untouched},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.values << row.emitted << row.after;
    }
    void loads()
    {
        QFETCH(Stored, values);
        store(values);
        GraphController panel;
        panel.setObjectName("graphController");
        panel.handleScaleChanged(-100, 100);
        Host host(panel);
        panel.setAppSettingsKey(QString());
        QCOMPARE(host.take(), QString());
        panel.setAppSettingsKey("key");
        QTEST(host.take(), "emitted");
        QTEST(shown(panel), "after");
    }

    void loadsWhileDisabled()
    {
        store({{"checkedId", ManualId}});
        GraphController panel;
        panel.setObjectName("graphController");
        panel.setEnabled(false);
        Host host(panel);
        panel.setAppSettingsKey("key");
        QVERIFY(host.take().startsWith("manually"));
        QVERIFY(User::find<QRadioButton>(&panel, "btnScaleManually")->isChecked());
    }

    void storesAtTheEnd()
    {
        {
            GraphController panel;
            panel.setAppSettingsKey("key");
            panel.setAppSettingsKey(QString());
        }
        QVERIFY(AppSettings().allKeys().isEmpty());
        {
            GraphController panel;
            panel.setAppSettingsKey("key");
            panel.setObjectName("graphController");
            button(panel, "btnScaleManually")->click();
            panel.handleScaleChanged(-5, 60);
        }
        const AppSettings settings;
        QStringList lines;
        for (const QString& key : settings.allKeys())
            lines << key + " " + settings.value(key, QVariant()).toString();
        QCOMPARE(lines,
                 QStringList({"key/graphController/checkedId -3", "key/graphController/sbMax 60",
                              "key/graphController/sbMin -5"}));
    }

    void hostDeletesThePanelInsideAnEmission_data()
    {
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QString>("button"); // empty: the settings are loaded
        const struct {
            const char* signal;
            const char* button;
        } rows[] = {{"startGraph()", "btnStart"},
                    {"scaleDynamic()", "btnGraphDefault"},
                    {"setDefaultCharts()", "btnGraphDefault"},
                    {"scaleManually()", "btnScaleManually"},
                    {"scaleManually()", ""},
                    {"minValueChanged(int)", ""},
                    {"maxValueChanged(int)", ""}};
        for (const auto& row : rows)
            QTest::addRow("%s %s", row.signal, row.button)
                << QByteArray(row.signal) << QString(row.button);
    }
    void hostDeletesThePanelInsideAnEmission()
    {
        QFETCH(QByteArray, signal);
        QFETCH(QString, button);
        store({{"checkedId", ManualId}, {"sbMax", 900}, {"sbMin", -900}});
        m_doomed = new GraphController;
        m_doomed->setObjectName("graphController");
        if (button == "btnStart")
            ::button(*m_doomed, "btnStop")->click();
        QVERIFY(connect(m_doomed, "2" + signal, this, SLOT(deleteDoomed())));
        if (button.isEmpty())
            m_doomed->setAppSettingsKey("key");
        else
            User::click(::button(*m_doomed, button));
        QVERIFY(!m_doomed);
    }

private:
    Q_SLOT void deleteDoomed() { delete m_doomed; }

    QPointer<GraphController> m_doomed;
};

AXR_TEST_MAIN(GraphControllerTest)
#include "GraphControllerTest.moc"
