#include "SimulatedAxis.h"

#include "Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace N = AxisParameterNumber;
using namespace Simulated;

namespace
{

constexpr double Turn = 6.283185307179586; // rad
constexpr double Minute = 60;              // s
constexpr double Milli = 1e-3;
constexpr double Deci = 0.1;
constexpr double Range = 4294967296.0; // positions that a 32-bit counter tells apart

// Position moves plan with less than the whole torque: what is left is for friction and rounding.
constexpr double TorqueInPlan = 0.95;

double wrapped(double counts) { return counts - Range * std::floor(counts / Range + 0.5); }

double fraction(double turns) { return turns - std::floor(turns); }

// Angle in 1/65536 of a turn, -32768..32767.
int angle(double turns)
{
    return qBound(-32768, int(std::floor((fraction(turns + 0.5) - 0.5) * 65536)), 32767);
}

} // namespace

SimulatedAxis::SimulatedAxis() : m_parameters(ParameterMemory::ofAxis()) { reset(); }

void SimulatedAxis::reset()
{
    m_parameters.reset();
    m_origin = -turns() * setting(N::EncoderSteps);
    m_targetTurns = turns();
    m_targetCurrent = 0;
    m_thermalLoad = 0;
    m_brakeActive = false;
    m_ramp = m_motor.state();
    rotate(setting(N::PowerOnVelocity));
}

int SimulatedAxis::read(quint8 number) const
{
    const ParameterInfo* info = m_parameters.info(number);
    return info ? qBound(info->minimum, reading(number), info->maximum) : 0;
}

int SimulatedAxis::reading(quint8 number) const
{
    switch (number) {
    case N::TargetPosition:
        return roundToInt(wrapped(counts(m_targetTurns)));
    case N::ActualPosition:
        return roundToInt(position());
    case N::TargetVelocity:
        return m_targetVelocity;
    case N::TargetCurrent:
        return m_targetCurrent;
    case N::ActualVelocity:
        return roundToInt(velocity());
    case N::RampVelocity:
        return roundToInt(rampVelocity());
    case N::RampPosition:
        return roundToInt(wrapped(counts(m_ramp.position)));
    case N::PositionDeviation:
        return roundToInt(counts(m_targetTurns) - counts(turns()));
    case N::PositionReached:
        return positionReached();
    case N::OperatingMode:
        return int(m_mode);
    case N::ActualCurrent:
        return roundToInt(current());
    case N::PhaseCurrentA:
        return roundToInt(phaseCurrent(0));
    case N::PhaseCurrentB:
        return roundToInt(phaseCurrent(1.0 / 3));
    case N::PhaseCurrentC:
        return roundToInt(phaseCurrent(2.0 / 3));
    case N::SupplyCurrent:
        return roundToInt(m_motor.supplyCurrent() / Milli);
    case N::SupplyVoltage:
        return roundToInt(supplyVoltage() / Deci);
    case N::Temperature:
        return roundToInt(temperature());
    case N::StatusFlags:
        return statusFlags();
    case N::ThermalLoad:
        return roundToInt(m_thermalLoad / Deci);
    case N::BrakeActive:
        return m_brakeActive;
    case N::RawEncoder: {
        const double shaft = fraction(setting(N::EncoderDirection) ? -turns() : turns());
        return std::min(toInt(shaft * setting(N::EncoderSteps)), setting(N::EncoderSteps) - 1);
    }
    case N::EncoderTurns:
        return toInt(std::floor(turns()));
    case N::HallState:
        return hallState();
    case N::HallAngle:
        return angle((std::floor(hallTurn() * 6) + 0.5) / 6);
    case N::ElectricalAngle:
        return angle(electricalTurn());
    case N::LeftLimitSwitch:
        return isClosed(Switch::LeftLimit);
    case N::RightLimitSwitch:
        return isClosed(Switch::RightLimit);
    case N::HomeSwitch:
        return isClosed(Switch::Home);
    case N::LeftHallSwitch:
        return isClosed(Switch::LeftHall);
    case N::RightHallSwitch:
        return isClosed(Switch::RightHall);
    default:
        return setting(number);
    }
}

void SimulatedAxis::write(quint8 number, int value)
{
    switch (number) {
    case N::TargetPosition:
        return moveTo(value);
    case N::ActualPosition:
        return redefinePosition(value);
    case N::TargetVelocity:
        return rotate(value);
    case N::TargetCurrent:
        m_targetCurrent = value;
        m_mode = Mode::Torque;
        return;
    case N::EncoderSteps:
        return setEncoderSteps(value);
    default:
        return m_parameters.setValue(number, value);
    }
}

void SimulatedAxis::rotate(int velocity)
{
    m_targetVelocity = velocity;
    m_mode = Mode::Velocity;
}

void SimulatedAxis::moveTo(int position)
{
    m_targetTurns = turnsAt(position);
    m_mode = Mode::Position;
}

// Steps

void SimulatedAxis::step()
{
    const double turnsBefore = turns();
    if (isBlocked())
        followVelocity(0);
    else if (m_mode == Mode::Velocity)
        followVelocity(m_targetVelocity / Minute);
    else if (m_mode == Mode::Position)
        followPosition();
    else {
        m_motor.drive(m_targetCurrent * Milli, maxCurrent(), maxVelocity());
        m_ramp = m_motor.state();
    }
    watchNullChannel(turnsBefore);
    watchSupply();
}

bool SimulatedAxis::isBlocked() const
{
    const double ahead = m_mode == Mode::Velocity   ? m_targetVelocity
                         : m_mode == Mode::Position ? m_targetTurns - turns()
                                                    : m_targetCurrent;
    return (ahead < 0 && isClosed(Switch::LeftLimit) && !setting(N::LeftLimitDisabled)) ||
           (ahead > 0 && isClosed(Switch::RightLimit) && !setting(N::RightLimitDisabled));
}

// The ramp does not wait for a motor that lags behind; the motor catches up with all its torque.
void SimulatedAxis::followVelocity(double velocity)
{
    const MotionState now = m_motor.state();
    const double rate =
        setting(N::EnableRamp) ? acceleration() : std::numeric_limits<double>::infinity();
    const double target = qBound(-maxVelocity(), velocity, maxVelocity());
    m_ramp = RampProfile::toVelocity({now.position, m_ramp.velocity}, target, rate)
                 .at(SimulatedMotor::Step);
    m_motor.follow(m_ramp, maxCurrent());
}

// Planned anew in each step from where the motor really is: a change of parameters counts at once,
// and a motor that could not follow loses time but never winds up a distance. The plan asks for
// no more than the motor can brake, else it would overshoot its target again and again.
void SimulatedAxis::followPosition()
{
    const double torqueLimit = TorqueInPlan * m_motor.brakingPower(maxCurrent());
    const double rate =
        setting(N::EnableRamp) ? std::min(acceleration(), torqueLimit) : torqueLimit;
    m_ramp = RampProfile::toPosition(m_motor.state(), m_targetTurns, maxVelocity(), rate)
                 .at(SimulatedMotor::Step);
    m_motor.follow(m_ramp, maxCurrent());
    if (!setting(N::EnableRamp))
        m_ramp.position = m_targetTurns;
}

void SimulatedAxis::watchNullChannel(double turnsBefore)
{
    if (!setting(N::ClearOnNull) && !setting(N::ClearOnce))
        return;
    const double null = std::max(std::floor(turnsBefore), std::floor(turns()));
    if (std::floor(turnsBefore) == std::floor(turns()))
        return;
    m_origin = -null * setting(N::EncoderSteps);
    m_parameters.setValue(N::ClearOnce, 0);
}

void SimulatedAxis::watchSupply()
{
    const double limit = setting(N::BrakeVoltageLimit) * Deci;
    const double release = m_brakeActive ? setting(N::BrakeHysteresis) * Deci : 0;
    m_brakeActive = setting(N::BrakeEnabled) && m_motor.supplyVoltage() > limit - release;

    const double continuous = setting(N::ContinuousCurrent) * Milli;
    const double heating = m_motor.current() * m_motor.current() - continuous * continuous;
    m_thermalLoad = std::max(0.0, m_thermalLoad + heating * SimulatedMotor::Step);
}

// Position

double SimulatedAxis::counts(double turns) const
{
    return turns * setting(N::EncoderSteps) + m_origin;
}

// The shaft position nearest to the present one's round of the 32-bit counter.
double SimulatedAxis::turnsAt(int position) const
{
    return turns() + (position - this->position()) / setting(N::EncoderSteps);
}

void SimulatedAxis::redefinePosition(double position)
{
    m_origin = position - turns() * setting(N::EncoderSteps);
}

void SimulatedAxis::setEncoderSteps(int steps)
{
    const double present = counts(turns());
    m_parameters.setValue(N::EncoderSteps, steps);
    redefinePosition(present);
}

double SimulatedAxis::position() const { return wrapped(counts(turns())); }

bool SimulatedAxis::positionReached() const
{
    return m_mode == Mode::Position && m_motor.state().velocity == 0 &&
           std::abs(counts(m_targetTurns) - counts(turns())) <= setting(N::PositionWindow) + 0.5;
}

// Readings

double SimulatedAxis::maxVelocity() const { return setting(N::MaxVelocity) / Minute; }
double SimulatedAxis::maxCurrent() const { return setting(N::MaxCurrent) * Milli; }
double SimulatedAxis::acceleration() const { return setting(N::Acceleration) / Minute; }
double SimulatedAxis::velocity() const { return m_motor.state().velocity * Minute; }
double SimulatedAxis::rampVelocity() const { return m_ramp.velocity * Minute; }
double SimulatedAxis::current() const { return m_motor.current() / Milli; }
double SimulatedAxis::temperature() const { return m_motor.temperature(); }

double SimulatedAxis::supplyVoltage() const
{
    return m_brakeActive ? std::min(m_motor.supplyVoltage(), setting(N::BrakeVoltageLimit) * Deci)
                         : m_motor.supplyVoltage();
}

double SimulatedAxis::electricalTurn() const
{
    const int polePairs = setting(N::MotorPoles) / 2;
    return fraction(turns() * polePairs);
}

double SimulatedAxis::hallTurn() const
{
    return setting(N::HallDirection) ? fraction(-electricalTurn()) : electricalTurn();
}

int SimulatedAxis::hallState() const
{
    // One sensor changes from each sixth of the electrical turn to the next.
    static constexpr int states[] = {1, 3, 2, 6, 4, 5};
    const int state = states[std::min(int(hallTurn() * 6), 5)];
    return setting(N::HallInvert) ? 7 - state : state;
}

double SimulatedAxis::phaseCurrent(double shift) const
{
    return current() * std::cos(Turn * (electricalTurn() - shift));
}

void SimulatedAxis::setSwitch(Switch which, bool closed)
{
    const int bit = 1 << int(which);
    m_switches = closed ? m_switches | bit : m_switches & ~bit;
}

int SimulatedAxis::statusFlags() const
{
    const auto flag = [](int bit, bool set) { return set ? bit : 0; };
    const double voltage = supplyVoltage() / Deci;
    return StatusFlag::ModuleInitialized |
           flag(StatusFlag::Overcurrent, std::abs(current()) > setting(N::OvercurrentLimit)) |
           flag(StatusFlag::Undervoltage, voltage < setting(N::UndervoltageLimit)) |
           flag(StatusFlag::Overvoltage, voltage > setting(N::OvervoltageLimit)) |
           flag(StatusFlag::Overtemperature, temperature() > setting(N::OvertemperatureLimit)) |
           flag(StatusFlag::MotorHalted, m_motor.state().velocity == 0) |
           flag(StatusFlag::VelocityMode, m_mode == Mode::Velocity) |
           flag(StatusFlag::PositionMode, m_mode == Mode::Position) |
           flag(StatusFlag::TorqueMode, m_mode == Mode::Torque) |
           flag(StatusFlag::PositionEnd, positionReached()) |
           flag(StatusFlag::ThermalLoadExceeded,
                m_thermalLoad / Deci > setting(N::ThermalLoadLimit)) |
           flag(StatusFlag::BrakeActive, m_brakeActive);
}
