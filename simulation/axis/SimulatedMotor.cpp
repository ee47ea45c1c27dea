#include "SimulatedMotor.h"

#include <algorithm>
#include <cmath>

using namespace Simulated;

namespace
{

constexpr double Turn = 6.283185307179586; // rad

// Not a number gives the minimum.
double limited(double value, double minimum, double maximum)
{
    return value >= minimum ? std::min(value, maximum) : minimum;
}

double sign(double value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }

} // namespace

SimulatedMotor::SimulatedMotor() : m_temperature(m_data.ambientTemperature) {}

void SimulatedMotor::setData(const MotorData& data)
{
    m_data.inertia = limited(data.inertia, 1e-9, 1e3);
    m_data.viscousFriction = limited(data.viscousFriction, 0, 1e3);
    m_data.staticFriction = limited(data.staticFriction, 0, 1e3);
    m_data.torqueConstant = limited(data.torqueConstant, 1e-6, 1e3);
    m_data.resistance = limited(data.resistance, 1e-6, 1e6);
    m_data.thermalResistance = limited(data.thermalResistance, 0, 1e6);
    m_data.thermalTime = limited(data.thermalTime, Step, 1e9);
    m_data.ambientTemperature = limited(data.ambientTemperature, -273, 1000);
    m_data.supplyVoltage = limited(data.supplyVoltage, 0, 1000);
    m_data.supplyResistance = limited(data.supplyResistance, 0, 1e3);
}

void SimulatedMotor::setLoad(double torque)
{
    m_load = torque == torque ? limited(torque, -1000, 1000) : 0;
}

double SimulatedMotor::supplyVoltage() const
{
    return limited(m_data.supplyVoltage - m_data.supplyResistance * m_supplyCurrent, 0,
                   2 * m_data.supplyVoltage);
}

double SimulatedMotor::damping() const { return Turn * m_data.viscousFriction; }

// Implicit in the velocity, so that no damping however strong makes the step unstable.
double SimulatedMotor::velocityAfter(double velocity, double torque, double damping,
                                     double time) const
{
    const double driving = torque - m_load;
    const double holding = m_data.staticFriction;
    const double friction =
        velocity == 0 ? limited(driving, -holding, holding) : sign(velocity) * holding;
    const double inertia = Turn * m_data.inertia;
    const double next =
        (inertia * velocity + (driving - friction) * time) / (inertia + damping * time);
    if (velocity * next >= 0)
        return next;
    // The friction turns round when the motion does: the rest of the step starts from rest.
    return velocityAfter(0, torque, damping, time * next / (next - velocity));
}

// The velocity, as far as current and supply voltage reach it within one step.
double SimulatedMotor::reachable(double velocity, double maxCurrent) const
{
    const double now = m_state.velocity;
    const double torque = m_data.torqueConstant * maxCurrent;
    const double slowest = velocityAfter(now, -torque, damping(), Step);
    const double fastest = velocityAfter(now, torque, damping(), Step);
    // A voltage at the terminals acts as its short-circuit torque with the back-EMF as a damper.
    const double stiffness = m_data.torqueConstant / m_data.resistance;
    const double full = stiffness * supplyVoltage();
    const double damped = damping() + Turn * stiffness * m_data.torqueConstant;
    // Where both limits contradict each other, the current limit holds.
    const double low = limited(velocityAfter(now, -full, damped, Step), slowest, fastest);
    const double high = limited(velocityAfter(now, full, damped, Step), low, fastest);
    return limited(velocity, low, high);
}

double SimulatedMotor::currentFor(double velocity, double maxCurrent) const
{
    const double direction = sign(m_state.velocity + velocity);
    const double friction = direction == 0
                                ? -limited(m_load, -m_data.staticFriction, m_data.staticFriction)
                                : direction * m_data.staticFriction;
    const double torque = Turn * m_data.inertia * (velocity - m_state.velocity) / Step +
                          damping() * velocity + m_load + friction;
    return limited(torque / m_data.torqueConstant, -maxCurrent, maxCurrent);
}

void SimulatedMotor::follow(const MotionState& demand, double maxCurrent)
{
    const double velocity = reachable(demand.velocity, maxCurrent);
    m_current = currentFor(velocity, maxCurrent);
    finishStep(velocity, velocity == demand.velocity
                             ? demand.position
                             : m_state.position + (m_state.velocity + velocity) / 2 * Step);
}

void SimulatedMotor::drive(double current, double maxCurrent, double maxVelocity)
{
    const double wanted = limited(current, -maxCurrent, maxCurrent);
    const double free =
        velocityAfter(m_state.velocity, m_data.torqueConstant * wanted, damping(), Step);
    const double velocity = reachable(limited(free, -maxVelocity, maxVelocity), maxCurrent);
    m_current = velocity == free ? wanted : currentFor(velocity, maxCurrent);
    finishStep(velocity, m_state.position + (m_state.velocity + velocity) / 2 * Step);
}

double SimulatedMotor::brakingPower(double maxCurrent) const
{
    const double torque = m_data.torqueConstant * maxCurrent - std::abs(m_load);
    return std::max(0.0, torque / (Turn * m_data.inertia));
}

void SimulatedMotor::finishStep(double velocity, double position)
{
    m_state = {position, velocity};
    const double heat = m_current * m_current * m_data.resistance;
    const double mechanical = m_data.torqueConstant * m_current * Turn * velocity;
    m_supplyCurrent = m_data.supplyVoltage > 0 ? (heat + mechanical) / m_data.supplyVoltage : 0;
    const double equilibrium = m_data.ambientTemperature + m_data.thermalResistance * heat;
    m_temperature -= (equilibrium - m_temperature) * std::expm1(-Step / m_data.thermalTime);
}
