#include "Entries.h"

#include "SpinBox.h"

void Entries::actAtTheirEnd(const QWidget* panel, const QStringList& boxes)
{
    const QList<QSpinBox*> all = panel->findChildren<QSpinBox*>();
    for (QSpinBox* box : all) {
        if (boxes.contains(box->objectName()))
            box->setKeyboardTracking(false);
    }
}

bool Entries::isPending(const SpinBox& box)
{
    // The box counts digits as its value when the entry ends, so its text is asked.
    bool isNumber = false;
    const double shown = box.cleanText().remove(QLatin1Char(',')).toDouble(&isNumber);
    return !isNumber || shown != box.lastValue();
}
