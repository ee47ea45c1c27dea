#include "RamDebugThread.h"

#include "Bytes.h"
#include "Command.h"
#include "Global.h"
#include "Instruction.h"
#include "Logging.h"
#include "MethodName.h"
#include "SimpleScaledDrawer.h"

#include <chrono>

namespace
{

// Types of RD. With Sample and Arm the motor bank's byte carries the item and the trigger type.
enum RecorderType : char {
    BufferSize = 0,
    BufferElements = 1,
    ItemsPerElement = 2,
    Sample = 3,
    Arm = 4,
    State = 6,
    MeasureMode = 7,
    MeasureDelay = 9
};

enum TargetMode { TargetTorque, TargetVelocity, TargetPosition, NoTarget };
enum RecordedMode { Torque, Velocity, Position, Defined };

constexpr char ActualPositionNumber = 1;   // axis parameter, whatever the charts show
constexpr unsigned long SettleTime = 1000; // ms at the start target
constexpr unsigned long PollPause = 10;    // us
constexpr int NotShown = -1;

char byteOf(Instruction instruction) { return toByte(static_cast<int>(instruction)); }

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
    : targetTorqueCommand(byteOf(Instruction::SAP))
    , targetTorqueType(toByte(155))
    , targetVelocityCommand(byteOf(Instruction::SAP))
    , targetVelocityType(2)
    , rampTargetVelocityType(13)
    , targetPositionCommand(byteOf(Instruction::SAP))
    , targetPositionType(0)
    , actualTorqueType(toByte(150))
    , actualVelocityType(3)
    , actualPositionType(1)
{
}

RamDebugThread::RamDebugThread(SimpleScaledDrawer* drawer) : m_drawer(drawer) {}

RamDebugThread::~RamDebugThread()
{
    abort();
    wait();
}

template <class T>
void RamDebugThread::set(T Settings::*setting, T value)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_settings.*setting = value;
}

template <class T>
T RamDebugThread::get(T Settings::*setting) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
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
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_settings.targetFrom = from;
    m_settings.targetTo = to;
    m_settings.measureDelay = delay;
}

void RamDebugThread::stop() { m_running = false; }

void RamDebugThread::abort()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_abort = true;
    m_wake.notify_all();
}

void RamDebugThread::leaveDrawer()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_drawer = nullptr;
}

void RamDebugThread::prepare()
{
    m_finishing = false;
    m_running = true;
    m_isPrepared = true;
}

void RamDebugThread::run()
{
    if (!m_isPrepared)
        prepare();
    m_isPrepared = false;
    Command reply;
    m_reply = &reply;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_now = m_settings;
        m_now.address = getAddress();
        m_now.motorBank = getMotorBank();
        if (m_drawer)
            m_drawer->clearChartValues();
    }
    Global::instance()->registerThread(threadNumber(), QStringLiteral("RamDebug"));
    measure();
    m_reply = nullptr;
    qCDebug(axrRamDebug) << "RamDebugThread ready.";
    m_finishing = true;
    emit ready();
    Global::instance()->unregisterThread(threadNumber());
}

void RamDebugThread::measure()
{
    ask(BufferSize, "RamBufferSize:\t ", 0);
    const int elements = ask(BufferElements, "RamBufferElements:\t ", -1);
    const int items = ask(ItemsPerElement, "ItemsPerElement:\t ", -1);
    const Command& position = send(byteOf(Instruction::GAP), ActualPositionNumber, 0);
    int startPosition = position.isValid() ? position.getValue() : 0;
    if (position.isValid())
        log("StartPosition:\t ", startPosition);

    log("MeasureMode:   ", m_now.measureMode);
    send(byteOf(Instruction::RD), MeasureMode, m_now.measureMode);
    log("MeasureDelay:  ", m_now.measureDelay);
    send(byteOf(Instruction::RD), MeasureDelay, m_now.measureDelay);
    log("TargetMode:    ", m_now.targetMode);
    log("Target from:   ", m_now.targetFrom);
    log("Target to:     ", m_now.targetTo);
    log("TriggerType:   ", m_now.triggerType);
    log("TriggerValue:  ", m_now.triggerValue);

    if (m_now.targetMode == TargetPosition) {
        send(byteOf(Instruction::SAP), ActualPositionNumber, m_now.targetFrom);
        startPosition = m_now.targetFrom;
        log("new StartPosition:", startPosition);
    }
    giveTarget(m_now.targetFrom);
    pause(SettleTime);
    send(byteOf(Instruction::RD), Arm, m_now.triggerType, m_now.triggerValue);
    giveTarget(m_now.targetTo);
    while (!m_abort) {
        const Command& state = send(byteOf(Instruction::RD), State, 0);
        if (state.isValid() && state.getValue() == 0) {
            log("measurement ready:\t", state.getValue());
            break;
        }
        usleep(PollPause);
    }
    if (m_abort)
        return;
    log("drive back");
    if (m_now.targetMode < NoTarget)
        givePosition(startPosition);
    log("get the data");
    fetch(elements, items);
}

const Command& RamDebugThread::send(char command, char type, int motorBank, int value)
{
    *m_reply = Command(); // what a handler does not fill is no answer
    if (m_abort)
        return *m_reply;
    auto* request = new Command(m_now.address, command, type, toByte(motorBank), value);
    if (m_tracksRequests)
        m_untaken = request;
    emit doDirectRequest(request, m_reply);
    // The panel's part of the queue may have been dropped together with the request.
    delete m_untaken.exchange(nullptr);
    return *m_reply;
}

const Command& RamDebugThread::send(char command, char type, int value)
{
    return send(command, type, u8(m_now.motorBank), value);
}

int RamDebugThread::ask(char type, const char* label, int otherwise)
{
    const Command& reply = send(byteOf(Instruction::RD), type, 0);
    if (!reply.isValid())
        return otherwise;
    log(label, reply.getValue());
    return reply.getValue();
}

void RamDebugThread::giveTarget(int value)
{
    switch (m_now.targetMode) {
    case TargetTorque:
        send(m_now.targetTorqueCommand, m_now.targetTorqueType, value);
        break;
    case TargetVelocity: {
        const bool rotates = carries(m_now.targetVelocityCommand, Instruction::ROR) ||
                             carries(m_now.targetVelocityCommand, Instruction::ROL);
        send(m_now.targetVelocityCommand, rotates ? char(0) : m_now.targetVelocityType, value);
        break;
    }
    case TargetPosition:
        givePosition(value);
        break;
    default:
        break;
    }
}

void RamDebugThread::givePosition(int value)
{
    const bool moves = carries(m_now.targetPositionCommand, Instruction::MVP);
    send(m_now.targetPositionCommand, moves ? char(0) : m_now.targetPositionType, value);
}

void RamDebugThread::fetch(int elements, int items)
{
    for (int element = 0; element < elements && !m_abort; ++element) {
        for (int item = 0; item < items && !m_abort; ++item) {
            const Command& sample = send(byteOf(Instruction::RD), Sample, item, element);
            if (!sample.isValid()) {
                if (!m_abort)
                    log("reply invalid!");
                continue;
            }
            const int type = sampleType(item);
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_drawer && type != NotShown)
                m_drawer->requestedTraceValue(m_now.address, byteOf(Instruction::GAP), toByte(type),
                                              m_now.motorBank, sample.getValue());
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
    switch (m_now.measureMode) {
    case Torque:
        return either(m_now.targetTorqueType, m_now.actualTorqueType);
    case Velocity:
        return either(m_now.rampTargetVelocityType, m_now.actualVelocityType);
    case Position:
        return either(m_now.targetPositionType, m_now.actualPositionType);
    case Defined:
        return m_now.allowDefinedMode ? item : NotShown;
    default:
        return NotShown;
    }
}

/// Ends early when the run is aborted.
void RamDebugThread::pause(unsigned long milliseconds)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_wake.wait_for(lock, std::chrono::milliseconds(milliseconds),
                    [this] { return bool(m_abort); });
}
