#include "GraphMenu_p.h"

GraphMenu::GraphMenu(const GraphScene::Look& look, bool offersSelection, QWidget* parent)
    : QMenu(parent)
{
    m_boldDots = addSwitch(tr("Bold points"), tr("paint bolded points"), look.hasBoldDots);
    m_dotsOnly =
        addSwitch(tr("Points only"), tr("don't paint lines between points"), !look.hasLines);
    m_markers = addSwitch(tr("Show min/max marker"),
                          tr("display range of minimum and maximum values"), look.hasMarkers);
    addSeparator();
    m_select = offersSelection ? addEntry(tr("Select items ..."), tr("add given value to graph"))
                               : nullptr;
}

GraphScene::Look GraphMenu::chosen(const QAction* entry, GraphScene::Look look) const
{
    if (entry == m_boldDots)
        look.hasBoldDots = entry->isChecked();
    else if (entry == m_dotsOnly)
        look.hasLines = !entry->isChecked();
    else if (entry == m_markers)
        look.hasMarkers = entry->isChecked();
    return look;
}

QAction* GraphMenu::addEntry(const QString& text, const QString& statusTip)
{
    QAction* entry = addAction(text);
    entry->setStatusTip(statusTip);
    return entry;
}

QAction* GraphMenu::addSwitch(const QString& text, const QString& statusTip, bool isOn)
{
    QAction* entry = addEntry(text, statusTip);
    entry->setCheckable(true);
    entry->setChecked(isOn);
    return entry;
}
