#ifndef PREFIX_H
#define PREFIX_H

#include "AXRCoreExport.h"

#include <QString>

/// Keys that keep a QMap in the order of insertion.
class AXRCORE_EXPORT Prefix
{
public:
    Prefix() = delete;

    /// The index as ten digits with leading zeros (below 0 counts as 0), ":", and the name.
    static QString add(const QString& name, int index);

    /// The name of a key that add() made; any other key unchanged.
    static QString x(const QString& key);
};

#endif
