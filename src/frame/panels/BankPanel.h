#ifndef BANKPANEL_H
#define BANKPANEL_H

#include "ParameterPanel.h"

/// Base of the panels that ask and are answered with motor bank, type and value, without an
/// address, for hosts with one module. It only reads: what a panel sends besides, it declares
/// itself.
class AXRGUI_EXPORT BankPanel : public ParameterPanel
{
    Q_OBJECT
public:
    ~BankPanel() override;

    /// Motor or bank index, an unsigned byte. Default 0.
    void setMotorBank(char motorBank) { m_motorBank = motorBank; }

    /// Emits requestValue() for each value that the panel reads back.
    void updateValues();

Q_SIGNALS:
    void requestValue(char motorBank, char type);

public Q_SLOTS:
    /// Takes the value of the panel's bank into every parameter read back that has this type.
    /// Anything else is ignored. A field whose change is sent sends a value that really changes it
    /// back once.
    void requestedValue(char motorBank, char type, int value);
    /// The same, for a value that the host polls.
    void requestedTraceValue(char motorBank, char type, int value);

protected:
    explicit BankPanel(QWidget* parent);

    /// Made public by the panels that have it.
    char getMotorBank() const { return m_motorBank; }

private:
    char m_motorBank = 0;
};

#endif
