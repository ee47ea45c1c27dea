#include "SimulatedModule.h"
#include "CommandRecorder.h"
#include "Instruction.h"
#include "TestCase.h"

#include <cmath>
#include <random>
#include <set>

namespace N = AxisParameterNumber;

namespace
{

Command request(Instruction instruction, int type, int bank, int value)
{
    return Command(1, toByte(instruction), toByte(type), toByte(bank), value);
}

// "status value" of the reply
QString answer(SimulatedModule& module, Instruction instruction, int type, int bank, int value)
{
    const Command reply = module.execute(request(instruction, type, bank, value));
    return QString("%1 %2").arg(u8(reply.getStatus())).arg(reply.getValue());
}

QString text(ReplyStatus status, int value) { return QString("%1 %2").arg(int(status)).arg(value); }

QVector<int> readings(SimulatedModule& module)
{
    QVector<int> values;
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis)
        for (const ParameterInfo& row : axisParameters())
            values << module.axis(axis).read(row.number);
    for (const ParameterInfo& row : moduleParameters())
        values << module.execute(request(Instruction::GGP, row.number, 0, 0)).getValue();
    return values;
}

} // namespace

Q_DECLARE_METATYPE(Instruction)
Q_DECLARE_METATYPE(ReplyStatus)
Q_DECLARE_METATYPE(const ParameterTable*)

class SimulatedModuleTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void tables_data()
    {
        QTest::addColumn<const ParameterTable*>("table");
        QTest::addColumn<int>("rows");
        QTest::newRow("axis") << &axisParameters() << 60;
        QTest::newRow("module") << &moduleParameters() << 10;
        QTest::newRow("user variables") << &userVariables() << 56;
    }
    void tables()
    {
        QFETCH(const ParameterTable*, table);
        QFETCH(int, rows);
        QVERIFY(int(table->size()) >= rows);
        std::set<int> numbers;
        for (const ParameterInfo& row : *table) {
            QVERIFY2(numbers.insert(row.number).second, row.name);
            QVERIFY2(row.minimum < row.maximum, row.name);
            QVERIFY2(row.minimum <= row.reset && row.reset <= row.maximum, row.name);
            QVERIFY2(row.factor > 0 && std::isfinite(row.factor), row.name);
            QVERIFY2(row.factor == 1 || *row.unit, row.name);
            QVERIFY2(row.quantity == Quantity::Setting || row.access != Access::Storable ||
                         row.quantity == Quantity::EncoderSteps,
                     row.name);
        }
    }

    // Writes each row at both ends and beyond, and reads back what it took.
    void everyAxisParameter()
    {
        SimulatedModule module;
        module.advance(5);
        for (const ParameterInfo& row : axisParameters()) {
            const auto set = [&](int value) {
                return answer(module, Instruction::SAP, row.number, 1, value);
            };
            const auto get = [&] { return answer(module, Instruction::GAP, row.number, 1, 9); };
            const QString before = get();
            if (row.access == Access::ReadOnly) {
                QCOMPARE(set(row.minimum), text(ReplyStatus::ReadOnly, row.minimum));
                QCOMPARE(get(), before);
                continue;
            }
            const qint64 outside[] = {qint64(row.minimum) - 1, qint64(row.maximum) + 1};
            for (qint64 value : outside) {
                if (value != int(value))
                    continue;
                QCOMPARE(set(int(value)), text(ReplyStatus::OutOfRange, int(value)));
                QCOMPARE(get(), before);
            }
            for (int value : {row.minimum, row.maximum, row.reset}) {
                QCOMPARE(set(value), text(ReplyStatus::Ok, value));
                QCOMPARE(get(), text(ReplyStatus::Ok, value));
            }
        }
        QCOMPARE(module.axis(0).mode(), SimulatedAxis::Mode::Velocity); // it was all for axis 1
    }

    void failures_data()
    {
        QTest::addColumn<Instruction>("instruction");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("bank");
        QTest::addColumn<int>("value");
        QTest::addColumn<ReplyStatus>("status");
        const int max = std::numeric_limits<int>::max();
        const int min = std::numeric_limits<int>::min();
        using I = Instruction;
        using S = ReplyStatus;
        QTest::newRow("instruction") << I::CALC << 0 << 0 << 3 << S::UnknownInstruction;
        QTest::newRow("instruction 0") << I(0) << 0 << 0 << 3 << S::UnknownInstruction;
        QTest::newRow("instruction 255") << I(255) << 0 << 0 << 3 << S::UnknownInstruction;
        QTest::newRow("axis") << I::GAP << 1 << 2 << 3 << S::UnknownBank;
        QTest::newRow("axis 255") << I::ROR << 0 << 255 << 3 << S::UnknownBank;
        QTest::newRow("parameter") << I::GAP << 255 << 0 << 3 << S::UnknownType;
        QTest::newRow("move type") << I::MVP << 2 << 0 << 3 << S::UnknownType;
        QTest::newRow("ROR negative") << I::ROR << 0 << 0 << -1 << S::OutOfRange;
        QTest::newRow("ROL least") << I::ROL << 0 << 0 << min << S::OutOfRange;
        QTest::newRow("ROR fast") << I::ROR << 0 << 0 << 100001 << S::OutOfRange;
        QTest::newRow("relative, off the range") << I::MVP << 1 << 0 << max << S::OutOfRange;
        QTest::newRow("absolute least") << I::MVP << 0 << 0 << min << S::OutOfRange;
        QTest::newRow("store a reading") << I::STAP << 3 << 0 << 0 << S::NotStorable;
        QTest::newRow("restore a target") << I::RSAP << 0 << 0 << 0 << S::NotStorable;
        QTest::newRow("bank") << I::GGP << 0 << 1 << 3 << S::UnknownBank;
        QTest::newRow("module parameter") << I::SGP << 99 << 0 << 3 << S::UnknownType;
        QTest::newRow("module reading") << I::SGP << 0 << 0 << 3 << S::ReadOnly;
        QTest::newRow("user variable") << I::STGP << 56 << 2 << 3 << S::UnknownType;
        QTest::newRow("set an input") << I::SIO << 0 << 0 << 1 << S::UnknownBank;
        QTest::newRow("output") << I::SIO << 8 << 2 << 1 << S::UnknownType;
        QTest::newRow("output value") << I::SIO << 0 << 2 << 2 << S::OutOfRange;
        QTest::newRow("input") << I::GIO << 4 << 1 << 0 << S::UnknownType;
        QTest::newRow("input bank") << I::GIO << 0 << 3 << 7 << S::UnknownBank;
    }
    void failures()
    {
        QFETCH(Instruction, instruction);
        QFETCH(int, type);
        QFETCH(int, bank);
        QFETCH(int, value);
        QFETCH(ReplyStatus, status);
        SimulatedModule module;
        module.execute(request(Instruction::MVP, 1, 0, 5000));
        module.advance(50);
        const QVector<int> before = readings(module);
        const Command asked = request(instruction, type, bank, value);
        const Command reply = module.execute(asked);
        QVERIFY(reply.isValid());
        QCOMPARE(line(reply), line(asked));
        QCOMPARE(int(u8(reply.getStatus())), int(status));
        QCOMPARE(readings(module), before);
    }

    void motionInstructions()
    {
        SimulatedModule module;
        const SimulatedAxis& axis = module.axis(1);
        QCOMPARE(answer(module, Instruction::ROL, 0, 1, 600), QString("100 600"));
        module.advance(1000);
        QCOMPARE(axis.velocity(), -600.0);
        QCOMPARE(module.axis(0).turns(), 0.0);
        QCOMPARE(answer(module, Instruction::MST, 0, 1, 0), QString("100 0"));
        module.advance(1000);
        QCOMPARE(axis.velocity(), 0.0);

        const int position = axis.read(N::ActualPosition);
        QCOMPARE(answer(module, Instruction::MVP, 1, 1, -4096),
                 text(ReplyStatus::Ok, position - 4096));
        QCOMPARE(axis.read(N::StatusFlags) & 0xfe0, StatusFlag::PositionMode);
        module.advance(3000);
        QCOMPARE(axis.read(N::ActualPosition), position - 4096);
        QVERIFY(axis.read(N::StatusFlags) & StatusFlag::PositionEnd);
        QVERIFY(axis.read(N::StatusFlags) & StatusFlag::MotorHalted);
        QCOMPARE(answer(module, Instruction::MVP, 0, 1, 12), QString("100 12"));
        module.advance(3000);
        QCOMPARE(axis.read(N::ActualPosition), 12);

        QCOMPARE(answer(module, Instruction::SAP, N::TargetCurrent, 1, 100), QString("100 100"));
        QCOMPARE(axis.read(N::StatusFlags) & 0xfe0, StatusFlag::TorqueMode);
        QCOMPARE(answer(module, Instruction::SAP, N::TargetVelocity, 1, -50), QString("100 -50"));
        QCOMPARE(axis.read(N::StatusFlags) & 0xfe0, StatusFlag::VelocityMode);
        module.advance(1000);
        QCOMPARE(axis.velocity(), -50.0);
    }

    void statusFlagsFollowLimits_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("flag");
        QTest::newRow("current") << int(N::OvercurrentLimit) << 900 << StatusFlag::Overcurrent;
        QTest::newRow("low voltage")
            << int(N::UndervoltageLimit) << 300 << StatusFlag::Undervoltage;
        QTest::newRow("high voltage") << int(N::OvervoltageLimit) << 200 << StatusFlag::Overvoltage;
        QTest::newRow("heat") << int(N::OvertemperatureLimit) << 20 << StatusFlag::Overtemperature;
    }
    void statusFlagsFollowLimits()
    {
        QFETCH(int, number);
        QFETCH(int, limit);
        QFETCH(int, flag);
        SimulatedModule module;
        SimulatedAxis& axis = module.axis(0);
        axis.write(N::TargetCurrent, 1000);
        module.advance(1);
        const int errors = 0x2f | StatusFlag::ThermalLoadExceeded;
        QCOMPARE(axis.read(N::StatusFlags) & errors, 0);
        axis.write(quint8(number), limit);
        QCOMPARE(axis.read(N::StatusFlags) & errors, flag);
    }

    void storeAndReset()
    {
        SimulatedModule module;
        const auto ask = [&module](Instruction instruction, int type, int bank, int value = 0) {
            return answer(module, instruction, type, bank, value);
        };
        ask(Instruction::MVP, 0, 0, 99999);
        module.advance(500);
        ask(Instruction::SAP, N::PowerOnVelocity, 0, 300);
        QCOMPARE(ask(Instruction::STAP, N::PowerOnVelocity, 0), QString("100 300"));
        ask(Instruction::SAP, N::EncoderSteps, 0, 1000);
        ask(Instruction::STAP, N::EncoderSteps, 0);
        ask(Instruction::SAP, N::EncoderSteps, 0, 500);
        const QString position = ask(Instruction::GAP, N::ActualPosition, 0);
        QCOMPARE(ask(Instruction::RSAP, N::EncoderSteps, 0), QString("100 1000"));
        QCOMPARE(ask(Instruction::GAP, N::ActualPosition, 0), position);
        ask(Instruction::SAP, N::Acceleration, 0, 77);
        ask(Instruction::SGP, 55, 2, -7);
        ask(Instruction::STGP, 55, 2);
        ask(Instruction::SGP, 55, 2, 8);
        ask(Instruction::SGP, 54, 2, 9);
        QCOMPARE(ask(Instruction::RSGP, 55, 2), QString("100 -7"));
        ask(Instruction::SIO, 3, 2, 1);
        QVERIFY(module.output(3));

        module.reset();
        QCOMPARE(ask(Instruction::GAP, N::PowerOnVelocity, 0), QString("100 300"));
        QCOMPARE(ask(Instruction::GAP, N::EncoderSteps, 0), QString("100 1000"));
        QCOMPARE(ask(Instruction::GAP, N::EncoderSteps, 1), QString("100 4096"));
        QCOMPARE(ask(Instruction::GAP, N::Acceleration, 0), QString("100 5000"));
        QCOMPARE(ask(Instruction::GAP, N::ActualPosition, 0), QString("100 0"));
        QCOMPARE(ask(Instruction::GAP, N::TargetPosition, 0), QString("100 0"));
        QCOMPARE(ask(Instruction::GGP, 55, 2), QString("100 -7"));
        QCOMPARE(ask(Instruction::GGP, 54, 2), QString("100 0"));
        QVERIFY(!module.output(3));
        module.advance(2000);
        QCOMPARE(ask(Instruction::GGP, 4, 0), QString("100 2000")); // up time
        QCOMPARE(module.axis(0).velocity(), 300.0);
        QCOMPARE(module.axis(1).velocity(), 0.0);
    }

    void inputsAndOutputs()
    {
        SimulatedModule module;
        module.setDigitalInput(7, true);
        module.setAnalogInput(3, 5000);
        module.setAnalogInput(0, -1);
        module.setDigitalInput(8, true);
        module.setAnalogInput(-1, 1);
        QCOMPARE(answer(module, Instruction::GIO, 7, 0, 5), QString("100 1"));
        QCOMPARE(answer(module, Instruction::GIO, 0, 0, 5), QString("100 0"));
        QCOMPARE(answer(module, Instruction::GIO, 3, 1, 0), QString("100 4095"));
        QCOMPARE(answer(module, Instruction::GIO, 0, 1, 0), QString("100 0"));
        QCOMPARE(answer(module, Instruction::SIO, 7, 2, 1), QString("100 1"));
        QCOMPARE(answer(module, Instruction::GIO, 7, 2, 0), QString("100 1"));
        QVERIFY(!module.output(-1) && !module.output(8));
    }

    void otherAddress()
    {
        SimulatedModule module;
        module.setAddress(toByte(200));
        QVERIFY(!module.execute(request(Instruction::ROR, 0, 0, 100)).isValid());
        module.advance(100);
        QCOMPARE(module.axis(0).velocity(), 0.0);
        const Command reply =
            module.execute(Command(toByte(200), toByte(Instruction::GAP), 6, 1, 0));
        QCOMPARE(line(reply), QString("200 6 6 1 5000"));
    }

    // However the time is cut, both axes end in the same state to the last bit.
    void timeInPieces()
    {
        const auto session = [](int piece) {
            SimulatedModule module;
            const auto pass = [&module, piece](int time) {
                for (; time > 0; time -= piece)
                    module.advance(piece);
            };
            module.axis(1).setLoad(0.02);
            module.execute(request(Instruction::ROR, 0, 0, 3000));
            module.execute(request(Instruction::MVP, 0, 1, 123456));
            pass(1000);
            module.execute(request(Instruction::SAP, N::MaxCurrent, 1, 800));
            module.execute(request(Instruction::MVP, 1, 0, -7777));
            pass(2000);
            return readings(module) << qRound64(module.axis(1).turns() * 1e6);
        };
        QCOMPARE(session(1), session(1000));
        SimulatedModule module;
        module.advance(-5);
        QCOMPARE(module.upTime(), qint64(0));
    }

    // Most of the noise is refused, so two thirds are made to look more like commands.
    void noise()
    {
        SimulatedModule module;
        std::mt19937 random(7);
        const int instructions[] = {1, 2, 3, 4, 5, 5, 5, 6, 7, 8, 9, 14};
        int accepted = 0;
        for (int i = 0; i < 100000; ++i) {
            const bool likely = i % 3;
            const int command = likely ? instructions[random() % 12] : int(random());
            const int value = int(random()) >> (likely ? random() % 32 : 0);
            Command asked(toByte(likely ? 1 : int(random())), toByte(command),
                          toByte(int(random())), toByte(int(random() % (likely ? 3 : 256))), value);
            const Command reply = module.execute(asked);
            accepted += reply.isValid() && u8(reply.getStatus()) == StatusOk;
            if (i % 10 == 0)
                module.advance(1);
            for (int number = 0; number < SimulatedModule::Axes; ++number) {
                const SimulatedAxis& axis = module.axis(number);
                // the back-EMF of 24 V ends at 5730 rpm
                QVERIFY(std::abs(axis.velocity()) < 5800);
                QVERIFY(std::isfinite(axis.turns()) && std::isfinite(axis.temperature()));
                if (i % 10 == 0)
                    QVERIFY(std::abs(axis.current()) <= axis.read(N::MaxCurrent) + 1e-9);
            }
        }
        QVERIFY(accepted > 5000);
        for (const ParameterInfo& row : axisParameters()) {
            const int value = module.axis(0).read(row.number);
            QVERIFY2(value >= row.minimum && value <= row.maximum, row.name);
        }
    }
};

AXR_TEST_MAIN(SimulatedModuleTest)
#include "SimulatedModuleTest.moc"
