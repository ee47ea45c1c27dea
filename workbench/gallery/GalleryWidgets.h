#ifndef GALLERYWIDGETS_H
#define GALLERYWIDGETS_H

#include <QColor>
#include <QList>

class QWidget;

/// A widget class of the library, with how one is made that shows something.
struct GalleryWidget {
    const char* name;
    QWidget* (*make)();                  ///< The caller owns it.
    void (*prepare)(QWidget*) = nullptr; ///< When it is shown in its final size.
    bool isLive = false; ///< Draws by itself: its picture, a second later, shows galleryColours().
};

/// Those of the curves that live widgets draw.
QList<QColor> galleryColours();

/// Every widget class, in the order in which they are shown. A new class gets its line here.
const QList<GalleryWidget>& galleryWidgets();

#endif
