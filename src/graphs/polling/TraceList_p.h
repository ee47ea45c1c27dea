#ifndef TRACELIST_P_H
#define TRACELIST_P_H

#include <QList>

class TraceCommand;

/// The trace commands of a controller, walked round and round. They belong to the host, which may
/// change the list by its pointer at any time. Null entries are passed over.
class TraceList
{
public:
    QList<TraceCommand*>* commands() { return &m_commands; }

    /// The first entry that describes the same value, whatever its caption; null when there is
    /// none.
    TraceCommand* find(const TraceCommand& wanted) const;

    /// The entry whose turn it is; null for an empty list. Only looked at when it is asked for, so
    /// the list may shrink or grow in between.
    TraceCommand* next();

private:
    QList<TraceCommand*> m_commands;
    int m_index = 0;
};

#endif
