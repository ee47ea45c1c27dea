#ifndef OWNADDRESSPANEL_H
#define OWNADDRESSPANEL_H

#include "TupleSettingsPanel.h"

/// A settings panel with address and motor bank of its own, which is no MotorController.
class AXRGUI_EXPORT OwnAddressPanel : public TupleSettingsPanel
{
    Q_OBJECT
public:
    ~OwnAddressPanel() override;

    /// Module address, an unsigned byte. Default 1.
    void setAddress(char address) { m_axis.setAddress(address); }
    char getAddress() const { return m_axis.getAddress(); }

    /// Motor or bank index, an unsigned byte. Default 0.
    void setMotorBank(char motorBank) { m_axis.setMotorBank(motorBank); }
    char getMotorBank() const { return m_axis.getMotorBank(); }

protected:
    explicit OwnAddressPanel(QWidget* parent);

private:
    const MotorController& axis() const final { return m_axis; }

    MotorController m_axis;
};

#endif
