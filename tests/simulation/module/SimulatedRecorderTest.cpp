#include "Instruction.h"
#include "SimulatedModule.h"

#include <QtTest>

namespace Number = AxisParameterNumber;

namespace
{

using Recorder::Type;

Command ask(SimulatedModule& module, Type type, int bank = 0, int value = 0)
{
    return module.execute(
        {module.address(), toByte(Instruction::RD), toByte(type), toByte(bank), value});
}

quint8 status(SimulatedModule& module, Type type, int bank = 0, int value = 0)
{
    return u8(ask(module, type, bank, value).getStatus());
}

int state(SimulatedModule& module) { return ask(module, Type::State).getValue(); }

} // namespace

class SimulatedRecorderTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void recordsWhatTheAxisReads()
    {
        for (int mode = 0; mode < SimulatedRecorder::Modes; ++mode) {
            constexpr int Interval = 7;
            const auto recorded = static_cast<SimulatedRecorder::Mode>(mode);
            SimulatedAxis axis;
            SimulatedRecorder recorder;
            recorder.setMode(recorded);
            recorder.setInterval(Interval);
            recorder.arm(SimulatedRecorder::Trigger::Always, 0);
            axis.moveTo(9000);
            std::vector<SimulatedRecorder::Element> truth;
            for (int step = 0; recorder.state() != SimulatedRecorder::State::Complete; ++step) {
                axis.step();
                recorder.step(axis);
                if (step % (Interval * SimulatedRecorder::stepsPerTick(recorded)) != 0)
                    continue;
                truth.emplace_back();
                for (size_t item = 0; item < truth.back().size(); ++item)
                    truth.back()[item] = axis.read(SimulatedRecorder::items(recorded)[item]);
            }
            QCOMPARE(int(recorder.recorded().size()), SimulatedRecorder::Elements);
            QVERIFY(recorder.recorded() == truth);
            QVERIFY(truth.front() != truth.back());
        }
    }

    void readBack()
    {
        SimulatedModule module;
        ask(module, Type::Mode, 1, 2);
        ask(module, Type::Arm);
        module.axis(1).moveTo(9000);
        module.advance(SimulatedRecorder::Elements);
        QCOMPARE(state(module), 0);
        for (int element : {0, 1, 250, 499}) {
            for (int item = 0; item < SimulatedRecorder::Items; ++item)
                QCOMPARE(ask(module, Type::Sample, item, element).getValue(),
                         module.recorder().recorded()[size_t(element)][size_t(item)]);
        }
        QCOMPARE(ask(module, Type::Sample, 0, 499).getValue(), 9000);
        QVERIFY(ask(module, Type::Sample, 1, 499).getValue() > 0); // axis 1 it was
    }

    void interval_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("milliseconds"); // until the buffer is full
        QTest::newRow("tenths of a millisecond") << 0 << 1 << 50;
        QTest::newRow("a millisecond in tenths") << 0 << 10 << 500;
        QTest::newRow("milliseconds") << 1 << 1 << 500;
        QTest::newRow("longest of the panel") << 2 << 200 << 100000;
    }
    void interval()
    {
        QFETCH(int, mode);
        QFETCH(int, interval);
        QFETCH(int, milliseconds);
        SimulatedModule module;
        ask(module, Type::Mode, 0, mode);
        ask(module, Type::Interval, 0, interval);
        ask(module, Type::Arm);
        module.advance(milliseconds - interval);
        QCOMPARE(state(module), 1);
        module.advance(interval);
        QCOMPARE(state(module), 0);
    }

    void triggers_data()
    {
        QTest::addColumn<int>("trigger");
        QTest::addColumn<int>("target"); // rpm
        QTest::addColumn<int>("threshold");
        QTest::addColumn<int>("number");
        using Trigger = SimulatedRecorder::Trigger;
        const struct {
            const char* name;
            Trigger trigger;
            int target;
            int threshold;
            quint8 number;
        } rows[] = {
            {"position lower", Trigger::PositionLower, -300, -500, Number::ActualPosition},
            {"position higher", Trigger::PositionHigher, 300, 500, Number::ActualPosition},
            {"velocity lower", Trigger::VelocityLower, -300, -100, Number::ActualVelocity},
            {"velocity higher", Trigger::VelocityHigher, 300, 100, Number::ActualVelocity},
            {"torque lower", Trigger::TorqueLower, -300, -50, Number::ActualCurrent},
            {"torque higher", Trigger::TorqueHigher, 300, 50, Number::ActualCurrent},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name)
                << int(row.trigger) << row.target << row.threshold << int(row.number);
    }
    void triggers()
    {
        QFETCH(int, trigger);
        QFETCH(int, target);
        QFETCH(int, threshold);
        QFETCH(int, number);
        SimulatedModule module;
        ask(module, Type::Mode, 0, 1);
        ask(module, Type::Arm, trigger, threshold);
        const auto hasFired = [&] {
            const int value = module.axis(0).read(quint8(number));
            return threshold < 0 ? value < threshold : value > threshold;
        };
        module.advance(100);
        QCOMPARE(state(module), 2); // at rest nothing fires
        module.axis(0).rotate(target);
        int waited = 0;
        while (!hasFired() && ++waited < 5000) {
            QCOMPARE(state(module), 2);
            module.advance(1);
        }
        QVERIFY(waited < 5000);
        QCOMPARE(state(module), 1);
        QCOMPARE(int(module.recorder().recorded().size()), 1);
    }

    void misuse()
    {
        SimulatedModule module;
        QCOMPARE(state(module), 3); // never armed
        QCOMPARE(status(module, Type::Sample, 0, 0), quint8(ReplyStatus::OutOfRange));
        QCOMPARE(status(module, Type::Mode, 0, 4), quint8(ReplyStatus::OutOfRange));
        QCOMPARE(status(module, Type::Mode, 2, 0), quint8(ReplyStatus::UnknownBank));
        QCOMPARE(status(module, Type::Interval, 0, 0), quint8(ReplyStatus::OutOfRange));
        QCOMPARE(status(module, Type::Arm, 7, 0), quint8(ReplyStatus::OutOfRange));
        QCOMPARE(status(module, Type(5)), quint8(ReplyStatus::UnknownType));
        QCOMPARE(status(module, Type(8)), quint8(ReplyStatus::UnknownType));
        QCOMPARE(ask(module, Type::BufferSize).getValue(),
                 ask(module, Type::Elements).getValue() * ask(module, Type::Items).getValue());

        ask(module, Type::Arm);
        module.advance(10); // tenths of a millisecond
        QCOMPARE(state(module), 1);
        QCOMPARE(status(module, Type::Sample, 3, 99), StatusOk);
        QCOMPARE(status(module, Type::Sample, 3, 100), quint8(ReplyStatus::OutOfRange));
        QCOMPARE(status(module, Type::Sample, 4, 0), quint8(ReplyStatus::OutOfRange));
        QCOMPARE(status(module, Type::Sample, 0, -1), quint8(ReplyStatus::OutOfRange));

        ask(module, Type::Arm, int(SimulatedRecorder::Trigger::VelocityHigher), 5000); // never
        QCOMPARE(status(module, Type::Sample, 0, 0), quint8(ReplyStatus::OutOfRange));
        module.advance(20000);
        QCOMPARE(state(module), 2);
        ask(module, Type::Mode, 0, 1); // gives up waiting
        QCOMPARE(state(module), 3);
        ask(module, Type::Arm);
        module.advance(10);
        module.reset();
        QCOMPARE(state(module), 3);
        QVERIFY(module.recorder().recorded().empty());
    }
};

QTEST_GUILESS_MAIN(SimulatedRecorderTest)
#include "SimulatedRecorderTest.moc"
