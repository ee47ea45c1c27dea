#include "Global.h"

#include <QCoreApplication>
#include <QMutex>
#include <QPointer>

struct Global::Data {
    mutable QMutex mutex;
    QMap<QString, QPointer<QObject>> objects;
    QMap<unsigned int, ThreadInfo> threads;
};

Global::Global() : m_data(std::make_unique<Data>())
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
    QMutexLocker lock(&m_data->mutex);
    m_data->objects.insert(object->objectName(), object);
}

QObject* Global::getSelf(const QString& name) const
{
    QMutexLocker lock(&m_data->mutex);
    return m_data->objects.value(name);
}

void Global::registerThread(unsigned int threadId, const QString& name)
{
    QMutexLocker lock(&m_data->mutex);
    m_data->threads.insert(threadId, {name, QDateTime::currentDateTime()});
}

void Global::unregisterThread(unsigned int threadId)
{
    QMutexLocker lock(&m_data->mutex);
    m_data->threads.remove(threadId);
}

QMap<unsigned int, Global::ThreadInfo> Global::registeredThreads() const
{
    QMutexLocker lock(&m_data->mutex);
    return m_data->threads;
}
