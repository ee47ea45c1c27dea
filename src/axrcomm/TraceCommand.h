#ifndef TRACECOMMAND_H
#define TRACECOMMAND_H

#include "AXRCommExport.h"

#include <QString>

/// Description of one value that is polled repeatedly. The host makes and owns it. Two describe
/// the same value when address, command, type and motor bank are equal as unsigned bytes.
class AXRCOMM_EXPORT TraceCommand
{
public:
    /// A new trace command counts as used once.
    TraceCommand(char address, char command, char type, char motorBank, const QString& caption);

    char getAddress() const { return m_address; }
    char getCommand() const { return m_command; }
    char getType() const { return m_type; }
    char getMotorBank() const { return m_motorBank; }

    /// Text for this value in selection lists.
    QString getCaption() const { return m_caption; }

    void incUsedCounter() { ++m_usedCounter; }
    /// Stops at 0.
    void decUsedCounter();
    int getUsedCounter() const { return m_usedCounter; }

private:
    char m_address;
    char m_command;
    char m_type;
    char m_motorBank;
    QString m_caption;
    int m_usedCounter = 1;
};

#endif
