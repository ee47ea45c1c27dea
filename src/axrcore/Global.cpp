#include "Global.h"

#include <QCoreApplication>

Global::Global()
{
    if (QCoreApplication* app = QCoreApplication::instance())
        moveToThread(app->thread());
}

Global::~Global() = default;

Global* Global::instance(QObject* parent)
{
    Q_UNUSED(parent)
    // Never destroyed: threads and destructors of statics may still come by at exit.
    static Global* const global = new Global;
    return global;
}

void Global::addSelf(QObject* object)
{
    if (!object)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_objects.insert(object->objectName(), object);
}

QObject* Global::getSelf(const QString& name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_objects.value(name);
}

void Global::registerThread(unsigned int threadId, const QString& name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_threads.insert(threadId, {name, QDateTime::currentDateTime()});
}

void Global::unregisterThread(unsigned int threadId)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_threads.remove(threadId);
}

QMap<unsigned int, Global::ThreadInfo> Global::registeredThreads() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_threads;
}
