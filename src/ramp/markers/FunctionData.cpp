#include "FunctionData.h"

#include "FunctionPlot_p.h"
#include "Logging.h"
#include "MarkerItem.h"
#include "MethodName.h"
#include "Numbers.h"

#include <cmath>

namespace
{

constexpr double NoMax = -9.9e99;
constexpr double NoMin = 9.9e99;
constexpr double PixelsPerWidth = 350;
constexpr double LargestWidth = 1e6;
constexpr double PlotHeight = 175;
constexpr double FarAway = 1e9;
constexpr QSize NotDrawn(-1, -1);

double gridWidth(double width)
{
    return std::isfinite(width) ? qBound(0.0, width * PixelsPerWidth, LargestWidth) : 0.0;
}

/// A scene's index takes no coordinates without bounds.
double onScene(double coordinate)
{
    return std::isnan(coordinate) ? 0.0 : qBound(-FarAway, coordinate, FarAway);
}

bool isNorm(double part) { return std::isfinite(part) && part != 0.0; }

} // namespace

FunctionData::FunctionData(QGraphicsScene* scene, QFont font, double width, QObject* parent)
    : QObject(parent)
    , m_max(NoMax)
    , m_min(NoMin)
    , m_pen(QColor(QStringLiteral("#9AA9B6")), 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
    , m_font(font)
    , m_grid(gridWidth(width), PlotHeight)
    , m_norm(-1, -1)
    , m_scene(scene)
{
    if (!m_scene)
        return;
    m_scene->setSceneRect(QRectF(QPointF(), m_grid));
    m_scene->clear();
}

void FunctionData::add(double value)
{
    if (!std::isfinite(value))
        return;
    m_values.append(value);
    m_max = qMax(m_max, value);
    m_min = qMin(m_min, value);
}

void FunctionData::setRange(double start, double end)
{
    m_rangeStart = start;
    m_rangeEnd = end;
}

void FunctionData::setCaption(const QString& top, const QString& left, const QString& bottom,
                              const QString& right)
{
    m_topCaption = top;
    m_leftCaption = left;
    m_bottomCaption = bottom;
    m_rightCaption = right;
}

void FunctionData::setNorm(const QSizeF& norm)
{
    if (isNorm(norm.width()))
        m_norm.setWidth(norm.width());
    if (isNorm(norm.height()))
        m_norm.setHeight(norm.height());
}

double FunctionData::normToWidth(int v) const { return v * m_grid.width() / m_norm.width(); }

double FunctionData::normToHeight(double v) const
{
    return m_grid.height() - v * m_grid.height() / m_norm.height();
}

MarkerItem* FunctionData::addVerticalMarker(double position, QString text, QPen pen, bool,
                                            bool movable)
{
    return addMarker(true, QPointF(onScene(normToWidth(toInt(position))), 0), text, pen, movable);
}

MarkerItem* FunctionData::addHorizontalMarker(double position, QString text, QPen pen, bool,
                                              bool movable)
{
    return addMarker(false, QPointF(0, onScene(normToHeight(position))), text, pen, movable);
}

MarkerItem* FunctionData::addMarker(bool vertical, QPointF position, const QString& text,
                                    const QPen& pen, bool movable)
{
    auto* marker = new MarkerItem(vertical, text, pen, m_grid, movable, nullptr);
    marker->adjust(m_font);
    marker->setPos(position); // before it has a scene that would hold it within its rectangle
    if (m_scene)
        m_scene->addItem(marker);
    return marker;
}

QSize FunctionData::fillGraph(int, QPen pen)
{
    if (!m_scene || m_max == m_min)
        return NotDrawn;
    FunctionPlot plot(*m_scene, m_font, m_pen);
    if (m_values.isEmpty()) {
        plot.drawSquaredPaper();
    } else {
        const ValueAxis axis = ValueAxis::around(m_min, m_max);
        if (!axis.isValid())
            return NotDrawn;
        m_max = axis.max;
        m_min = axis.min;
        plot.drawValueAxis(axis);
        plot.drawColumns();
        plot.drawCurve(m_values, axis, pen);
    }
    plot.drawCaptions(m_topCaption, m_leftCaption, m_bottomCaption, m_rightCaption, pen.brush());
    return plot.close(pen);
}

double FunctionData::getMax() const
{
    QStringList numbers;
    if (axrRamp().isDebugEnabled()) {
        for (double number : {m_rangeStart, m_rangeEnd, m_min, m_max})
            numbers << QString::number(number);
        for (double value : m_values)
            numbers << QString::number(value);
        qCDebug(axrRamp).noquote().nospace()
            << AXR_METHOD.constData() << " (" << numbers.join(QStringLiteral(", ")) << ')';
    }
    return m_max - m_min;
}
