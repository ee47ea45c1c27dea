#ifndef MOTORCONTROLLER_H
#define MOTORCONTROLLER_H

#include "AXRGuiExport.h"

/// Makes a panel belong to one axis. A mix-in: a panel derives from QWidget first and from this
/// second. It has no virtual operations; do not delete a panel through it.
class AXRGUI_EXPORT MotorController
{
public:
    MotorController() = default;

    /// Module address, an unsigned byte. Default 1.
    void setAddress(char address) { m_address = address; }
    char getAddress() const { return m_address; }

    /// Motor or bank index, an unsigned byte. Default 0.
    void setMotorBank(char motorBank) { m_motorBank = motorBank; }
    char getMotorBank() const { return m_motorBank; }

private:
    char m_address = 1;
    char m_motorBank = 0;
};

#endif
