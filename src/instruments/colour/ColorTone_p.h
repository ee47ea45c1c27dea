#ifndef COLORTONE_P_H
#define COLORTONE_P_H

#include <QColor>

/// White on dark colours, black on all others.
inline QColor contrastTo(const QColor& color)
{
    constexpr int Darkest = 12800; // of 25500
    const int brightness = 30 * color.red() + 59 * color.green() + 11 * color.blue();
    return brightness <= Darkest ? QColor(Qt::white) : QColor(Qt::black);
}

/// Whether both show the same. QColor's own comparison tells red of one colour model from red of
/// another, and an invalid colour has the components of black.
inline bool isSameColor(const QColor& a, const QColor& b)
{
    return a.isValid() == b.isValid() && a.rgba() == b.rgba();
}

#endif
