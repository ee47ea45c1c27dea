#ifndef TUPLEPANEL_H
#define TUPLEPANEL_H

#include "MotorController.h"
#include "ParameterPanel.h"

/// Base of the panels that ask and are answered with address, motor bank, type and value one by
/// one. It only reads: what a panel sends besides, it declares itself, or it stands on
/// TupleSettingsPanel.
///
/// The axis is the panel's mix-in MotorController, or what OwnAddressPanel keeps in its place.
class AXRGUI_EXPORT TuplePanel : public ParameterPanel
{
    Q_OBJECT
public:
    ~TuplePanel() override;

    /// Emits requestValue() for each value that the panel reads back.
    void updateValues();

Q_SIGNALS:
    void requestValue(char address, char motorBank, char type);

public Q_SLOTS:
    /// Takes the value of the panel's axis into every parameter read back that has this type.
    /// Anything else is ignored. A field whose change is sent sends a value that really changes it
    /// back once.
    void requestedValue(char address, char motorBank, char type, int value);

protected:
    explicit TuplePanel(QWidget* parent);

    /// Address and motor bank: `return *this` in a panel with the mix-in.
    virtual const MotorController& axis() const = 0;
};

#endif
