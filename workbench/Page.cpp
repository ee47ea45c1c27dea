#include "Page.h"

#include <QLabel>
#include <QPushButton>

void Page::letGrow(QWidget* panel)
{
    const QSize any(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    panel->setMaximumSize(any);
    for (QLabel* label : panel->findChildren<QLabel*>())
        label->setMaximumSize(any);
    for (QPushButton* button : panel->findChildren<QPushButton*>())
        button->setMaximumSize(any);
}
