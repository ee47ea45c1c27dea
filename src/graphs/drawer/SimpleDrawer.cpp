#include "SimpleDrawer.h"

#include "DrawerArea.h"
#include "Numbers.h"

#include <QScrollBar>
#include <QVBoxLayout>

SimpleDrawer::SimpleDrawer(QWidget* parent) : DrawerPanel(parent)
{
    auto* area = new DrawerArea(this);
    area->setObjectName(QStringLiteral("drawerArea"));
    auto* bar = new QScrollBar(Qt::Horizontal, this);
    bar->setObjectName(QStringLiteral("scrollBar"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    layout->addWidget(bar);
    setUp(area, bar);
    setChartSize(1000);
}

void SimpleDrawer::setChartSize(int size) { setSizes(size, toInt(qint64(size) - 1)); }
