#include "SignalLog.h"

#include "CommandRecorder.h"
#include "TraceCommand.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

namespace
{

QString text(int type, const void* value)
{
    const QByteArray name = QMetaType::typeName(type);
    if (type == QMetaType::Char)
        return QString::number(quint8(*static_cast<const char*>(value)));
    if (name == "Command")
        return line(*static_cast<const Command*>(value));
    if (name == "Command*")
        return line(**static_cast<Command* const*>(value));
    if (name == "TraceCommand*") {
        const TraceCommand* command = *static_cast<TraceCommand* const*>(value);
        return command ? command->getCaption() : QStringLiteral("null");
    }
    return QVariant(type, value).toString();
}

} // namespace

SignalLog::SignalLog(QObject* sender, const QStringList& names)
{
    // A pointer that is not registered would come without its type.
    qRegisterMetaType<Command>("Command");
    qRegisterMetaType<Command*>("Command*");
    qRegisterMetaType<TraceCommand*>("TraceCommand*");
    const QMetaObject* meta = sender->metaObject();
    const QMetaObject* last =
        sender->isWidgetType() ? &QWidget::staticMetaObject : &QObject::staticMetaObject;
    for (int i = last->methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal ||
            (!names.isEmpty() && !names.contains(QString::fromLatin1(method.name()))))
            continue;
        QMetaObject::connect(sender, i, this,
                             QObject::staticMetaObject.methodCount() + m_signals.size(),
                             Qt::DirectConnection);
        m_signals << method;
    }
}

QStringList SignalLog::takeLines() { return std::exchange(m_lines, {}); }

void SignalLog::onSignal(std::function<void(const QString&)> reaction)
{
    m_reaction = std::move(reaction);
}

int SignalLog::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod || id >= m_signals.size())
        return id;
    const QMetaMethod signal = m_signals.at(id);
    QString entry = QString::fromLatin1(signal.name());
    for (int i = 0; i < signal.parameterCount(); ++i)
        entry += ' ' + text(signal.parameterType(i), arguments[i + 1]);
    m_lines << entry;
    if (m_reaction)
        m_reaction(entry);
    return -1;
}

bool endsInside(QObject* object, const QString& signal, const std::function<void()>& gesture)
{
    const QPointer<QObject> doomed(object);
    SignalLog log(object, {signal.section('(', 0, 0)});
    bool isOver = false; // an object may have more to say while it ends
    log.onSignal([&](const QString&) {
        if (!std::exchange(isOver, true))
            delete doomed.data();
    });
    gesture();
    return doomed.isNull() && !log.takeLines().isEmpty();
}
