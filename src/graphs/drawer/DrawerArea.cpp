#include "DrawerArea.h"

#include "Chart.h"
#include "CurveStrokes_p.h"
#include "DrawerFrame_p.h"
#include "ShortLock_p.h"
#include "ValueKey.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace
{

int widestLabel(const QList<Chart*>& charts, const QFontMetrics& metrics)
{
    int width = 0;
    for (const Chart* chart : charts)
        width = qMax(width, metrics.horizontalAdvance(chart->getLabel()));
    return width;
}

/// In full; the range lies on tenths.
QString tickText(int minimum, int maximum, int tick)
{
    const double part = (static_cast<double>(maximum) - minimum) / DrawerGeometry::Parts;
    return QString::number(minimum + tick * part, 'g', 15);
}

} // namespace

DrawerArea::DrawerArea(QWidget* parent, int repaintInterval)
    : QWidget(parent), m_repaintInterval(repaintInterval), m_frame(std::make_unique<DrawerFrame>())
{
    setMinimumSize(100, 100);
    m_repaintTimer.setInterval(m_repaintInterval);
    connect(&m_repaintTimer, &QTimer::timeout, this, QOverload<>::of(&DrawerArea::repaint));
}

DrawerArea::DrawerArea(QWidget* parent) : DrawerArea(parent, 1000)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

DrawerArea::DrawerArea(int repaintInterval) : DrawerArea(nullptr, repaintInterval) {}

DrawerArea::~DrawerArea() = default;

void DrawerArea::addChart(Chart* chart)
{
    if (!chart)
        return;
    const auto lock = shortLock(m_chartsMutex);
    chart->setMaxValues(m_chartSize);
    m_charts.append(chart);
}

void DrawerArea::removeChart(char address, char motorBank, char command, char type)
{
    const auto lock = shortLock(m_chartsMutex);
    const ValueKey key{address, command, type, motorBank};
    const auto isWanted = [key](const Chart* chart) { return ValueKey::of(*chart) == key; };
    m_charts.erase(std::remove_if(m_charts.begin(), m_charts.end(), isWanted), m_charts.end());
}

void DrawerArea::removeAllCharts()
{
    const auto lock = shortLock(m_chartsMutex);
    m_charts.clear();
}

void DrawerArea::addTraceValue(char address, char motorBank, char command, char type, int value)
{
    const ValueKey key{address, command, type, motorBank};
    const auto lock = shortLock(m_chartsMutex);
    for (Chart* chart : qAsConst(m_charts)) {
        if (ValueKey::of(*chart) == key)
            chart->addValue(value);
    }
}

void DrawerArea::setChartSize(int size)
{
    const auto lock = shortLock(m_chartsMutex);
    m_chartSize = size;
    for (Chart* chart : qAsConst(m_charts))
        chart->setMaxValues(size);
}

void DrawerArea::setRepaintInterval(int interval)
{
    m_repaintInterval = interval;
    m_repaintTimer.setInterval(interval);
}

void DrawerArea::setDrawingInterval(int min, int max, int value)
{
    m_intervalMin = min;
    m_intervalMax = max;
    m_intervalValue = value;
}

void DrawerArea::setResolution(int resolution)
{
    if (resolution > 0)
        m_resolution = resolution;
}

void DrawerArea::startDrawer() { m_repaintTimer.start(m_repaintInterval); }

void DrawerArea::stopDrawer() { m_repaintTimer.stop(); }

void DrawerArea::clearValues()
{
    const auto lock = shortLock(m_chartsMutex);
    for (Chart* chart : qAsConst(m_charts))
        chart->clearValues();
}

void DrawerArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setWindow(0, 0, width(), height());
    draw(&painter);
}

void DrawerArea::draw(QPainter* painter)
{
    painter->setFont(DrawerFrame::smallFont(painter->font()));
    const QFontMetrics metrics = painter->fontMetrics();
    const DrawerGeometry geometry(size(), metrics.height(), m_minValue, m_maxValue);
    emit changedChartWidth(geometry.plotWidth());

    clipToDevice(painter);
    DrawerFrame::drawGround(painter, geometry);
    if (geometry.hasPlot()) {
        DrawerFrame::drawAxes(painter, geometry, m_yAxisCaption);
        DrawerFrame::drawZeroLine(painter, geometry);
    }
    // only this thread changes the list, so reading it here does not need the mutex
    const QList<Chart*> charts = m_charts;
    const int legendWidth = widestLabel(charts, metrics);
    const qint64 skipped = (static_cast<qint64>(m_intervalMax) - m_intervalValue) / m_resolution;
    DrawerRange range;
    int line = 0;
    for (const Chart* chart : charts) {
        if (!chart->isVisible())
            continue;
        painter->setPen(chart->getColor());
        m_frame->drawCurve(painter, geometry, *chart, skipped, m_resolution, &range);
        if (geometry.hasPlot())
            painter->drawText(geometry.legendPosition(legendWidth, line++), chart->getLabel());
    }
    if (m_dynamicScaling)
        takeRange(range);
}

/// A label holds six digits; the tool tip of its place holds all.
bool DrawerArea::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int fontHeight = QFontMetrics(DrawerFrame::smallFont(font()), this).height();
        const DrawerGeometry geometry(size(), fontHeight, m_minValue, m_maxValue);
        const int tick = geometry.tickAt(help->pos(), fontHeight);
        if (tick >= 0) {
            const QRect place(0, geometry.tickY(tick) - fontHeight / 2, geometry.AxisX, fontHeight);
            QToolTip::showText(help->globalPos(), tickText(m_minValue, m_maxValue, tick), this,
                               place);
            return true;
        }
    }
    return QWidget::event(event);
}

void DrawerArea::takeRange(const DrawerRange& range)
{
    const int minimum = range.isEmpty ? -100 : range.minimum();
    const int maximum = range.isEmpty ? 100 : range.maximum();
    if (minimum == m_minValue && maximum == m_maxValue)
        return;
    m_minValue = minimum;
    m_maxValue = maximum;
    emit scaleChanged(minimum, maximum);
}
