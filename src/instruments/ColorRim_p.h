#ifndef COLORRIM_P_H
#define COLORRIM_P_H

#include <QPainter>
#include <QWidget>

/// The sign of a state at a widget's edge, which its colours leave free: a frame for the focus,
/// dots for disabled.
inline void drawRim(QPainter& painter, const QWidget& widget, QPalette::ColorRole ink)
{
    if (widget.isEnabled() && !widget.hasFocus())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(widget.palette().color(ink), 0, widget.isEnabled() ? Qt::SolidLine : Qt::DotLine));
    painter.drawRect(widget.rect().adjusted(0, 0, -1, -1));
}

#endif
