#ifndef ICONCOLOURS_P_H
#define ICONCOLOURS_P_H

class QWidget;

/// What MainAppStyle::setIconsToTextColor() does: all icons and pixmaps below the widget become
/// pictures in the text's colour. An action comes behind its button, so its one colour stays.
/// \param root null is ignored; a host may end it when an icon changes
void setIconColours(QWidget* root);

#endif
