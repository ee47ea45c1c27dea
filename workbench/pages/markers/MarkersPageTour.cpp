#include "MarkersPage.h"

#include "MarkerItem.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QApplication>
#include <QGraphicsView>
#include <QLabel>

using namespace TourInput;

void MarkersPage::tour(TourGuide& guide)
{
    guide.showPage(QStringLiteral("markers"));
    QApplication::processEvents();
    const auto* view = guide.find<QGraphicsView>(this, "gvMarkers");
    const auto marker = [view](const QString& name) -> QGraphicsItem* {
        for (QGraphicsItem* item : view->items()) {
            if (item->type() == MarkerItem::Type && item->toGraphicsObject()->objectName() == name)
                return item;
        }
        qFatal("the plot has no marker %s", qPrintable(name));
    };
    const auto shown = [&](const char* label) { return guide.find<QLabel>(this, label)->text(); };
    const QGraphicsItem* time = marker(QStringLiteral("timeMarker"));
    const QGraphicsItem* velocity = marker(QStringLiteral("velocityMarker"));
    const QRectF plot = time->parentItem()->sceneBoundingRect();
    // One pixel of the view is about 2 ms. The ramp rises by 1 rpm in a millisecond.
    drag(view, QPointF(time->x(), plot.bottom() - 20), QPointF(plot.width() / 8, plot.top()));
    guide.expectNumber(
        QStringLiteral("drag the time marker to an eighth of the plot: its x"),
        [&] { return time->x(); }, plot.width() / 8, 1, 0);
    guide.expectNumber(
        QStringLiteral("... the time beside it [ms]"),
        [&] { return shown("lblTime").section(QLatin1Char(' '), 0, 0).toDouble(); }, 200, 3, 0);
    guide.expectNumber(
        QStringLiteral("... the velocity there [rpm]"),
        [&] { return shown("lblTime").section(QLatin1Char(' '), -2, -2).toDouble(); }, 200, 3, 0);
    drag(view, QPointF(plot.right() - 20, velocity->y()), plot.topLeft() - QPointF(0, 40));
    guide.expectText(
        QStringLiteral("drag the velocity marker beyond the top of the plot"),
        [&] { return shown("lblVelocity"); }, QStringLiteral("400 rpm"), 0);
    guide.check(QStringLiteral("... it stays at the edge"), QStringLiteral("0, 0"),
                QStringLiteral("%1, %2").arg(velocity->x()).arg(velocity->y()),
                velocity->pos() == plot.topLeft());
    drag(view, QPointF(plot.right() - 20, velocity->y()),
         QPointF(plot.right() - 20, plot.center().y()));
    guide.expectNumber(
        QStringLiteral("drag it to the middle of the plot [rpm]"),
        [&] { return shown("lblVelocity").section(QLatin1Char(' '), 0, 0).toDouble(); }, 200, 2, 0);
    guide.photograph(QStringLiteral("markers"));
    mouse(view->viewport(), QEvent::MouseButtonPress, view->mapFromScene(plot.bottomRight()));
    mouse(view->viewport(), QEvent::MouseButtonRelease, view->mapFromScene(plot.bottomRight()));
    guide.expectText(
        QStringLiteral("click the last note"), [&] { return shown("lblNote"); },
        QStringLiteral("The target is reached"), 0);
}
