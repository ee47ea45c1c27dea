#include "PositionControl.h"

#include "Numbers.h"
#include "ParameterToolTip.h"
#include "ShowsOnly_p.h"
#include "ui_PositionControl.h"

namespace
{
int sum(int a, int b) { return toInt(static_cast<qint64>(a) + b); }
} // namespace

PositionControl::PositionControl(QWidget* parent)
    : AxisPanel(parent)
    , m_ui(std::make_unique<Ui::PositionControl>())
    , m_actualPositionText(QStringLiteral("actual position"))
    , m_targetPositionText(QStringLiteral("target position"))
{
    m_ui->setupUi(this);
    new ShowsOnly(m_ui->sbActualPosition);
    m_ui->cmbRelativeTo->addItems({m_actualPositionText, m_targetPositionText});
    m_actualPosition.bind(m_ui->sbActualPosition);
    m_targetPosition.bind(m_ui->sbTargetPosition);
    m_clearOnNull.bind(m_ui->btnClearOnNull);
    setUpPanel(m_ui->gbPositionControl, {&m_actualPosition});
}

PositionControl::~PositionControl() = default;

void PositionControl::setActualPositionCommand(char type)
{
    m_actualPosition.setNumber(type);
    m_ui->btnClear->setToolTip(parameterToolTip(type));
}

void PositionControl::setActualPositionCommandAndRange(char type, int minimum, int maximum)
{
    m_actualPosition.setNumberAndRange(type, minimum, maximum);
    m_ui->btnClear->setToolTip(parameterToolTip(type));
}

void PositionControl::setTargetPositionCommand(char type) { m_targetPosition.setNumber(type); }

void PositionControl::setTargetPositionCommandAndRange(char type, int minimum, int maximum)
{
    m_targetPosition.setNumberAndRange(type, minimum, maximum);
}

void PositionControl::setClearOnNullCommand(char type) { m_clearOnNull.setNumber(type); }

void PositionControl::setClearOnceCommand(char type) { m_clearOnceCommand = type; }

void PositionControl::setUseMSTForStop(bool use) { m_useMSTForStop = use; }

void PositionControl::setUseMVPAbsForRel(bool use) { m_useMVPAbsForRel = use; }

void PositionControl::setTargetPositionSingleStep(int step)
{
    m_ui->sbTargetPosition->setSingleStep(step);
}

void PositionControl::on_btnClear_clicked() { change(m_actualPosition, 0); }

void PositionControl::on_btnClearOnNull_clicked()
{
    if (send(Instruction::SAP, m_clearOnceCommand, 1))
        change(m_clearOnNull, 1);
}

void PositionControl::on_btnMoveAbsolute_clicked()
{
    m_lastTargetPosition = m_ui->sbTargetPosition->value();
    sendMove(MoveType::Absolute, m_lastTargetPosition);
}

void PositionControl::on_btnMoveRelative_clicked()
{
    const int distance = m_ui->sbTargetPosition->value();
    m_lastTargetPosition = sum(m_lastTargetPosition, distance);
    if (m_ui->cmbRelativeTo->currentText().startsWith(m_targetPositionText))
        sendMove(MoveType::Absolute, m_lastTargetPosition);
    else if (!m_useMVPAbsForRel)
        sendMove(MoveType::Relative, distance);
    else
        sendMove(MoveType::Absolute, sum(actualPosition(), distance));
}

/// A field that shows less than the module said is no ground to move from.
int PositionControl::actualPosition() const
{
    return m_actualPosition.isClipped() ? *m_actualPosition.reported()
                                        : m_ui->sbActualPosition->value();
}

void PositionControl::on_btnStop_clicked()
{
    if (m_useMSTForStop)
        send(Instruction::MST, 0, 0);
    else
        sendMove(MoveType::Relative, 0);
}

void PositionControl::sendMove(MoveType moveType, int value)
{
    send(Instruction::MVP, toByte(moveType), value);
}
