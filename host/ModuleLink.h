#ifndef MODULELINK_H
#define MODULELINK_H

#include "CommandHandlerInterface.h"
#include "HostClock.h"
#include "ModuleProfile.h"
#include "RequestLanes.h"
#include "Wire.h"

/// The host's link to a module: the requests of all pages, in the order of RequestLanes, on one
/// wire and one clock.
///
/// When nothing waits and the module has not answered for 200 ms, the link reads by itself what
/// the profile names for it, so that a silent module is noticed also when nobody asks anything.
class ModuleLink : public CommandHandlerInterface
{
    Q_OBJECT
public:
    enum class State { Closed, Answering, Silent };

    /// Clock and wire must outlive the link.
    ModuleLink(HostClock& clock, Wire& wire, const ModuleProfile& profile,
               QObject* parent = nullptr);

    const ModuleProfile& profile() const { return m_profile; }
    State state() const { return m_state; }
    bool isOpen() const { return m_state != State::Closed; }
    /// Opens the wire; on an open link only the address changes. When the wire cannot be opened,
    /// the link stays closed.
    /// \param address of the module, to which the stops go
    void open(char address = 1);
    /// Drops everything that waits, and closes the wire.
    void close();

    /// A command of the user: sent before any read that waits. The stop of one axis goes into the
    /// lane of the stops and drops what waits to move that axis, except a stop that the module
    /// could never acknowledge (other address, no such axis): it is a command like any other.
    void command(const Command& request);
    /// A read. One that already waits is not queued again.
    void read(const Command& request);
    /// Stops every axis now: all stops leave at once, before everything else, and are repeated
    /// until the module acknowledges them. Commands on their way and in their lane are given up,
    /// direct requests too.
    void stopAll();
    /// True until the module has acknowledged every stop.
    bool isStopping() const { return m_lanes.isStopping(); }

    /// Whether everything has left that was asked for until `time`: room for the next round of
    /// somebody who asks again and again, however slow the link is and whatever others ask for.
    bool hasRoom(qint64 time) const { return isOpen() && !m_lanes.isReadWaitingSince(time); }
    /// Reads that wait or are on their way.
    int pendingReads() const { return m_lanes.reads(); }
    /// Round trips completed since the start.
    int answers() const { return m_answers; }
    /// The clock's time, in ms since the epoch: what a sample is dated with.
    qint64 time() const { return m_clock.now(); }
    /// Milliseconds since the module last answered, or since the link was opened.
    qint64 silentFor() const { return time() - m_lastAnswer; }
    /// Milliseconds until an answer comes, at least 1: the longest of the last few. Asking more
    /// often only fills the lanes.
    int answerTime() const { return m_answerTime; }

    /// Sends the request at once and lets the time pass until the answer, the time-out or a stop.
    void doDirectRequest(Command* request, Command* reply) override;

    /// Lets the time pass until no stop or command waits for its answer, a second at the most:
    /// before the link is closed and before the program ends.
    void finishCommands();

Q_SIGNALS:
    void stateChanged();
    /// A request left for the module.
    void sent(const Command& request);
    /// The module answered a request, with success or failure.
    void answered(const Command& request, const Command& reply);
    /// A command or a direct request was given up: not answered in time, or not sent at all.
    void gaveUp(const Command& request, const QString& reason);

private:
    bool isStop(const Command& request) const;
    void sendNext();
    void tick();
    void take(const Command& reply);
    void tell(const QVector<RequestLanes::GivenUp>& givenUp);
    void setState(State state);

    HostClock& m_clock;
    Wire& m_wire;
    const ModuleProfile m_profile;
    State m_state = State::Closed;
    char m_address = 1;
    RequestLanes m_lanes;
    int m_openings = 0;
    int m_answers = 0;
    int m_answerTime = 1;
    qint64 m_lastAnswer = 0;
};

#endif
