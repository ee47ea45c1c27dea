#include "SimulatedAxis.h"
#include "Bytes.h"
#include "TestCase.h"

#include <cmath>

namespace N = AxisParameterNumber;

namespace
{

using Simulated::MotorData;

constexpr double Turn = 6.283185307179586;

// 0.04 Nm/A and 5e-5 kg m², nothing that brakes, no load on the supply.
SimulatedAxis frictionless(const QMap<quint8, int>& settings)
{
    MotorData data;
    data.viscousFriction = data.staticFriction = data.supplyResistance = 0;
    SimulatedAxis axis;
    axis.setMotorData(data);
    for (quint8 number : settings.keys())
        axis.write(number, settings[number]);
    return axis;
}

void run(SimulatedAxis& axis, double seconds)
{
    for (int i = qRound(seconds / SimulatedMotor::Step); i > 0; --i)
        axis.step();
}

// Writes the setting, and gives it time.
void change(SimulatedAxis& axis, quint8 number, int value, double seconds = 0.1)
{
    axis.write(number, value);
    run(axis, seconds);
}

// Seconds until the axis reports its target; -1 when it does not within a minute.
double timeToTarget(SimulatedAxis& axis)
{
    for (int i = 1; i < 600000; ++i) {
        axis.step();
        if (axis.read(N::PositionReached))
            return i * SimulatedMotor::Step;
    }
    return -1;
}

bool near(double value, double expected, double tolerance)
{
    return std::abs(value - expected) <= tolerance;
}

} // namespace

class SimulatedAxisTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void velocityRampAndStop()
    {
        SimulatedAxis axis;
        axis.write(N::Acceleration, 6000); // 100 turns/s²
        change(axis, N::TargetVelocity, 3000, 0.25);
        QVERIFY(near(axis.velocity(), 1500, 0.01));
        run(axis, 0.25);
        QVERIFY(near(axis.turns(), 12.5, 1e-6)); // v²/2a
        axis.stop();
        run(axis, 0.5);
        QCOMPARE(axis.velocity(), 0.0);
        QVERIFY(near(axis.turns(), 25, 1e-6));
    }

    // 3000 rpm and 6000 rpm/s: the ramps take 0.5 s each and 25 turns together.
    void moves()
    {
        const struct {
            int velocity, acceleration, turns;
            double time;
        } cases[] = {{0, 6000, 100, 2.5},
                     {0, 6000, -4, 0.4},
                     {0, 6000, 0, 0},
                     {3000, 6000, 100, 2.25},
                     {3000, 6000, 0, 0.5 + 2 * std::sqrt(0.125)},
                     // more than the motor has: 0.2 Nm less the reserve give 605 turns/s²
                     {0, 1000000, 100, 2 + 50 / (0.95 * 4000 / Turn)}};
        for (const auto& c : cases) {
            SimulatedAxis axis = frictionless({{N::MaxVelocity, 3000}});
            axis.write(N::Acceleration, c.acceleration);
            change(axis, N::TargetVelocity, c.velocity, 1);
            const int target = axis.read(N::ActualPosition) + c.turns * 4096;
            axis.moveTo(target);
            QVERIFY(near(timeToTarget(axis), c.time, 0.001));
            QCOMPARE(axis.velocity(), 0.0);
            run(axis, 0.1);
            QCOMPARE(axis.read(N::ActualPosition), target);
        }
    }

    void torqueLimit()
    {
        SimulatedAxis axis = frictionless({{N::MaxCurrent, 1000}, {N::EnableRamp, 0}});
        axis.setLoad(0.01);
        change(axis, N::TargetVelocity, 3000);
        const double acceleration = (0.04 * 1 - 0.01) / 5e-5 / Turn;
        QVERIFY(near(axis.velocity(), acceleration * 60 * 0.1, 0.01));
        QVERIFY(near(axis.turns(), acceleration * 0.1 * 0.1 / 2, 1e-6));
        QCOMPARE(axis.read(N::ActualCurrent), 1000);
        change(axis, N::MaxCurrent, 5000, 0.5);
        QVERIFY(near(axis.current(), 250, 0.01)); // holds the load
    }

    void temperatureAndThermalLoad()
    {
        SimulatedAxis axis;
        MotorData data;
        data.staticFriction = 10; // holds the shaft against all torque
        axis.setMotorData(data);
        axis.write(N::ContinuousCurrent, 3000);
        change(axis, N::TargetCurrent, 5000, 4);
        QCOMPARE(axis.read(N::ThermalLoad), 640); // 16 A² over 4 s
        run(axis, 26);
        const double hot = 25 + 3 * 5 * 5 * 0.4 * (1 - std::exp(-30 / 60.0));
        QVERIFY(near(axis.temperature(), hot, 0.001));
        change(axis, N::TargetCurrent, 0, 60);
        QVERIFY(near(axis.temperature(), 25 + (hot - 25) * std::exp(-1), 0.001));
    }

    void sensors()
    {
        SimulatedAxis axis = frictionless({{N::MotorPoles, 2}, {N::TargetVelocity, 60}});
        axis.setLoad(0.1);
        QVector<int> states;
        while (axis.turns() < 0.99) {
            axis.step();
            if (states.isEmpty() || states.last() != axis.read(N::HallState))
                states << axis.read(N::HallState);
            const double phaseB = axis.current() * std::cos(Turn * (axis.turns() - 1 / 3.0));
            QVERIFY(near(axis.read(N::PhaseCurrentB), phaseB, 1));
            QVERIFY(near(axis.read(N::RawEncoder), axis.turns() * 4096, 1));
        }
        QCOMPARE(states, (QVector<int>{1, 3, 2, 6, 4, 5}));
    }

    void positionIsRedefinedAndWraps()
    {
        SimulatedAxis axis;
        change(axis, N::TargetPosition, 4096, 2);
        const int last = std::numeric_limits<int>::max();
        axis.write(N::ActualPosition, last - 1000);
        QCOMPARE(axis.read(N::TargetPosition), last - 1000);
        change(axis, N::EncoderSteps, 1000);
        QCOMPARE(axis.read(N::ActualPosition), last - 1000);
        change(axis, N::TargetVelocity, 60, 3); // past the end of the counter
        axis.moveTo(-last + 9000);              // goes on, not all the way back
        QVERIFY(timeToTarget(axis) > 0);
        QVERIFY(near(axis.turns(), 11, 0.01));
    }

    void limitSwitches()
    {
        SimulatedAxis axis;
        change(axis, N::TargetVelocity, 1000, 1);
        axis.setSwitch(SimulatedAxis::Switch::RightLimit, true);
        for (quint8 number : {N::TargetVelocity, N::TargetPosition, N::TargetCurrent}) {
            change(axis, number, 1000000, 0.5);
            QCOMPARE(axis.velocity(), 0.0);
        }
        change(axis, N::TargetVelocity, -1000, 0.5);
        QCOMPARE(axis.velocity(), -1000.0);
    }
};

AXR_TEST_MAIN(SimulatedAxisTest)
#include "SimulatedAxisTest.moc"
