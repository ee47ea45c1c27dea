#ifndef SIMULATEDMOTOR_H
#define SIMULATEDMOTOR_H

#include "AXRSimulationExport.h"
#include "RampProfile.h"

namespace Simulated
{

/// The constants of a motor, its bridge and its supply.
struct MotorData {
    double inertia = 5e-5;          ///< kg m²
    double viscousFriction = 1e-5;  ///< Nm s/rad
    double staticFriction = 0.002;  ///< Nm, against the motion; holds the shaft at rest
    double torqueConstant = 0.04;   ///< Nm/A, and V s/rad of the back-EMF
    double resistance = 0.4;        ///< Ohm
    double thermalResistance = 3;   ///< K/W from the winding to the surroundings
    double thermalTime = 60;        ///< s, time constant of the temperature
    double ambientTemperature = 25; ///< degrees C
    double supplyVoltage = 24;      ///< V without load
    double supplyResistance = 0.5;  ///< Ohm, makes the supply sag
};

} // namespace Simulated

/// The physics of one motor, in fixed steps of virtual time. The drive says where to be after the
/// step; the motor goes there exactly when the torque suffices, and as far as it can otherwise.
/// Positions are turns, velocities turns per second, currents A.
class AXRSIMULATION_EXPORT SimulatedMotor
{
public:
    /// Length of one step (s).
    static constexpr double Step = 1e-4;

    SimulatedMotor();

    const Simulated::MotorData& data() const { return m_data; }
    /// Takes effect from the next step on. Values that no motor can have (negative, not a number)
    /// are moved to the nearest possible ones.
    void setData(const Simulated::MotorData& data);

    /// Torque (Nm) from outside against the positive direction, as a hanging weight would give it.
    /// Limited to -1000..1000. Default 0.
    void setLoad(double torque);
    double load() const { return m_load; }

    const Simulated::MotionState& state() const { return m_state; }
    double current() const { return m_current; }
    double temperature() const { return m_temperature; } ///< degrees C
    double supplyCurrent() const
    {
        return m_supplyCurrent;
    }                             ///< A, negative when braking feeds back
    double supplyVoltage() const; ///< V under the present load

    /// One step toward the demanded state at its end, with no more than maxCurrent.
    void follow(const Simulated::MotionState& demand, double maxCurrent);

    /// One step at a current, limited to maxCurrent; not faster than maxVelocity.
    void drive(double current, double maxCurrent, double maxVelocity);

    /// Acceleration (turns/s²) with which this current can brake in both directions. 0 when the
    /// load alone needs more.
    double brakingPower(double maxCurrent) const;

private:
    double velocityAfter(double velocity, double torque, double damping, double time) const;
    double reachable(double velocity, double maxCurrent) const;
    double currentFor(double velocity, double maxCurrent) const;
    double damping() const;
    void finishStep(double velocity, double position);

    Simulated::MotorData m_data;
    double m_load = 0;
    Simulated::MotionState m_state;
    double m_current = 0;
    double m_supplyCurrent = 0;
    double m_temperature;
};

#endif
