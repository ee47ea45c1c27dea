#include "SimulatedAxis.h"
#include "Bytes.h"
#include "TestCase.h"

#include <cmath>

namespace N = AxisParameterNumber;

namespace
{

constexpr double Turn = 6.283185307179586;

// 0.04 Nm/A and 5e-5 kg m², nothing that brakes, no load on the supply.
MotorData frictionless()
{
    MotorData data;
    data.viscousFriction = 0;
    data.staticFriction = 0;
    data.supplyResistance = 0;
    return data;
}

void run(SimulatedAxis& axis, double seconds)
{
    for (int i = qRound(seconds / SimulatedMotor::Step); i > 0; --i)
        axis.step();
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
    if (std::abs(value - expected) <= tolerance)
        return true;
    qInfo() << value << "instead of" << expected;
    return false;
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
        axis.write(N::TargetVelocity, 3000);
        run(axis, 0.25);
        QVERIFY(near(axis.velocity(), 1500, 0.01));
        run(axis, 0.25);
        QCOMPARE(axis.read(N::ActualVelocity), 3000);
        QVERIFY(near(axis.turns(), 12.5, 1e-6)); // v²/2a
        axis.stop();
        const double before = axis.turns();
        run(axis, 0.4999);
        QVERIFY(axis.velocity() > 0);
        run(axis, 0.0001);
        QCOMPARE(axis.velocity(), 0.0);
        QVERIFY(near(axis.turns() - before, 12.5, 1e-6));
    }

    // 3000 rpm and 6000 rpm/s: the ramps take 0.5 s each and 25 turns together.
    void moves_data()
    {
        QTest::addColumn<int>("velocity");
        QTest::addColumn<bool>("ramp");
        QTest::addColumn<int>("turns");
        QTest::addColumn<double>("time");
        QTest::newRow("trapezoid") << 0 << true << 100 << 2.5;
        QTest::newRow("triangle") << 0 << true << -4 << 0.4;
        QTest::newRow("already there") << 0 << true << 0 << 0.0;
        QTest::newRow("on the run") << 3000 << true << 100 << 2.25;
        QTest::newRow("behind") << 3000 << true << 0 << 0.5 + 2 * std::sqrt(0.125);
        // 0.2 Nm less the reserve accelerate by 605 turns/s²
        QTest::newRow("without ramp") << 0 << false << 100 << 2 + 50 / (0.95 * 4000 / Turn);
    }
    void moves()
    {
        QFETCH(int, velocity);
        QFETCH(bool, ramp);
        QFETCH(int, turns);
        QFETCH(double, time);
        SimulatedAxis axis;
        axis.setMotorData(frictionless());
        axis.write(N::MaxVelocity, 3000);
        axis.write(N::Acceleration, 6000);
        axis.rotate(velocity);
        run(axis, 1);
        axis.write(N::EnableRamp, ramp);
        const int target = axis.read(N::ActualPosition) + turns * 4096;
        axis.moveTo(target);
        QVERIFY(near(timeToTarget(axis), time, 0.001));
        QCOMPARE(axis.read(N::ActualPosition), target);
        QCOMPARE(axis.velocity(), 0.0);
        run(axis, 0.1);
        QCOMPARE(axis.read(N::ActualPosition), target);
        QCOMPARE(axis.read(N::PositionDeviation), 0);
    }

    void changesCountAtOnce()
    {
        SimulatedAxis axis;
        axis.write(N::Acceleration, 6000);
        axis.moveTo(100 * 4096);
        run(axis, 0.5);
        axis.write(N::MaxVelocity, 1500);
        run(axis, 0.25);
        QCOMPARE(axis.read(N::ActualVelocity), 1500);
        axis.write(N::Acceleration, 600);
        axis.stop();
        run(axis, 1);
        QVERIFY(near(axis.velocity(), 900, 0.1));
        axis.moveTo(-5000);
        QVERIFY(timeToTarget(axis) > 0);
        QCOMPARE(axis.read(N::ActualPosition), -5000);
    }

    void torqueLimit()
    {
        SimulatedAxis axis;
        axis.setMotorData(frictionless());
        axis.setLoad(0.01);
        axis.write(N::MaxCurrent, 1000);
        axis.write(N::EnableRamp, 0);
        axis.rotate(3000);
        run(axis, 0.1);
        const double acceleration = (0.04 * 1 - 0.01) / 5e-5 / Turn;
        QVERIFY(near(axis.velocity(), acceleration * 60 * 0.1, 0.01));
        QVERIFY(near(axis.turns(), acceleration * 0.1 * 0.1 / 2, 1e-6));
        QCOMPARE(axis.read(N::ActualCurrent), 1000);
        QCOMPARE(axis.read(N::RampVelocity), 3000);
        axis.write(N::MaxCurrent, 5000);
        run(axis, 0.5);
        QCOMPARE(axis.velocity(), 3000.0);
        QVERIFY(near(axis.current(), 250, 0.01)); // holds the load

        axis.write(N::TargetCurrent, -20000);
        run(axis, 0.01);
        QVERIFY(near(axis.velocity(), 3000 - (0.04 * 5 + 0.01) / 5e-5 / Turn * 60 * 0.01, 0.01));
        QCOMPARE(axis.read(N::ActualCurrent), -5000);
    }

    // A motor with a tenth of the torque that its ramp wants, and one that a load pulls away.
    void noWindUp()
    {
        SimulatedAxis axis;
        axis.write(N::Acceleration, 1000000);
        axis.write(N::MaxCurrent, 300);
        const int target = 20 * 4096;
        axis.moveTo(target);
        double furthest = 0;
        for (int i = 0; i < 50000; ++i) {
            axis.step();
            furthest = std::max(furthest, axis.position());
        }
        QCOMPARE(axis.read(N::ActualPosition), target);
        QVERIFY(furthest <= target + 1);

        axis.setLoad(0.1);
        run(axis, 0.2);
        QVERIFY(axis.position() < target - 4096);
        axis.setLoad(0);
        QVERIFY(timeToTarget(axis) > 0);
        QCOMPARE(axis.read(N::ActualPosition), target);
    }

    void staticFriction()
    {
        SimulatedAxis axis;
        axis.setLoad(0.0019);
        axis.write(N::TargetCurrent, 0);
        run(axis, 0.1);
        QCOMPARE(axis.turns(), 0.0);
        axis.write(N::TargetCurrent, 90); // 3.6 mNm, less load and friction: not enough
        run(axis, 0.1);
        QCOMPARE(axis.turns(), 0.0);
        QCOMPARE(axis.read(N::ActualCurrent), 90);
        axis.write(N::TargetCurrent, 110);
        run(axis, 0.1);
        QVERIFY(axis.turns() > 0);
        axis.setLoad(0);
        axis.write(N::TargetCurrent, 0);
        run(axis, 5);
        QCOMPARE(axis.velocity(), 0.0);
    }

    void supply()
    {
        SimulatedAxis axis;
        axis.setMotorData(frictionless());
        axis.write(N::MaxVelocity, 100000);
        axis.write(N::EnableRamp, 0);
        axis.rotate(100000);
        run(axis, 2);
        QVERIFY(near(axis.velocity(), 24 / 0.04 / Turn * 60, 1)); // the back-EMF eats the supply

        MotorData data = frictionless();
        data.supplyResistance = 0.5;
        axis.setMotorData(data);
        axis.setLoad(0.1); // 2.5 A
        axis.rotate(3000);
        run(axis, 1);
        const double power = 0.1 * 50 * Turn + 2.5 * 2.5 * 0.4;
        QVERIFY(near(axis.supplyVoltage(), 24 - 0.5 * power / 24, 0.01));

        axis.setLoad(-0.1); // drives the motor, which feeds back
        axis.write(N::BrakeVoltageLimit, 242);
        run(axis, 0.1);
        QVERIFY(axis.supplyVoltage() > 24.3);
        QVERIFY(!axis.read(N::BrakeActive));
        axis.write(N::BrakeEnabled, 1);
        run(axis, 0.1);
        QCOMPARE(axis.read(N::SupplyVoltage), 242);
        QVERIFY(axis.read(N::StatusFlags) & StatusFlag::BrakeActive);
        axis.write(N::BrakeVoltageLimit, 248); // above the 24.6 V that come back
        run(axis, 0.1);
        QVERIFY(axis.read(N::BrakeActive)); // within the hysteresis
        axis.write(N::BrakeHysteresis, 0);
        run(axis, 0.1);
        QVERIFY(!axis.read(N::BrakeActive));
    }

    void temperatureAndThermalLoad()
    {
        SimulatedAxis axis;
        MotorData data;
        data.staticFriction = 10; // holds the shaft against all torque
        axis.setMotorData(data);
        axis.write(N::ContinuousCurrent, 3000);
        axis.write(N::ThermalLoadLimit, 650);
        axis.write(N::TargetCurrent, 5000);
        const double rise = 3 * 5 * 5 * 0.4;
        run(axis, 4);
        QVERIFY(!(axis.read(N::StatusFlags) & StatusFlag::ThermalLoadExceeded));
        QCOMPARE(axis.read(N::ThermalLoad), 640); // 16 A² over 4 s
        run(axis, 26);
        QVERIFY(axis.read(N::StatusFlags) & StatusFlag::ThermalLoadExceeded);
        QVERIFY(near(axis.temperature(), 25 + rise * (1 - std::exp(-30 / 60.0)), 0.001));
        const double hot = axis.temperature();
        axis.write(N::TargetCurrent, 0);
        run(axis, 60);
        QVERIFY(near(axis.temperature(), 25 + (hot - 25) * std::exp(-1), 0.001));
        QCOMPARE(axis.read(N::ThermalLoad), 0);
    }

    void sensors_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<int>("invert");
        QTest::addColumn<QVector<int>>("states");
        QTest::newRow("plain") << 0 << 0 << QVector<int>{1, 3, 2, 6, 4, 5};
        QTest::newRow("inverted") << 0 << 1 << QVector<int>{6, 4, 5, 1, 3, 2};
        QTest::newRow("other way") << 1 << 0 << QVector<int>{5, 4, 6, 2, 3, 1};
    }
    void sensors()
    {
        QFETCH(int, direction);
        QFETCH(int, invert);
        SimulatedAxis axis;
        axis.write(N::HallDirection, direction);
        axis.write(N::HallInvert, invert);
        axis.write(N::MotorPoles, 2);
        axis.setLoad(0.1); // 2.5 A, and some for the friction
        axis.write(N::TargetVelocity, 10);
        run(axis, 0.01);
        QVector<int> states;
        const double start = axis.turns();
        while (axis.turns() < start + 1) {
            axis.step();
            const int state = axis.read(N::HallState);
            if (states.isEmpty() || states.last() != state)
                states << state;
            const int sum = axis.read(N::PhaseCurrentA) + axis.read(N::PhaseCurrentB) +
                            axis.read(N::PhaseCurrentC);
            QVERIFY(std::abs(sum) <= 1);
            const double angle = axis.read(N::ElectricalAngle) / 65536.0 * Turn;
            QVERIFY(near(axis.read(N::PhaseCurrentA), axis.current() * std::cos(angle), 1));
            const int raw = axis.read(N::RawEncoder);
            QVERIFY(near(raw, std::fmod(axis.turns() * 4096, 4096), 1));
        }
        states.resize(6); // the turn did not begin at its very start
        QTEST(states, "states");
    }

    void redefinedPositionMovesNothing()
    {
        SimulatedAxis axis;
        axis.moveTo(5000);
        QVERIFY(timeToTarget(axis) > 0);
        const double turns = axis.turns();
        axis.write(N::ActualPosition, -77);
        QCOMPARE(axis.read(N::ActualPosition), -77);
        QCOMPARE(axis.read(N::TargetPosition), -77);
        axis.write(N::EncoderSteps, 1000);
        QCOMPARE(axis.read(N::ActualPosition), -77);
        run(axis, 0.5);
        QCOMPARE(axis.turns(), turns);
        axis.moveTo(923);
        QVERIFY(timeToTarget(axis) > 0);
        QVERIFY(near(axis.turns(), turns + 1, 1e-9));
    }

    void positionWraps()
    {
        SimulatedAxis axis;
        const int last = std::numeric_limits<int>::max();
        axis.write(N::ActualPosition, last);
        axis.rotate(60);
        run(axis, 1);
        axis.stop();
        run(axis, 1);
        QVERIFY(axis.read(N::ActualPosition) < -last + 3 * 4096);
        axis.moveTo(-last + 10 * 4096); // goes on, not all the way back
        QVERIFY(timeToTarget(axis) > 0);
        QVERIFY(near(axis.turns(), 10, 0.01));
    }

    void nullChannel()
    {
        SimulatedAxis axis;
        axis.write(N::ClearOnce, 1);
        axis.rotate(600);
        while (axis.turns() < 1.5)
            axis.step();
        QVERIFY(near(axis.position(), 0.5 * 4096, 10));
        QCOMPARE(axis.read(N::ClearOnce), 0);
        while (axis.turns() < 2.5)
            axis.step();
        QVERIFY(near(axis.position(), 1.5 * 4096, 10));
        axis.write(N::ClearOnNull, 1);
        axis.rotate(-600);
        while (axis.turns() > -0.5)
            axis.step();
        QVERIFY(near(axis.position(), -0.5 * 4096, 10));
    }

    void limitSwitches()
    {
        SimulatedAxis axis;
        axis.rotate(1000);
        run(axis, 1);
        axis.setSwitch(SimulatedAxis::Switch::RightLimit, true);
        QCOMPARE(axis.read(N::RightLimitSwitch), 1);
        run(axis, 0.5);
        QCOMPARE(axis.velocity(), 0.0);
        for (int number : {N::TargetPosition, N::TargetCurrent}) {
            axis.write(quint8(number), number == N::TargetPosition ? 10000000 : 1000);
            const double turns = axis.turns();
            run(axis, 0.5);
            QCOMPARE(axis.turns(), turns);
        }
        axis.rotate(-1000);
        run(axis, 0.5);
        QVERIFY(axis.velocity() < -900);
        axis.rotate(1000);
        axis.write(N::RightLimitDisabled, 1);
        run(axis, 1);
        QCOMPARE(axis.velocity(), 1000.0);
    }

    void impossibleWorlds()
    {
        const double nan = std::nan("");
        SimulatedAxis axis;
        axis.setMotorData({nan, -1, nan, 0, 0, nan, 0, HUGE_VAL, nan, -5});
        axis.setLoad(nan);
        axis.rotate(1000);
        run(axis, 0.1);
        axis.setLoad(-HUGE_VAL);
        axis.moveTo(100);
        run(axis, 0.1);
        axis.setMotorData(MotorData());
        axis.write(N::TargetCurrent, -20000);
        run(axis, 0.1);
        for (double value : {axis.turns(), axis.position(), axis.velocity(), axis.current(),
                             axis.temperature(), axis.supplyVoltage()})
            QVERIFY(std::isfinite(value));
        for (const ParameterInfo& row : axisParameters()) {
            const int value = axis.read(row.number);
            QVERIFY2(value >= row.minimum && value <= row.maximum, row.name);
        }
    }
};

AXR_TEST_MAIN(SimulatedAxisTest)
#include "SimulatedAxisTest.moc"
