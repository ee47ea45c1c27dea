#ifndef OBSOLETEMARKERITEM_H
#define OBSOLETEMARKERITEM_H

#include "AXRGuiExport.h"

#include <QFont>
#include <QGraphicsObject>
#include <QPen>

/// The earlier form of MarkerItem, for the load chart; elsewhere MarkerItem is the one to take. Its
/// z value is 313.13.
///
/// A movable vertical one stays within its parent's bounding rectangle, or without a parent within
/// the scene's, with its top at the top of its area. A horizontal one goes anywhere and does not
/// tell of it.
class AXRGUI_EXPORT ObsoleteMarkerItem : public QGraphicsObject
{
    Q_OBJECT
public:
    /// `font`, `pen` and `size` are copied and stay as they are.
    /// \param size of the area that the line spans
    /// \param movable also makes it selectable
    ObsoleteMarkerItem(bool vertical, const QString& text, QFont& font, QPen& pen, QSizeF& size,
                       bool movable, QGraphicsItem* parent = nullptr);

    QRectF boundingRect() const override { return m_rect; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

Q_SIGNALS:
    /// A movable vertical marker has moved. It must not be deleted in here.
    /// \param posx place of the line as a part of the area's width, 0 for an area without width
    /// \param value sum of all drags, 0..width of the room
    void newPos(qreal posx, qreal value);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    QString m_text;
    QPen m_pen;
    QRectF m_rect;
    QSizeF m_size;
    bool m_vertical;
    double m_dragOffset = 0.0;
    QFont m_font;
};

#endif
