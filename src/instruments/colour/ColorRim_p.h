#ifndef COLORRIM_P_H
#define COLORRIM_P_H

#include "ColorTone_p.h"

#include <QPainter>
#include <QWidget>

/// The sign of a state at a widget's edge, which its colours leave free: a frame for the focus, dim
/// dots for disabled. In black or white, for in some looks the palette's text is lost on a button.
/// \param ground what the edge is filled with
inline void drawRim(QPainter& painter, const QWidget& widget, const QColor& ground)
{
    constexpr int Dim = 128; // of 255
    if (widget.isEnabled() && !widget.hasFocus())
        return;
    QColor ink = contrastTo(ground);
    if (!widget.isEnabled())
        ink.setAlpha(Dim);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 0, widget.isEnabled() ? Qt::SolidLine : Qt::DotLine));
    painter.drawRect(widget.rect().adjusted(0, 0, -1, -1));
}

#endif
