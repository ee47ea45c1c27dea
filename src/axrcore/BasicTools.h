#ifndef BASICTOOLS_H
#define BASICTOOLS_H

#include "AXRCoreExport.h"

#include <QColor>
#include <QString>

class QAbstractButton;
class QPixmap;

/// Small services for numbers and icons. All static; GUI thread only.
class AXRCORE_EXPORT BasicTools
{
public:
    BasicTools() = delete;

    /// The number with `decimals` digits behind "." and "," between groups of three digits. Reads
    /// back after the commas are removed. A zero loses its sign; what is not finite is not
    /// grouped; decimals below 0 count as 0.
    static QString intInsertDot(double value, int decimals);

    /// `text`, then the digits of `value` filled on the left with `fill` to `width` places.
    static QString iToInt(int value, int width, const QString& text, char fill);

    /// Widens the limits of an axis in place to multiples of the first step of 1, 2, 5, 10, 20,
    /// 50 ... that divides the axis into at most ten parts. Inverted limits are swapped, equal ones
    /// first moved apart by 1 to each side. Never leaves the limits equal; applied twice it
    /// changes nothing more.
    static void adjustLinearAxis(int& min, int& max);

    /// Recolours a symbol in place. With keepShape each pixel keeps its alpha; without, an opaque
    /// pixmap's alpha becomes its darkness, so that its background turns transparent. A valid
    /// background is painted behind. A null pixmap or an invalid colour: unchanged.
    static void setSymbolColor(QPixmap* pixmap, QColor colour, bool keepShape, QColor background);

    /// Replaces a button's icon by pictures of all its sizes: unchecked in `text`, disabled in
    /// `dark`, checked in `checked`. An icon without sizes of its own, as one from an SVG file,
    /// becomes a picture of 128 x 128 pixels, or of the button's icon size where that is larger,
    /// which is scaled down to any size; its own engine is gone then. Colours of the symbol are
    /// lost, its transparency stays. A button without an icon, or null, stays as it is.
    static void setButtonIconsColor(QAbstractButton* button, QColor text, QColor dark,
                                    QColor checked);
};

#endif
