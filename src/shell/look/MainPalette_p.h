#ifndef MAINPALETTE_P_H
#define MAINPALETTE_P_H

#include <QPalette>

/// The palette of the dark blue look, on that of the application, with the base style's own colours
/// where the look has none.
/// \param background of windows; when it is invalid, the base style's own
QPalette mainPalette(const QColor& background);

#endif
