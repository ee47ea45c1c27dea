#include "AxisPanel.h"
#include "CommandRecorder.h"
#include "SpinBox.h"
#include "TestCase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QRandomGenerator>
#include <QSpinBox>

namespace
{

/// A panel with one parameter of each kind, as the panels of a drive have them.
class SettingsPanel : public AxisPanel
{
    Q_OBJECT
public:
    SettingsPanel() : AxisPanel(nullptr)
    {
        m_number.bind(&m_field);
        m_waiting.bind(&m_waitingField);
        m_switch.bind(&m_box);
        m_mode.bind(&m_modes, [this](int value) { m_shownMode = value; });
        setUpPanel(&m_frame, {&m_switch, &m_number, &m_waiting, &m_mode});
    }

    bool isAsked(const AxisParameter& parameter) const override
    {
        return parameter.widget()->isEnabled();
    }
    bool isTaken(const AxisParameter& parameter) const override
    {
        return &parameter == &m_mode || isAsked(parameter);
    }

    QGroupBox m_frame;
    QSpinBox m_field;
    SpinBox m_waitingField;
    QCheckBox m_box;
    QComboBox m_modes;
    AxisParameter m_number;
    AxisParameter m_waiting;
    AxisParameter m_switch;
    AxisParameter m_mode;
    int m_shownMode = 0;
};

} // namespace

class AxisPanelTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void asksInOrderForWhatIsActive()
    {
        SettingsPanel panel;
        panel.m_number.setNumberAndRange(toByte(201), -5, 5);
        panel.m_waiting.setNumber(2);
        panel.m_switch.setNumber(3);
        panel.m_mode.setNumber(4);
        CommandRecorder sent(&panel);
        panel.updateValues();
        QCOMPARE(sent.takeLines(),
                 QStringList({"1 6 3 0 0", "1 6 201 0 0", "1 6 2 0 0", "1 6 4 0 0"}));
        QCOMPARE(panel.m_field.toolTip(), QString("AP 201 (-5..5)"));
        QCOMPARE(panel.m_modes.toolTip(), QString("AP 4"));

        panel.m_box.setEnabled(false);
        panel.m_modes.setEnabled(false);
        panel.updateValues();
        QCOMPARE(sent.takeLines(), QStringList({"1 6 201 0 0", "1 6 2 0 0"}));
        Command switchOn = reply(1, 6, 3, 0, 1);
        Command mode = reply(1, 6, 4, 0, 9);
        panel.IN_replyValue(&switchOn);
        panel.IN_replyValue(&mode);
        QVERIFY(!panel.m_box.isChecked());
        QCOMPARE(panel.m_shownMode, 9); // taken although it is not asked for
    }

    void aMillionForeignCommandsChangeNothing()
    {
        SettingsPanel panel;
        panel.setAddress(toByte(250));
        CommandRecorder sent(&panel);
        QRandomGenerator random(11);
        for (int i = 0; i < 1000000; ++i) {
            const quint32 bytes = random.generate();
            Command command(toByte(bytes % 250), toByte(bytes >> 8), toByte(bytes >> 16),
                            toByte(bytes >> 24), int(bytes));
            panel.IN_replyValue(i % 1000 ? &command : nullptr);
        }
        QCOMPARE(sent.takeLines(), QStringList());
        QCOMPARE(panel.m_shownMode, 0);
        QCOMPARE(panel.m_waitingField.value(), 0.0);
    }
};

AXR_TEST_MAIN(AxisPanelTest)
#include "AxisPanelTest.moc"
