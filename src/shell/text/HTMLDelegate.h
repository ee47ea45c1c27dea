#ifndef HTMLDELEGATE_H
#define HTMLDELEGATE_H

#include "AXRGuiExport.h"

#include <QStyledItemDelegate>

/// Draws the text of an item as HTML, centred in both directions beside its icon, in the colour of
/// Qt::ForegroundRole or else the view's; a selected item's text is red, a disabled one's as the
/// view draws disabled texts. All text is read as HTML: "<rpm>" is a tag and shows nothing, a bare
/// "<" or "&" may swallow what follows. A text from elsewhere takes QString::toHtmlEscaped().
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
