#ifndef SIMULATEDLINK_H
#define SIMULATEDLINK_H

#include "Command.h"

#include "AXRSimulationExport.h"

#include <QVector>

#include <random>

class SimulatedModule;

namespace Simulated
{

/// What a link does to commands. A chance is the part of the requests that meet it, 0..1; by
/// default the sky is clear.
struct Weather {
    quint32 seed = 1;
    int minimumDelay = 1; ///< ms from the request to its reply, spread evenly up to maximumDelay.
    int maximumDelay = 1;
    double requestLoss = 0;      ///< The module never hears of it.
    double replyLoss = 0;        ///< Carried out, but the reply is lost.
    double duplicate = 0;        ///< The reply comes twice.
    double lateReply = 0;        ///< The reply takes `lateness` longer.
    int lateness = 500;          ///< ms
    double foreignReply = 0;     ///< Before the reply comes one for another address, axis, type or
                                 ///< command.
    double failureStatus = 0;    ///< Not carried out; the reply has the status Fault.
    double spontaneousReset = 0; ///< The module resets instead of answering.
    int bootTime = 300;          ///< ms after a reset in which the module does not answer.
};

} // namespace Simulated

/// Carries commands to a module and its replies back, through any weather, on the module's virtual
/// clock. The same seed and the same calls give the same replies, however the time is cut up.
///
/// A request reaches the module within send(); the whole delay lies on the way back.
class AXRSIMULATION_EXPORT SimulatedLink
{
public:
    /// What happened since the start. A request can count in several.
    struct Counters {
        int sent = 0;
        int requestsLost = 0;
        int unanswered = 0; ///< For another address, or to a module that was silent or booting.
        int repliesLost = 0;
        int duplicated = 0;
        int late = 0;
        int foreign = 0;
        int failed = 0; ///< Replies with the status Fault that the weather made.
        int resets = 0;
        int delivered = 0; ///< Records that takeReplies() handed out.
    };

    /// The module must outlive the link.
    explicit SimulatedLink(SimulatedModule& module);

    /// From the next request on, and the random sequence starts anew from the seed. Chances are
    /// limited to 0..1 (not a number: 0), times to 0..one hour, and the maximum delay is never
    /// below the minimum.
    void setWeather(const Simulated::Weather& weather);
    const Simulated::Weather& weather() const { return m_weather; }

    /// A silent module swallows all requests without carrying them out.
    void setSilent(bool silent) { m_silent = silent; }
    bool isSilent() const { return m_silent; }

    /// Resets the module; it does not answer during the boot time.
    void resetModule();

    void send(const Command& request);

    /// Lets the time of the link and of the module pass (ms). Negative times are ignored.
    void advance(qint64 milliseconds);

    /// The replies that have arrived, in the order of their arrival.
    QVector<Command> takeReplies();

    const Counters& counters() const { return m_counters; }

private:
    struct Underway {
        qint64 arrival;
        Command reply;
    };
    struct Luck;

    Luck draw();
    static Command refusal(const Command& request);
    static Command foreign(Command reply, const Luck& luck);
    void deliver(const Command& reply, int delay);

    SimulatedModule& m_module;
    Simulated::Weather m_weather;
    std::mt19937 m_random;
    bool m_silent = false;
    qint64 m_now = 0;
    qint64 m_bootEnd = 0;
    QVector<Underway> m_underway; // by arrival
    Counters m_counters;
};

#endif
