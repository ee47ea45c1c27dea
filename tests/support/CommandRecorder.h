#ifndef COMMANDRECORDER_H
#define COMMANDRECORDER_H

#include "Command.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <functional>

/// Records the commands that a panel sends. Each is copied during the emission, for the pointer
/// is dead afterwards.
class CommandRecorder : public QObject
{
    Q_OBJECT
public:
    /// Connects to the panel's OUT_requestValue(Command*).
    explicit CommandRecorder(QObject* panel);

    const QVector<Command>& commands() const { return m_commands; }

    /// The commands since the last call, each as "address command type bank value", unsigned bytes.
    QStringList takeLines();

    /// Called inside each emission after recording, as a host that answers at once.
    void onCommand(std::function<void(const Command&)> reaction)
    {
        m_reaction = std::move(reaction);
    }

public Q_SLOTS:
    void record(Command* command);

private:
    QVector<Command> m_commands;
    std::function<void(const Command&)> m_reaction;
};

/// A valid reply with status 100.
Command reply(int address, int command, int type, int motorBank, int value);

/// "address command type bank value", bytes unsigned.
QString line(const Command& command);

#endif
