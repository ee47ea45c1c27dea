#include "TupleSettingsPanel.h"

#include "Instruction.h"

#include <QPointer>

TupleSettingsPanel::TupleSettingsPanel(QWidget* parent) : TuplePanel(parent) {}

TupleSettingsPanel::~TupleSettingsPanel() = default;

void TupleSettingsPanel::requestedCommand(char address, char command, char type, char motorBank,
                                          char status, int value)
{
    const bool isOfValue = carries(command, Instruction::GAP) || carries(command, Instruction::SAP);
    if (isOfValue && u8(status) == StatusOk)
        requestedValue(address, motorBank, type, value);
}

bool TupleSettingsPanel::change(const AxisParameter& parameter, int value)
{
    const QPointer<TupleSettingsPanel> self(this);
    emit changeValue(axis().getAddress(), axis().getMotorBank(), parameter.number(), value);
    return self;
}
