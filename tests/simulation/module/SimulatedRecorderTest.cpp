#include "SimulatedModule.h"
#include "TestCase.h"

namespace N = AxisParameterNumber;

namespace
{

using Recorder::Mode;
using Recorder::Trigger;
using Recorder::Type;

/// A module, the recorder of which is asked by RD.
struct Module : SimulatedModule {
    Command reply(Type type, int bank, int value)
    {
        return execute({address(), toByte(Instruction::RD), toByte(type), toByte(bank), value});
    }
    int ask(Type type, int bank = 0, int value = 0) { return reply(type, bank, value).getValue(); }
    int refusal(Type type, int bank, int value) { return u8(reply(type, bank, value).getStatus()); }
    /// 0 complete, 1 recording, 2 armed, 3 idle
    int state() { return ask(Type::State); }
};

} // namespace

class SimulatedRecorderTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void recordsWhatTheAxisReads()
    {
        const int ticks[] = {5, 50, 50, 50}; // of 0.1 ms, between two elements
        for (int mode = 0; mode < SimulatedRecorder::Modes; ++mode) {
            SimulatedAxis axis;
            SimulatedRecorder recorder;
            recorder.setMode(Mode(mode));
            recorder.setInterval(5);
            recorder.arm(Trigger::Always, 0);
            axis.moveTo(9000);
            std::vector<SimulatedRecorder::Element> truth;
            for (int step = 0; recorder.state() != Recorder::State::Complete; ++step) {
                axis.step();
                recorder.step(axis);
                if (step % ticks[mode] != 0)
                    continue;
                truth.emplace_back();
                for (size_t item = 0; item < truth.back().size(); ++item)
                    truth.back()[item] = axis.read(SimulatedRecorder::items(Mode(mode))[item]);
            }
            QCOMPARE(int(recorder.recorded().size()), 500);
            QVERIFY(recorder.recorded() == truth);
            QVERIFY(truth.front() != truth.back());
        }
    }

    void readBack()
    {
        Module module;
        QCOMPARE(module.ask(Type::BufferSize), 2000);
        QCOMPARE(module.ask(Type::Elements), 500);
        QCOMPARE(module.ask(Type::Items), 4);
        module.ask(Type::Mode, 1, int(Mode::Position));
        module.ask(Type::Interval, 1, 2);
        module.ask(Type::Arm);
        module.axis(1).moveTo(9000);
        module.advance(2 * 499);
        QCOMPARE(module.state(), 1);
        module.advance(1);
        QCOMPARE(module.state(), 0);
        const auto& elements = module.recorder().recorded();
        QCOMPARE(module.ask(Type::Sample, 3, 250), elements[250][3]);
        QCOMPARE(module.ask(Type::Sample, 0, 499), 9000);
        QVERIFY(module.ask(Type::Sample, 1, 499) > 0); // axis 1 it was
    }

    void triggers()
    {
        const struct {
            Trigger trigger;
            int target; // rpm
            int threshold;
            quint8 number;
        } rows[] = {{Trigger::PositionLower, -300, -500, N::ActualPosition},
                    {Trigger::PositionHigher, 300, 500, N::ActualPosition},
                    {Trigger::VelocityLower, -300, -100, N::ActualVelocity},
                    {Trigger::VelocityHigher, 300, 100, N::ActualVelocity},
                    {Trigger::TorqueLower, -300, -50, N::ActualCurrent},
                    {Trigger::TorqueHigher, 300, 50, N::ActualCurrent}};
        for (const auto& row : rows) {
            Module module;
            module.ask(Type::Mode, 0, 1);
            module.ask(Type::Arm, int(row.trigger), row.threshold);
            const auto hasFired = [&] {
                const int value = module.axis(0).read(row.number);
                return row.threshold < 0 ? value < row.threshold : value > row.threshold;
            };
            module.advance(100);
            module.axis(0).rotate(row.target);
            int waited = 0;
            for (; !hasFired() && waited < 5000; ++waited) {
                QCOMPARE(module.state(), 2);
                module.advance(1);
            }
            QVERIFY(waited > 0 && waited < 5000);
            QCOMPARE(module.state(), 1);
            QCOMPARE(int(module.recorder().recorded().size()), 1);
        }
    }

    void misuse()
    {
        Module module;
        const struct {
            Type type;
            int bank, value;
            ReplyStatus expected;
        } rows[] = {{Type::Mode, 0, -1, ReplyStatus::OutOfRange},
                    {Type::Mode, 0, 4, ReplyStatus::OutOfRange},
                    {Type::Mode, 2, 0, ReplyStatus::UnknownBank},
                    {Type::Interval, 0, 0, ReplyStatus::OutOfRange},
                    {Type::Interval, 0, 65536, ReplyStatus::OutOfRange},
                    {Type::Interval, 0, 65535, ReplyStatus::Ok},
                    {Type::Interval, 0, 1, ReplyStatus::Ok},
                    {Type::Arm, 7, 0, ReplyStatus::OutOfRange},
                    {Type(5), 0, 0, ReplyStatus::UnknownType},
                    {Type::Sample, 0, 0, ReplyStatus::OutOfRange}, // never armed
                    {Type::Arm, 0, 0, ReplyStatus::Ok},
                    {Type::Sample, 3, 99, ReplyStatus::Ok}, // after 10 ms
                    {Type::Sample, 3, 100, ReplyStatus::OutOfRange},
                    {Type::Sample, 4, 0, ReplyStatus::OutOfRange},
                    {Type::Sample, 0, -1, ReplyStatus::OutOfRange},
                    {Type::Arm, int(Trigger::VelocityHigher), 5000, ReplyStatus::Ok}, // never
                    {Type::Sample, 0, 0, ReplyStatus::OutOfRange}};
        QCOMPARE(module.state(), 3);
        for (const auto& row : rows) {
            QCOMPARE(module.refusal(row.type, row.bank, row.value), int(row.expected));
            module.advance(row.type == Type::Arm ? 10 : 0);
        }
        QCOMPARE(module.state(), 2);
        module.ask(Type::Mode, 0, 0); // gives up waiting, as another axis does
        QCOMPARE(module.state(), 3);
        for (int axis : {0, 1, 1}) {
            module.ask(Type::Arm);
            module.advance(10);
            module.ask(Type::Interval, axis, 1);
            QCOMPARE(module.state(), 3);
        }
        module.reset();
        QVERIFY(module.recorder().recorded().empty() && module.recorder().axis() == 0);
    }
};

QTEST_GUILESS_MAIN(SimulatedRecorderTest)
#include "SimulatedRecorderTest.moc"
