#ifndef RAMPMOVE_H
#define RAMPMOVE_H

#include "Command.h"

#include <QObject>
#include <QPointF>
#include <QVector>

#include <optional>
#include <vector>

class ModuleLink;

/// A relative move of one axis on a ramp, with a record of the velocity that the axis then has.
///
/// It asks what must hold first, writes the ramp and starts the move, each step when the one before
/// was acknowledged. Whatever comes between (a refusal, another value than the wanted one, a stop,
/// no answer within a second) ends it, and nothing more is sent. What was written stays in the
/// axis.
class RampMove : public QObject
{
    Q_OBJECT
public:
    enum class State { Idle, Preparing, Moving };

    struct Plan {
        int axis = 0;
        int encoderSteps = 0; ///< Increments in a turn, by which the others were worked out.
        int maxVelocity = 0;  ///< rpm
        int acceleration = 0; ///< rpm/s
        int distance = 0;     ///< Increments; negative turns to the left.
    };

    /// \param link tells the time, a stop and what was given up; all is sent through the signals
    explicit RampMove(const ModuleLink& link);

    State state() const { return m_state; }

    /// Only from Idle. Forgets the last record.
    void start(char address, const Plan& plan);
    /// Forgets what was still to be sent. An axis that moves goes on.
    void abandon();
    /// As abandon(), for a stop: one that moves already is followed until it stands.
    void giveUp();
    /// An answer of the module, whoever asked.
    void take(const Command& reply);
    /// Asks again for what got lost: while the page is shown.
    void poll();

    /// Time (ms since the module acknowledged the move) and velocity (rpm, positive in the move's
    /// direction). Dated when the answer came, so by the link's delay too late. A long record
    /// becomes coarser, not longer.
    const QVector<QPointF>& samples() const { return m_samples; }
    /// Largest velocity of all, in rpm.
    double peak() const { return m_peak; }
    /// From the start until the axis stood, in ms; so far, as long as it moves.
    double duration() const { return m_standsSince.value_or(m_lastTime); }

Q_SIGNALS:
    void command(const Command& request);
    void read(const Command& request);
    /// State or record.
    void changed();
    /// \param reason why the axis was not moved or not followed to its target; empty when it got
    /// there
    void ended(const QString& reason);

private:
    struct Step {
        Command request;
        std::optional<int> wanted; ///< The reply's value.
        QString otherwise;         ///< Why the move ends when the reply has another one.
    };

    Command request(quint8 instruction, quint8 type, int value = 0) const;
    void sendStep();
    void takeStep(const Command& reply);
    void takeVelocity(int velocity);
    void keep(QPointF sample);
    void takeGivenUp(const Command& request, const QString& reason);
    void end(const QString& reason);

    const ModuleLink& m_link;
    State m_state = State::Idle;
    char m_address = 1;
    Plan m_plan;
    std::vector<Step> m_steps;
    std::size_t m_step = 0;
    qint64 m_stepSent = 0;
    qint64 m_moveStart = 0;
    bool m_isStopped = false;
    bool m_hasTurned = false;
    QVector<QPointF> m_samples;
    double m_spacing = 0; // least time between two samples that are kept
    double m_peak = 0;
    double m_lastTime = 0;
    std::optional<double> m_standsSince;
};

#endif
