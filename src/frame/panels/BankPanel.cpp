#include "BankPanel.h"

#include "Bytes.h"

BankPanel::BankPanel(QWidget* parent) : ParameterPanel(parent) {}

BankPanel::~BankPanel() = default;

void BankPanel::updateValues()
{
    askEach([this](char type) { emit requestValue(m_motorBank, type); });
}

void BankPanel::requestedValue(char motorBank, char type, int value)
{
    if (u8(motorBank) == u8(m_motorBank))
        showReply(type, value);
}

void BankPanel::requestedTraceValue(char motorBank, char type, int value)
{
    requestedValue(motorBank, type, value);
}
