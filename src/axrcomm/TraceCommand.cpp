#include "TraceCommand.h"

TraceCommand::TraceCommand(char address, char command, char type, char motorBank,
                           const QString& caption)
    : m_address(address)
    , m_command(command)
    , m_type(type)
    , m_motorBank(motorBank)
    , m_caption(caption)
{
}

void TraceCommand::decUsedCounter()
{
    if (m_usedCounter > 0)
        --m_usedCounter;
}
