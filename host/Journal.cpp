#include "Journal.h"

#include "CommandText.h"
#include "Instruction.h"
#include "ModuleLink.h"

Journal::Journal(const ModuleLink& link, QObject* parent) : QObject(parent)
{
    connect(&link, &ModuleLink::sent, this, [this] { ++m_sent; });
    connect(&link, &ModuleLink::answered, this,
            [this, &link](const Command& request, const Command& reply) {
                add({link.time(), request, reply, QString()});
            });
    connect(&link, &ModuleLink::gaveUp, this,
            [this, &link](const Command& request, const QString& reason) {
                add({link.time(), request, Command(), reason});
            });
}

void Journal::add(const Entry& entry)
{
    if (m_entries.size() == Capacity)
        m_entries.pop_front();
    m_entries.push_back(entry);
    emit added(entry);
}

bool Journal::Entry::isRoutine() const
{
    return reason.isEmpty() && isRead(request) && u8(reply.getStatus()) == StatusOk;
}

QString Journal::Entry::text() const
{
    return requestText(request) + QStringLiteral("   ->   ") +
           (reason.isEmpty() ? replyText(reply) : reason);
}
