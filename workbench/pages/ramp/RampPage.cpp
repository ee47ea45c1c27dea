#include "RampPage.h"

#include "BasicTools.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "Numbers.h"
#include "ParameterCatalogue.h"
#include "RampCurve.h"
#include "SpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace Number = AxisParameterNumber;

namespace
{

constexpr double Minute = 60; // s
constexpr double ToMilliseconds = 1000;

// The calculation's drawing area, of which only proportions are used.
constexpr double Margin = 20;
constexpr QSizeF Area(1000 + 2 * Margin, 1000);

constexpr double LargestVelocity = 8388607; // 23 bits, as motion controllers hold it
constexpr double LargestAcceleration = 65535;
constexpr double LargestDistance = 100000000; // increments, far from the counter's ends

const struct {
    const char* name; // holds the part by which the calculation finds it
    const char* caption;
    double maximum;
    double value;
} parameters[] = {{"sbVStart", "VSTART", LargestVelocity, 1000},
                  {"sbA1", "A1", LargestAcceleration, 3000},
                  {"sbV1", "V1", LargestVelocity, 50000},
                  {"sbAcceleration", "AMAX", LargestAcceleration, 2000},
                  {"sbMaxPosVel", "VMAX", LargestVelocity, 100000},
                  {"sbDeceleration", "DMAX", LargestAcceleration, 2000},
                  {"sbD1", "D1", LargestAcceleration, 3000},
                  {"sbVStop", "VSTOP", LargestVelocity, 1000}};

QLabel* makeText(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

RampPage::RampPage(const PageContext& context)
    : m_link(context.link)
    , m_move(context.link)
    , m_ramp(Area)
    , m_plan(makeText("lblPlan"))
    , m_result(makeText("lblRampResult"))
    , m_turned(makeText("lblTurned"))
    , m_curve(new RampCurve)
{
    auto* inputs = new QVBoxLayout;
    inputs->addWidget(makeParameters());
    inputs->addWidget(makeMove());
    inputs->addStretch();
    auto* drawing = new QVBoxLayout;
    drawing->addWidget(m_curve, 1);
    drawing->addWidget(m_result);
    drawing->addWidget(m_turned);
    drawing->addWidget(m_plan);
    auto* row = new QHBoxLayout(this);
    row->addLayout(inputs);
    row->addLayout(drawing, 1);
    m_curve->setObjectName(QStringLiteral("rampCurve"));
    m_result->setTextFormat(Qt::RichText);

    connect(&m_move, &RampMove::command, this, &Page::command);
    connect(&m_move, &RampMove::read, this, &Page::read);
    connect(&m_move, &RampMove::changed, this, &RampPage::showMeasured);
    connect(&m_move, &RampMove::ended, this, &RampPage::showEnd);
    connect(&m_link, &ModuleLink::stateChanged, this, &RampPage::showPlan);
    showEnd(tr("not moved yet"));
    calculate();
}

QWidget* RampPage::makeParameters()
{
    auto* group = new QGroupBox(tr("Ramp (internal units)"));
    m_parameters = new QFormLayout(group);
    for (const auto& parameter : parameters) {
        auto* box = new SpinBox;
        box->setObjectName(QLatin1String(parameter.name));
        box->setMinimum(0);
        box->setMaximum(parameter.maximum);
        box->setValue(parameter.value);
        m_parameters->addRow(QLatin1String(parameter.caption), box);
        connect(box, QOverload<int>::of(&SpinBox::valueChanged), this, &RampPage::calculate);
    }
    m_maxVelocity = group->findChild<SpinBox*>(QStringLiteral("sbMaxPosVel"));
    m_acceleration = group->findChild<SpinBox*>(QStringLiteral("sbAcceleration"));
    return group;
}

QWidget* RampPage::makeMove()
{
    auto* group = new QGroupBox(tr("Relative move"));
    m_distance = new SpinBox;
    m_distance->setObjectName(QStringLiteral("sbDistance"));
    m_distance->setMinimum(1);
    m_distance->setMaximum(LargestDistance);
    m_distance->setValue(100000.0);
    m_axis = new QComboBox;
    m_axis->setObjectName(QStringLiteral("cmbRampAxis"));
    m_axis->setAccessibleName(tr("Axis"));
    for (int axis = 0; axis < m_link.profile().axes; ++axis)
        m_axis->addItem(tr("Axis %1").arg(axis));
    m_left = new QCheckBox(tr("to the left"));
    m_left->setObjectName(QStringLiteral("cbLeft"));
    m_start = new QPushButton(tr("Move"));
    m_start->setObjectName(QStringLiteral("btnRampMove"));
    auto* stop = new QPushButton(tr("Stop"));
    stop->setObjectName(QStringLiteral("btnRampStop"));

    auto* form = new QFormLayout;
    form->addRow(tr("Distance [steps]"), m_distance);
    form->addRow(m_axis, m_left);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_start);
    buttons->addWidget(stop);
    auto* column = new QVBoxLayout(group);
    column->addLayout(form);
    column->addLayout(buttons);

    connect(m_distance, QOverload<int>::of(&SpinBox::valueChanged), this, &RampPage::calculate);
    connect(m_axis, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_encoderSteps = 0;
        calculate();
        refresh();
    });
    connect(m_start, &QPushButton::clicked, this, &RampPage::startMove);
    connect(stop, &QPushButton::clicked, this, &RampPage::stop);
    return group;
}

char RampPage::axis() const { return toByte(m_axis->currentIndex()); }

double RampPage::rpmPerUnit() const
{
    return m_encoderSteps > 0 ? TrapezialRamp::VelocityUnit * Minute / m_encoderSteps : 0;
}

RampMove::Plan RampPage::plan() const
{
    RampMove::Plan plan;
    plan.axis = m_axis->currentIndex();
    plan.encoderSteps = m_encoderSteps;
    plan.maxVelocity = roundToInt(m_maxVelocity->value() * rpmPerUnit());
    plan.acceleration =
        roundToInt(m_acceleration->value() * rpmPerUnit() / TrapezialRamp::ChangeTime);
    plan.distance = toInt(m_distance->value()) * (m_left->isChecked() ? -1 : 1);
    return plan;
}

/// Why the axis cannot be moved like this; empty when it can.
QString RampPage::obstacle(const RampMove::Plan& plan) const
{
    if (!m_link.isOpen())
        return tr("There is no module to move.");
    if (m_encoderSteps == 0)
        return tr("The axis has not told its encoder's steps yet.");
    const auto isWithin = [](quint8 number, int value) {
        const ParameterInfo& row = axisParameter(number);
        return value >= row.minimum && value <= row.maximum;
    };
    if (plan.maxVelocity < 1 || !isWithin(Number::MaxVelocity, plan.maxVelocity))
        return tr("VMAX is out of the axis' range.");
    if (plan.acceleration < 1 || !isWithin(Number::Acceleration, plan.acceleration))
        return tr("AMAX is out of the axis' range.");
    return QString();
}

void RampPage::calculate()
{
    m_ramp.ramp(m_parameters, false, m_distance->value());
    // Rich text takes the peak that the calculation's own text may tell for a tag.
    m_result->setText(tr("Peak velocity %1. ").arg(BasicTools::intInsertDot(m_ramp.peak(), 1)) +
                      m_ramp.str());
    const double duration = m_ramp.duration() * ToMilliseconds;
    const double top = qMax(1.0, m_maxVelocity->value()); // as the calculation takes it
    const QPolygonF polygon = m_ramp.polygon();
    QPolygonF corners;
    for (int i = 1; i + 1 < polygon.size(); ++i) { // without the base line to both sides
        const QPointF& point = polygon.at(i);
        corners << QPointF((point.x() - Margin) / (Area.width() - 2 * Margin) * duration,
                           (1 - point.y() / Area.height()) * top);
    }
    m_curve->setCalculated(corners);
    m_curve->setRealScale(rpmPerUnit());
    showMeasured();
}

void RampPage::showMeasured()
{
    QPolygonF samples;
    if (m_recordScale > 0) {
        for (const QPointF& sample : m_move.samples())
            samples << QPointF(sample.x(), sample.y() / m_recordScale);
    }
    m_curve->setMeasured(samples);
    if (m_move.state() == RampMove::State::Moving)
        m_turned->setText(tr("Axis: moving for %1 ms").arg(m_move.duration(), 0, 'f', 0));
    showPlan();
}

void RampPage::showPlan()
{
    const RampMove::Plan planned = plan();
    const QString reason = obstacle(planned);
    m_start->setEnabled(reason.isEmpty() && m_move.state() == RampMove::State::Idle);
    if (!reason.isEmpty()) {
        m_plan->setText(reason);
        return;
    }
    m_plan->setText(tr("The axis takes VMAX as %1 rpm (parameter %2) and AMAX as %3 rpm/s "
                       "(parameter %4), also to brake, and keeps them. It starts and stops at rest "
                       "and has none of the others. "
                       "A step is an increment of its encoder, %5 in a turn.")
                        .arg(planned.maxVelocity)
                        .arg(Number::MaxVelocity)
                        .arg(planned.acceleration)
                        .arg(Number::Acceleration)
                        .arg(planned.encoderSteps));
}

void RampPage::showEnd(const QString& reason)
{
    QString text = tr("Axis: ") + reason;
    if (!m_move.samples().isEmpty())
        text = tr("Axis: up to %1 rpm, %2 ms from the start until it stood")
                   .arg(m_move.peak(), 0, 'f', 0)
                   .arg(m_move.duration(), 0, 'f', 0) +
               (reason.isEmpty() ? QString() : QStringLiteral(" - ") + reason);
    m_turned->setText(text);
}

void RampPage::setAddress(char address)
{
    m_move.abandon();
    m_address = address;
    m_encoderSteps = 0;
    calculate();
}

void RampPage::refresh()
{
    emit read(
        Command(m_address, toByte(Instruction::GAP), toByte(Number::EncoderSteps), axis(), 0));
}

void RampPage::poll()
{
    if (m_encoderSteps == 0)
        refresh();
    m_move.poll();
}

void RampPage::take(const Command& reply)
{
    const bool isEncoder =
        u8(reply.getStatus()) == StatusOk && u8(reply.getAddress()) == u8(m_address) &&
        u8(reply.getMotorBank()) == u8(axis()) && u8(reply.getType()) == Number::EncoderSteps &&
        carries(reply.getCommand(), Instruction::GAP);
    if (isEncoder && reply.getValue() > 0 && reply.getValue() != m_encoderSteps) {
        m_encoderSteps = reply.getValue();
        calculate();
    }
    m_move.take(reply);
}

void RampPage::startMove()
{
    const RampMove::Plan planned = plan();
    if (!obstacle(planned).isEmpty())
        return;
    m_recordScale = rpmPerUnit();
    m_turned->setText(tr("Axis: asked whether it can move"));
    m_move.start(m_address, planned);
}

void RampPage::stop() { emit command(Command(m_address, toByte(Instruction::MST), 0, axis(), 0)); }
