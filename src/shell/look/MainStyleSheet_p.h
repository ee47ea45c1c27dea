#ifndef MAINSTYLESHEET_P_H
#define MAINSTYLESHEET_P_H

#include <QString>

class QColor;

/// The application sheet of the dark blue look. Its order counts: of rules of one weight the later
/// wins.
/// \param scrollBars the rules of scroll bars, which have their place among the others
QString mainStyleSheet(const QString& scrollBars);

/// How that sheet begins. Of the rest a host may take rules out or replace them.
QString mainStyleSheetStart();

/// The rules of scroll bars. Only the arrows of vertical bars can be hidden.
QString scrollBarSheet(const QColor& track, const QColor& handle, bool hideArrows);

/// The base sheet of a window.
QString windowSheet();
/// What a window keeps of it without the style.
QString windowFontSheet();

/// The frame round the font-size buttons.
QString sizeButtonsSheet();
/// The part of a tool bar's sheet that does not depend on its size.
QString toolBarSheet();

#endif
