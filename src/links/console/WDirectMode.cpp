#include "WDirectMode.h"

#include "FieldFace_p.h"
#include "Instruction.h"
#include "RoomForText_p.h"
#include "ShowsOnly_p.h"
#include "WheelFocus.h"
#include "ui_WDirectMode.h"

WDirectMode::WDirectMode(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::WDirectMode>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    RoomForText::giveTo(this);
    for (QSpinBox* field : {m_ui->sbRequestAddress, m_ui->sbReplyAddress, m_ui->sbReplyCommand,
                            m_ui->sbReplyType, m_ui->sbReplyMotorBank, m_ui->sbReplyValue})
        new ShowsOnly(field);
    for (QSpinBox* field : {m_ui->sbRequestValue, m_ui->sbReplyValue})
        FieldFace::of(field); // narrows what has no room
    for (const InstructionName& entry : InstructionNames) {
        const int number = static_cast<int>(entry.instruction);
        m_ui->cbCommand->addItem(
            QStringLiteral("%1 - %2").arg(number).arg(QLatin1String(entry.mnemonic)), number);
    }
}

WDirectMode::~WDirectMode() = default;

void WDirectMode::setAddress(char address) { m_ui->sbRequestAddress->setValue(u8(address)); }

char WDirectMode::getAddress() const { return toByte(m_ui->sbRequestAddress->value()); }

void WDirectMode::on_btnSend_clicked()
{
    m_pending = {0, toByte(m_ui->cbCommand->currentData().toInt()),
                 toByte(m_ui->sbRequestType->value()), toByte(m_ui->sbRequestMotorBank->value())};
    emit doRequest(getAddress(), m_pending.command, m_pending.type, m_pending.motorBank,
                   m_ui->sbRequestValue->value());
}

void WDirectMode::requestResult(char address, char command, char /*type*/, char status,
                                char motorBank, int value)
{
    showReply(address, command, status, motorBank, value);
}

void WDirectMode::requestedCommand(char address, char command, char type, char motorBank,
                                   char status, int value)
{
    if (m_pending.command == 0 || m_pending != ValueKey{0, command, type, motorBank})
        return;
    showReply(address, command, status, motorBank, value);
    m_pending = {};
}

void WDirectMode::showReply(char address, char command, char status, char motorBank, int value)
{
    const auto show = [](QSpinBox* field, int number) {
        if (field->value() != number) // which it takes long to find out by itself
            field->setValue(number);
    };
    show(m_ui->sbReplyAddress, u8(address));
    show(m_ui->sbReplyCommand, u8(command));
    show(m_ui->sbReplyType, u8(status));
    show(m_ui->sbReplyMotorBank, u8(motorBank));
    show(m_ui->sbReplyValue, value);
    FieldFace::of(m_ui->sbReplyValue)->tell(value);
}
