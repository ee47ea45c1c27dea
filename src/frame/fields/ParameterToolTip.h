#ifndef PARAMETERTOOLTIP_H
#define PARAMETERTOOLTIP_H

#include "AXRGuiExport.h"

#include <QString>

class QSpinBox;
class SpinBox;

/// Tool tip texts of widgets that show a device parameter. The number is an unsigned byte.

/// "AP n", of check boxes, combo boxes and buttons.
AXRGUI_EXPORT QString parameterToolTip(char number);
/// "AP n (minimum..maximum)" with the box's present bounds.
AXRGUI_EXPORT QString parameterToolTip(char number, const QSpinBox& box);
/// The same, with the bounds in format g with 6 digits.
AXRGUI_EXPORT QString parameterToolTip(char number, const SpinBox& box);
/// "AP: n", of the panels with tuple signals.
AXRGUI_EXPORT QString tuplePanelToolTip(char number);
/// "caption (minimum..maximum)" with the box's present bounds.
AXRGUI_EXPORT QString rangeToolTip(const QString& caption, const QSpinBox& box);

#endif
