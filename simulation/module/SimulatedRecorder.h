#ifndef SIMULATEDRECORDER_H
#define SIMULATEDRECORDER_H

#include "Recorder.h"
#include "SimulatedAxis.h"

#include <array>
#include <vector>

/// The recorder in the module's RAM: once its trigger fires it takes an element of four samples in
/// each interval until its buffer is full. It records what the axis parameters read at that
/// instant.
///
/// Whatever sets it up ends a recording that runs; what was recorded is readable until the trigger
/// is armed anew.
class AXRSIMULATION_EXPORT SimulatedRecorder
{
public:
    static constexpr int Elements = 500;
    static constexpr int Items = 4; ///< Per element.
    static constexpr int BufferSize = Elements * Items;
    static constexpr int MaximumInterval = 65535;

    static constexpr int Modes = 4;
    static constexpr int Triggers = 7;

    using State = Recorder::State;
    using Mode = Recorder::Mode;
    using Trigger = Recorder::Trigger;

    using Element = std::array<int, Items>;

    /// The axis parameter of each item.
    static const std::array<quint8, Items>& items(Mode mode);
    /// The interval is a tenth of a millisecond in Mode::Torque, else a millisecond.
    static int stepsPerTick(Mode mode) { return mode == Mode::Torque ? 1 : 10; }

    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    /// In ticks, 1..MaximumInterval, default 1.
    int interval() const { return m_interval; }
    void setInterval(int ticks);
    /// Which axis is recorded, by its index; default 0.
    int axis() const { return m_axis; }
    void setAxis(int axis);

    /// Forgets what was recorded and waits for the trigger. Every level counts, also one that holds
    /// already.
    void arm(Trigger trigger, int value);
    /// Empty, idle, first mode, shortest interval, axis 0.
    void reset();

    State state() const { return m_state; }
    /// What was recorded so far.
    const std::vector<Element>& recorded() const { return m_recorded; }

    /// One SimulatedMotor::Step of the axis has passed.
    void step(const SimulatedAxis& axis);

private:
    void idle();
    bool fires(const SimulatedAxis& axis) const;

    Mode m_mode = Mode::Torque;
    int m_interval = 1;
    int m_axis = 0;
    State m_state = State::Idle;
    Trigger m_trigger = Trigger::Always;
    int m_threshold = 0;
    int m_stepsToNext = 0;
    std::vector<Element> m_recorded;
};

#endif
