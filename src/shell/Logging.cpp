#include "Logging.h"

Q_LOGGING_CATEGORY(axrShell, "axr.shell")
