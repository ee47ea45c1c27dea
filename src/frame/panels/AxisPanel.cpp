#include "AxisPanel.h"

#include "Bytes.h"
#include "Command.h"
#include "FieldFace_p.h"
#include "WheelFocus.h"

#include <QGroupBox>
#include <QPointer>
#include <QSpinBox>

AxisPanel::AxisPanel(QWidget* parent) : QWidget(parent) {}

AxisPanel::~AxisPanel() = default;

void AxisPanel::setUpPanel(QGroupBox* frame, std::initializer_list<AxisParameter*> readBack)
{
    m_frame = frame;
    m_readBack = readBack;
    for (QSpinBox* field : frame->findChildren<QSpinBox*>())
        FieldFace::of(field);
    WheelFocus::guard(this);
}

void AxisPanel::setTitle(const QString& title) { m_frame->setTitle(title); }

void AxisPanel::updateValues()
{
    for (const AxisParameter* parameter : qAsConst(m_readBack)) {
        if (isAsked(*parameter) && !send(Instruction::GAP, parameter->number(), 0))
            return;
    }
}

void AxisPanel::IN_replyValue(Command* reply)
{
    if (!reply || !carries(reply->getCommand(), Instruction::GAP) ||
        u8(reply->getAddress()) != u8(getAddress()) ||
        u8(reply->getMotorBank()) != u8(getMotorBank()))
        return;
    const QPointer<AxisPanel> self(this);
    const char type = reply->getType();
    const int value = reply->getValue();
    for (int i = 0; self && i < m_readBack.size(); ++i) {
        AxisParameter& parameter = *m_readBack.at(i);
        if (u8(parameter.number()) == u8(type) && isTaken(parameter))
            parameter.show(value);
    }
}

bool AxisPanel::isAsked(const AxisParameter& parameter) const
{
    Q_UNUSED(parameter)
    return true;
}

bool AxisPanel::isTaken(const AxisParameter& parameter) const { return isAsked(parameter); }

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
