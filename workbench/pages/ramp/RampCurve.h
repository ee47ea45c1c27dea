#ifndef RAMPCURVE_H
#define RAMPCURVE_H

#include <QPolygonF>
#include <QRectF>
#include <QWidget>

/// Where a RampCurve draws what. x of a value is a time (ms), y a velocity.
struct RampCurveGeometry {
    QRectF plot;
    double time;     ///< At the right edge.
    double velocity; ///< At the upper edge.

    RampCurveGeometry(const QRectF& room, const QFontMetricsF& font, double lastTime,
                      double topVelocity);
    QPointF at(QPointF value) const;
    /// 1, 2 or 5 times a power of ten that divides the span into at most so many parts.
    static double tickStep(double span, int parts);
};

/// A calculated ramp and the one that an axis really turned, over the same time. The left scale is
/// in internal units, the right one in rpm.
class RampCurve : public QWidget
{
    Q_OBJECT
public:
    explicit RampCurve(QWidget* parent = nullptr);

    /// Corners as time (ms) and velocity (internal units). What is not finite is left out.
    void setCalculated(const QPolygonF& corners);
    /// As above; empty while nothing was measured.
    void setMeasured(const QPolygonF& samples);
    /// rpm of an internal unit; without one (0) there is no right scale.
    void setRealScale(double rpmPerUnit);

    RampCurveGeometry geometry() const;
    QSize sizeHint() const override { return QSize(700, 400); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawGrid(QPainter& painter, const RampCurveGeometry& to) const;
    void drawCurves(QPainter& painter, const RampCurveGeometry& to) const;
    void drawLegend(QPainter& painter, const RampCurveGeometry& to) const;

    QPolygonF m_calculated;
    QPolygonF m_measured;
    double m_rpmPerUnit = 0;
};

#endif
