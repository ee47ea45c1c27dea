#ifndef RAMPPROFILE_H
#define RAMPPROFILE_H

#include "AXRSimulationExport.h"

#include <array>

namespace Simulated
{

/// Where something is and how fast. Any unit of length, the time unit is the second.
struct MotionState {
    double position = 0;
    double velocity = 0;
};

/// A motion of piecewise constant acceleration, known in closed form at every time.
class AXRSIMULATION_EXPORT RampProfile
{
public:
    /// Goes to the velocity and keeps it for ever. An infinite acceleration jumps; one that is not
    /// above 0 counts as the smallest one.
    static RampProfile toVelocity(MotionState from, double velocity, double acceleration);

    /// Comes to rest on the target on the quickest way that respects both limits. Works from any
    /// state: what is too fast brakes to maxVelocity first, what moves away or cannot stop in time
    /// brakes to rest and returns. With a maxVelocity of 0 or less it brakes to rest and stays.
    static RampProfile toPosition(MotionState from, double target, double maxVelocity,
                                  double acceleration);

    /// State at this time (s) after the start. Times before the start give the start; after
    /// duration() the final velocity goes on.
    MotionState at(double time) const;

    /// Time (s) after which nothing accelerates any more.
    double duration() const;

private:
    struct Phase {
        double duration = 0;
        double acceleration = 0;
    };

    MotionState m_start;
    std::array<Phase, 3> m_phases;
    MotionState m_end; // exact, so that rounding leaves nothing over
};

} // namespace Simulated

#endif
