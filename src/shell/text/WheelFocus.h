#ifndef WHEELFOCUS_H
#define WHEELFOCUS_H

#include "AXRGuiExport.h"

#include <QObject>

class QWidget;

/// Keeps a turn of the wheel from changing a field that nobody has chosen: a spin box, combo box or
/// slider without focus leaves the wheel to the page round it, and gets no focus by it. With focus,
/// or as a window of its own, it takes the wheel as its class does. Scroll bars and views stay as
/// they are.
///
/// Every panel of this library guards itself; a host calls guard() for fields of its own.
class AXRGUI_EXPORT WheelFocus : public QObject
{
public:
    /// Guards the widget and all that is inside it, also what is put there later. Of the focus
    /// policies only Qt::WheelFocus changes, to Qt::StrongFocus. Lasts as long as the widget.
    static void guard(QWidget* root);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using QObject::QObject;
    void watch(QWidget* widget);
};

#endif
