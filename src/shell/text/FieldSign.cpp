#include "FieldSign_p.h"

#include <QPainter>
#include <QVector>

namespace
{

using Stroke = QVector<QPointF>; // in a square of 10 by 10

constexpr double Units = 10.0;
constexpr double PenWidth = 1.4; // in those units

struct Badge {
    QColor ground;
    QColor ink;
    QVector<Stroke> glyph;
};

Badge badgeOf(FieldSign sign)
{
    switch (sign) {
    case FieldSign::Pending: // the arrow of the Return key
        return {"gold",
                "navy",
                {{{7.5, 2.5}, {7.5, 5.5}, {2.5, 5.5}}, {{4.5, 3.5}, {2.5, 5.5}, {4.5, 7.5}}}};
    case FieldSign::Overwritten: // arrives from above
        return {"navy", "white", {{{5, 2}, {5, 7.5}}, {{2.5, 5}, {5, 7.5}, {7.5, 5}}}};
    case FieldSign::Cut: // three dots
        return {"white", "black", {{{2.2, 6}, {2.3, 6}}, {{5, 6}, {5.1, 6}}, {{7.7, 6}, {7.8, 6}}}};
    case FieldSign::Outside: // exclamation mark
        return {"crimson", "white", {{{5, 2}, {5, 5.5}}, {{5, 7.7}, {5, 7.8}}}};
    case FieldSign::Less:
        return {"darkorange", "black", {{{6.5, 2.5}, {3, 5}, {6.5, 7.5}}}};
    case FieldSign::More:
        return {"darkorange", "black", {{{3.5, 2.5}, {7, 5}, {3.5, 7.5}}}};
    case FieldSign::None:
        break;
    }
    return {};
}

} // namespace

void paintFieldSign(QPainter& painter, const QRect& badge, FieldSign sign)
{
    if (sign == FieldSign::None)
        return;
    const Badge looks = badgeOf(sign);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(badge.topLeft());
    painter.scale(badge.width() / Units, badge.height() / Units);
    painter.setPen(QPen(looks.ink, Units / badge.width())); // one pixel
    painter.setBrush(looks.ground);
    painter.drawRoundedRect(QRectF(0.5, 0.5, Units - 1, Units - 1), 1.5, 1.5);
    painter.setPen(QPen(looks.ink, PenWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    for (const Stroke& stroke : looks.glyph)
        painter.drawPolyline(stroke.constData(), stroke.size());
    painter.restore();
}
