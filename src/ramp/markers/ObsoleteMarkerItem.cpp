#include "ObsoleteMarkerItem.h"

#include "MarkerParts_p.h"

#include <QFontMetricsF>

namespace
{
constexpr double AboveTheRest = 313.13;
}

ObsoleteMarkerItem::ObsoleteMarkerItem(bool vertical, const QString& text, QFont& font, QPen& pen,
                                       QSizeF& size, bool movable, QGraphicsItem* parent)
    : QGraphicsObject(parent)
    , m_text(text)
    , m_pen(pen)
    , m_size(size)
    , m_vertical(vertical)
    , m_font(font)
{
    setMarkerMovable(this, movable);
    setZValue(AboveTheRest);
    const QFontMetricsF metrics(font);
    const double height = metrics.height();
    if (vertical)
        m_rect = QRectF(0, -height / 2, metrics.horizontalAdvance(text + QLatin1Char('|')),
                        height + size.height());
    else
        m_rect = QRectF(0, -1.5 * height, size.width(), 3 * height);
}

void ObsoleteMarkerItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (isSelected())
        drawMarkerSelection(painter, m_rect, m_pen.color(), 0);
    painter->setPen(m_pen);
    painter->setFont(m_font);
    painter->drawText(m_rect, m_vertical ? Qt::AlignHCenter : Qt::AlignRight, m_text);
    const QPointF center = m_rect.center();
    if (m_vertical)
        painter->drawLine(QPointF(center.x(), m_rect.bottom()),
                          QPointF(center.x(), m_rect.bottom() - m_size.height()));
    else
        painter->drawLine(QPointF(0, center.y()), QPointF(m_size.width(), center.y()));
}

QVariant ObsoleteMarkerItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (m_vertical && change == ItemPositionChange && hasRoom(this)) {
        const QRectF room = roomOf(this);
        const QPointF point = value.toPointF();
        if (!room.contains(point) || point.y() != m_rect.y()) {
            m_dragOffset = qBound(0.0, m_dragOffset + point.x() - x(), room.width());
            return QPointF(qBound(room.left(), point.x(), room.right()), m_rect.y());
        }
    } else if (m_vertical && change == ItemPositionHasChanged) {
        const double width = m_size.width();
        emit newPos(width == 0.0 ? 0.0 : (m_rect.center().x() + x()) / width, m_dragOffset);
    }
    return QGraphicsObject::itemChange(change, value);
}
