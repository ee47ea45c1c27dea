#ifndef ABSTRACTRAMP_H
#define ABSTRACTRAMP_H

#include "TrapezialRamp.h"

#include <memory>

/// A ramp of some form. The trapezoid is the only form that has one; without it the text and the
/// path are empty, the numbers 0, the size is -1 by -1, and ramp() does nothing.
class AXRGUI_EXPORT AbstractRamp
{
public:
    /// Any other number stands for a form without a ramp.
    enum rampMode : int { Trapezoid = 0 };

    /// \param size of the drawing area
    AbstractRamp(rampMode mode, QSizeF size);

    rampMode mode() const { return m_mode; }
    QString str() const;
    QPainterPath path() const;
    QSizeF size() const;
    double peak() const;
    double duration() const;
    double steps() const;

    // As of TrapezialRamp.
    void ramp(double vmax, double v1, double vstart, double vstop, double a1, double amax,
              double dmax, double d1, bool noDistance, double distance);
    void ramp(QList<QGraphicsItem*> items, bool noDistance, double distance);
    void ramp(QLayout* layout, bool noDistance, double distance);

private:
    std::unique_ptr<TrapezialRamp> m_ramp;
    rampMode m_mode;
};

#endif
