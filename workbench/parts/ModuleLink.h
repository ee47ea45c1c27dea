#ifndef MODULELINK_H
#define MODULELINK_H

#include "CommandHandlerInterface.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"

#include <array>
#include <deque>
#include <functional>
#include <optional>

/// The host's link to the module, on the module's virtual clock. One request is on its way at a
/// time; the others wait in three lanes, of which the first that holds something is served: stops,
/// then commands, then reads.
///
/// Reads, and what only sets up the recorder, are sent three times when no answer comes. A command
/// is sent once only, for its lost answer may mean a lost request as well as an executed one; and
/// one that could not be sent within a second is dropped, for nobody expects it any more. A stop is
/// repeated until the module acknowledges it.
///
/// When nothing waits and the module has not answered for 200 ms, the link reads the velocity of
/// axis 0 by itself, so that a silent module is noticed also when nobody asks anything.
class ModuleLink : public CommandHandlerInterface
{
    Q_OBJECT
public:
    enum class State { Closed, Answering, Silent };

    explicit ModuleLink(const Simulated::Weather& weather, QObject* parent = nullptr);

    State state() const { return m_state; }
    bool isOpen() const { return m_state != State::Closed; }
    /// On an open link only the address changes.
    /// \param address of the module, to which the stops go
    void open(char address = 1);
    /// Drops everything that waits.
    void close();

    /// A command of the user: sent before any read that waits. The stop of one axis goes into the
    /// lane of the stops and drops what waits to move that axis, except a stop that the module
    /// could never acknowledge (other address, no such axis): it is a command like any other.
    void command(const Command& request);
    /// A read. One that already waits is not queued again.
    void read(const Command& request);
    /// Stops every axis now: all stops leave at once, before everything else, and are repeated
    /// until the module acknowledges them. The request on its way is forgotten, what waits in the
    /// lane of the commands is given up, direct requests too.
    void stopAll();
    /// True until the module has acknowledged every stop.
    bool isStopping() const { return !lane(Lane::Stop).empty() || isOnItsWay(Lane::Stop); }

    /// Whether what a page asks for now leaves soon: no more reads wait than a few round trips.
    bool hasRoom() const { return pendingReads() <= 4; }
    /// Reads that wait or are on their way.
    int pendingReads() const;
    /// Round trips completed since the start.
    int answers() const { return m_answers; }
    /// Milliseconds that the link has run, open or not: what a sample is dated with.
    qint64 time() const { return m_time; }
    /// Milliseconds since the module last answered.
    qint64 silentFor() const { return m_sinceAnswer; }
    /// Milliseconds until an answer comes, at least 1: asking more often only fills the lanes.
    int answerTime() const { return qMax(1, m_wire.weather().maximumDelay); }

    /// Sends the request at once and advances the module's clock until the answer, the time-out or
    /// a stop.
    void doDirectRequest(Command* request, Command* reply) override;

    /// Runs on until no stop or command waits for its answer, a second at the most: before the
    /// link is closed and before the program ends.
    void finishCommands();

    /// Moves the module and the link on.
    void advance(int milliseconds);

    SimulatedModule& module() { return m_module; }
    SimulatedLink& wire() { return m_wire; }

Q_SIGNALS:
    void stateChanged();
    /// A request left for the module.
    void sent(const Command& request);
    /// The module answered a request, with success or failure.
    void answered(const Command& request, const Command& reply);
    /// A command or a direct request was given up: not answered in time, or not sent at all.
    void gaveUp(const Command& request, const QString& reason);

private:
    enum class Lane { Stop, Command, Read };
    struct Entry {
        Command request;
        int age = 0; ///< Milliseconds since it was queued or, once sent, since then.
        int tries = 0;
    };
    struct OnItsWay {
        Entry entry;
        Lane lane;
    };

    std::deque<Entry>& lane(Lane lane) { return m_lanes[static_cast<size_t>(lane)]; }
    const std::deque<Entry>& lane(Lane lane) const { return m_lanes[static_cast<size_t>(lane)]; }
    bool isOnItsWay(Lane lane) const { return m_onItsWay && m_onItsWay->lane == lane; }

    bool isStop(const Command& request) const;
    void stop(const Command& request);
    void addOnce(Lane where, const Command& request);
    std::deque<Entry> takeCommands(const std::function<bool(const Command&)>& isTaken);
    void tellOvertaken(const std::deque<Entry>& dropped);
    void transmit(const QVector<Command>& requests);
    void tick();
    void sendNext();
    void take(const Command& reply);
    void timeOut();
    void dropStaleCommands();
    void setState(State state);

    SimulatedModule m_module;
    SimulatedLink m_wire;
    State m_state = State::Closed;
    char m_address = 1;
    std::array<std::deque<Entry>, 3> m_lanes;
    std::optional<OnItsWay> m_onItsWay;
    int m_timeOuts = 0; ///< In a row.
    int m_answers = 0;
    qint64 m_sinceAnswer = 0;
    qint64 m_time = 0;
};

#endif
