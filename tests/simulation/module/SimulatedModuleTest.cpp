#include "SimulatedModule.h"
#include "CommandRecorder.h"
#include "Instruction.h"
#include "TestCase.h"

#include <cmath>
#include <random>

namespace N = AxisParameterNumber;

namespace
{

using I = Instruction;
using S = ReplyStatus;

Command request(Instruction instruction, int type, int bank, int value)
{
    return Command(1, toByte(instruction), toByte(type), toByte(bank), value);
}

QString text(ReplyStatus status, int value) { return QString("%1 %2").arg(int(status)).arg(value); }

struct Module : SimulatedModule {
    // "status value" of the reply
    QString ask(Instruction instruction, int type, int bank, int value = 0)
    {
        const Command reply = execute(request(instruction, type, bank, value));
        return text(ReplyStatus(u8(reply.getStatus())), reply.getValue());
    }

    QVector<int> readings()
    {
        QVector<int> values;
        for (const ParameterInfo& row : AxisParameters)
            values << axis(0).read(row.number);
        return values;
    }
};

} // namespace

class SimulatedModuleTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    // Writes each row at both ends and beyond, and reads back what it took.
    void everyAxisParameter()
    {
        Module module;
        module.advance(5);
        QVERIFY(AxisParameters.size() >= 60);
        for (const ParameterInfo& row : AxisParameters) {
            const auto set = [&](qint64 value) {
                return module.ask(I::SAP, row.number, 1, int(value));
            };
            const auto get = [&] { return module.ask(I::GAP, row.number, 1, 9); };
            const QString before = get();
            const bool readOnly = row.access == ParameterAccess::ReadOnly;
            for (qint64 value : {qint64(row.minimum) - 1, qint64(row.maximum) + 1}) {
                if (value != int(value))
                    continue;
                QCOMPARE(set(value), text(readOnly ? S::ReadOnly : S::OutOfRange, int(value)));
                QCOMPARE(get(), before);
            }
            if (readOnly)
                continue;
            for (int value :
                 {row.minimum, row.maximum, module.axis(1).parameters().stored(row.number)}) {
                QCOMPARE(set(value), text(S::Ok, value));
                QCOMPARE(get(), text(S::Ok, value));
            }
        }
        QCOMPARE(module.axis(0).mode(), SimulatedAxis::Mode::Velocity); // it was all for axis 1
    }

    void failures()
    {
        const int max = std::numeric_limits<int>::max();
        const std::pair<S, Command> cases[] = {
            {S::UnknownInstruction, request(I::CALC, 0, 0, 3)},
            {S::UnknownBank, request(I::ROR, 0, 2, 3)},
            {S::UnknownBank, request(I::GGP, 0, 1, 3)},
            {S::UnknownBank, request(I::SIO, 0, 0, 1)},
            {S::UnknownType, request(I::GAP, 255, 0, 3)},
            {S::UnknownType, request(I::MVP, 2, 0, 3)},
            {S::UnknownType, request(I::STGP, 56, 2, 3)},
            {S::OutOfRange, request(I::ROR, 0, 0, -1)},
            {S::OutOfRange, request(I::ROL, 0, 0, 100001)},
            {S::OutOfRange, request(I::MVP, 1, 0, max)}, // from a position above 0
            {S::OutOfRange, request(I::SIO, 0, 2, 2)},
            {S::ReadOnly, request(I::SGP, 0, 0, 3)},
            {S::NotStorable, request(I::STAP, N::ActualVelocity, 0, 0)},
            {S::NotStorable, request(I::RSAP, N::TargetPosition, 0, 0)},
        };
        Module module;
        module.execute(request(I::MVP, 1, 0, 5000));
        module.advance(50);
        const QVector<int> before = module.readings();
        for (const auto& [status, asked] : cases) {
            const Command reply = module.execute(asked);
            QCOMPARE(line(reply), line(asked));
            QVERIFY2(u8(reply.getStatus()) == quint8(status), qPrintable(line(asked)));
        }
        const Command foreign(2, toByte(I::ROR), 0, 0, 100);
        QVERIFY(!module.execute(foreign).isValid());
        QCOMPARE(module.readings(), before);
    }

    void motionInstructions()
    {
        Module module;
        const SimulatedAxis& axis = module.axis(1);
        QCOMPARE(module.ask(I::ROL, 0, 1, 600), QString("100 600"));
        module.advance(1000);
        QCOMPARE(axis.velocity(), -600.0);
        QCOMPARE(module.axis(0).turns(), 0.0);
        QCOMPARE(module.ask(I::MST, 0, 1), QString("100 0"));
        module.advance(1000);
        QCOMPARE(axis.velocity(), 0.0);
        const int target = axis.read(N::ActualPosition) - 4096;
        QCOMPARE(module.ask(I::MVP, 1, 1, -4096), text(S::Ok, target));
        module.advance(3000);
        QCOMPARE(axis.read(N::ActualPosition), target);
        QVERIFY(axis.read(N::StatusFlags) & StatusFlag::PositionEnd);
    }

    void statusFlagsFollowLimits()
    {
        Module module;
        SimulatedAxis& axis = module.axis(0);
        axis.write(N::TargetCurrent, 5000);
        module.advance(50);
        const std::tuple<quint8, int, int> limits[] = {
            {N::OvercurrentLimit, 0, StatusFlag::Overcurrent},
            {N::UndervoltageLimit, 600, StatusFlag::Undervoltage},
            {N::OvervoltageLimit, 0, StatusFlag::Overvoltage},
            {N::OvertemperatureLimit, 0, StatusFlag::Overtemperature},
            {N::ThermalLoadLimit, 0, StatusFlag::ThermalLoadExceeded}};
        for (const auto& [number, limit, flag] : limits) {
            QVERIFY(!(axis.read(N::StatusFlags) & flag));
            axis.write(number, limit);
            QVERIFY(axis.read(N::StatusFlags) & flag);
        }
    }

    void storeAndReset()
    {
        Module module;
        module.ask(I::MVP, 0, 0, 99999);
        module.advance(500);
        module.ask(I::SAP, N::PowerOnVelocity, 0, 300);
        module.ask(I::SAP, N::PowerOnVelocity, 1, 200); // never stored
        QCOMPARE(module.ask(I::STAP, N::PowerOnVelocity, 0), QString("100 300"));
        module.ask(I::SGP, 55, 2, -7);
        module.ask(I::STGP, 55, 2);
        module.ask(I::SGP, 55, 2, 8);
        QCOMPARE(module.ask(I::RSGP, 55, 2), QString("100 -7"));
        module.ask(I::SIO, 3, 2, 1);
        QCOMPARE(module.ask(I::GIO, 3, 2), QString("100 1"));

        module.reset();
        QCOMPARE(module.ask(I::GAP, N::PowerOnVelocity, 0), QString("100 300"));
        QCOMPARE(module.ask(I::GAP, N::PowerOnVelocity, 1), QString("100 0"));
        QCOMPARE(module.ask(I::GAP, N::ActualPosition, 0), QString("100 0"));
        QCOMPARE(module.ask(I::GGP, 55, 2), QString("100 -7"));
        QVERIFY(!module.output(3));
        module.advance(2000);
        QCOMPARE(module.ask(I::GGP, 4, 0), QString("100 2000")); // up time
        QCOMPARE(module.axis(0).velocity(), 300.0);
    }

    // Whatever is asked: no motor runs away, and every reading stays in its range.
    void noise()
    {
        Module module;
        std::mt19937 random(7);
        for (int i = 0; i < 100000; ++i) {
            const int value = int(random()) >> random() % 32;
            const int bank = int(random() % 3);
            module.ask(Instruction(random() % 16), int(random()), bank, value);
            module.advance(i % 10 == 0);
            const SimulatedAxis& axis = module.axis(i % 2);
            QVERIFY(std::abs(axis.velocity()) < 5800); // the back-EMF of 24 V ends at 5730 rpm
            QVERIFY(std::isfinite(axis.turns()) && std::isfinite(axis.temperature()));
        }
        for (const ParameterInfo& row : AxisParameters) {
            const int value = module.axis(0).read(row.number);
            QVERIFY2(value >= row.minimum && value <= row.maximum, row.name);
        }
    }
};

AXR_TEST_MAIN(SimulatedModuleTest)
#include "SimulatedModuleTest.moc"
