#include "ModuleLink.h"

#include "CommandText.h"
#include "Instruction.h"
#include "ParameterCatalogue.h"
#include "ValueKey.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace
{

constexpr int AnswerWithin = 100; // ms
constexpr int Tries = 3;          // of what changes nothing when it is carried out twice
constexpr int SilentAfter = 3;    // time-outs in a row
constexpr int StaleAfter = 1000;  // ms
constexpr int QuietFor = 200;     // ms

bool isRepeatable(const Command& request)
{
    return isRead(request) || carries(request.getCommand(), Instruction::RD);
}

/// Whether a request can set the axis in motion that a stop is for.
bool isMotion(const Command& request, const Command& stop)
{
    if (u8(request.getAddress()) != u8(stop.getAddress()) ||
        u8(request.getMotorBank()) != u8(stop.getMotorBank()))
        return false;
    const quint8 type = u8(request.getType());
    const bool isTarget = type == AxisParameterNumber::TargetPosition ||
                          type == AxisParameterNumber::TargetVelocity ||
                          type == AxisParameterNumber::TargetCurrent;
    return carries(request.getCommand(), Instruction::ROR) ||
           carries(request.getCommand(), Instruction::ROL) ||
           carries(request.getCommand(), Instruction::MVP) ||
           (carries(request.getCommand(), Instruction::SAP) && isTarget);
}

} // namespace

ModuleLink::ModuleLink(const Simulated::Weather& weather, QObject* parent)
    : CommandHandlerInterface(parent), m_wire(m_module)
{
    m_wire.setWeather(weather);
}

void ModuleLink::open(char address)
{
    m_address = address;
    if (isOpen())
        return;
    m_timeOuts = 0;
    m_sinceAnswer = 0;
    setState(State::Answering);
}

void ModuleLink::close()
{
    for (auto& waiting : m_lanes)
        waiting.clear();
    m_onItsWay.reset();
    setState(State::Closed);
}

void ModuleLink::command(const Command& request)
{
    if (!isOpen()) {
        emit gaveUp(request, tr("not connected"));
        return;
    }
    if (isStop(request))
        stop(request);
    else
        lane(Lane::Command).push_back({request});
}

bool ModuleLink::isStop(const Command& request) const
{
    return carries(request.getCommand(), Instruction::MST) &&
           u8(request.getAddress()) == u8(m_address) &&
           u8(request.getMotorBank()) < SimulatedModule::Axes;
}

void ModuleLink::stop(const Command& request)
{
    if (!isOnItsWay(Lane::Stop) || !isSameValue(request, m_onItsWay->entry.request))
        addOnce(Lane::Stop, request);
    tellOvertaken(
        takeCommands([&request](const Command& waiting) { return isMotion(waiting, request); }));
}

void ModuleLink::read(const Command& request)
{
    if (isOpen())
        addOnce(Lane::Read, request);
}

void ModuleLink::addOnce(Lane where, const Command& request)
{
    const auto same = [&request](const Entry& entry) {
        return isSameValue(entry.request, request);
    };
    auto& waiting = lane(where);
    if (std::none_of(waiting.begin(), waiting.end(), same))
        waiting.push_back({request});
}

/// Takes the commands that a stop overtakes out of their lane.
std::deque<ModuleLink::Entry>
ModuleLink::takeCommands(const std::function<bool(const Command&)>& isTaken)
{
    std::deque<Entry> taken;
    std::deque<Entry> kept;
    for (const Entry& entry : lane(Lane::Command))
        (isTaken(entry.request) ? taken : kept).push_back(entry);
    lane(Lane::Command) = kept;
    return taken;
}

void ModuleLink::tellOvertaken(const std::deque<Entry>& dropped)
{
    const QPointer<ModuleLink> self(this);
    for (const Entry& entry : dropped) {
        if (self)
            emit gaveUp(entry.request, tr("overtaken by the stop"));
    }
}

void ModuleLink::stopAll()
{
    if (!isOpen())
        return;
    const std::optional<OnItsWay> forgotten = std::exchange(m_onItsWay, std::nullopt);
    const std::deque<Entry> dropped = takeCommands([](const Command&) { return true; });
    lane(Lane::Stop).clear();
    QVector<Command> stops;
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis)
        stops << Command(m_address, toByte(Instruction::MST), 0, toByte(axis), 0);
    // One answer is waited for at a time: the lane sees to those of the others.
    m_onItsWay = OnItsWay{{stops.first(), 0, 1}, Lane::Stop};
    for (int axis = 1; axis < stops.size(); ++axis)
        lane(Lane::Stop).push_back({stops.at(axis)});
    const QPointer<ModuleLink> self(this);
    transmit(stops);
    if (self && forgotten && forgotten->lane == Lane::Command)
        emit gaveUp(forgotten->entry.request,
                    tr("overtaken by the stop; it may have been executed"));
    if (self)
        tellOvertaken(dropped);
}

/// The one way out: everything is on the wire before anybody hears of it.
void ModuleLink::transmit(const QVector<Command>& requests)
{
    for (const Command& request : requests)
        m_wire.send(request);
    const QPointer<ModuleLink> self(this);
    for (const Command& request : requests) {
        if (self)
            emit sent(request);
    }
}

int ModuleLink::pendingReads() const
{
    return static_cast<int>(lane(Lane::Read).size()) + (isOnItsWay(Lane::Read) ? 1 : 0);
}

void ModuleLink::doDirectRequest(Command* request, Command* reply)
{
    if (!request)
        return;
    const Command direct = *request;
    delete request;
    if (!isOpen() || !reply)
        return;
    bool done = false;
    const QObject context;
    const auto finish = [&](const Command& finished) {
        done = done || isSameValue(finished, direct);
    };
    connect(this, &ModuleLink::answered, &context,
            [&](const Command& finished, const Command& answer) {
                if (!done && isSameValue(finished, direct))
                    *reply = answer;
                finish(finished);
            });
    connect(this, &ModuleLink::gaveUp, &context,
            [&](const Command& finished) { finish(finished); });
    lane(Lane::Command).push_front({direct});
    const QPointer<ModuleLink> self(this);
    while (self && !done && isOpen())
        advance(1);
}

void ModuleLink::finishCommands()
{
    const auto isBusy = [this] {
        return isStopping() || !lane(Lane::Command).empty() || isOnItsWay(Lane::Command);
    };
    for (int i = 0; isOpen() && isBusy() && i < StaleAfter; ++i)
        advance(1);
}

void ModuleLink::advance(int milliseconds)
{
    const QPointer<ModuleLink> self(this);
    for (int i = 0; self && i < milliseconds; ++i)
        tick();
}

void ModuleLink::tick()
{
    const QPointer<ModuleLink> self(this);
    ++m_time;
    m_wire.advance(1);
    const QVector<Command> replies = m_wire.takeReplies();
    for (const Command& reply : replies) {
        take(reply);
        if (!self)
            return;
    }
    if (!isOpen())
        return;
    ++m_sinceAnswer;
    dropStaleCommands();
    if (!self)
        return;
    if (m_onItsWay && ++m_onItsWay->entry.age >= AnswerWithin)
        timeOut();
    if (!self || !isOpen() || m_onItsWay)
        return;
    const auto isEmpty = [](const std::deque<Entry>& waiting) { return waiting.empty(); };
    if (m_sinceAnswer > QuietFor && std::all_of(m_lanes.begin(), m_lanes.end(), isEmpty))
        read(Command(m_address, toByte(Instruction::GAP),
                     toByte(AxisParameterNumber::ActualVelocity), 0, 0));
    sendNext();
}

void ModuleLink::sendNext()
{
    for (Lane next : {Lane::Stop, Lane::Command, Lane::Read}) {
        auto& waiting = lane(next);
        if (waiting.empty())
            continue;
        m_onItsWay = OnItsWay{waiting.front(), next};
        waiting.pop_front();
        m_onItsWay->entry.age = 0;
        ++m_onItsWay->entry.tries;
        transmit({m_onItsWay->entry.request});
        return;
    }
}

void ModuleLink::take(const Command& reply)
{
    // What nobody waits for is foreign, late or a duplicate. A late answer cannot be told from the
    // wanted one when the same value was asked for again; it is then at most some time-outs old.
    if (!isOpen() || !m_onItsWay || !isSameValue(reply, m_onItsWay->entry.request))
        return;
    const Entry entry = m_onItsWay->entry;
    if (m_onItsWay->lane == Lane::Stop && u8(reply.getStatus()) != StatusOk)
        lane(Lane::Stop).push_back(entry); // a stop counts when it was acknowledged
    m_onItsWay.reset();
    m_timeOuts = 0;
    m_sinceAnswer = 0;
    ++m_answers;
    const QPointer<ModuleLink> self(this);
    setState(State::Answering);
    if (self)
        emit answered(entry.request, reply);
}

void ModuleLink::timeOut()
{
    const OnItsWay lost = *m_onItsWay;
    m_onItsWay.reset();
    const bool again =
        lost.lane == Lane::Stop || (isRepeatable(lost.entry.request) && lost.entry.tries < Tries);
    if (again && lost.lane == Lane::Command)
        lane(lost.lane).push_front(lost.entry); // what was to come after it still does
    else if (again)                             // behind the other axis' stop
        lane(lost.lane).push_back(lost.entry);
    const QPointer<ModuleLink> self(this);
    if (++m_timeOuts >= SilentAfter)
        setState(State::Silent);
    if (self && !again && lost.lane == Lane::Command)
        emit gaveUp(lost.entry.request, isRepeatable(lost.entry.request)
                                            ? tr("no answer")
                                            : tr("no answer; it may have been executed or not"));
}

void ModuleLink::dropStaleCommands()
{
    auto& waiting = lane(Lane::Command);
    for (Entry& entry : waiting)
        ++entry.age;
    const QPointer<ModuleLink> self(this);
    while (self && !waiting.empty() && waiting.front().age >= StaleAfter) {
        const Command request = waiting.front().request;
        waiting.pop_front();
        emit gaveUp(request, tr("could not be sent in time"));
    }
}

void ModuleLink::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}
