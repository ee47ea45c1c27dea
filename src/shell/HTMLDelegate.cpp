#include "HTMLDelegate.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>
#include <QTextFrame>

namespace
{

void layOut(QTextDocument& document, const QStyleOptionViewItem& item)
{
    document.setDefaultTextOption(QTextOption(Qt::AlignCenter));
    document.setDefaultFont(item.font);
    document.setHtml(item.text);
    document.setTextWidth(item.rect.width());
}

void centreVertically(QTextDocument& document, int height)
{
    const qreal text = document.documentLayout()->blockBoundingRect(document.firstBlock()).height();
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setTopMargin(qMax(0, static_cast<int>((height - text) / 2)));
    document.rootFrame()->setFrameFormat(format);
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

    const int iconWidth = qMax(0, item.icon.actualSize(item.rect.size()).width());
    painter->translate(item.rect.left() + iconWidth, item.rect.top());
    painter->setClipRect(QRect(0, 0, item.rect.width() + iconWidth, item.rect.height()));

    QAbstractTextDocumentLayout::PaintContext context;
    const bool selected = item.state & QStyle::State_Selected;
    context.palette.setColor(QPalette::Text,
                             selected ? QColor(QStringLiteral("red"))
                                      : option.palette.color(QPalette::Active, QPalette::Text));
    context.cursorPosition = -1;
    document.documentLayout()->draw(painter, context);
    painter->restore();
}

QSize HTMLDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    QTextDocument document;
    document.setDocumentMargin(0);
    layOut(document, item);
    return QSize(static_cast<int>(document.idealWidth()),
                 static_cast<int>(document.size().height()));
}
