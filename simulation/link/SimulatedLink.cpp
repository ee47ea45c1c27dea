#include "SimulatedLink.h"

#include "Bytes.h"
#include "SimulatedModule.h"

#include <algorithm>

using Simulated::Weather;

namespace
{

constexpr int Hour = 3600 * 1000; // ms

double chance(double value) { return value > 0 ? std::min(value, 1.0) : 0.0; }

int time(int milliseconds) { return qBound(0, milliseconds, Hour); }

} // namespace

/// What the weather does to one request. All of it is drawn for each request, so that one kind of
/// weather more does not change when the others strike.
struct SimulatedLink::Luck {
    bool requestLost;
    bool replyLost;
    bool duplicated;
    bool late;
    bool foreign;
    bool failed;
    bool reset;
    int delay;
    quint8 foreignField;
    int foreignStep; // 1..255 between the field's byte and the foreign one
    int foreignValue;
};

SimulatedLink::SimulatedLink(SimulatedModule& module) : m_module(module) { setWeather(Weather()); }

void SimulatedLink::setWeather(const Weather& weather)
{
    m_weather = weather;
    for (double* each :
         {&m_weather.requestLoss, &m_weather.replyLoss, &m_weather.duplicate, &m_weather.lateReply,
          &m_weather.foreignReply, &m_weather.failureStatus, &m_weather.spontaneousReset})
        *each = chance(*each);
    for (int* each : {&m_weather.minimumDelay, &m_weather.maximumDelay, &m_weather.lateness,
                      &m_weather.bootTime})
        *each = time(*each);
    m_weather.maximumDelay = std::max(m_weather.minimumDelay, m_weather.maximumDelay);
    m_random.seed(m_weather.seed);
}

void SimulatedLink::resetModule()
{
    ++m_counters.resets;
    m_module.reset();
    m_bootEnd = m_now + m_weather.bootTime;
}

SimulatedLink::Luck SimulatedLink::draw()
{
    // Own mappings of the engine's numbers: those of the standard library differ between libraries.
    const auto happens = [this](double chance) { return m_random() / 4294967296.0 < chance; };
    Luck luck;
    luck.requestLost = happens(m_weather.requestLoss);
    luck.reset = happens(m_weather.spontaneousReset);
    luck.failed = happens(m_weather.failureStatus);
    luck.replyLost = happens(m_weather.replyLoss);
    luck.late = happens(m_weather.lateReply);
    luck.duplicated = happens(m_weather.duplicate);
    luck.foreign = happens(m_weather.foreignReply);
    const quint64 delays = quint64(m_weather.maximumDelay - m_weather.minimumDelay) + 1;
    luck.delay = m_weather.minimumDelay + int(delays * m_random() >> 32);
    luck.foreignField = quint8(m_random());
    luck.foreignStep = 1 + int(m_random() % 255);
    luck.foreignValue = int(m_random());
    return luck;
}

void SimulatedLink::send(const Command& request)
{
    const Luck luck = draw();
    ++m_counters.sent;
    if (luck.requestLost) {
        ++m_counters.requestsLost;
        return;
    }
    if (m_silent || m_now < m_bootEnd || request.getAddress() != m_module.address()) {
        ++m_counters.unanswered;
        return;
    }
    if (luck.reset) {
        resetModule();
        return;
    }
    const Command reply = luck.failed ? refusal(request) : m_module.execute(request);
    m_counters.failed += luck.failed;
    if (luck.replyLost) {
        ++m_counters.repliesLost;
        return;
    }
    m_counters.foreign += luck.foreign;
    m_counters.late += luck.late;
    m_counters.duplicated += luck.duplicated;
    if (luck.foreign)
        deliver(foreign(reply, luck), luck.delay);
    for (int copies = luck.duplicated ? 2 : 1; copies > 0; --copies)
        deliver(reply, luck.delay + (luck.late ? m_weather.lateness : 0));
}

Command SimulatedLink::refusal(const Command& request)
{
    Command reply = request;
    reply.setStatus(static_cast<char>(ReplyStatus::Fault));
    reply.setValid(true);
    return reply;
}

Command SimulatedLink::foreign(Command reply, const Luck& luck)
{
    const auto other = [&luck](char byte) { return toByte(byte + luck.foreignStep); };
    switch (luck.foreignField % 4) {
    case 0:
        reply.setAddress(other(reply.getAddress()));
        break;
    case 1:
        reply.setCommand(other(reply.getCommand()));
        break;
    case 2:
        reply.setType(other(reply.getType()));
        break;
    default:
        reply.setMotorBank(other(reply.getMotorBank()));
        break;
    }
    reply.setValue(luck.foreignValue);
    return reply;
}

void SimulatedLink::deliver(const Command& reply, int delay)
{
    const Underway underway{m_now + delay, reply};
    const auto later = [](const Underway& a, const Underway& b) { return a.arrival < b.arrival; };
    m_underway.insert(std::upper_bound(m_underway.begin(), m_underway.end(), underway, later),
                      underway);
}

void SimulatedLink::advance(qint64 milliseconds)
{
    m_module.advance(milliseconds);
    m_now += std::max<qint64>(0, milliseconds);
}

QVector<Command> SimulatedLink::takeReplies()
{
    QVector<Command> replies;
    while (!m_underway.isEmpty() && m_underway.first().arrival <= m_now)
        replies << m_underway.takeFirst().reply;
    m_counters.delivered += replies.size();
    return replies;
}
