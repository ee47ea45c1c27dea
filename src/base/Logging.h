#ifndef LOGGING_H
#define LOGGING_H

#include <QLoggingCategory>

/// One category for each folder, "axr.<folder>", so that a host switches them in one rule.
Q_DECLARE_LOGGING_CATEGORY(axrGraphs)
Q_DECLARE_LOGGING_CATEGORY(axrInstruments)
Q_DECLARE_LOGGING_CATEGORY(axrLinks)
Q_DECLARE_LOGGING_CATEGORY(axrRamp)
Q_DECLARE_LOGGING_CATEGORY(axrRamDebug)
Q_DECLARE_LOGGING_CATEGORY(axrRegisters)
Q_DECLARE_LOGGING_CATEGORY(axrShell)

#endif
