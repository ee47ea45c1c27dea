#include "RampProfile.h"
#include "TestCase.h"

#include <cmath>
#include <random>

class RampProfileTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void velocity_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<double>("acceleration");
        QTest::addColumn<double>("duration");
        QTest::addColumn<double>("distance");
        QTest::newRow("up") << 0.0 << 50.0 << 100.0 << 0.5 << 12.5;
        QTest::newRow("stop") << 50.0 << 0.0 << 100.0 << 0.5 << 12.5;
        QTest::newRow("through zero") << -30.0 << 10.0 << 20.0 << 2.0 << -20.0;
        QTest::newRow("nothing to do") << 7.0 << 7.0 << 20.0 << 0.0 << 0.0;
        QTest::newRow("jump") << -3.0 << 50.0 << HUGE_VAL << 0.0 << 0.0;
    }
    void velocity()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(double, acceleration);
        const auto profile = RampProfile::toVelocity({5, from}, to, acceleration);
        QTEST(profile.duration(), "duration");
        const MotionState end = profile.at(profile.duration());
        QCOMPARE(end.velocity, to);
        QTEST(end.position - 5, "distance");
        const MotionState later = profile.at(profile.duration() + 2);
        QCOMPARE(later.velocity, to);
        QCOMPARE(later.position, end.position + 2 * to);
        QCOMPARE(profile.at(-1).position, 5.0);
    }

    // Maximum velocity 10, acceleration 5: the full ramp takes 2 s and 10 units.
    void position_data()
    {
        QTest::addColumn<double>("velocity");
        QTest::addColumn<double>("distance");
        QTest::addColumn<double>("duration");
        QTest::newRow("trapezoid") << 0.0 << 100.0 << 100 / 10.0 + 10 / 5.0;
        QTest::newRow("trapezoid back") << 0.0 << -100.0 << 12.0;
        QTest::newRow("just a triangle") << 0.0 << 20.0 << 4.0;
        QTest::newRow("triangle") << 0.0 << 5.0 << 2 * std::sqrt(5 / 5.0);
        QTest::newRow("nowhere") << 0.0 << 0.0 << 0.0;
        QTest::newRow("stop point") << 10.0 << 10.0 << 2.0;
        // 2 s and 10 units to rest, then the way back over 20 units as a triangle
        QTest::newRow("cannot stop in time") << 10.0 << -10.0 << 2 + 4.0;
        QTest::newRow("moving away") << -10.0 << 10.0 << 2 + 4.0;
        QTest::newRow("already fast") << 10.0 << 60.0 << 5.0 + 2.0;
        // 2 s from 20 to 10 over 30 units, 6 s of cruise, 2 s to rest over 10 units
        QTest::newRow("too fast") << 20.0 << 100.0 << 2 + 6 + 2.0;
        // 4 s and 40 units to rest, then 40 units back
        QTest::newRow("too fast by far") << 20.0 << 0.0 << 4 + 6.0;
    }
    void position()
    {
        QFETCH(double, velocity);
        QFETCH(double, distance);
        const auto profile = RampProfile::toPosition({-3, velocity}, distance - 3, 10, 5);
        QTEST(profile.duration(), "duration");
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
            QVERIFY(std::isfinite(time));
            MotionState last = from;
            for (int n = 1; n <= 64; ++n) {
                const MotionState now = profile.at(time * n / 64);
                QVERIFY(std::abs(now.velocity) <=
                        std::max(maxVelocity, std::abs(from.velocity)) + 1e-9);
                const double dt = time / 64;
                QVERIFY(std::abs(now.velocity - last.velocity) <= acceleration * dt + 1e-6);
                // between two samples the mean velocity cannot leave the trapezoid's bounds
                const double mean = (now.velocity + last.velocity) / 2 * dt;
                QVERIFY(std::abs(now.position - last.position - mean) <=
                        acceleration * dt * dt / 4 + 1e-6);
                last = now;
            }
            QCOMPARE(last.position, target);
            QCOMPARE(last.velocity, 0.0);
        }
    }

    void useless()
    {
        for (double bad : {0.0, -1.0, std::nan("")}) {
            QVERIFY(std::isfinite(RampProfile::toPosition({0, 0}, 1, 1, bad).at(1).position));
            const auto still = RampProfile::toPosition({0, 10}, 100, bad, 5);
            QCOMPARE(still.duration(), 2.0);
            QCOMPARE(still.at(9).position, 10.0);
        }
    }
};

AXR_TEST_MAIN(RampProfileTest)
#include "RampProfileTest.moc"
