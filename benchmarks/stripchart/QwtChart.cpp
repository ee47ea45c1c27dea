// Qwt, with series that hand out what is visible alone, from a queue; without a backing store,
// which each frame would fill anew.

#include "StripChart.h"

#include <qwt_painter.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_legenditem.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>
#include <qwt_series_data.h>

namespace
{

double seconds(qint64 time) { return static_cast<double>(time - Epoch) / 1000; }

/// The points of a curve, in ascending x.
class Series : public QwtSeriesData<QPointF>
{
public:
    void take(double x, double y) { m_points.append({x, y}); }
    /// One minimum and one maximum for each pixel column.
    void takePair(qint64 time, double y)
    {
        const qint64 slot = time / MillisecondsPerPixel;
        if (slot != m_slot) {
            m_slot = slot;
            take(seconds(slot * MillisecondsPerPixel), y);
            m_isPair = false;
            return;
        }
        if (!m_isPair) {
            take(m_points.back().x(), y);
            m_isPair = true;
        }
        double& last = m_points.back().ry();
        double& before = m_points[m_points.size() - 2].ry();
        if (last < before)
            std::swap(last, before);
        before = qMin(before, y);
        last = qMax(last, y);
    }
    void removeBefore(double x)
    {
        while (m_points.front().x() < x)
            m_points.removeFirst();
    }
    /// From one point before x on, which the line that comes in begins at.
    void showFrom(double x)
    {
        std::size_t first = 0;
        std::size_t behind = m_points.size();
        while (first < behind) {
            const std::size_t middle = (first + behind) / 2;
            if (m_points[middle].x() < x)
                first = middle + 1;
            else
                behind = middle;
        }
        m_first = first > 0 ? first - 1 : 0;
    }

    size_t size() const override { return m_points.size() - m_first; }
    QPointF sample(size_t i) const override { return m_points[m_first + i]; }
    QRectF boundingRect() const override { return {0, 0, 1e6, 1}; } // never asked for a range

private:
    Ring<QPointF> m_points;
    std::size_t m_first = 0;
    qint64 m_slot = 0;
    bool m_isPair = false;
};

class SecondsDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override { return QStringLiteral("%1 s").arg(value); }
};

class QwtChart : public StripChart
{
public:
    QwtChart(const Load& load, bool pairs) : m_range(load.rangeSpan), m_pairs(pairs)
    {
        m_plot.resize(CanvasSize);
        m_plot.setAutoReplot(false);
        QwtPainter::setPolylineSplitting(false); // a little faster so
        m_plot.setAutoFillBackground(true);
        m_plot.setPalette(QPalette(Qt::white, Qt::white));
        auto* canvas = static_cast<QwtPlotCanvas*>(m_plot.canvas());
        canvas->setFrameStyle(QFrame::NoFrame);
        canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
        canvas->setPalette(QPalette(Qt::white));
        m_plot.plotLayout()->setCanvasMargin(0);
        m_plot.setAxisScaleDraw(QwtPlot::xBottom, new SecondsDraw); // the plot's, as all below
        for (int i = 0; i < load.curves; ++i) {
            auto* curve = new QwtPlotCurve(curveName(i));
            m_series.push_back(new Series);
            curve->setData(m_series.back());
            curve->setPen(curveColor(i), 0);
            curve->setRenderHint(QwtPlotItem::RenderAntialiased);
            curve->setPaintAttribute(QwtPlotCurve::FilterPoints);
            curve->setPaintAttribute(QwtPlotCurve::ClipPolygons, false); // nothing lies outside
            curve->attach(&m_plot);
        }
        for (QwtPlotMarker*& mark : m_marks) {
            mark = new QwtPlotMarker;
            mark->setLineStyle(QwtPlotMarker::HLine);
            mark->setLinePen(QColor(244, 164, 96), 0);
            mark->setLabelAlignment(Qt::AlignLeft | Qt::AlignBottom);
            mark->setItemAttribute(QwtPlotItem::Legend, false);
            mark->attach(&m_plot);
        }
        auto* legend = new QwtPlotLegendItem;
        legend->setAlignment(Qt::AlignRight | Qt::AlignTop);
        legend->setMaxColumns(1);
        legend->attach(&m_plot);
        m_plot.show();
    }

    void take(const Sample& sample) override
    {
        Series& series = *m_series[static_cast<std::size_t>(sample.curve)];
        if (m_pairs)
            series.takePair(sample.time, sample.value);
        else
            series.take(seconds(sample.time), sample.value);
        m_range.take(sample.value, sample.time);
    }

    void update(qint64 now) override
    {
        const double right = seconds(now);
        const double span = m_plot.canvas()->width() * MillisecondsPerPixel / 1000.0;
        for (Series* series : m_series) {
            series->removeBefore(right - History / 1000.0);
            series->showFrom(right - span);
        }
        if (m_range.advance(now))
            m_plot.setAxisScale(QwtPlot::yLeft, m_range.bottom(), m_range.top());
        m_plot.setAxisScale(QwtPlot::xBottom, right - span, right, 1);
        put(m_marks[0], m_range.lowest(), "Min");
        put(m_marks[1], m_range.highest(), "Max");
        m_plot.replot();
    }

    QWidget* canvas() override { return &m_plot; }

private:
    static void put(QwtPlotMarker* mark, double value, const char* name)
    {
        if (mark->yValue() == value)
            return;
        mark->setYValue(value);
        mark->setLabel(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(value));
    }

    RunningRange m_range;
    QwtPlot m_plot;
    bool m_pairs;
    std::vector<Series*> m_series;
    QwtPlotMarker* m_marks[2] = {};
};

} // namespace

std::unique_ptr<StripChart> makeQwt(const Load& load)
{
    return std::make_unique<QwtChart>(load, false);
}

std::unique_ptr<StripChart> makeQwtPairs(const Load& load)
{
    return std::make_unique<QwtChart>(load, true);
}
