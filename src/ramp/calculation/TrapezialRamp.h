#ifndef TRAPEZIALRAMP_H
#define TRAPEZIALRAMP_H

#include "AXRGuiExport.h"

#include <QList>
#include <QPainterPath>
#include <QPolygonF>
#include <QSizeF>
#include <QString>

class QGraphicsItem;
class QLayout;
class QWidget;

/// The velocity profile of a ramp of six points: from VSTART with A1 to V1, with AMAX to VMAX,
/// which it keeps as long as the travel needs, with DMAX down to V1 and with D1 to VSTOP. Gives its
/// polygon in a drawing area and a rich text of its duration (ms), its length (steps) and what is
/// wrong with the parameters.
///
/// Velocities v and accelerations a are in the device's internal units, see below. Bad ones are
/// limited or replaced, and named in the text; nothing fails. An argument that is not finite counts
/// as 0, and so does a time, length or place that would not be finite.
class AXRGUI_EXPORT TrapezialRamp
{
public:
    /// A change of velocity takes dv / a times this, in s.
    static constexpr double ChangeTime = 131072.0 / 16000000.0;
    /// From or to rest it is v^2 / a times this long, in steps.
    static constexpr double ChangeSteps = 1.0 / 256;
    /// A unit of velocity by which both hold together, 0.9537 steps/s. Where the velocity is
    /// constant, the calculation takes its unit for 1 step/s: that part comes out 4.6 % shorter.
    static constexpr double VelocityUnit = 2 * ChangeSteps / ChangeTime;
    /// The unit of acceleration that goes with it, 116.4 steps/s^2.
    static constexpr double AccelerationUnit = VelocityUnit / ChangeTime;

    /// \param size of the drawing area, for good; the ramp keeps 20 from its left and right edge
    explicit TrapezialRamp(QSizeF size);

    QSizeF size() const { return m_size; }
    // The result of the last ramp(); empty or 0 before.

    /// For people, with what is wrong with the parameters. Not for a program to read: the peak of a
    /// ramp that falls short stands in pointed brackets, which rich text takes for a tag and hides.
    QString str() const { return m_text; }
    /// Highest velocity of the ramp: VMAX as it is taken, or what is reached of it.
    double peak() const { return m_peak; }
    /// From VSTART to VSTOP, in s. A ramp in which no velocity changes counts 1 s for that.
    double duration() const { return m_duration; }
    /// Length in steps, negative where VSTART or VSTOP far above V1 outweighs the rest.
    double steps() const { return m_steps; }
    /// Time to the right, velocity up: y 0 is VMAX and the area's height 0.
    QPolygonF polygon() const { return m_polygon; }
    /// The polygon with a small circle round each point above the base line.
    QPainterPath path() const;

    /// \param vmax below 1 counts as 1; no other velocity is taken above it
    /// \param a1,amax,dmax,d1 0 and less count as 1
    /// \param noDistance the shape alone: VMAX is reached and not kept
    /// \param distance length of the travel in steps; of a negative one, too short for V1, the
    /// magnitude counts. When VMAX or V1 is not reached, the text says what is. Where VSTART or
    /// VSTOP above V1 leave no peak, V1 is the peak.
    void ramp(double vmax, double v1, double vstart, double vstop, double a1, double amax,
              double dmax, double d1, bool noDistance, double distance);

    /// Parameters from the SpinBoxes in the scene or layout, by what their object name contains,
    /// upper and lower case told apart, in this order: "MaxPosVel" (VMAX), "V1", "VStart", "VStop",
    /// "Deceleration" (DMAX), "Acceleration" (AMAX), "A1", "D1". The others are 0.
    void ramp(QList<QGraphicsItem*> items, bool noDistance, double distance);
    void ramp(QLayout* layout, bool noDistance, double distance);

private:
    struct Profile;

    void ramp(const QList<QWidget*>& widgets, bool noDistance, double distance);

    QPolygonF m_polygon;
    double m_steps = 0;
    QString m_text;
    QSizeF m_size;
    double m_peak = 0;
    double m_duration = 0; // s
};

#endif
