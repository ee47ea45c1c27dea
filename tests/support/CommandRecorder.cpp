#include "CommandRecorder.h"

#include "Bytes.h"

#include <QtTest>

CommandRecorder::CommandRecorder(QObject* panel)
{
    const bool connected =
        connect(panel, SIGNAL(OUT_requestValue(Command*)), this, SLOT(record(Command*)));
    Q_ASSERT(connected);
    Q_UNUSED(connected)
}

QStringList CommandRecorder::takeLines()
{
    QStringList lines;
    for (const Command& command : qAsConst(m_commands))
        lines << line(command);
    m_commands.clear();
    return lines;
}

void CommandRecorder::record(Command* command)
{
    m_commands << *command;
    if (m_reaction)
        m_reaction(*command);
}

Command reply(int address, int command, int type, int motorBank, int value)
{
    Command record(toByte(address), toByte(command), toByte(type), toByte(motorBank), value);
    record.setStatus(100);
    record.setValid(true);
    return record;
}

QString line(const Command& command)
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(u8(command.getAddress()))
        .arg(u8(command.getCommand()))
        .arg(u8(command.getType()))
        .arg(u8(command.getMotorBank()))
        .arg(command.getValue());
}
