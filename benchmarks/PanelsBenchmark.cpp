// What the panels cost a host: replies that pass them by, keystrokes, construction.

#include "CANConnection.h"
#include "Command.h"
#include "Connection.h"
#include "CurrentControl.h"
#include "EthernetConnection.h"
#include "PositionControl.h"
#include "SerialConnection.h"
#include "SpinBox.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"
#include "WDirectMode.h"
#include "ZigBeeNode.h"
#include "ui_CANConnection.h"
#include "ui_Connection.h"
#include "ui_CurrentControl.h"
#include "ui_EthernetConnection.h"
#include "ui_PositionControl.h"
#include "ui_SerialConnection.h"
#include "ui_VelocityControl.h"
#include "ui_VelocityRampControl.h"
#include "ui_WDirectMode.h"
#include "ui_ZigBeeNode.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <benchmark/benchmark.h>

namespace
{

/// A reply handed to so many panels, of which at most the last one takes it.
void replyToPanels(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    std::vector<std::unique_ptr<VelocityControl>> panels;
    for (int i = 0; i < count; ++i) {
        panels.push_back(std::make_unique<VelocityControl>());
        panels.back()->setMotorBank(static_cast<char>(count == 1 ? 1 : count - 1 - i));
        panels.back()->setActualVelocityCommand(3);
    }
    Command reply(1, 6, 3, 0, 0);
    int value = 0;
    for (auto _ : state) {
        reply.setValue(++value & 1023);
        for (const auto& panel : panels)
            panel->IN_replyValue(&reply);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(replyToPanels)->Arg(1)->Arg(40)->ArgName("panels");

/// A reply in the console of which so many fields differ from the one before, beside its five
/// fields set one by one, the plain way.
template <bool IsConsole>
void replyToConsole(benchmark::State& state)
{
    WDirectMode console;
    std::vector<QSpinBox*> fields;
    for (const char* name : {"Value", "Address", "Command", "Type", "MotorBank"})
        fields.push_back(console.findChild<QSpinBox*>(QStringLiteral("sbReply") + name));
    const auto changing = static_cast<int>(state.range(0));
    int number = 0;
    for (auto _ : state) {
        number = (number + 1) & 127;
        const auto of = [&](int field) { return field < changing ? number : 1; };
        if constexpr (IsConsole) {
            console.requestResult(static_cast<char>(of(1)), static_cast<char>(of(2)), 0,
                                  static_cast<char>(of(3)), static_cast<char>(of(4)), of(0));
        } else {
            for (int i = 0; i < 5; ++i)
                fields[static_cast<size_t>(i)]->setValue(of(i));
        }
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_TEMPLATE(replyToConsole, true)->Name("reply to console")->Arg(0)->Arg(1)->Arg(5);
BENCHMARK_TEMPLATE(replyToConsole, false)->Name("all its fields set")->Arg(0)->Arg(1)->Arg(5);

struct SheetCounter : QObject {
    int changes = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        changes += event->type() == QEvent::StyleChange;
        return false;
    }
};

template <class Box>
void typeInto(Box& box, int key, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&box, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&box, &up);
}

/// Types a digit and takes it back, in a box that waits for Return the whole time. The counter
/// sheets tells how many style sheets were set in all.
template <class Box>
void keystrokes(benchmark::State& state)
{
    Box box;
    if constexpr (std::is_same_v<Box, SpinBox>)
        box.setFlags(SpinBox::ChangedOnEnter | SpinBox::ResetOnEscape);
    else
        box.setRange(-1e9, 1e9);
    box.show();
    typeInto(box, Qt::Key_1, QStringLiteral("1"));
    SheetCounter counter;
    box.installEventFilter(&counter);
    for (auto _ : state) {
        typeInto(box, Qt::Key_2, QStringLiteral("2"));
        typeInto(box, Qt::Key_Backspace, QString());
    }
    state.SetItemsProcessed(2 * state.iterations());
    state.counters["sheets"] = counter.changes;
}
BENCHMARK_TEMPLATE(keystrokes, QDoubleSpinBox);
BENCHMARK_TEMPLATE(keystrokes, SpinBox);

template <class Form>
void bareForm(benchmark::State& state)
{
    for (auto _ : state) {
        QWidget widget;
        Form form;
        form.setupUi(&widget);
    }
}

template <class Panel>
void wholePanel(benchmark::State& state)
{
    for (auto _ : state)
        Panel panel;
}

#define AXR_CONSTRUCTION(Class)                                                                    \
    BENCHMARK_TEMPLATE(bareForm, Ui::Class)->Name("bare form/" #Class);                            \
    BENCHMARK_TEMPLATE(wholePanel, Class)->Name("panel/" #Class)

AXR_CONSTRUCTION(VelocityControl);
AXR_CONSTRUCTION(CurrentControl);
AXR_CONSTRUCTION(PositionControl);
AXR_CONSTRUCTION(VelocityRampControl);
AXR_CONSTRUCTION(WDirectMode);
AXR_CONSTRUCTION(Connection);
AXR_CONSTRUCTION(SerialConnection);
AXR_CONSTRUCTION(CANConnection);
AXR_CONSTRUCTION(EthernetConnection);
AXR_CONSTRUCTION(ZigBeeNode);

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("axr.*=false"));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
