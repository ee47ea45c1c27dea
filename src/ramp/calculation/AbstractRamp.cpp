#include "AbstractRamp.h"

AbstractRamp::AbstractRamp(rampMode mode, QSizeF size)
    : m_ramp(mode == Trapezoid ? std::make_unique<TrapezialRamp>(size) : nullptr), m_mode(mode)
{
}

QString AbstractRamp::str() const { return m_ramp ? m_ramp->str() : QString(); }

QPainterPath AbstractRamp::path() const { return m_ramp ? m_ramp->path() : QPainterPath(); }

QSizeF AbstractRamp::size() const { return m_ramp ? m_ramp->size() : QSizeF(-1, -1); }

double AbstractRamp::peak() const { return m_ramp ? m_ramp->peak() : 0; }

double AbstractRamp::duration() const { return m_ramp ? m_ramp->duration() : 0; }

double AbstractRamp::steps() const { return m_ramp ? m_ramp->steps() : 0; }

void AbstractRamp::ramp(double vmax, double v1, double vstart, double vstop, double a1, double amax,
                        double dmax, double d1, bool noDistance, double distance)
{
    if (m_ramp)
        m_ramp->ramp(vmax, v1, vstart, vstop, a1, amax, dmax, d1, noDistance, distance);
}

void AbstractRamp::ramp(QList<QGraphicsItem*> items, bool noDistance, double distance)
{
    if (m_ramp)
        m_ramp->ramp(std::move(items), noDistance, distance);
}

void AbstractRamp::ramp(QLayout* layout, bool noDistance, double distance)
{
    if (m_ramp)
        m_ramp->ramp(layout, noDistance, distance);
}
