#include "ModuleLink.h"

#include "Instruction.h"
#include "ValueKey.h"

#include <QPointer>

namespace
{

constexpr int SilentAfter = 3;       // time-outs in a row
constexpr int QuietFor = 200;        // ms
constexpr int FinishWithin = 1000;   // ms
constexpr int AnswersRemembered = 8; // about; for how long one takes

} // namespace

ModuleLink::ModuleLink(HostClock& clock, Wire& wire, const ModuleProfile& profile, QObject* parent)
    : CommandHandlerInterface(parent)
    , m_clock(clock)
    , m_wire(wire)
    , m_profile(profile)
    , m_address(profile.address)
{
    connect(&wire, &Wire::received, this, &ModuleLink::take);
    connect(&wire, &Wire::lost, this, [this](const QString& reason) {
        const auto givenUp = m_lanes.abandon(reason);
        const QPointer<ModuleLink> self(this);
        close();
        if (self)
            tell(givenUp);
    });
    connect(&clock, &HostClock::ticked, this, &ModuleLink::tick);
}

void ModuleLink::open(char address)
{
    m_address = address;
    if (isOpen() || !m_wire.open())
        return;
    m_lastAnswer = time();
    setState(State::Answering);
}

void ModuleLink::close()
{
    ++m_openings;
    m_lanes = RequestLanes();
    m_wire.close();
    setState(State::Closed);
}

void ModuleLink::command(const Command& request)
{
    if (!isOpen())
        tell({{request, tr("not connected")}});
    else if (isStop(request))
        tell(m_lanes.addStop(request, time(), [this, &request](const Command& waiting) {
            return m_profile.isMotion(waiting) &&
                   u8(waiting.getAddress()) == u8(request.getAddress()) &&
                   u8(waiting.getMotorBank()) == u8(request.getMotorBank());
        }));
    else
        m_lanes.addCommand(request, time());
}

bool ModuleLink::isStop(const Command& request) const
{
    return carries(request.getCommand(), Instruction::MST) &&
           u8(request.getAddress()) == u8(m_address) && u8(request.getMotorBank()) < m_profile.axes;
}

void ModuleLink::read(const Command& request)
{
    if (isOpen())
        m_lanes.addRead(request, time());
}

void ModuleLink::stopAll()
{
    if (!isOpen())
        return;
    QVector<Command> stops;
    for (int axis = 0; axis < m_profile.axes; ++axis)
        stops << Command(m_address, toByte(Instruction::MST), 0, toByte(axis), 0);
    const auto givenUp = m_lanes.stopAll(stops, time());
    const QPointer<ModuleLink> self(this);
    sendNext();
    if (self)
        tell(givenUp);
}

/// The one way out: everything is on the wire before anybody hears of it.
void ModuleLink::sendNext()
{
    const QVector<Command> requests = m_lanes.takeNext(time());
    for (const Command& request : requests)
        m_wire.send(request);
    const QPointer<ModuleLink> self(this);
    for (const Command& request : requests) {
        if (self)
            emit sent(request);
    }
}

void ModuleLink::tell(const QVector<RequestLanes::GivenUp>& givenUp)
{
    const QPointer<ModuleLink> self(this);
    for (const RequestLanes::GivenUp& each : givenUp) {
        if (self)
            emit gaveUp(each.request, each.reason);
    }
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
    connect(this, &ModuleLink::answered, &context,
            [&](const Command& finished, const Command& answer) {
                if (!done && isSameValue(finished, direct)) {
                    *reply = answer;
                    done = true;
                }
            });
    connect(this, &ModuleLink::gaveUp, &context,
            [&](const Command& finished) { done = done || isSameValue(finished, direct); });
    m_lanes.addUrgent(direct, time());
    const QPointer<ModuleLink> self(this);
    const int opening = m_openings; // a link closed and opened again has forgotten it
    while (self && !done && isOpen() && m_openings == opening)
        m_clock.advance(1);
}

void ModuleLink::finishCommands()
{
    for (int i = 0; isOpen() && m_lanes.isCommanding() && i < FinishWithin; ++i)
        m_clock.advance(1);
}

void ModuleLink::tick()
{
    if (!isOpen())
        return;
    const auto givenUp = m_lanes.takeExpired(time());
    const QPointer<ModuleLink> self(this);
    if (m_lanes.timeOuts() >= SilentAfter)
        setState(State::Silent);
    if (self)
        tell(givenUp);
    if (!self || !isOpen())
        return;
    if (silentFor() >= QuietFor && m_lanes.isIdle())
        read(Command(m_address, toByte(Instruction::GAP), toByte(m_profile.keepAlive), 0, 0));
    sendNext();
}

void ModuleLink::take(const Command& reply)
{
    const auto answer = m_lanes.takeAnswered(reply);
    if (!answer)
        return;
    if (answer->isFirstTry) {
        const int trip = static_cast<int>(time() - answer->time);
        m_answerTime = qMax(
            1, qMax(trip, ((AnswersRemembered - 1) * m_answerTime + trip) / AnswersRemembered));
    }
    m_lastAnswer = time();
    ++m_answers;
    const QPointer<ModuleLink> self(this);
    setState(State::Answering);
    if (self)
        emit answered(answer->request, reply);
}

void ModuleLink::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}
