#include "RampProfile.h"
#include "TestCase.h"

#include <cmath>
#include <random>

using namespace Simulated;

class RampProfileTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    // Maximum velocity 10, acceleration 5: the full ramp takes 2 s and 10 units.
    void position()
    {
        const struct {
            double velocity, distance, duration;
        } cases[] = {{0, 100, 100 / 10.0 + 10 / 5.0}, // trapezoid
                     {0, 20, 4},                      // just a triangle
                     {0, 5, 2 * std::sqrt(5 / 5.0)},
                     {10, -10, 2 + 4}, // to rest within 10 units, then 20 back as a triangle
                     {-10, 10, 2 + 4},
                     {10, 60, 5 + 2},
                     {20, 100, 2 + 6 + 2}}; // 30 units from 20 to 10, 60 of cruise, 10 to rest
        for (const auto& c : cases) {
            const auto profile = RampProfile::toPosition({-3, c.velocity}, c.distance - 3, 10, 5);
            QCOMPARE(profile.duration(), c.duration);
        }
    }

    // Whatever the start: continuous, within both limits, and at rest on the target.
    void anyStart()
    {
        std::mt19937 random(4);
        const auto draw = [&random](double span) { return span * (random() / 2147483648.0 - 1); };
        for (int i = 0; i < 2000; ++i) {
            const MotionState from{draw(1000), draw(i % 3 ? 30 : 3)};
            const double target = i % 5 ? draw(1000) : from.position + draw(0.1);
            const double maxVelocity = 0.1 + std::abs(draw(20));
            const double acceleration = 0.1 + std::abs(draw(50));
            const auto profile = RampProfile::toPosition(from, target, maxVelocity, acceleration);
            const double time = profile.duration();
            MotionState last = from;
            for (int n = 1; n <= 64; ++n) {
                const MotionState now = profile.at(time * n / 64);
                const double limit = std::max(maxVelocity, std::abs(from.velocity));
                QVERIFY(std::abs(now.velocity) <= limit + 1e-9);
                const double change = acceleration * time / 64; // the most in this time
                QVERIFY(std::abs(now.velocity - last.velocity) <= change + 1e-6);
                const double mean = (now.velocity + last.velocity) / 2 * time / 64;
                QVERIFY(std::abs(now.position - last.position - mean) <=
                        change * time / 256 + 1e-6);
                last = now;
            }
            QCOMPARE(last.position, target);
            QCOMPARE(last.velocity, 0.0);
        }
    }
};

AXR_TEST_MAIN(RampProfileTest)
#include "RampProfileTest.moc"
