#include "VelocityControl.h"

#include "LabelText_p.h"
#include "ParameterToolTip.h"
#include "ShowsOnly_p.h"
#include "ui_VelocityControl.h"

VelocityControl::VelocityControl(QWidget* parent)
    : TurnPanel(parent), m_ui(std::make_unique<Ui::VelocityControl>())
{
    m_ui->setupUi(this);
    new ShowsOnly(m_ui->sbActualVelocity);
    m_actualVelocity.bind(m_ui->sbActualVelocity);
    m_jogLeft.setButton(m_ui->btnJogLeft);
    m_jogRight.setButton(m_ui->btnJogRight);
    setUpJog(m_jogLeft, m_jogRight);
    setUpPanel(m_ui->gbVelocityControl, {&m_actualVelocity});
}

VelocityControl::~VelocityControl() = default;

void VelocityControl::setActualVelocityCommand(char type) { m_actualVelocity.setNumber(type); }

void VelocityControl::setActualVelocityCommandAndRange(char type, int minimum, int maximum)
{
    m_actualVelocity.setNumberAndRange(type, minimum, maximum);
}

void VelocityControl::setTargetVelocityRange(int minimum, int maximum)
{
    if (minimum != maximum)
        m_ui->sbTargetVelocity->setRange(minimum, maximum);
    m_ui->sbTargetVelocity->setToolTip(
        rangeToolTip(QStringLiteral("MST/ROR/ROL"), *m_ui->sbTargetVelocity));
}

void VelocityControl::setTargetVelocitySingleStep(int step)
{
    m_ui->sbTargetVelocity->setSingleStep(step);
}

void VelocityControl::setActualText(const QString& text)
{
    setLabelText(m_ui->lblActualVelocity, text);
}

void VelocityControl::setTargetText(const QString& text)
{
    setLabelText(m_ui->lblTargetVelocity, text);
}

void VelocityControl::turn(Direction direction)
{
    send(direction == Direction::Left ? Instruction::ROL : Instruction::ROR, 0,
         m_ui->sbTargetVelocity->value());
}

HeldButton::Stop VelocityControl::stop()
{
    return [this, axis = MotorController(*this)] { send(axis, Instruction::MST, 0, 0); };
}
