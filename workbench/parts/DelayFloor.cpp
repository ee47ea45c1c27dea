#include "DelayFloor.h"

#include "PanelParts.h"

#include <QScopedValueRollback>
#include <QSpinBox>

DelayFloor::DelayFloor(QWidget* controller)
    : QObject(controller), m_box(PanelParts::delayBox(*controller)), m_wanted(m_box->value())
{
    connect(m_box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int delay) {
        if (!m_isFollowing)
            m_wanted = delay;
    });
}

void DelayFloor::follow(int answerTime)
{
    if (answerTime == m_least)
        return; // a box that is told its range anew ends the repeat of its arrows
    m_least = answerTime;
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_box->setMinimum(answerTime);
    m_box->setValue(qMax(m_wanted, answerTime));
}
