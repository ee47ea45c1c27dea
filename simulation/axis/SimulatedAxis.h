#ifndef SIMULATEDAXIS_H
#define SIMULATEDAXIS_H

#include "ParameterMemory.h"
#include "SimulatedMotor.h"

/// One axis: a motor, its drive and its parameters. Positions are encoder increments, velocities
/// rpm, currents mA.
class AXRSIMULATION_EXPORT SimulatedAxis
{
public:
    /// What the drive is led by; also the value of the parameter OperatingMode.
    enum class Mode { Velocity, Position, Torque };
    enum class Switch { LeftLimit, RightLimit, Home, LeftHall, RightHall };

    SimulatedAxis();

    // The drive's side: what commands reach.

    Simulated::ParameterMemory& parameters() { return m_parameters; }
    const Simulated::ParameterMemory& parameters() const { return m_parameters; }

    /// Present value of a parameter, within its row's range; 0 for a number that the table does
    /// not have.
    int read(quint8 number) const;
    /// Takes effect at once. Writing a target starts motion; writing the actual position or the
    /// encoder steps changes how the position counts and moves nothing. The value must lie in the
    /// row's range and the row must be writable.
    void write(quint8 number, int value);

    /// Velocity mode at this velocity (rpm), up the ramp and within the maximum velocity.
    void rotate(int velocity);
    void stop() { rotate(0); }
    void moveTo(int position);

    /// Parameters go to their stored values, the position counts from 0 and the drive turns at the
    /// power-on velocity. What turns and what is warm stays so.
    void reset();

    /// One SimulatedMotor::Step of virtual time.
    void step();

    // The world's side: what a test or a host does to the axis, and what the axis really did.

    const Simulated::MotorData& motorData() const { return m_motor.data(); }
    void setMotorData(const Simulated::MotorData& data) { m_motor.setData(data); }
    /// Torque against the positive direction (Nm), see SimulatedMotor::setLoad().
    void setLoad(double torque) { m_motor.setLoad(torque); }
    double load() const { return m_motor.load(); }
    /// A closed limit switch that is not disabled keeps the axis from turning toward it: it brakes
    /// on the ramp. Left is the negative direction. Default open.
    void setSwitch(Switch which, bool closed);

    Mode mode() const { return m_mode; }
    /// Counted over the whole 32 bits, beyond which it starts again at the other end.
    double position() const;
    double velocity() const;
    double rampVelocity() const;  ///< Where the ramp stands, also when the motor lags behind.
    double current() const;       ///< mA, within the maximum current
    double temperature() const;   ///< degrees C
    double supplyVoltage() const; ///< V, after the brake chopper
    /// In position mode: at rest within the window round the target.
    bool positionReached() const;
    /// Turns of the shaft since the start, untouched by whatever redefines the position.
    double turns() const { return m_motor.state().position; }

private:
    int reading(quint8 number) const;
    int setting(quint8 number) const { return m_parameters.value(number); }
    double maxVelocity() const;
    double maxCurrent() const;
    double acceleration() const;
    double electricalTurn() const;
    double hallTurn() const;
    double phaseCurrent(double shift) const;
    int hallState() const;
    int statusFlags() const;
    bool isClosed(Switch which) const { return m_switches & (1 << int(which)); }
    bool isBlocked() const;
    double counts(double turns) const;
    double turnsAt(int position) const;
    void redefinePosition(double position);
    void setEncoderSteps(int steps);
    void followVelocity(double velocity);
    void followPosition();
    void watchNullChannel(double turnsBefore);
    void watchSupply();

    Simulated::ParameterMemory m_parameters;
    SimulatedMotor m_motor;
    Mode m_mode = Mode::Velocity;
    Simulated::MotionState m_ramp; // turns, as the motor's
    double m_targetTurns = 0;      // mechanical, so that redefining the position moves nothing
    double m_origin = 0;           // increments at turn 0
    int m_targetVelocity = 0;      // rpm
    int m_targetCurrent = 0;       // mA
    double m_thermalLoad = 0;      // A²s above the continuous current
    bool m_brakeActive = false;
    int m_switches = 0;
};

#endif
