#ifndef COMMANDTEXT_H
#define COMMANDTEXT_H

#include <QString>

class Command;

/// Whether the request only asks.
bool isRead(const Command& request);

/// A request as an engineer writes it: "SAP 4 = 250, axis 0".
QString requestText(const Command& request);

/// A reply: "value 250, status 100 (ok)".
QString replyText(const Command& reply);

#endif
