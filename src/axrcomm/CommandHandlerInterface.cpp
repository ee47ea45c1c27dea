#include "CommandHandlerInterface.h"

#include "Command.h"

CommandHandlerInterface::CommandHandlerInterface(QObject* parent) : QObject(parent) {}

CommandHandlerInterface::~CommandHandlerInterface() = default;

void CommandHandlerInterface::doDirectRequest(Command* request, Command* reply)
{
    Q_UNUSED(reply)
    delete request;
}

void CommandHandlerInterface::setHistoryNameEnabled(bool enabled) { Q_UNUSED(enabled) }
