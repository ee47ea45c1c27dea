#include "SimulatedRecorder.h"

namespace N = AxisParameterNumber;

namespace
{

constexpr std::array<quint8, SimulatedRecorder::Items> itemTable[SimulatedRecorder::Modes] = {
    {N::TargetCurrent, N::ActualCurrent, N::ActualVelocity, N::ActualPosition},
    {N::RampVelocity, N::ActualVelocity, N::ActualCurrent, N::ActualPosition},
    {N::TargetPosition, N::ActualPosition, N::ActualVelocity, N::ActualCurrent},
    {N::PhaseCurrentA, N::PhaseCurrentB, N::PhaseCurrentC, N::HallState}};

struct Condition {
    quint8 number; // of the axis parameter
    int sign;      // 1: fires above the threshold, -1: below it, 0: always
};
constexpr Condition conditions[SimulatedRecorder::Triggers] = {{0, 0}, //
                                                               {N::ActualPosition, -1},
                                                               {N::ActualPosition, 1},
                                                               {N::ActualVelocity, -1},
                                                               {N::ActualVelocity, 1},
                                                               {N::ActualCurrent, -1},
                                                               {N::ActualCurrent, 1}};

} // namespace

const std::array<quint8, SimulatedRecorder::Items>& SimulatedRecorder::items(Mode mode)
{
    return itemTable[static_cast<size_t>(mode)];
}

void SimulatedRecorder::idle()
{
    if (m_state != State::Complete)
        m_state = State::Idle;
}

void SimulatedRecorder::setMode(Mode mode)
{
    idle();
    m_mode = mode;
}

void SimulatedRecorder::setInterval(int ticks)
{
    idle();
    m_interval = qBound(1, ticks, MaximumInterval);
}

void SimulatedRecorder::setAxis(int axis)
{
    if (axis != m_axis)
        idle();
    m_axis = axis;
}

void SimulatedRecorder::arm(Trigger trigger, int value)
{
    m_trigger = trigger;
    m_threshold = value;
    m_recorded.clear();
    m_recorded.reserve(Elements);
    m_stepsToNext = 0;
    m_state = State::Armed;
}

void SimulatedRecorder::reset() { *this = SimulatedRecorder(); }

bool SimulatedRecorder::fires(const SimulatedAxis& axis) const
{
    const Condition& condition = conditions[static_cast<size_t>(m_trigger)];
    const qint64 beyond = qint64(axis.read(condition.number)) - m_threshold;
    return condition.sign == 0 || beyond * condition.sign > 0;
}

void SimulatedRecorder::step(const SimulatedAxis& axis)
{
    if (m_state == State::Armed && fires(axis))
        m_state = State::Recording;
    if (m_state != State::Recording || m_stepsToNext-- > 0)
        return;
    Element element;
    for (size_t item = 0; item < Items; ++item)
        element[item] = axis.read(items(m_mode)[item]);
    m_recorded.push_back(element);
    m_stepsToNext = m_interval * stepsPerTick(m_mode) - 1;
    if (m_recorded.size() == Elements)
        m_state = State::Complete;
}
