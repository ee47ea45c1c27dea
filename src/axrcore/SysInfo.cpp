#include "SysInfo.h"

#include <QFile>
#include <QMap>
#include <QSysInfo>

QString SysInfo::keyCentralProcessorVendorIdentifier()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    QMap<QByteArray, QByteArray> facts; // of the first processor
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            const int colon = line.indexOf(':');
            const QByteArray key = line.left(colon).trimmed();
            if (colon > 0 && !facts.contains(key))
                facts.insert(key, line.mid(colon + 1).trimmed());
        }
    }
    for (const char* key : {"vendor_id", "CPU implementer"}) {
        if (!facts.value(key).isEmpty())
            return QString::fromLatin1(facts.value(key));
    }
    return QSysInfo::currentCpuArchitecture();
}
