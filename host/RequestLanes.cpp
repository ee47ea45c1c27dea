#include "RequestLanes.h"

#include "CommandText.h"
#include "Instruction.h"
#include "ValueKey.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

constexpr int AnswerWithin = 100; // ms
constexpr int Tries = 3;          // of what changes nothing when it is carried out twice
constexpr int StaleAfter = 1000;  // ms

bool isRepeatable(const Command& request)
{
    return isRead(request) || carries(request.getCommand(), Instruction::RD);
}

/// Takes out the entries of which this is true, in their order.
template <class Entries, class Predicate>
Entries takeIf(Entries& entries, Predicate isTaken)
{
    const auto kept = std::stable_partition(entries.begin(), entries.end(), isTaken);
    const Entries taken(entries.begin(), kept);
    entries.erase(entries.begin(), kept);
    return taken;
}

} // namespace

void RequestLanes::addCommand(const Command& request, qint64 now)
{
    lane(Lane::Command).push_back({request, Lane::Command, now});
}

void RequestLanes::addUrgent(const Command& request, qint64 now)
{
    lane(Lane::Command).push_front({request, Lane::Command, now});
}

void RequestLanes::addRead(const Command& request, qint64 now)
{
    addOnce({request, Lane::Read, now});
}

void RequestLanes::addOnce(const Entry& entry)
{
    auto& waiting = lane(entry.lane);
    const auto isSame = [&entry](const Entry& each) {
        return isSameValue(each.request, entry.request);
    };
    if (std::none_of(waiting.begin(), waiting.end(), isSame))
        waiting.push_back(entry);
}

QVector<RequestLanes::GivenUp>
RequestLanes::addStop(const Command& stop, qint64 now,
                      const std::function<bool(const Command&)>& isOvertaken)
{
    const auto isOnItsWay = [&stop](const Entry& each) { return isSameValue(each.request, stop); };
    if (std::none_of(m_onItsWay.begin(), m_onItsWay.end(), isOnItsWay))
        addOnce({stop, Lane::Stop, now});
    QVector<GivenUp> givenUp;
    for (const Entry& each : takeIf(lane(Lane::Command), [&isOvertaken](const Entry& waiting) {
             return isOvertaken(waiting.request);
         }))
        givenUp.push_back({each.request, tr("overtaken by the stop")});
    return givenUp;
}

QVector<RequestLanes::GivenUp> RequestLanes::stopAll(const QVector<Command>& stops, qint64 now)
{
    QVector<GivenUp> givenUp;
    for (const Entry& each :
         takeIf(m_onItsWay, [](const Entry& sent) { return sent.lane != Lane::Read; })) {
        if (each.lane == Lane::Command)
            givenUp.push_back(
                {each.request, tr("overtaken by the stop; it may have been executed")});
    }
    lane(Lane::Stop).clear();
    for (const Command& stop : stops)
        givenUp += addStop(stop, now, [](const Command&) { return true; });
    return givenUp;
}

QVector<RequestLanes::GivenUp> RequestLanes::abandon(const QString& reason)
{
    QVector<GivenUp> givenUp;
    for (const Entries* entries : {&m_onItsWay, &lane(Lane::Stop), &lane(Lane::Command)}) {
        for (const Entry& each : *entries) {
            if (each.lane != Lane::Read)
                givenUp.push_back({each.request, reason});
        }
    }
    *this = RequestLanes();
    return givenUp;
}

QVector<Command> RequestLanes::takeNext(qint64 now)
{
    QVector<Command> sent;
    const auto send = [&](Entries& waiting) {
        m_onItsWay.push_back(waiting.front());
        waiting.pop_front();
        m_onItsWay.back().since = now;
        ++m_onItsWay.back().tries;
        sent << m_onItsWay.back().request;
    };
    while (!lane(Lane::Stop).empty())
        send(lane(Lane::Stop));
    for (Lane next : {Lane::Command, Lane::Read}) {
        if (m_onItsWay.empty() && !lane(next).empty())
            send(lane(next));
    }
    return sent;
}

std::optional<RequestLanes::Sent> RequestLanes::takeAnswered(const Command& reply)
{
    const auto answered =
        std::find_if(m_onItsWay.begin(), m_onItsWay.end(),
                     [&reply](const Entry& each) { return isSameValue(reply, each.request); });
    if (answered == m_onItsWay.end())
        return std::nullopt;
    const Entry entry = *answered;
    m_onItsWay.erase(answered);
    m_timeOuts = 0;
    if (entry.lane == Lane::Stop && u8(reply.getStatus()) != StatusOk)
        addOnce(entry); // a stop counts when it was acknowledged
    return Sent{entry.request, entry.since, entry.tries == 1};
}

QVector<RequestLanes::GivenUp> RequestLanes::takeExpired(qint64 now)
{
    QVector<GivenUp> givenUp;
    for (const Entry& each : takeIf(lane(Lane::Command), [now](const Entry& waiting) {
             return now - waiting.since >= StaleAfter;
         }))
        givenUp.push_back({each.request, tr("could not be sent in time")});
    const Entries lost =
        takeIf(m_onItsWay, [now](const Entry& sent) { return now - sent.since >= AnswerWithin; });
    m_timeOuts += lost.empty() ? 0 : 1;
    for (const Entry& each : lost) {
        const bool isAgain =
            each.lane == Lane::Stop || (isRepeatable(each.request) && each.tries < Tries);
        if (isAgain && each.lane == Lane::Command)
            lane(each.lane).push_front(each); // what was to come after it still does
        else if (isAgain)
            addOnce(each);
        else if (each.lane == Lane::Command)
            givenUp.push_back({each.request, isRepeatable(each.request)
                                                 ? tr("no answer")
                                                 : tr("no answer; it may have been executed or "
                                                      "not")});
    }
    return givenUp;
}

bool RequestLanes::areLanesEmpty() const
{
    return std::all_of(m_lanes.begin(), m_lanes.end(),
                       [](const Entries& waiting) { return waiting.empty(); });
}

int RequestLanes::count(Lane wanted) const
{
    return static_cast<int>(
        lane(wanted).size() +
        std::count_if(m_onItsWay.begin(), m_onItsWay.end(),
                      [wanted](const Entry& each) { return each.lane == wanted; }));
}

bool RequestLanes::isReadWaitingSince(qint64 time) const
{
    const Entries& waiting = lane(Lane::Read);
    return std::any_of(waiting.begin(), waiting.end(),
                       [time](const Entry& each) { return each.since <= time; });
}
