#ifndef CUTTEXTS_H
#define CUTTEXTS_H

#include <QStringList>

class QWidget;

/// What a user cannot read below a shown window, one line each: texts wider or higher than their
/// room, widgets that stick out of their parents, elided cells and tabs, and scroll bars within
/// scroll bars. What a scroll bar brings into view counts as readable.
QStringList cutTexts(const QWidget* window);

#endif
