#ifndef SHAREDCONSTANTS_H
#define SHAREDCONSTANTS_H

#include <QChar>

/// Stands for "/" in a name that has to stay one level of a settings key.
constexpr QChar SlashReplacement(0x0313);
/// Its sibling, for hosts that need a second reserved character.
constexpr QChar SecondReplacement(0x0314);

/// Settings group of the font-size choice.
constexpr char MainwindowGroup[] = "Mainwindow";
/// Settings group of the graphical input windows.
constexpr char PluginsGeometryGroup[] = "Plugins Geometry";
/// Settings keys of the colour choices.
constexpr char ColorMapCountKey[] = "ColorMap/Count";
constexpr char ColorMapCheckedButtonKey[] = "ColorMap/CheckedButton";

/// Placeholder item of a combo box that remembers its last entry.
constexpr char NoneItem[] = "<none>";

/// Dynamic properties that a host or a style sheet sets.
constexpr char DpCbRight[] = "dpCbRight";           ///< A combo box's text is right-aligned.
constexpr char DpIgnIcon[] = "dpIgnIcon";           ///< A button keeps its own icon size.
constexpr char DpDragDropName[] = "dpDragDropName"; ///< Unique name of a dragged widget.
constexpr char DpAdvancedTip[] = "dpAdvancedTip";   ///< Read by the graphical ramp input.
constexpr char DpPosInput[] = "dpPosInput";         ///< Read by the graphical ramp input.

#endif
