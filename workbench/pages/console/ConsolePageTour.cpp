#include "ConsolePage.h"

#include "Instruction.h"
#include "ParameterCatalogue.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "TourGuide.h"
#include "TourInput.h"
#include "WDirectMode.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

using namespace TourInput;
namespace Number = AxisParameterNumber;

void ConsolePage::tour(TourGuide& guide)
{
    guide.showPage(QStringLiteral("console"));
    const SimulatedModule& module = guide.simulator().module;
    const QWidget* console = m_console;
    const auto reply = [&] {
        QStringList fields;
        for (const char* name :
             {"sbReplyCommand", "sbReplyType", "sbReplyMotorBank", "sbReplyValue"})
            fields << QString::number(guide.find<QSpinBox>(console, name)->value());
        return fields.join(QLatin1Char(' '));
    };
    const struct {
        const char* done;
        Instruction instruction;
        int type;
        int value;
        QString expected; // command, status, bank, value
    } requests[] = {
        {"GAP maximum velocity", Instruction::GAP, Number::MaxVelocity, 0,
         QStringLiteral("6 100 0 %1").arg(module.axis(0).read(Number::MaxVelocity))},
        {"SAP acceleration", Instruction::SAP, Number::Acceleration, 3000,
         QStringLiteral("5 100 0 3000")},
        {"SAP out of range", Instruction::SAP, Number::Acceleration, -1,
         QStringLiteral("5 %1 0 -1").arg(int(ReplyStatus::OutOfRange))},
        {"an instruction that the module lacks", Instruction::CALCX, 0, 0,
         QStringLiteral("33 %1 0 0").arg(int(ReplyStatus::UnknownInstruction))},
    };
    auto* command = guide.find<QComboBox>(console, "cbCommand");
    for (const auto& request : requests) {
        command->setCurrentIndex(command->findData(static_cast<int>(request.instruction)));
        guide.find<QSpinBox>(console, "sbRequestType")->setValue(request.type);
        guide.find<QSpinBox>(console, "sbRequestValue")->setValue(request.value);
        click(guide.find<QPushButton>(console, "btnSend"));
        guide.expectText(QStringLiteral("console, %1: reply command, status, bank, value")
                             .arg(QString::fromLatin1(request.done)),
                         reply, request.expected, TourGuide::Settle);
    }
    guide.photograph(QStringLiteral("console"));
}
