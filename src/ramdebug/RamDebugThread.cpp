#include "RamDebugThread_p.h"

#include "Bytes.h"
#include "Command.h"
#include "Global.h"
#include "Instruction.h"
#include "Logging.h"
#include "MethodName.h"
#include "Recorder.h"
#include "SimpleScaledDrawer.h"

#include <chrono>

namespace
{

using Recorder::Mode;
using Recorder::Target;
using Recorder::Type;

constexpr char ActualPositionNumber = 1; // axis parameter, whatever the charts show
constexpr unsigned long PollPause = 10;  // us
constexpr int NotShown = -1;

void log(const char* text) { qCDebug(axrRamDebug) << "RamDebugThread::run()" << text; }

void log(const char* text, int value)
{
    qCDebug(axrRamDebug) << "RamDebugThread::run()" << text << value;
}

/// The registry's number of the running thread.
unsigned int threadNumber()
{
    return static_cast<unsigned int>(reinterpret_cast<quintptr>(QThread::currentThreadId()));
}

} // namespace

RamDebugThread::Settings::Settings()
    : targetTorqueCommand(toByte(Instruction::SAP))
    , targetTorqueType(toByte(155))
    , targetVelocityCommand(toByte(Instruction::SAP))
    , targetVelocityType(2)
    , rampTargetVelocityType(13)
    , targetPositionCommand(toByte(Instruction::SAP))
    , targetPositionType(0)
    , actualTorqueType(toByte(150))
    , actualVelocityType(3)
    , actualPositionType(1)
{
}

RamDebugThread::RamDebugThread(SimpleScaledDrawer* drawer)
    : m_shared(std::make_unique<Shared>(drawer))
{
}

RamDebugThread::~RamDebugThread()
{
    abort();
    wait();
}

template <class T>
void RamDebugThread::set(T Settings::*setting, T value)
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_settings.*setting = value;
}

template <class T>
T RamDebugThread::get(T Settings::*setting) const
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_settings.*setting;
}

void RamDebugThread::setAllowDefinedMode(bool value) { set(&Settings::allowDefinedMode, value); }

void RamDebugThread::setTargetMode(int value) { set(&Settings::targetMode, value); }
int RamDebugThread::getTargetMode() const { return get(&Settings::targetMode); }

void RamDebugThread::setMeasureMode(int value) { set(&Settings::measureMode, value); }
int RamDebugThread::getMeasureMode() const { return get(&Settings::measureMode); }

void RamDebugThread::setTriggerType(int value) { set(&Settings::triggerType, value); }
int RamDebugThread::getTriggerType() const { return get(&Settings::triggerType); }

void RamDebugThread::setTriggerValue(int value) { set(&Settings::triggerValue, value); }
int RamDebugThread::getTriggerValue() const { return get(&Settings::triggerValue); }

void RamDebugThread::setTargetTorqueCommand(char value)
{
    set(&Settings::targetTorqueCommand, value);
}
char RamDebugThread::getTargetTorqueCommand() const { return get(&Settings::targetTorqueCommand); }

void RamDebugThread::setTargetTorqueType(char value) { set(&Settings::targetTorqueType, value); }
char RamDebugThread::getTargetTorqueType() const { return get(&Settings::targetTorqueType); }

void RamDebugThread::setTargetVelocityCommand(char value)
{
    set(&Settings::targetVelocityCommand, value);
}
char RamDebugThread::getTargetVelocityCommand() const
{
    return get(&Settings::targetVelocityCommand);
}

void RamDebugThread::setTargetVelocityType(char value)
{
    set(&Settings::targetVelocityType, value);
}
char RamDebugThread::getTargetVelocityType() const { return get(&Settings::targetVelocityType); }

void RamDebugThread::setRampTargetVelocityType(char value)
{
    set(&Settings::rampTargetVelocityType, value);
}
char RamDebugThread::getRampTargetVelocityType() const
{
    return get(&Settings::rampTargetVelocityType);
}

void RamDebugThread::setTargetPositionCommand(char value)
{
    set(&Settings::targetPositionCommand, value);
}
char RamDebugThread::getTargetPositionCommand() const
{
    return get(&Settings::targetPositionCommand);
}

void RamDebugThread::setTargetPositionType(char value)
{
    set(&Settings::targetPositionType, value);
}
char RamDebugThread::getTargetPositionType() const { return get(&Settings::targetPositionType); }

void RamDebugThread::setActualTorqueType(char value) { set(&Settings::actualTorqueType, value); }
char RamDebugThread::getActualTorqueType() const { return get(&Settings::actualTorqueType); }

void RamDebugThread::setActualVelocityType(char value)
{
    set(&Settings::actualVelocityType, value);
}
char RamDebugThread::getActualVelocityType() const { return get(&Settings::actualVelocityType); }

void RamDebugThread::setActualPositionType(char value)
{
    set(&Settings::actualPositionType, value);
}
char RamDebugThread::getActualPositionType() const { return get(&Settings::actualPositionType); }

void RamDebugThread::setMeasurementConstraints(int from, int to, int delay)
{
    qCDebug(axrRamDebug) << AXR_METHOD.constData() << "from:" << from << "delay:" << delay;
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_settings.constraints = {from, to, delay};
    if (m_now.targetMode == m_settings.targetMode)
        m_now.constraints = m_settings.constraints;
}

RamDebugThread::Constraints RamDebugThread::constraints() const
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_now.constraints;
}

void RamDebugThread::start(Priority priority)
{
    if (m_shared->isOver)
        wait();
    if (!isRunning())
        prepare();
    QThread::start(priority);
}

void RamDebugThread::stop() { m_running = false; }

void RamDebugThread::abort()
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->isAborted = true;
    m_shared->wake.notify_all();
}

void RamDebugThread::prepare()
{
    m_shared->isOver = false;
    m_shared->isAborted = false;
    m_running = true;
    m_isPrepared = true;
}

void RamDebugThread::run()
{
    if (!m_isPrepared)
        prepare(); // started through the base
    m_isPrepared = false;
    Command reply;
    m_reply = &reply;
    {
        const std::lock_guard<std::mutex> lock(m_shared->mutex);
        m_now = m_settings;
        m_now.address = getAddress();
        m_now.motorBank = getMotorBank();
        m_shared->wayBack.reset();
        if (m_shared->drawer)
            m_shared->drawer->clearChartValues();
    }
    Global::instance()->registerThread(threadNumber(), QStringLiteral("RamDebug"));
    measure();
    m_reply = nullptr;
    qCDebug(axrRamDebug) << "RamDebugThread ready.";
    m_shared->isOver = true;
    emit ready();
    Global::instance()->unregisterThread(threadNumber());
}

void RamDebugThread::measure()
{
    ask(toByte(Type::BufferSize), "RamBufferSize:\t ", 0);
    const int elements = ask(toByte(Type::Elements), "RamBufferElements:\t ", -1);
    const int items = ask(toByte(Type::Items), "ItemsPerElement:\t ", -1);
    m_startPosition = 0;
    if (send(toByte(Instruction::GAP), ActualPositionNumber, 0)) {
        m_startPosition = m_reply->getValue();
        log("StartPosition:\t ", m_startPosition);
    }

    log("MeasureMode:   ", m_now.measureMode);
    send(toByte(Instruction::RD), toByte(Type::Mode), m_now.measureMode);
    const int delay = constraints().delay;
    log("MeasureDelay:  ", delay);
    send(toByte(Instruction::RD), toByte(Type::Interval), delay);
    const Constraints targets = constraints();
    log("TargetMode:    ", m_now.targetMode);
    log("Target from:   ", targets.from);
    log("Target to:     ", targets.to);
    log("TriggerType:   ", m_now.triggerType);
    log("TriggerValue:  ", m_now.triggerValue);

    if (m_now.targetMode == static_cast<int>(Target::Position)) {
        send(toByte(Instruction::SAP), ActualPositionNumber, targets.from);
        m_startPosition = targets.from;
        log("new StartPosition:", m_startPosition);
    }
    giveTarget(targets.from);
    settle();
    send({m_now.address, toByte(Instruction::RD), toByte(Type::Arm), toByte(m_now.triggerType),
          m_now.triggerValue});
    giveTarget(constraints().to);
    while (!m_shared->isAborted) {
        if (send(toByte(Instruction::RD), toByte(Type::State), 0) &&
            m_reply->getValue() == static_cast<int>(Recorder::State::Complete)) {
            log("measurement ready:\t", m_reply->getValue());
            break;
        }
        usleep(PollPause);
    }
    if (m_shared->isAborted)
        return;
    log("drive back");
    driveBack();
    log("get the data");
    fetch(elements, items);
}

/// True if the module has answered; the answer is then in m_reply.
bool RamDebugThread::send(const Command& request)
{
    *m_reply = Command(); // what a handler does not fill is no answer
    m_wasSent = false;
    if (m_shared->isAborted)
        return false;
    auto* sent = new Command(request);
    if (m_shared->isOfPanel)
        m_shared->untaken = sent;
    emit doDirectRequest(sent, m_reply);
    // The panel may have dropped it, or its part of the queue was dropped together with it.
    const std::unique_ptr<Command> dropped(m_shared->untaken.exchange(nullptr));
    m_wasSent = !dropped;
    return m_reply->isValid();
}

bool RamDebugThread::send(char command, char type, int value)
{
    return send(commandOf(command, type, value));
}

Command RamDebugThread::commandOf(char command, char type, int value) const
{
    return {m_now.address, command, type, m_now.motorBank, value};
}

int RamDebugThread::ask(char type, const char* label, int otherwise)
{
    if (!send(toByte(Instruction::RD), type, 0))
        return otherwise;
    log(label, m_reply->getValue());
    return m_reply->getValue();
}

void RamDebugThread::giveTarget(int value)
{
    switch (static_cast<Target>(m_now.targetMode)) {
    case Target::Torque:
        send(m_now.targetTorqueCommand, m_now.targetTorqueType, value);
        break;
    case Target::Velocity: {
        const bool rotates = carries(m_now.targetVelocityCommand, Instruction::ROR) ||
                             carries(m_now.targetVelocityCommand, Instruction::ROL);
        send(m_now.targetVelocityCommand, rotates ? char(0) : m_now.targetVelocityType, value);
        break;
    }
    case Target::Position:
        send(positionCommand(value));
        break;
    default:
        return;
    }
    if (m_wasSent)
        setWayBack(positionCommand(m_startPosition));
}

void RamDebugThread::driveBack()
{
    if (m_now.targetMode >= static_cast<int>(Target::None))
        return;
    send(positionCommand(m_startPosition));
    if (m_wasSent || !m_shared->isAborted) // a host that was not there then does not get it later
        setWayBack(std::nullopt);
}

void RamDebugThread::setWayBack(const std::optional<Command>& command)
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->wayBack = command;
}

Command RamDebugThread::positionCommand(int value) const
{
    const bool moves = carries(m_now.targetPositionCommand, Instruction::MVP);
    return commandOf(m_now.targetPositionCommand, moves ? char(0) : m_now.targetPositionType,
                     value);
}

void RamDebugThread::fetch(int elements, int items)
{
    const std::atomic<bool>& isAborted = m_shared->isAborted;
    for (int element = 0; element < elements && !isAborted; ++element) {
        for (int item = 0; item < items && !isAborted; ++item) {
            if (!send({m_now.address, toByte(Instruction::RD), toByte(Type::Sample), toByte(item),
                       element})) {
                if (!isAborted)
                    log("reply invalid!");
                continue;
            }
            const int type = sampleType(item);
            const std::lock_guard<std::mutex> lock(m_shared->mutex);
            if (m_shared->drawer && type != NotShown)
                m_shared->drawer->requestedTraceValue(m_now.address, toByte(Instruction::GAP),
                                                      toByte(type), m_now.motorBank,
                                                      m_reply->getValue());
        }
        if (!m_running)
            return;
    }
}

/// The type of the chart that shows this item, or NotShown.
int RamDebugThread::sampleType(int item) const
{
    const auto either = [item](char target, char actual) {
        return item == 0 ? u8(target) : item == 1 ? u8(actual) : NotShown;
    };
    switch (static_cast<Mode>(m_now.measureMode)) {
    case Mode::Torque:
        return either(m_now.targetTorqueType, m_now.actualTorqueType);
    case Mode::Velocity:
        return either(m_now.rampTargetVelocityType, m_now.actualVelocityType);
    case Mode::Position:
        return either(m_now.targetPositionType, m_now.actualPositionType);
    case Mode::Defined:
        return m_now.allowDefinedMode ? item : NotShown;
    default:
        return NotShown;
    }
}

/// Ends early when the run is aborted.
void RamDebugThread::settle()
{
    std::unique_lock<std::mutex> lock(m_shared->mutex);
    m_shared->wake.wait_for(lock, std::chrono::milliseconds(Shared::settleTime),
                            [this] { return bool(m_shared->isAborted); });
}
