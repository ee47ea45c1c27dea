#include "AxisPanel.h"

#include "Command.h"
#include "ValueKey.h"

#include <QPointer>

AxisPanel::AxisPanel(QWidget* parent) : ParameterPanel(parent) {}

AxisPanel::~AxisPanel() = default;

void AxisPanel::updateValues()
{
    askEach([this](char type) { send(Instruction::GAP, type, 0); });
}

void AxisPanel::IN_replyValue(Command* reply)
{
    if (!reply)
        return;
    const char type = reply->getType();
    if (ValueKey::of(*reply) ==
        ValueKey{getAddress(), toByte(Instruction::GAP), type, getMotorBank()})
        showReply(type, reply->getValue());
}

bool AxisPanel::send(Instruction instruction, char type, int value)
{
    return send(*this, instruction, type, value);
}

bool AxisPanel::send(const MotorController& axis, Instruction instruction, char type, int value)
{
    const QPointer<AxisPanel> self(this);
    Command command(axis.getAddress(), toByte(instruction), type, axis.getMotorBank(), value);
    emit OUT_requestValue(&command);
    return self;
}

bool AxisPanel::change(const AxisParameter& parameter, int value)
{
    return send(Instruction::SAP, parameter.number(), value);
}
