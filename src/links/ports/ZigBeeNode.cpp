#include "ZigBeeNode.h"

#include "Bytes.h"
#include "RoomForText_p.h"
#include "ShowsOnly_p.h"
#include "WheelFocus.h"
#include "ui_ZigBeeNode.h"

#include <array>

namespace
{

/// The fields of the address, byte 0 first.
std::array<QSpinBox*, 4> fields(const Ui::ZigBeeNode& form)
{
    return {form.sbMACByte0, form.sbMACByte1, form.sbMACByte2, form.sbMACByte3};
}

} // namespace

ZigBeeNode::ZigBeeNode() : m_ui(std::make_unique<Ui::ZigBeeNode>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    RoomForText::giveTo(this);
    new ShowsOnly(m_ui->lblMACinHEX);
}

ZigBeeNode::ZigBeeNode(const char* bytes) : ZigBeeNode()
{
    if (!bytes)
        return;
    for (QSpinBox* field : fields(*m_ui))
        field->setValue(u8(*bytes++));
}

ZigBeeNode::~ZigBeeNode() = default;

void ZigBeeNode::setTitle(QString title) { m_ui->gbZigBeeNode->setTitle(title); }

void ZigBeeNode::setMACByteEnabled(int index, bool enabled)
{
    const auto bytes = fields(*m_ui);
    if (index >= 0 && index < static_cast<int>(bytes.size()))
        bytes[static_cast<size_t>(index)]->setEnabled(enabled);
}

void ZigBeeNode::on_sbMACByte3_valueChanged(int /*value*/) { showAddress(); }

void ZigBeeNode::on_sbMACByte2_valueChanged(int /*value*/) { showAddress(); }

void ZigBeeNode::on_sbMACByte1_valueChanged(int /*value*/) { showAddress(); }

void ZigBeeNode::on_sbMACByte0_valueChanged(int /*value*/) { showAddress(); }

void ZigBeeNode::on_btnSetAddress_clicked()
{
    char bytes[4];
    char* next = bytes;
    for (const QSpinBox* field : fields(*m_ui))
        *next++ = toByte(field->value());
    emit setZigBeeDevice(bytes);
}

void ZigBeeNode::showAddress()
{
    QString text;
    for (const QSpinBox* field : fields(*m_ui))
        text.prepend(QLatin1Char(':') + QString::number(field->value(), 16));
    m_ui->lblMACinHEX->setText(QStringLiteral("0x") + text);
}
