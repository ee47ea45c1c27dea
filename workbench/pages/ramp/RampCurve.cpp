#include "RampCurve.h"

#include "BasicTools.h"

#include <QPainter>

#include <cmath>

namespace
{

constexpr double AboveCurve = 1.08; // part of the scale
constexpr double Gap = 6;           // px between a scale and its numbers
constexpr double Tick = 4;          // px
constexpr double Corner = 3;        // px, radius
constexpr double LegendLine = 24;   // px
constexpr int ValueParts = 6;
constexpr int TimeParts = 8;
const QString widestValue = QStringLiteral("8,888,888");
const QString calculatedColor = QStringLiteral("dodgerblue");
const QString measuredColor = QStringLiteral("tomato");

QPolygonF finite(const QPolygonF& points)
{
    QPolygonF kept;
    for (const QPointF& point : points) {
        if (std::isfinite(point.x()) && std::isfinite(point.y()))
            kept << point;
    }
    return kept;
}

QString number(double value, double step)
{
    return BasicTools::intInsertDot(value, step < 1 ? 1 : 0);
}

} // namespace

RampCurveGeometry::RampCurveGeometry(const QRectF& room, const QFontMetricsF& font, double lastTime,
                                     double topVelocity)
    : time(qMax(lastTime, 1.0)), velocity(qMax(topVelocity, 1.0))
{
    const double beside = font.horizontalAdvance(widestValue) + 2 * Gap;
    const double line = font.height() + Gap;
    plot = room.adjusted(beside, 2 * line, -beside, -2 * line);
}

QPointF RampCurveGeometry::at(QPointF value) const
{
    return {plot.left() + value.x() / time * plot.width(),
            plot.bottom() - value.y() / velocity * plot.height()};
}

double RampCurveGeometry::tickStep(double span, int parts)
{
    const double least = span / parts;
    const double decade = std::pow(10.0, std::floor(std::log10(least)));
    for (double factor : {1.0, 2.0, 5.0}) {
        if (factor * decade >= least)
            return factor * decade;
    }
    return 10 * decade;
}

RampCurve::RampCurve(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(320, 200);
}

void RampCurve::setCalculated(const QPolygonF& corners)
{
    m_calculated = finite(corners);
    update();
}

void RampCurve::setMeasured(const QPolygonF& samples)
{
    m_measured = finite(samples);
    update();
}

void RampCurve::setRealScale(double rpmPerUnit)
{
    m_rpmPerUnit = std::isfinite(rpmPerUnit) ? qMax(0.0, rpmPerUnit) : 0;
    update();
}

RampCurveGeometry RampCurve::geometry() const
{
    double time = 0;
    double velocity = 0;
    for (const QPolygonF* curve : {&m_calculated, &m_measured}) {
        for (const QPointF& point : *curve) {
            time = qMax(time, point.x());
            velocity = qMax(velocity, point.y());
        }
    }
    return {rect(), QFontMetricsF(font()), time, velocity * AboveCurve};
}

void RampCurve::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const RampCurveGeometry to = geometry();
    painter.fillRect(rect(), palette().base());
    drawGrid(painter, to);
    drawCurves(painter, to);
    drawLegend(painter, to);
}

void RampCurve::drawGrid(QPainter& painter, const RampCurveGeometry& to) const
{
    const QFontMetricsF metrics(font());
    const QColor text = palette().color(QPalette::Text);
    QColor faint = text;
    faint.setAlpha(40);
    const double line = metrics.height();
    const double beside = to.plot.left() - Gap;

    const double step = RampCurveGeometry::tickStep(to.velocity, ValueParts);
    for (double value = 0; value <= to.velocity; value += step) {
        const double y = to.at({0, value}).y();
        painter.setPen(faint);
        painter.drawLine(QPointF(to.plot.left(), y), QPointF(to.plot.right(), y));
        painter.setPen(text);
        painter.drawText(QRectF(0, y - line / 2, beside, line), Qt::AlignRight | Qt::AlignVCenter,
                         number(value, step));
    }
    const double rpm = to.velocity * m_rpmPerUnit;
    if (rpm > 0) {
        const double rpmStep = RampCurveGeometry::tickStep(rpm, ValueParts);
        for (double value = 0; value <= rpm; value += rpmStep) {
            const double y = to.at({0, value / m_rpmPerUnit}).y();
            painter.drawLine(QPointF(to.plot.right(), y), QPointF(to.plot.right() + Tick, y));
            painter.drawText(QRectF(to.plot.right() + Gap, y - line / 2, beside, line),
                             Qt::AlignLeft | Qt::AlignVCenter, number(value, rpmStep));
        }
    }
    const double timeStep = RampCurveGeometry::tickStep(to.time, TimeParts);
    for (double value = 0; value <= to.time; value += timeStep) {
        const double x = to.at({value, 0}).x();
        painter.setPen(faint);
        painter.drawLine(QPointF(x, to.plot.top()), QPointF(x, to.plot.bottom()));
        painter.setPen(text);
        painter.drawText(QRectF(x - beside, to.plot.bottom() + Gap / 2, 2 * beside, line),
                         Qt::AlignCenter, number(value, timeStep));
    }
    painter.drawRect(to.plot);
    painter.drawText(QRectF(to.plot.left(), height() - line - Gap / 2, to.plot.width(), line),
                     Qt::AlignCenter, tr("Time [ms]"));
    painter.drawText(QRectF(Gap, Gap, width() - 2 * Gap, line), Qt::AlignLeft | Qt::AlignVCenter,
                     tr("Velocity [internal units]"));
    if (rpm > 0)
        painter.drawText(QRectF(Gap, Gap, width() - 2 * Gap, line),
                         Qt::AlignRight | Qt::AlignVCenter, tr("Velocity [rpm]"));
}

void RampCurve::drawCurves(QPainter& painter, const RampCurveGeometry& to) const
{
    const auto onScreen = [&to](const QPolygonF& curve) {
        QPolygonF points;
        for (const QPointF& point : curve)
            points << to.at(point);
        return points;
    };
    const QPolygonF corners = onScreen(m_calculated);
    const QColor calculated(calculatedColor);
    QColor fill = calculated;
    fill.setAlpha(30);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawPolygon(corners);
    painter.setPen(QPen(calculated, 2));
    painter.setBrush(palette().base());
    painter.drawPolyline(corners);
    for (const QPointF& corner : corners) {
        if (corner.y() < to.plot.bottom())
            painter.drawEllipse(corner, Corner, Corner);
    }
    painter.setPen(QPen(QColor(measuredColor), 2));
    painter.drawPolyline(onScreen(m_measured));
}

void RampCurve::drawLegend(QPainter& painter, const RampCurveGeometry& to) const
{
    const QFontMetricsF metrics(font());
    struct Entry {
        QString text;
        QString color;
    };
    QVector<Entry> entries = {{tr("calculated"), calculatedColor}};
    if (!m_measured.isEmpty())
        entries.append({tr("turned by the axis"), measuredColor});
    double length = -2 * Gap;
    for (const Entry& entry : entries)
        length += LegendLine + metrics.horizontalAdvance(entry.text) + 3 * Gap;
    double x = to.plot.center().x() - length / 2;
    const double y = Gap + metrics.height() * 1.5;
    for (const Entry& entry : entries) {
        painter.setPen(QPen(QColor(entry.color), 2));
        painter.drawLine(QPointF(x, y), QPointF(x + LegendLine, y));
        x += LegendLine + Gap;
        const double width = metrics.horizontalAdvance(entry.text);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QRectF(x, y - metrics.height() / 2, width + Gap, metrics.height()),
                         Qt::AlignLeft | Qt::AlignVCenter, entry.text);
        x += width + 2 * Gap;
    }
}
