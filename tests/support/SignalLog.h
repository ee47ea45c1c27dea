#ifndef SIGNALLOG_H
#define SIGNALLOG_H

#include <QMetaMethod>
#include <QStringList>
#include <QVector>

#include <functional>

/// Writes down the signals of an object as they come, all that its class and those above it up to
/// QObject or QWidget declare, each as "name argument argument". Numbers of type char are printed
/// unsigned, a Command or TraceCommand by its fields, texts as they are.
class SignalLog : public QObject
{
public:
    /// \param names only these signals; all when empty
    explicit SignalLog(QObject* sender, const QStringList& names = {});

    /// The lines since the last call.
    QStringList takeLines();
    /// Called inside each emission after it was written down, with its line.
    void onSignal(std::function<void(const QString&)> reaction);

    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

private:
    QVector<QMetaMethod> m_signals;
    QStringList m_lines;
    std::function<void(const QString&)> m_reaction;
};

/// Does the gesture with a host that deletes the object inside the first emission of the signal
/// ("valueChanged(int)"), and says whether that came and the object is gone.
bool endsInside(QObject* object, const QString& signal, const std::function<void()>& gesture);

#endif
