#ifndef SYSINFO_H
#define SYSINFO_H

#include "AXRCoreExport.h"

#include <QString>

/// Facts about the machine.
class AXRCORE_EXPORT SysInfo
{
public:
    SysInfo() = delete;

    /// The processor's vendor text: vendor or implementer as the system names it, else the
    /// architecture. Never empty.
    static QString keyCentralProcessorVendorIdentifier();
};

#endif
