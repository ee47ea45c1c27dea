#ifndef GRAPHMENU_P_H
#define GRAPHMENU_P_H

#include "GraphScene_p.h"

#include <QCoreApplication>
#include <QMenu>

/// The context menu of a live graph: switches of the look, and perhaps the way to the selection.
class GraphMenu : public QMenu
{
    Q_DECLARE_TR_FUNCTIONS(ValueOverTimeGraph)
public:
    GraphMenu(const GraphScene::Look& look, bool offersSelection, QWidget* parent);

    /// The look with the switch of the chosen entry as it is now; what changed meanwhile stays.
    GraphScene::Look chosen(const QAction* entry, GraphScene::Look look) const;
    /// Whether this is the entry that asks for other curves; never for null.
    bool isSelection(const QAction* entry) const { return entry && entry == m_select; }

private:
    QAction* addEntry(const QString& text, const QString& statusTip);
    QAction* addSwitch(const QString& text, const QString& statusTip, bool isOn);

    QAction* m_boldDots;
    QAction* m_dotsOnly;
    QAction* m_markers;
    QAction* m_select;
};

#endif
