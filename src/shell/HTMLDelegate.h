#ifndef HTMLDELEGATE_H
#define HTMLDELEGATE_H

#include "AXRGuiExport.h"

#include <QStyledItemDelegate>

/// Draws the text of an item as HTML, centred in both directions; a selected item's text is red.
class AXRGUI_EXPORT HTMLDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit HTMLDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

#endif
