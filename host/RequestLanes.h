#ifndef REQUESTLANES_H
#define REQUESTLANES_H

#include "Command.h"

#include <QCoreApplication>
#include <QVector>

#include <array>
#include <deque>
#include <functional>
#include <optional>

/// The requests that wait for their turn on a link, and those on their way: what leaves next, what
/// a reply belongs to, what is given up and when. It sends nothing, and takes the time as an
/// argument: milliseconds that never descend.
///
/// There are three lanes: stops leave at once, commands and then reads when nothing is on its way.
/// Reads, and what only sets up the recorder, are sent three times when no answer comes within
/// 100 ms. A command is sent once only, for its lost answer may mean a lost request as well as an
/// executed one; and one that could not be sent within a second is given up, for nobody expects it
/// any more. A stop is repeated until it is acknowledged.
class RequestLanes
{
    Q_DECLARE_TR_FUNCTIONS(RequestLanes)
public:
    struct GivenUp {
        Command request;
        QString reason;
    };
    struct Sent {
        Command request;
        qint64 time;
        bool isFirstTry; ///< So the reply can be no late one to a try before.
    };

    void addCommand(const Command& request, qint64 now);
    /// A command ahead of those that wait.
    void addUrgent(const Command& request, qint64 now);
    /// The same read waits once only.
    void addRead(const Command& request, qint64 now);
    /// The same stop waits, or is on its way, once only.
    /// \param isOvertaken which of the waiting commands are given up for it
    QVector<GivenUp> addStop(const Command& stop, qint64 now,
                             const std::function<bool(const Command&)>& isOvertaken);
    /// These stops take the place of all others and of all commands, also of one on its way.
    QVector<GivenUp> stopAll(const QVector<Command>& stops, qint64 now);

    /// Empties everything. What is given up are the stops and commands.
    QVector<GivenUp> abandon(const QString& reason);

    /// What is to be sent now: all stops that wait, or one other request. It is on its way then.
    QVector<Command> takeNext(qint64 now);
    /// The request on its way that the reply answers, if any: nobody waits for a foreign, late or
    /// doubled one. A late one cannot be told from the wanted one when the same value was asked
    /// for again; it is then at most some time-outs old.
    std::optional<Sent> takeAnswered(const Command& reply);
    /// What was not answered in time goes back into its lane or is given up, as are commands that
    /// could not be sent in time.
    QVector<GivenUp> takeExpired(qint64 now);

    bool isIdle() const { return m_onItsWay.empty() && areLanesEmpty(); }
    /// Until every stop was acknowledged.
    bool isStopping() const { return count(Lane::Stop) > 0; }
    /// Whether commands or stops wait or are on their way.
    bool isCommanding() const { return isStopping() || count(Lane::Command) > 0; }
    /// Reads that wait or are on their way.
    int reads() const { return count(Lane::Read); }
    /// Whether a read still waits that was added by then.
    bool isReadWaitingSince(qint64 time) const;
    /// Time-outs since the last answer.
    int timeOuts() const { return m_timeOuts; }

private:
    enum class Lane { Stop, Command, Read };
    struct Entry {
        Command request;
        Lane lane;
        qint64 since; ///< When it was added or, once sent, sent.
        int tries = 0;
    };
    using Entries = std::deque<Entry>;

    Entries& lane(Lane lane) { return m_lanes[static_cast<size_t>(lane)]; }
    const Entries& lane(Lane lane) const { return m_lanes[static_cast<size_t>(lane)]; }
    bool areLanesEmpty() const;
    int count(Lane wanted) const;
    void addOnce(const Entry& entry);

    std::array<Entries, 3> m_lanes;
    Entries m_onItsWay;
    int m_timeOuts = 0;
};

#endif
