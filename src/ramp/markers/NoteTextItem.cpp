#include "NoteTextItem.h"

#include "MarkerParts_p.h"

#include <QFontMetricsF>
#include <QPainterPath>

QRectF NoteTextItem::circle() const
{
    constexpr double Roundness = 1.3;
    const QRectF text = QFontMetricsF(font()).boundingRect(QStringLiteral("XXX"));
    const double diameter = qMax(text.width(), text.height()) * Roundness;
    return QRectF(text.topLeft(), QSizeF(diameter, diameter));
}

QRectF NoteTextItem::boundingRect() const
{
    constexpr double HalfPen = 0.5;
    return circle().adjusted(-HalfPen, -HalfPen, HalfPen, HalfPen);
}

QPainterPath NoteTextItem::shape() const
{
    QPainterPath path;
    path.addEllipse(circle());
    return path;
}

bool NoteTextItem::contains(const QPointF& point) const { return QGraphicsItem::contains(point); }

void NoteTextItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRectF place = circle();
    painter->setPen(brush().color());
    painter->setBrush(markerFill());
    painter->setFont(font());
    painter->drawEllipse(place);
    painter->drawText(place, Qt::AlignCenter, text());
}
