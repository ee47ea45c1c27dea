#ifndef GALLERYWIDGETS_H
#define GALLERYWIDGETS_H

#include <QList>

class QWidget;

/// A widget class of the library, with how one is made that shows something.
struct GalleryWidget {
    const char* name;
    QWidget* (*make)();                  ///< The caller owns it.
    void (*prepare)(QWidget*) = nullptr; ///< When it is shown in its final size.
};

/// Every widget class, in the order in which they are shown. A new class gets its line here.
const QList<GalleryWidget>& galleryWidgets();

#endif
