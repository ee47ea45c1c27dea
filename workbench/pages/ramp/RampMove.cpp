#include "RampMove.h"

#include "CommandText.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "ParameterCatalogue.h"
#include "ValueKey.h"

namespace Number = AxisParameterNumber;

namespace
{

constexpr int AnswerWithin = 1000; // ms; later nobody expects the axis to move any more
constexpr int StandsFor = 2000;    // ms, after which it is not on its way to the target
constexpr int MostSamples = 4000;

} // namespace

RampMove::RampMove(const ModuleLink& link) : m_link(link)
{
    connect(&link, &ModuleLink::gaveUp, this, &RampMove::takeGivenUp);
    connect(&link, &ModuleLink::stateChanged, this, [this] {
        if (!m_link.isOpen())
            end(tr("disconnected"));
    });
}

Command RampMove::request(quint8 instruction, quint8 type, int value) const
{
    return Command(m_address, toByte(instruction), toByte(type), toByte(m_plan.axis), value);
}

void RampMove::start(char address, const Plan& plan)
{
    if (m_state != State::Idle || !m_link.isOpen())
        return;
    m_address = address;
    m_plan = plan;
    m_samples.clear();
    m_spacing = 0;
    m_peak = 0;
    m_lastTime = 0;
    m_standsSince.reset();
    m_isStopped = false;
    m_hasTurned = false;

    constexpr auto gap = static_cast<quint8>(Instruction::GAP);
    constexpr auto sap = static_cast<quint8>(Instruction::SAP);
    const QString otherValue = tr("the axis took another value");
    m_steps = {
        {request(gap, Number::EncoderSteps), plan.encoderSteps,
         tr("the encoder's steps have changed, and so has what the axis would take")},
        {request(gap, Number::EnableRamp), 1, tr("the ramp of the axis is switched off")},
        {request(gap, Number::ActualVelocity), 0, tr("the axis turns already")},
        {request(sap, Number::MaxVelocity, plan.maxVelocity), plan.maxVelocity, otherValue},
        {request(sap, Number::Acceleration, plan.acceleration), plan.acceleration, otherValue},
        {request(static_cast<quint8>(Instruction::MVP), static_cast<quint8>(MoveType::Relative),
                 plan.distance),
         std::nullopt, QString()}};
    m_step = 0;
    m_state = State::Preparing;
    emit changed();
    sendStep();
}

void RampMove::abandon()
{
    if (m_state != State::Idle)
        end(tr("no longer followed"));
}

void RampMove::giveUp()
{
    if (m_state == State::Preparing)
        end(tr("overtaken by the stop"));
}

void RampMove::sendStep()
{
    m_stepSent = m_link.time();
    const Command next = m_steps.at(m_step).request;
    if (carries(next.getCommand(), Instruction::GAP))
        emit read(next);
    else
        emit command(next);
}

void RampMove::take(const Command& reply)
{
    if (m_state == State::Idle || u8(reply.getAddress()) != u8(m_address) ||
        u8(reply.getMotorBank()) != m_plan.axis)
        return;
    m_isStopped = m_isStopped || carries(reply.getCommand(), Instruction::MST);
    if (m_state == State::Preparing) {
        takeStep(reply);
        return;
    }
    if (u8(reply.getStatus()) != StatusOk || !carries(reply.getCommand(), Instruction::GAP))
        return;
    if (u8(reply.getType()) == Number::ActualVelocity)
        takeVelocity(reply.getValue());
    else if (u8(reply.getType()) == Number::PositionReached && reply.getValue() == 1 &&
             m_standsSince)
        end(QString());
}

void RampMove::takeStep(const Command& reply)
{
    if (m_isStopped || m_link.isStopping()) {
        end(tr("overtaken by the stop"));
        return;
    }
    const Step& step = m_steps.at(m_step);
    if (!isSameValue(reply, step.request))
        return;
    if (m_link.time() - m_stepSent > AnswerWithin)
        end(tr("the module answered too late"));
    else if (u8(reply.getStatus()) != StatusOk)
        end(tr("the module refused"));
    else if (step.wanted && reply.getValue() != *step.wanted)
        end(step.otherwise);
    else if (++m_step < m_steps.size())
        sendStep();
    else {
        m_state = State::Moving;
        m_moveStart = m_link.time();
        keep({0, 0});
        poll();
        emit changed();
    }
}

void RampMove::takeVelocity(int velocity)
{
    const double ahead = m_plan.distance < 0 ? -double(velocity) : double(velocity);
    const double time = double(m_link.time() - m_moveStart);
    m_lastTime = time;
    m_peak = qMax(m_peak, ahead);
    keep({time, ahead});
    if (velocity != 0) {
        m_hasTurned = true;
        m_standsSince.reset();
    } else if (m_hasTurned && !m_standsSince) {
        m_standsSince = time;
        m_samples.last() = {time, ahead}; // also when it comes soon after the one before
    }
    const double stoodFor = velocity == 0 ? time - m_standsSince.value_or(0) : 0;
    if (velocity == 0 && m_isStopped)
        end(tr("stopped before its target"));
    else if (stoodFor > StandsFor)
        end(m_hasTurned ? tr("it stands, but not on its target") : tr("the axis does not turn"));
    else {
        poll();
        emit changed();
    }
}

void RampMove::keep(QPointF sample)
{
    if (!m_samples.isEmpty() && sample.x() - m_samples.last().x() < m_spacing)
        return;
    m_samples << sample;
    if (m_samples.size() < MostSamples)
        return;
    for (int i = 0; i < m_samples.size() / 2; ++i)
        m_samples[i] = m_samples.at(2 * i);
    m_samples.resize(m_samples.size() / 2);
    m_spacing = m_samples.last().x() / m_samples.size();
}

void RampMove::poll()
{
    if (m_state == State::Preparing && m_link.time() - m_stepSent > AnswerWithin)
        end(tr("the module does not answer"));
    if (m_state != State::Moving)
        return;
    constexpr auto gap = static_cast<quint8>(Instruction::GAP);
    emit read(request(gap, Number::ActualVelocity));
    if (m_standsSince)
        emit read(request(gap, Number::PositionReached));
}

void RampMove::takeGivenUp(const Command& request, const QString& reason)
{
    if (m_state == State::Preparing && isSameValue(request, m_steps.at(m_step).request))
        end(reason);
}

void RampMove::end(const QString& reason)
{
    if (m_state == State::Idle)
        return;
    m_state = State::Idle;
    emit changed();
    emit ended(reason);
}
