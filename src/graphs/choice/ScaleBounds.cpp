#include "ScaleBounds_p.h"

#include <QPointer>
#include <QSpinBox>

ScaleBounds::ScaleBounds(QSpinBox* minimum, QSpinBox* maximum)
    : m_minimum(minimum), m_maximum(maximum)
{
    const auto changed = QOverload<int>::of(&QSpinBox::valueChanged);
    QObject::connect(minimum, changed, maximum, &QSpinBox::setMinimum);
    QObject::connect(maximum, changed, minimum, &QSpinBox::setMaximum);
}

void ScaleBounds::setManual(bool manual)
{
    m_maximum->setEnabled(manual);
    if (m_hasMinimum)
        m_minimum->setEnabled(manual);
}

void ScaleBounds::setMinimumEnabled(bool enabled)
{
    m_hasMinimum = enabled;
    m_minimum->setEnabled(enabled);
}

void ScaleBounds::show(int minimum, int maximum)
{
    // Mostly the same, 25 times a second; a box that takes its value again sets its text anew, too.
    const auto set = [](QSpinBox* box, int value) {
        if (value != box->value() || box->isEnabled())
            box->setValue(value);
    };
    const QPointer<QSpinBox> second(m_maximum);
    set(m_minimum, minimum);
    if (second)
        set(second, maximum);
}
