#ifndef SIMPLEDRAWER_H
#define SIMPLEDRAWER_H

#include "DrawerPanel.h"

/// Charts in a DrawerArea, and a scroll bar beneath.
class AXRGUI_EXPORT SimpleDrawer : public DrawerPanel
{
    Q_OBJECT
public:
    explicit SimpleDrawer(QWidget* parent = nullptr);

    /// How many samples each chart keeps, 1000 by default. The scroll bar goes to its new end,
    /// which is -1 for a size of 0.
    void setChartSize(int size);
};

#endif
