#include "NoteItem.h"

#include "MarkerParts_p.h"

#include <QStyleOptionGraphicsItem>

namespace
{

constexpr QRectF Circle(0, -2.5, 14, 14);
constexpr double HoveredWidth = 2.9;
constexpr double SelectedWidth = 2.4;

double edgeWidth(QStyle::State state)
{
    if (state & QStyle::State_MouseOver)
        return HoveredWidth;
    return state & QStyle::State_Selected ? SelectedWidth : 1.0;
}

} // namespace

NoteItem::NoteItem(QString name) : QGraphicsEllipseItem(Circle), m_name(name)
{
    setFlags(ItemIsSelectable | ItemIsFocusable);
    setAcceptHoverEvents(true);
    setToolTip(QStringLiteral("<html style=\"white-space:nowrap\">%1</html>").arg(name));
    setPen(QPen(Qt::black, HoveredWidth)); // not drawn: what the bounds leave room for
}

void NoteItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    painter->setPen(QPen(brush().color(), edgeWidth(option->state), Qt::SolidLine, Qt::SquareCap,
                         Qt::BevelJoin));
    painter->setBrush(markerFill());
    painter->drawEllipse(rect());
}

void NoteItem::hoverEnterEvent(QGraphicsSceneHoverEvent*) { update(); }

void NoteItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*) { update(); }
