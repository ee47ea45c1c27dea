#ifndef COMMANDHANDLERINTERFACE_H
#define COMMANDHANDLERINTERFACE_H

#include "AXRCommExport.h"

#include <QObject>

class Command;

/// The host's object that carries commands to a module. Widgets hold it by plain pointer and do
/// not own it. Derive from it; the bodies here are those of a host without a link.
class AXRCOMM_EXPORT CommandHandlerInterface : public QObject
{
    Q_OBJECT
public:
    explicit CommandHandlerInterface(QObject* parent = nullptr);
    ~CommandHandlerInterface() override;

    /// Sends the request, waits for the answer and returns with `reply` filled. The handler owns
    /// `request`, which was made with new; `reply` stays the caller's. Here: deletes the request
    /// and leaves the reply invalid.
    virtual void doDirectRequest(Command* request, Command* reply);

public Q_SLOTS:
    /// Switches one class of entries of the host's command history; the object name of sender()
    /// tells which. Here: does nothing.
    virtual void setHistoryNameEnabled(bool enabled);
};

#endif
