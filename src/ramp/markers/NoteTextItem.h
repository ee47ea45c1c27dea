#ifndef NOTETEXTITEM_H
#define NOTETEXTITEM_H

#include "AXRGuiExport.h"

#include <QGraphicsSimpleTextItem>

/// A badge: a short text, such as a letter, in a circle. Text and edge have the colour of the
/// brush. The circle is as large for every text: it begins where the bounding rectangle of "XXX" in
/// the item's font begins, which is above and left of the item's position, and its diameter is 1.3
/// times the greater side of that rectangle.
class AXRGUI_EXPORT NoteTextItem : public QGraphicsSimpleTextItem
{
public:
    using QGraphicsSimpleTextItem::QGraphicsSimpleTextItem;

    /// The circle, not the base class' text.
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    bool contains(const QPointF& point) const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

private:
    QRectF circle() const;
};

#endif
