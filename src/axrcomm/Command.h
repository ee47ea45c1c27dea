#ifndef COMMAND_H
#define COMMAND_H

#include "AXRCommExport.h"

/// One device command or one reply. All bytes travel as `char`; compare them unsigned, with
/// `u8()` of Bytes.h.
///
/// A request is made with the five-argument constructor and is not valid; a host that turns a
/// record into a reply fills it and ends with setValid(true).
class AXRCOMM_EXPORT Command
{
public:
    /// All fields 0, not valid: a record that a handler can fill as a reply.
    Command() = default;

    /// A complete request. Note that the type stands before the motor bank.
    Command(char address, char command, char type, char motorBank, int value);

    char getAddress() const { return m_address; }
    char getCommand() const { return m_command; }
    char getType() const { return m_type; }
    char getMotorBank() const { return m_motorBank; }
    int getValue() const { return m_value; }

    /// Status of a reply: 100 is success, anything else a failure.
    char getStatus() const { return m_status; }

    void setAddress(char address) { m_address = address; }
    void setCommand(char command) { m_command = command; }
    void setType(char type) { m_type = type; }
    void setMotorBank(char motorBank) { m_motorBank = motorBank; }
    void setValue(int value) { m_value = value; }

    /// True when the record holds a reply that really came from a module.
    bool isValid() const { return m_valid; }

    /// For the side of the link only: what the module answered.
    void setStatus(char status) { m_status = status; }
    void setValid(bool valid) { m_valid = valid; }

private:
    char m_address = 0;
    char m_command = 0;
    char m_type = 0;
    char m_motorBank = 0;
    int m_value = 0;
    char m_status = 0;
    bool m_valid = false;
};

#endif
