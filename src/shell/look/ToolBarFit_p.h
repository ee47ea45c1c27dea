#ifndef TOOLBARFIT_P_H
#define TOOLBARFIT_P_H

class QFontMetrics;
class QString;
class QToolBar;

/// Fits a tool bar to a new font size, which its buttons do not follow by themselves, for their
/// least sizes come by sheet: icon size, names of the buttons, and the sheet. The bar may die in
/// it. \param sizeSheet of the font size, in pixels; without a number in it the icons stay as large
/// as they are
void fitToolBar(QToolBar* bar, const QString& sizeSheet, const QFontMetrics& metrics);

#endif
