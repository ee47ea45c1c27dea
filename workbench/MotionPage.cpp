#include "MotionPage.h"

#include "CurrentControl.h"
#include "Fitting.h"
#include "Instruction.h"
#include "ParameterTable.h"
#include "PositionControl.h"
#include "ShaftView.h"
#include "SimulatedModule.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSlider>

namespace Number = AxisParameterNumber;

namespace
{

struct Range {
    int minimum;
    int maximum;
};

Range rangeOf(quint8 number)
{
    for (const ParameterInfo& info : axisParameters()) {
        if (info.number == number)
            return {info.minimum, info.maximum};
    }
    return {0, 0};
}

/// The largest torque that an axis can give (Nm).
double largestTorque(const SimulatedAxis& axis)
{
    return axis.motorData().torqueConstant * axis.read(Number::MaxCurrent) / 1000.0;
}

void setUp(VelocityControl& panel)
{
    const Range actual = rangeOf(Number::ActualVelocity);
    panel.setActualVelocityCommandAndRange(toByte(Number::ActualVelocity), actual.minimum,
                                           actual.maximum);
    panel.setTargetVelocityRange(0, rangeOf(Number::MaxVelocity).maximum);
}

void setUp(CurrentControl& panel)
{
    const Range actual = rangeOf(Number::ActualCurrent);
    panel.setActualCurrentCommandAndRange(toByte(Number::ActualCurrent), actual.minimum,
                                          actual.maximum);
    panel.setTargetCurrentCommandAndRange(toByte(Number::TargetCurrent), 0,
                                          rangeOf(Number::TargetCurrent).maximum);
}

void setUp(PositionControl& panel)
{
    const Range actual = rangeOf(Number::ActualPosition);
    const Range target = rangeOf(Number::TargetPosition);
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
    const Range velocity = rangeOf(Number::MaxVelocity);
    const Range acceleration = rangeOf(Number::Acceleration);
    panel.setMaxVelocityCommandAndRange(toByte(Number::MaxVelocity), velocity.minimum,
                                        velocity.maximum);
    panel.setAccelerationCommandAndRange(toByte(Number::Acceleration), acceleration.minimum,
                                         acceleration.maximum);
    panel.setEnableRampCommand(toByte(Number::EnableRamp));
    panel.setAccelerationCaption(QStringLiteral("Acceleration [rpm/s]"));
}

} // namespace

MotionPage::MotionPage(SimulatedModule& module) : Page(QStringLiteral("motion"), tr("Motion"))
{
    auto* axes = new QWidget;
    auto* row = new QHBoxLayout(axes);
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis)
        row->addWidget(makeAxis(module, axis));

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

QWidget* MotionPage::makeAxis(SimulatedModule& module, int axis)
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

    auto* shaft = new ShaftView;
    m_shafts << shaft;
    auto* load = new QSlider(Qt::Horizontal);
    load->setObjectName(QStringLiteral("slLoad%1").arg(axis));
    load->setAccessibleName(tr("Load on axis %1").arg(axis));
    load->setRange(0, 100);
    load->setToolTip(tr("Load torque on the simulated shaft, in percent of the motor's largest"));
    connect(load, &QSlider::valueChanged, this, [&module, axis](int percent) {
        SimulatedAxis& loaded = module.axis(axis);
        loaded.setLoad(largestTorque(loaded) * percent / 100.0);
    });

    auto* grid = new QGridLayout(frame);
    grid->addWidget(velocity, 0, 0);
    grid->addWidget(ramp, 0, 1);
    grid->addWidget(position, 1, 0);
    grid->addWidget(current, 2, 0);
    auto* simulated = new QGroupBox(tr("Simulated shaft"));
    auto* column = new QVBoxLayout(simulated);
    column->addWidget(shaft, 1);
    column->addWidget(new QLabel(tr("Load")));
    column->addWidget(load);
    grid->addWidget(simulated, 1, 1, 2, 1);
    grid->setRowStretch(3, 1);
    return frame;
}

QString MotionPage::panelName(const char* className, int axis)
{
    return QStringLiteral("%1%2").arg(QString::fromLatin1(className)).arg(axis);
}

void MotionPage::setAddress(char address)
{
    for (AxisPanel* panel : qAsConst(m_panels))
        panel->setAddress(address);
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
}

void MotionPage::showShafts(const SimulatedModule& module)
{
    for (int axis = 0; axis < m_shafts.size(); ++axis) {
        const SimulatedAxis& shaft = module.axis(axis);
        const int fastest = qMax(1, shaft.read(Number::MaxVelocity));
        m_shafts.at(axis)->showState(
            shaft.turns(), shaft.velocity() / fastest,
            tr("%1 rpm\n%2 turns").arg(shaft.velocity(), 0, 'f', 0).arg(shaft.turns(), 0, 'f', 2));
    }
}
