#include "Logging.h"

Q_LOGGING_CATEGORY(axrGraphs, "axr.graphs")
Q_LOGGING_CATEGORY(axrInstruments, "axr.instruments")
Q_LOGGING_CATEGORY(axrLinks, "axr.links")
Q_LOGGING_CATEGORY(axrRamp, "axr.ramp")
Q_LOGGING_CATEGORY(axrRamDebug, "axr.ramdebug")
Q_LOGGING_CATEGORY(axrRegisters, "axr.registers")
Q_LOGGING_CATEGORY(axrShell, "axr.shell")
