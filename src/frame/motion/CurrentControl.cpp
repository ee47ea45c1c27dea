#include "CurrentControl.h"

#include "LabelText_p.h"
#include "Numbers.h"
#include "ShowsOnly_p.h"
#include "ui_CurrentControl.h"

CurrentControl::CurrentControl(QWidget* parent)
    : TurnPanel(parent), m_ui(std::make_unique<Ui::CurrentControl>())
{
    m_ui->setupUi(this);
    new ShowsOnly(m_ui->sbActualCurrent);
    m_targetCurrent.bind(m_ui->sbTargetCurrent);
    m_actualCurrent.bind(m_ui->sbActualCurrent);
    m_jogLeft.setButton(m_ui->btnJogLeft);
    m_jogRight.setButton(m_ui->btnJogRight);
    setUpJog(m_jogLeft, m_jogRight);
    setUpPanel(m_ui->gbCurrentControl, {&m_actualCurrent});
}

CurrentControl::~CurrentControl() = default;

void CurrentControl::setTargetCurrentCommand(char type) { m_targetCurrent.setNumber(type); }

void CurrentControl::setTargetCurrentCommandAndRange(char type, int minimum, int maximum)
{
    m_targetCurrent.setNumberAndRange(type, minimum, maximum);
}

void CurrentControl::setActualCurrentCommand(char type) { m_actualCurrent.setNumber(type); }

void CurrentControl::setActualCurrentCommandAndRange(char type, int minimum, int maximum)
{
    m_actualCurrent.setNumberAndRange(type, minimum, maximum);
}

void CurrentControl::setActualText(const QString& text)
{
    setLabelText(m_ui->lblActualCurrent, text);
}

void CurrentControl::setTargetText(const QString& text)
{
    setLabelText(m_ui->lblTargetCurrent, text);
}

void CurrentControl::setUseMSTForStop(bool use) { m_useMSTForStop = use; }

void CurrentControl::turn(Direction direction)
{
    const qint64 target = m_ui->sbTargetCurrent->value();
    change(m_targetCurrent, toInt(direction == Direction::Left ? -target : target));
}

HeldButton::Stop CurrentControl::stop()
{
    return [this, axis = MotorController(*this), number = m_targetCurrent.number()] {
        if (m_useMSTForStop)
            send(axis, Instruction::MST, 0, 0);
        else
            send(axis, Instruction::SAP, number, 0);
    };
}
