#ifndef SIMULATEDMODULE_H
#define SIMULATEDMODULE_H

#include "Command.h"
#include "Instruction.h"
#include "SimulatedAxis.h"
#include "SimulatedRecorder.h"

#include <array>
#include <vector>

/// A module with two axes, as commands see it, on a virtual clock that only advance() moves.
///
/// Instructions: ROR and ROL (value 0 to the end of the target velocity's range; type not looked
/// at), MST, MVP (absolute, relative to the actual position), SAP, GAP, STAP, RSAP by axis, SGP,
/// GGP, STGP, RSGP by bank (0 module parameters, 2 user variables), SIO (bank 2: outputs, value 0
/// or 1), GIO (bank 0: digital inputs, 1: analog inputs, 2: outputs read back), RD.
///
/// RD, by Recorder::Type; setting mode or interval also chooses the axis that is recorded. A sample
/// is out of range until it was recorded.
class AXRSIMULATION_EXPORT SimulatedModule
{
public:
    static constexpr int Axes = 2;
    static constexpr int DigitalInputs = 8;
    static constexpr int AnalogInputs = 4;
    static constexpr int Outputs = 8;

    SimulatedModule();

    /// An unsigned byte, default 1.
    void setAddress(char address) { m_address = address; }
    char address() const { return m_address; }

    /// Carries out a request and returns its reply: a valid record with address, command, type and
    /// motor bank of the request. The value is the one that was read, written, stored or restored,
    /// for MVP the target as an absolute position; after a failure it is the request's. A request
    /// for another address is not carried out and the reply not valid.
    Command execute(const Command& request);

    /// Lets virtual time pass, in milliseconds. In one piece or in many, the outcome is the same.
    /// Negative times are ignored.
    void advance(qint64 milliseconds);
    /// Milliseconds since the start or the last reset().
    qint64 upTime() const { return m_upTime; }

    /// As after a loss of power: stored values, outputs off, up time 0. See SimulatedAxis::reset().
    void reset();

    /// Index 0..Axes-1.
    SimulatedAxis& axis(int index) { return m_axes.at(size_t(index)); }
    const SimulatedAxis& axis(int index) const { return m_axes.at(size_t(index)); }

    const SimulatedRecorder& recorder() const { return m_recorder; }

    /// A channel that the module does not have is ignored, and reads as off or 0.
    void setDigitalInput(int channel, bool on);
    /// Limited to 0..4095.
    void setAnalogInput(int channel, int value);
    bool output(int channel) const;

private:
    struct Answer {
        ReplyStatus status;
        int value;
    };
    struct Bank {
        quint8 number;
        Simulated::ParameterMemory values;
    };

    Answer dispatch(const Command& request);
    Answer axisInstruction(const Command& request, SimulatedAxis& axis);
    Answer rotate(SimulatedAxis& axis, int value, int direction);
    Answer move(SimulatedAxis& axis, quint8 type, int value);
    Answer axisParameter(const Command& request, SimulatedAxis& axis);
    Answer globalParameter(const Command& request);
    Answer record(const Command& request);
    Answer setOutput(quint8 bank, quint8 type, int value);
    Answer input(quint8 bank, quint8 type) const;

    char m_address = 1;
    qint64 m_upTime = 0;
    std::array<SimulatedAxis, Axes> m_axes;
    SimulatedRecorder m_recorder;
    std::array<Bank, 2> m_banks;
    std::array<int, DigitalInputs> m_digitalInputs{};
    std::array<int, AnalogInputs> m_analogInputs{};
    std::array<int, Outputs> m_outputs{};
};

#endif
