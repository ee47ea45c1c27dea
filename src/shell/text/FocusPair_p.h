#ifndef FOCUSPAIR_P_H
#define FOCUSPAIR_P_H

#include <QPointer>
#include <QWidget>

/// Stands round the lines that enable one of two buttons and disable the other, such as Start and
/// Stop: the keyboard focus goes along if one of them had it. By itself Qt would hand it to the
/// next widget that takes keys, for the first button is disabled before the second is enabled, and
/// the second press of Space would hit that one.
class FocusPair
{
public:
    FocusPair(QWidget* first, QWidget* second)
    {
        QWidget* focused = first->window()->focusWidget();
        if (focused != first && focused != second)
            return;
        m_holder = focused;
        m_other = focused == first ? second : first;
        focused->clearFocus(); // so that no third widget has it in between
    }
    FocusPair(const FocusPair&) = delete;
    FocusPair& operator=(const FocusPair&) = delete;

    ~FocusPair()
    {
        for (QWidget* widget : {m_other.data(), m_holder.data()}) {
            if (!widget || !widget->isEnabled())
                continue;
            widget->setFocus();
            return;
        }
    }

private:
    QPointer<QWidget> m_holder;
    QPointer<QWidget> m_other;
};

#endif
