#ifndef SYSINFOOBJECT_H
#define SYSINFOOBJECT_H

#include "AXRCoreExport.h"

#include <QObject>
#include <QString>

/// The application-wide source of link statistics. The host emits its signals. The one object is
/// made on first use, belongs to the application's thread and lives as long as the process.
class AXRCORE_EXPORT SysInfoObject : public QObject
{
    Q_OBJECT
public:
    /// Safe from any thread.
    static SysInfoObject* instance();

Q_SIGNALS:
    /// A communication port came up.
    void comAdded(QString port);
    /// Traffic of one interval: replies received in so many milliseconds.
    void rxUpdate(QString port, int replies, int milliseconds);

private:
    SysInfoObject();
};

#endif
