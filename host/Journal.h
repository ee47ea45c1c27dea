#ifndef JOURNAL_H
#define JOURNAL_H

#include "Command.h"

#include <QObject>

#include <deque>

class ModuleLink;

/// What went over a link: each request with its end, in the order of the ends.
class Journal : public QObject
{
    Q_OBJECT
public:
    struct Entry {
        qint64 time; ///< Of the end, in ms since the epoch.
        Command request;
        Command reply;  ///< When it was answered.
        QString reason; ///< Why it was given up; empty when it was answered.

        /// A read that succeeded.
        bool isRoutine() const;
        /// "SAP 4 = 250, axis 0   ->   value 250, status 100 (ok)"
        QString text() const;
    };
    static constexpr int Capacity = 1000; ///< The oldest entries go.

    explicit Journal(const ModuleLink& link, QObject* parent = nullptr);

    const std::deque<Entry>& entries() const { return m_entries; }
    /// Requests that left since the start, each try for itself.
    int sent() const { return m_sent; }

Q_SIGNALS:
    void added(const Journal::Entry& entry);

private:
    void add(const Entry& entry);

    std::deque<Entry> m_entries;
    int m_sent = 0;
};

#endif
