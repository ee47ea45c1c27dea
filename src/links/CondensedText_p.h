#ifndef CONDENSEDTEXT_P_H
#define CONDENSEDTEXT_P_H

#include "RoomForText_p.h"

/// Narrows the letters of a widget, for captions that would not fit into their fixed width in a
/// wide font. The fixed width gives way to a larger font. Lasts when the application's font or
/// style sheet changes.
inline void condenseText(QWidget* widget)
{
    new RoomForText(widget);
    QFont font = widget->font();
    font.setStretch(QFont::Condensed);
    widget->setFont(font);
}

#endif
