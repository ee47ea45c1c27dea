#include "Command.h"

Command::Command(char address, char command, char type, char motorBank, int value)
    : m_address(address), m_command(command), m_type(type), m_motorBank(motorBank), m_value(value)
{
}
