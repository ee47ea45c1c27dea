#ifndef GLOBAL_H
#define GLOBAL_H

#include "AXRCoreExport.h"

#include <QDateTime>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <mutex>

/// Process-wide registry of singletons and worker threads. The one object is made on first use,
/// belongs to the application's thread and lives as long as the process.
class AXRCORE_EXPORT Global : public QObject
{
    Q_OBJECT
public:
    /// A worker thread that announced itself.
    struct ThreadInfo {
        QString name;
        QDateTime started;
    };

    /// The one object. Safe from any thread; `parent` is ignored.
    static Global* instance(QObject* parent = nullptr);

    /// Registers an object under its object name; the last of a name counts. Null is ignored.
    void addSelf(QObject* object);
    /// The object registered under `name`; null if none or if it was destroyed.
    QObject* getSelf(const QString& name) const;

    /// Notes a running worker thread with its start time. Safe from any thread; the same id
    /// replaces.
    void registerThread(unsigned int threadId, const QString& name);
    /// Forgets the thread. Safe from any thread; an unknown id is ignored.
    void unregisterThread(unsigned int threadId);
    /// The threads that run now, by id. Safe from any thread. For the host.
    QMap<unsigned int, ThreadInfo> registeredThreads() const;

    /// True while the user has logging switched off for higher performance. Only stored here.
    bool debugEnabled = false;

private:
    Global();
    ~Global() override;

    mutable std::mutex m_mutex;
    QMap<QString, QPointer<QObject>> m_objects;
    QMap<unsigned int, ThreadInfo> m_threads;
};

#endif
