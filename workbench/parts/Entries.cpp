#include "Entries.h"

#include "SpinBox.h"

bool Entries::isPending(const SpinBox& box)
{
    // The box counts digits as its value when the entry ends, so its text is asked.
    bool isNumber = false;
    const double shown = box.cleanText().remove(QLatin1Char(',')).toDouble(&isNumber);
    return !isNumber || shown != box.lastValue();
}
