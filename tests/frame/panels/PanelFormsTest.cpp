#include "AxisPanel.h"
#include "BankPanel.h"
#include "OwnAddressPanel.h"
#include "PanelTable.h"
#include "SpinBox.h"
#include "TestCase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QSpinBox>

namespace
{

/// A panel of each form with one plain field, whose changes it sends if it can.
template <class Form>
class FieldPanel : public Form
{
public:
    FieldPanel() : Form(nullptr)
    {
        m_box->setObjectName("box");
        m_field->setObjectName("sbValue");
        m_field->setRange(0, 100);
        m_value.bind(m_field);
        this->setUpPanel(m_box, {&m_value});
    }
    void setValueCommand(char type) { m_value.setNumber(type); }

protected:
    QGroupBox* m_box = new QGroupBox(this);
    QSpinBox* m_field = new QSpinBox(m_box);
    TupleParameter m_value;
};

class Reader : public FieldPanel<TuplePanel>, public MotorController
{
    const MotorController& axis() const override { return *this; }
};

template <class Form>
class Setter : public FieldPanel<Form>
{
public:
    Setter()
    {
        QObject::connect(this->m_field, QOverload<int>::of(&QSpinBox::valueChanged), this,
                         [this](int value) { this->change(this->m_value, value); });
    }
};

class SetterWithMixIn : public Setter<TupleSettingsPanel>, public MotorController
{
    const MotorController& axis() const override { return *this; }
};

static_assert(!std::is_base_of_v<MotorController, OwnAddressPanel>);
static_assert(std::is_base_of_v<MotorController, AxisPanel>);

/// A panel with one parameter of each kind, as the panels of a drive have them.
class DrivePanel : public AxisPanel
{
public:
    DrivePanel() : AxisPanel(nullptr)
    {
        int number = 200;
        for (QWidget* field :
             QWidgetList{m_number, m_waiting, m_clipped, m_switch, m_group, m_modes})
            field->setObjectName(QString("field%1").arg(number++));
        m_number->setValue(1); // or it shows nothing until it is on the screen
        m_group->setCheckable(true);
        m_modes->addItems({"A", "B"});
        m_parameters[0].bind(m_number);
        m_parameters[1].bind(m_waiting, AxisParameter::Drop);
        m_parameters[2].bind(m_clipped);
        m_parameters[3].bind(m_switch);
        m_parameters[4].bind(m_group);
        m_parameters[5].bind(m_modes, [this](int value) { m_modes->setCurrentIndex(value); });
        setUpPanel(m_box, {&m_parameters[3], &m_parameters[0], &m_parameters[1], &m_parameters[2],
                           &m_parameters[4], &m_parameters[5]});
        for (int i = 0; i < 6; ++i)
            m_parameters[i].setNumberAndRange(toByte(200 + i), -5, 5);
        m_parameters[2].setNumberAndRange(toByte(202), 9, 9);
    }
    void disableSome()
    {
        m_switch->setEnabled(false);
        m_modes->setEnabled(false);
    }

private:
    bool isAsked(const AxisParameter& parameter) const override
    {
        return parameter.widget()->isEnabled();
    }
    bool isTaken(const AxisParameter& parameter) const override
    {
        return &parameter == &m_parameters[5] || isAsked(parameter);
    }

    QGroupBox* m_box = new QGroupBox(this);
    QSpinBox* m_number = new QSpinBox(m_box);
    SpinBox* m_waiting = new SpinBox(m_box);
    SpinBox* m_clipped = new SpinBox(m_box);
    QCheckBox* m_switch = new QCheckBox(m_box);
    QGroupBox* m_group = new QGroupBox(m_box);
    QComboBox* m_modes = new QComboBox(m_box);
    AxisParameter m_parameters[6];
};

} // namespace

/// Panels as they could stand on each of the bases.
class PanelFormsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void panels_data()
    {
        QTest::addColumn<PanelRow>("row");
        const auto setUp = [](auto& panel) {
            panel.setTitle("Title");
            panel.setAddress(toByte(130));
            panel.setMotorBank(toByte(129));
            panel.setValueCommand(toByte(200));
        };
        QTest::newRow("tuple") << panelRow<Reader>(Members::Tuple, setUp, R"(
            set up: box title Title; sbValue tip AP: 200
            update: requestValue 130 129 200
            requestedValue 130 129 200 77: sbValue=77
            sbValue type 5: sbValue=5)");
        const char* settings = R"(
            set up: box title Title; sbValue tip AP: 200
            update: requestValue 130 129 200
            sbValue type 12: changeValue 130 129 200 1; changeValue 130 129 200 12; sbValue=12
            requestedValue 130 129 200 77: changeValue 130 129 200 77; sbValue=77
            requestedValue 130 129 200 77:
            requestedCommand 130 6 200 129 100 8: changeValue 130 129 200 8; sbValue=8
            requestedCommand 130 5 200 129 100 9: changeValue 130 129 200 9; sbValue=9
            requestedCommand 130 4 200 129 100 10:
            requestedValue 130 129 200 101: changeValue 130 129 200 100; sbValue=100)";
        QTest::newRow("settings") << panelRow<SetterWithMixIn>(Members::TupleSettings, setUp,
                                                               settings);
        QTest::newRow("own address")
            << panelRow<Setter<OwnAddressPanel>>(Members::TupleSettings, setUp, settings);
        const auto setBank = [](FieldPanel<BankPanel>& panel) {
            panel.setMotorBank(toByte(129));
            panel.setValueCommand(3);
        };
        QTest::newRow("bank") << panelRow<FieldPanel<BankPanel>>(Members::Bank, setBank, R"(
            set up: sbValue tip AP: 3
            update: requestValue 129 3
            requestedValue 129 3 77: sbValue=77
            requestedTraceValue 129 3 78: sbValue=78)");
        QTest::newRow("axis") << panelRow<DrivePanel>(
            Members::Axis, [](DrivePanel&) {}, R"(
            set up:
            update: 1 6 203 0 0; 1 6 200 0 0; 1 6 201 0 0; 1 6 202 0 0; 1 6 204 0 0; 1 6 205 0 0
            IN_replyValue 1 6 200 0 5: field200=5
            IN_replyValue 1 6 200 0 6:
            IN_replyValue 1 6 201 0 5: field201=5
            IN_replyValue 1 6 201 0 6:
            IN_replyValue 1 6 201 0 -6: field201=-5
            IN_replyValue 1 6 202 0 6: field202=5
            IN_replyValue 1 6 203 0 4: field203=1
            IN_replyValue 1 6 203 0 0: field203=0
            IN_replyValue 1 6 204 0 0: field204=0
            IN_replyValue 1 6 204 0 -1: field204=1
            IN_replyValue 1 6 205 0 1: field205=B)");
        QTest::newRow("axis, disabled fields") << panelRow<DrivePanel>(
            nullptr, [](DrivePanel& panel) { panel.disableSome(); }, R"(
            set up: field203 off; field205 off
            update: 1 6 200 0 0; 1 6 201 0 0; 1 6 202 0 0; 1 6 204 0 0
            IN_replyValue 1 6 203 0 1:
            IN_replyValue 1 6 205 0 1: field205=B)");
    }
    void panels()
    {
        QFETCH(PanelRow, row);
        checkPanel(row);
    }

    void noReplyIsNothing()
    {
        DrivePanel panel;
        panel.IN_replyValue(nullptr);
    }
};

AXR_TEST_MAIN(PanelFormsTest)
#include "PanelFormsTest.moc"
