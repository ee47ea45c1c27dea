#include "TuplePanel.h"

#include "Bytes.h"

TuplePanel::TuplePanel(QWidget* parent) : ParameterPanel(parent) {}

TuplePanel::~TuplePanel() = default;

void TuplePanel::updateValues()
{
    askEach(
        [this](char type) { emit requestValue(axis().getAddress(), axis().getMotorBank(), type); });
}

void TuplePanel::requestedValue(char address, char motorBank, char type, int value)
{
    if (u8(address) == u8(axis().getAddress()) && u8(motorBank) == u8(axis().getMotorBank()))
        showReply(type, value);
}
