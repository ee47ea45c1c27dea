#ifndef WIRE_H
#define WIRE_H

#include "Command.h"

#include <QObject>

/// What carries requests to a module and its replies back. It knows no order, no time-out and no
/// repetition: those are the link's.
class Wire : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// False when it cannot be opened; lost() has told why. True on an open wire.
    virtual bool open() = 0;
    /// Nothing is received afterwards.
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    /// Returns at once. Ignored while closed.
    virtual void send(const Command& request) = 0;

Q_SIGNALS:
    /// Any reply that came, also a late, doubled or foreign one.
    void received(const Command& reply);
    /// The wire could not be opened, or has closed by itself.
    void lost(const QString& reason);
};

#endif
