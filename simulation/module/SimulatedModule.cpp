#include "SimulatedModule.h"

#include "Numbers.h"

namespace N = AxisParameterNumber;

namespace
{

constexpr int StepsPerMillisecond = 10;
static_assert(SimulatedMotor::Step * StepsPerMillisecond == 1e-3, "the steps fill a millisecond");

constexpr int AnalogMaximum = 4095;

// Banks of SIO and GIO.
constexpr quint8 DigitalInputBank = 0;
constexpr quint8 AnalogInputBank = 1;
constexpr quint8 OutputBank = 2;

Instruction instruction(const Command& request)
{
    return static_cast<Instruction>(u8(request.getCommand()));
}

// The four things that can be done to a parameter, of an axis or of a bank.
enum class Task { Set, Get, Store, Restore };

Task task(Instruction instruction)
{
    switch (instruction) {
    case Instruction::SAP:
    case Instruction::SGP:
        return Task::Set;
    case Instruction::STAP:
    case Instruction::STGP:
        return Task::Store;
    case Instruction::RSAP:
    case Instruction::RSGP:
        return Task::Restore;
    default:
        return Task::Get;
    }
}

ReplyStatus inRange(const ParameterInfo& info, int value)
{
    return value < info.minimum || value > info.maximum ? ReplyStatus::OutOfRange : ReplyStatus::Ok;
}

ReplyStatus permission(const ParameterInfo* info, Task task, int value)
{
    if (!info)
        return ReplyStatus::UnknownType;
    switch (task) {
    case Task::Get:
        return ReplyStatus::Ok;
    case Task::Set:
        return info->access == ParameterAccess::ReadOnly ? ReplyStatus::ReadOnly
                                                         : inRange(*info, value);
    case Task::Store:
    case Task::Restore:
        break;
    }
    return info->access == ParameterAccess::Storable ? ReplyStatus::Ok : ReplyStatus::NotStorable;
}

// The status, the value read or written: `read` and `write` reach the present values.
template <class Read, class Write>
std::pair<ReplyStatus, int> carryOut(const Command& request, Simulated::ParameterMemory& memory,
                                     Read read, Write write)
{
    const quint8 number = u8(request.getType());
    const Task what = task(instruction(request));
    const ReplyStatus status = permission(memory.info(number), what, request.getValue());
    if (status != ReplyStatus::Ok)
        return {status, request.getValue()};
    if (what == Task::Set)
        write(number, request.getValue());
    else if (what == Task::Store)
        memory.store(number);
    else if (what == Task::Restore)
        write(number, memory.stored(number));
    return {status, what == Task::Set ? request.getValue() : read(number)};
}

template <class Channels>
bool has(const Channels& channels, int channel)
{
    return channel >= 0 && channel < int(channels.size());
}

} // namespace

SimulatedModule::SimulatedModule()
    : m_banks{{{0, Simulated::ParameterMemory::ofModule()},
               {2, Simulated::ParameterMemory::ofUserVariables()}}}
{
}

void SimulatedModule::advance(qint64 milliseconds)
{
    for (; milliseconds > 0; --milliseconds) {
        for (int step = 0; step < StepsPerMillisecond; ++step) {
            for (SimulatedAxis& axis : m_axes)
                axis.step();
            m_recorder.step(m_axes[size_t(m_recorder.axis())]);
        }
        ++m_upTime;
    }
}

void SimulatedModule::reset()
{
    for (SimulatedAxis& axis : m_axes)
        axis.reset();
    for (Bank& bank : m_banks)
        bank.values.reset();
    m_recorder.reset();
    m_outputs.fill(0);
    m_upTime = 0;
}

Command SimulatedModule::execute(const Command& request)
{
    if (request.getAddress() != m_address)
        return Command();
    const Answer answer = dispatch(request);
    Command reply = request;
    reply.setStatus(static_cast<char>(answer.status));
    reply.setValue(answer.value);
    reply.setValid(true);
    return reply;
}

SimulatedModule::Answer SimulatedModule::dispatch(const Command& request)
{
    const quint8 type = u8(request.getType());
    const quint8 bank = u8(request.getMotorBank());
    switch (instruction(request)) {
    case Instruction::ROR:
    case Instruction::ROL:
    case Instruction::MST:
    case Instruction::MVP:
    case Instruction::SAP:
    case Instruction::GAP:
    case Instruction::STAP:
    case Instruction::RSAP:
        if (!has(m_axes, bank))
            return {ReplyStatus::UnknownBank, request.getValue()};
        return axisInstruction(request, m_axes[bank]);
    case Instruction::SGP:
    case Instruction::GGP:
    case Instruction::STGP:
    case Instruction::RSGP:
        return globalParameter(request);
    case Instruction::RD:
        return record(request);
    case Instruction::SIO:
        return setOutput(bank, type, request.getValue());
    case Instruction::GIO: {
        const Answer answer = input(bank, type);
        return answer.status == ReplyStatus::Ok ? answer
                                                : Answer{answer.status, request.getValue()};
    }
    default:
        return {ReplyStatus::UnknownInstruction, request.getValue()};
    }
}

SimulatedModule::Answer SimulatedModule::axisInstruction(const Command& request,
                                                         SimulatedAxis& axis)
{
    switch (instruction(request)) {
    case Instruction::ROR:
        return rotate(axis, request.getValue(), 1);
    case Instruction::ROL:
        return rotate(axis, request.getValue(), -1);
    case Instruction::MVP:
        return move(axis, u8(request.getType()), request.getValue());
    case Instruction::MST:
        axis.stop();
        return {ReplyStatus::Ok, request.getValue()};
    default:
        return axisParameter(request, axis);
    }
}

SimulatedModule::Answer SimulatedModule::rotate(SimulatedAxis& axis, int value, int direction)
{
    const ReplyStatus status = value < 0
                                   ? ReplyStatus::OutOfRange
                                   : inRange(*axis.parameters().info(N::TargetVelocity), value);
    if (status == ReplyStatus::Ok)
        axis.rotate(direction * value);
    return {status, value};
}

SimulatedModule::Answer SimulatedModule::move(SimulatedAxis& axis, quint8 type, int value)
{
    qint64 target = value;
    if (type == quint8(MoveType::Relative))
        target += axis.read(N::ActualPosition);
    else if (type != quint8(MoveType::Absolute))
        return {ReplyStatus::UnknownType, value};
    const ParameterInfo& row = *axis.parameters().info(N::TargetPosition);
    if (target < row.minimum || target > row.maximum)
        return {ReplyStatus::OutOfRange, value};
    axis.moveTo(int(target));
    return {ReplyStatus::Ok, int(target)};
}

SimulatedModule::Answer SimulatedModule::axisParameter(const Command& request, SimulatedAxis& axis)
{
    const auto [status, value] = carryOut(
        request, axis.parameters(), [&axis](quint8 number) { return axis.read(number); },
        [&axis](quint8 number, int written) { axis.write(number, written); });
    return {status, value};
}

SimulatedModule::Answer SimulatedModule::globalParameter(const Command& request)
{
    for (Bank& bank : m_banks) {
        if (bank.number != u8(request.getMotorBank()))
            continue;
        Simulated::ParameterMemory& values = bank.values;
        const auto read = [&bank, this](quint8 number) {
            const bool isUpTime = bank.number == 0 && number == ModuleParameterNumber::UpTime;
            return isUpTime ? toInt(m_upTime) : bank.values.value(number);
        };
        const auto write = [&values](quint8 number, int written) {
            values.setValue(number, written);
        };
        const auto [status, value] = carryOut(request, values, read, write);
        return {status, value};
    }
    return {ReplyStatus::UnknownBank, request.getValue()};
}

SimulatedModule::Answer SimulatedModule::record(const Command& request)
{
    const int value = request.getValue();
    const quint8 bank = u8(request.getMotorBank());
    const auto type = static_cast<Recorder::Type>(u8(request.getType()));
    switch (type) {
    case Recorder::Type::Sample: {
        const auto& recorded = m_recorder.recorded();
        if (bank >= SimulatedRecorder::Items || !has(recorded, value))
            return {ReplyStatus::OutOfRange, value};
        return {ReplyStatus::Ok, recorded[size_t(value)][bank]};
    }
    case Recorder::Type::Arm:
        if (bank >= SimulatedRecorder::Triggers)
            return {ReplyStatus::OutOfRange, value};
        m_recorder.arm(static_cast<SimulatedRecorder::Trigger>(bank), value);
        return {ReplyStatus::Ok, value};
    default:
        break;
    }
    if (!has(m_axes, bank))
        return {ReplyStatus::UnknownBank, value};
    switch (type) {
    case Recorder::Type::BufferSize:
        return {ReplyStatus::Ok, SimulatedRecorder::BufferSize};
    case Recorder::Type::Elements:
        return {ReplyStatus::Ok, SimulatedRecorder::Elements};
    case Recorder::Type::Items:
        return {ReplyStatus::Ok, SimulatedRecorder::Items};
    case Recorder::Type::State:
        return {ReplyStatus::Ok, int(m_recorder.state())};
    case Recorder::Type::Mode:
        if (value < 0 || value >= SimulatedRecorder::Modes)
            return {ReplyStatus::OutOfRange, value};
        m_recorder.setAxis(bank);
        m_recorder.setMode(static_cast<SimulatedRecorder::Mode>(value));
        return {ReplyStatus::Ok, value};
    case Recorder::Type::Interval:
        if (value < 1 || value > SimulatedRecorder::MaximumInterval)
            return {ReplyStatus::OutOfRange, value};
        m_recorder.setAxis(bank);
        m_recorder.setInterval(value);
        return {ReplyStatus::Ok, value};
    default:
        return {ReplyStatus::UnknownType, value};
    }
}

SimulatedModule::Answer SimulatedModule::setOutput(quint8 bank, quint8 type, int value)
{
    if (bank != OutputBank)
        return {ReplyStatus::UnknownBank, value};
    if (!has(m_outputs, type))
        return {ReplyStatus::UnknownType, value};
    if (value != 0 && value != 1)
        return {ReplyStatus::OutOfRange, value};
    m_outputs[type] = value;
    return {ReplyStatus::Ok, value};
}

SimulatedModule::Answer SimulatedModule::input(quint8 bank, quint8 type) const
{
    const auto channel = [type](const auto& channels) {
        return has(channels, type) ? Answer{ReplyStatus::Ok, channels[type]}
                                   : Answer{ReplyStatus::UnknownType, 0};
    };
    switch (bank) {
    case DigitalInputBank:
        return channel(m_digitalInputs);
    case AnalogInputBank:
        return channel(m_analogInputs);
    case OutputBank:
        return channel(m_outputs);
    default:
        return {ReplyStatus::UnknownBank, 0};
    }
}

void SimulatedModule::setDigitalInput(int channel, bool on)
{
    if (has(m_digitalInputs, channel))
        m_digitalInputs[size_t(channel)] = on;
}

void SimulatedModule::setAnalogInput(int channel, int value)
{
    if (has(m_analogInputs, channel))
        m_analogInputs[size_t(channel)] = qBound(0, value, AnalogMaximum);
}

bool SimulatedModule::output(int channel) const
{
    return has(m_outputs, channel) && m_outputs[size_t(channel)];
}
