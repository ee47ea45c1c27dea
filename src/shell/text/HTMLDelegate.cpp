#include "HTMLDelegate.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>
#include <QTextFrame>

namespace
{

int iconWidth(const QStyleOptionViewItem& item)
{
    return qMax(0, item.icon.actualSize(item.decorationSize).width());
}

/// In the width of the item; where it would not all be seen beside the icon then, in what is left.
void layOut(QTextDocument& document, const QStyleOptionViewItem& item)
{
    document.setDocumentMargin(0);
    document.setDefaultTextOption(QTextOption(Qt::AlignCenter));
    document.setDefaultFont(item.font);
    document.setHtml(item.text);
    const int width = item.rect.width();
    document.setTextWidth(width);
    if (document.idealWidth() > width - 2 * iconWidth(item)) // its right half moves by the icon
        document.setTextWidth(qMax(0, width - iconWidth(item)));
}

void centreVertically(QTextDocument& document, int height)
{
    const qreal text = document.documentLayout()->blockBoundingRect(document.firstBlock()).height();
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setTopMargin(qMax(0, static_cast<int>((height - text) / 2)));
    document.rootFrame()->setFrameFormat(format);
}

QColor textColour(const QStyleOptionViewItem& item)
{
    if (!(item.state & QStyle::State_Enabled))
        return item.palette.color(QPalette::Disabled, QPalette::Text);
    if (item.state & QStyle::State_Selected)
        return QStringLiteral("red");
    return item.palette.color(QPalette::Active, QPalette::Text);
}

} // namespace

HTMLDelegate::HTMLDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void HTMLDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);

    painter->save();
    QTextDocument document;
    layOut(document, item);
    centreVertically(document, item.rect.height());

    item.text.clear();
    const QStyle* style = item.widget ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    painter->translate(item.rect.left() + iconWidth(item), item.rect.top());
    painter->setClipRect(QRectF(0, 0, document.textWidth(), item.rect.height()));

    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, textColour(item));
    context.cursorPosition = -1;
    document.documentLayout()->draw(painter, context);
    painter->restore();
}

QSize HTMLDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    QTextDocument document;
    layOut(document, item);
    QSize hint(static_cast<int>(document.idealWidth()), static_cast<int>(document.size().height()));
    if (!item.icon.isNull()) {
        const QStyle* style = item.widget ? item.widget->style() : QApplication::style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
        hint.rwidth() += iconWidth(item) + 2 * margin; // the style's, round the icon
    }
    return hint;
}
