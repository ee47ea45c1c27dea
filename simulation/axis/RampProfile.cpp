#include "RampProfile.h"

#include <algorithm>
#include <cmath>

namespace Simulated
{

namespace
{

constexpr double SmallestAcceleration = 1e-9;

double usable(double acceleration)
{
    return acceleration > SmallestAcceleration ? acceleration : SmallestAcceleration;
}

double square(double value) { return value * value; }

} // namespace

RampProfile RampProfile::toVelocity(MotionState from, double velocity, double acceleration)
{
    const double rate = usable(acceleration);
    const double time = std::abs(velocity - from.velocity) / rate;
    RampProfile profile;
    profile.m_start = from;
    profile.m_phases[0] = {time, std::copysign(rate, velocity - from.velocity)};
    profile.m_end = {from.position + (from.velocity + velocity) / 2 * time, velocity};
    return profile;
}

RampProfile RampProfile::toPosition(MotionState from, double target, double maxVelocity,
                                    double acceleration)
{
    if (!(maxVelocity > 0))
        return toVelocity(from, 0, acceleration);

    const double rate = usable(acceleration);
    const double stopDistance = from.velocity * std::abs(from.velocity) / (2 * rate);
    // Seen along this direction, braking at once would end at or before the target.
    const double direction = std::copysign(1.0, target - from.position - stopDistance);
    const double distance = direction * (target - from.position);
    const double velocity = direction * from.velocity;

    const double turningPoint = std::sqrt(std::max(0.0, rate * distance + square(velocity) / 2));
    const double peak = std::min(maxVelocity, turningPoint);
    const double toPeak =
        std::copysign(1.0, peak - velocity) * (square(peak) - square(velocity)) / (2 * rate);
    const double onRamps = toPeak + square(peak) / (2 * rate);
    const double cruise = peak > 0 ? std::max(0.0, distance - onRamps) / peak : 0;

    RampProfile profile;
    profile.m_start = from;
    profile.m_phases[0] = {std::abs(peak - velocity) / rate,
                           direction * std::copysign(rate, peak - velocity)};
    profile.m_phases[1] = {cruise, 0};
    profile.m_phases[2] = {peak / rate, -direction * rate};
    profile.m_end = {target, 0};
    return profile;
}

MotionState RampProfile::at(double time) const
{
    const double coasting = time - duration();
    if (coasting >= 0)
        return {m_end.position + m_end.velocity * coasting, m_end.velocity};
    MotionState state = m_start;
    for (const Phase& phase : m_phases) {
        const double t = std::min(time, phase.duration);
        if (t <= 0)
            continue;
        state.position += (state.velocity + phase.acceleration * t / 2) * t;
        state.velocity += phase.acceleration * t;
        time -= t;
    }
    return state;
}

double RampProfile::duration() const
{
    double sum = 0;
    for (const Phase& phase : m_phases)
        sum += phase.duration;
    return sum;
}

} // namespace Simulated
