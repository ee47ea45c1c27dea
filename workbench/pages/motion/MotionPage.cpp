#include "MotionPage.h"

#include "CurrentControl.h"
#include "Entries.h"
#include "Fitting.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "PanelParts.h"
#include "ParameterCatalogue.h"
#include "PositionControl.h"
#include "ShaftView.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "SpinBox.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include <algorithm>

namespace Number = AxisParameterNumber;

namespace
{

/// The largest torque that an axis can give (Nm).
double largestTorque(const SimulatedAxis& axis)
{
    return axis.motorData().torqueConstant * axis.read(Number::MaxCurrent) / 1000.0;
}

void setUp(VelocityControl& panel)
{
    const ParameterInfo& actual = axisParameter(Number::ActualVelocity);
    panel.setActualVelocityCommandAndRange(toByte(Number::ActualVelocity), actual.minimum,
                                           actual.maximum);
    panel.setTargetVelocityRange(0, axisParameter(Number::MaxVelocity).maximum);
}

void setUp(CurrentControl& panel)
{
    const ParameterInfo& actual = axisParameter(Number::ActualCurrent);
    panel.setActualCurrentCommandAndRange(toByte(Number::ActualCurrent), actual.minimum,
                                          actual.maximum);
    panel.setTargetCurrentCommandAndRange(toByte(Number::TargetCurrent), 0,
                                          axisParameter(Number::TargetCurrent).maximum);
}

void setUp(PositionControl& panel)
{
    const ParameterInfo& actual = axisParameter(Number::ActualPosition);
    const ParameterInfo& target = axisParameter(Number::TargetPosition);
    panel.setActualPositionCommandAndRange(toByte(Number::ActualPosition), actual.minimum,
                                           actual.maximum);
    panel.setTargetPositionCommandAndRange(toByte(Number::TargetPosition), target.minimum,
                                           target.maximum);
    panel.setClearOnNullCommand(toByte(Number::ClearOnNull));
    panel.setClearOnceCommand(toByte(Number::ClearOnce));
    panel.setUseMSTForStop(true);
}

void setUp(VelocityRampControl& panel)
{
    const ParameterInfo& velocity = axisParameter(Number::MaxVelocity);
    const ParameterInfo& acceleration = axisParameter(Number::Acceleration);
    panel.setMaxVelocityCommandAndRange(toByte(Number::MaxVelocity), velocity.minimum,
                                        velocity.maximum);
    panel.setAccelerationCommandAndRange(toByte(Number::Acceleration), acceleration.minimum,
                                         acceleration.maximum);
    // The range moves the 0 that stands there; as an entry of nobody it would wait for Return.
    for (SpinBox* box : {PanelParts::maxVelocityBox(panel), PanelParts::accelerationBox(panel)})
        box->setValue(qRound(box->value()));
    panel.setEnableRampCommand(toByte(Number::EnableRamp));
    panel.setAccelerationCaption(QStringLiteral("Acceleration [rpm/s]"));
}

} // namespace

MotionPage::MotionPage(const PageContext& context) : m_simulator(context.simulator)
{
    auto* axes = new QWidget;
    auto* row = new QHBoxLayout(axes);
    for (int axis = 0; axis < context.link.profile().axes; ++axis)
        row->addWidget(makeAxis(axis));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Fitting::scrolled(axes));
}

MotionPage::~MotionPage()
{
    // A panel that goes ends its jog. The stop is passed on by this page, so the panels go before
    // it does, and the page before the link.
    qDeleteAll(m_panels);
}

QWidget* MotionPage::makeAxis(int axis)
{
    auto* frame = new QGroupBox(tr("Axis %1").arg(axis));
    auto* velocity = new VelocityControl;
    auto* current = new CurrentControl;
    auto* position = new PositionControl;
    auto* ramp = new VelocityRampControl;
    setUp(*velocity);
    setUp(*current);
    setUp(*position);
    setUp(*ramp);
    for (AxisPanel* panel : std::initializer_list<AxisPanel*>{velocity, current, position, ramp}) {
        panel->setObjectName(panelName(panel->metaObject()->className(), axis));
        panel->setMotorBank(toByte(axis));
        connect(panel, &AxisPanel::OUT_requestValue, this, [this](Command* request) {
            if (carries(request->getCommand(), Instruction::GAP))
                emit read(*request);
            else
                emit command(*request);
        });
        m_panels << panel;
    }
    m_polled << velocity << current << position;
    m_axes.push_back({PanelParts::moveRelativeButton(*position),
                      {{PanelParts::maxVelocityBox(*ramp), quint8(Number::MaxVelocity)},
                       {PanelParts::accelerationBox(*ramp), quint8(Number::Acceleration)}}});
    m_axes.back().moveRelative->setEnabled(false);

    auto* grid = new QGridLayout(frame);
    grid->addWidget(velocity, 0, 0);
    grid->addWidget(ramp, 0, 1);
    grid->addWidget(position, 1, 0);
    grid->addWidget(current, 2, 0);
    if (m_simulator)
        grid->addWidget(makeShaft(axis), 1, 1, 2, 1);
    grid->setRowStretch(3, 1);
    return frame;
}

QWidget* MotionPage::makeShaft(int axis)
{
    auto* shaft = new ShaftView;
    m_shafts << shaft;
    auto* load = new QSlider(Qt::Horizontal);
    load->setObjectName(QStringLiteral("slLoad%1").arg(axis));
    load->setAccessibleName(tr("Load on axis %1").arg(axis));
    load->setRange(0, 100);
    load->setToolTip(tr("Load torque on the simulated shaft, in percent of the motor's largest"));
    connect(load, &QSlider::valueChanged, this, [this, axis](int percent) {
        SimulatedAxis& loaded = m_simulator->module.axis(axis);
        loaded.setLoad(largestTorque(loaded) * percent / 100.0);
    });
    auto* box = new QGroupBox(tr("Simulated shaft"));
    auto* column = new QVBoxLayout(box);
    column->addWidget(shaft, 1);
    column->addWidget(new QLabel(tr("Load")));
    column->addWidget(load);
    return box;
}

QString MotionPage::panelName(const char* className, int axis)
{
    return QStringLiteral("%1%2").arg(QString::fromLatin1(className)).arg(axis);
}

void MotionPage::setAddress(char address)
{
    for (AxisPanel* panel : qAsConst(m_panels))
        panel->setAddress(address);
    m_address = address;
    for (const Axis& axis : m_axes)
        axis.moveRelative->setEnabled(false);
}

bool MotionPage::isEditing(const Command& request) const
{
    const quint8 axis = u8(request.getMotorBank());
    if (!carries(request.getCommand(), Instruction::GAP) || axis >= m_axes.size())
        return false;
    const auto& fields = m_axes[axis].fields;
    return std::any_of(fields.begin(), fields.end(), [&request](const Field& field) {
        return field.number == u8(request.getType()) && field.box->hasFocus() &&
               Entries::isPending(*field.box);
    });
}

void MotionPage::refresh()
{
    for (AxisPanel* panel : qAsConst(m_panels))
        panel->updateValues();
}

void MotionPage::poll()
{
    for (AxisPanel* panel : qAsConst(m_polled))
        panel->updateValues();
}

void MotionPage::take(const Command& reply)
{
    if (u8(reply.getStatus()) != StatusOk)
        return;
    Command copy = reply;
    for (AxisPanel* panel : qAsConst(m_panels))
        panel->IN_replyValue(&copy);
    const quint8 axis = u8(reply.getMotorBank());
    if (carries(reply.getCommand(), Instruction::GAP) && axis < m_axes.size() &&
        u8(reply.getType()) == Number::ActualPosition && u8(reply.getAddress()) == u8(m_address))
        m_axes[axis].moveRelative->setEnabled(true);
}

void MotionPage::frame(qint64 now)
{
    Q_UNUSED(now)
    for (int axis = 0; axis < m_shafts.size(); ++axis) {
        const SimulatedAxis& shaft = m_simulator->module.axis(axis);
        const int fastest = qMax(1, shaft.read(Number::MaxVelocity));
        m_shafts.at(axis)->showState(
            shaft.turns(), shaft.velocity() / fastest,
            tr("%1 rpm\n%2 turns").arg(shaft.velocity(), 0, 'f', 0).arg(shaft.turns(), 0, 'f', 2));
    }
}
