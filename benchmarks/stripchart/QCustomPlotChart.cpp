// QCustomPlot in its fastest form: adaptive sampling, cached labels, one paint buffer, fixed
// margins, no grid.

#include "StripChart.h"

#include <qcustomplot.h>

namespace
{

class QCustomPlotChart : public StripChart
{
public:
    explicit QCustomPlotChart(const Load& load) : m_range(load.rangeSpan)
    {
        m_plot.resize(CanvasSize);
        m_plot.setPlottingHints(QCP::phCacheLabels);
        m_plot.setNotAntialiasedElements(QCP::AntialiasedElements(QCP::aeAll) & ~QCP::aePlottables);
        m_plot.layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical);
        m_plot.axisRect()->setAutoMargins(QCP::msNone);
        m_plot.axisRect()->setMargins(QMargins(70, 20, 10, 25));
        for (QCPAxis* axis : {m_plot.xAxis, m_plot.yAxis})
            axis->grid()->setVisible(false);
        const QSharedPointer<QCPAxisTickerFixed> seconds(new QCPAxisTickerFixed);
        seconds->setTickStep(1);
        m_plot.xAxis->setTicker(seconds);
        m_plot.legend->setVisible(true);
        for (int i = 0; i < load.curves; ++i) {
            QCPGraph* graph = m_plot.addGraph();
            graph->setName(curveName(i));
            graph->setPen(QPen(curveColor(i), 0));
            graph->setAdaptiveSampling(true);
        }
        for (Mark& mark : m_marks) {
            mark.line = new QCPItemStraightLine(&m_plot); // the plot's
            mark.line->setPen(QPen(QColor(244, 164, 96), 0));
            mark.text = new QCPItemText(&m_plot);
            mark.text->position->setTypeX(QCPItemPosition::ptAxisRectRatio);
            mark.text->position->setTypeY(QCPItemPosition::ptPlotCoords);
            mark.text->setPositionAlignment(Qt::AlignLeft | Qt::AlignTop);
        }
        m_plot.show();
    }

    void take(const Sample& sample) override
    {
        m_plot.graph(sample.curve)->data()->add(QCPGraphData(seconds(sample.time), sample.value));
        m_range.take(sample.value, sample.time);
    }

    void update(qint64 now) override
    {
        const double right = seconds(now);
        for (int i = 0; i < m_plot.graphCount(); ++i)
            m_plot.graph(i)->data()->removeBefore(right - History / 1000.0);
        m_range.advance(now);
        const double span = m_plot.axisRect()->width() * MillisecondsPerPixel / 1000.0;
        m_plot.xAxis->setRange(right - span, right);
        m_plot.yAxis->setRange(m_range.bottom(), m_range.top());
        put(m_marks[0], m_range.lowest(), "Min");
        put(m_marks[1], m_range.highest(), "Max");
        m_plot.replot(QCustomPlot::rpQueuedRefresh);
    }

    QWidget* canvas() override { return &m_plot; }

private:
    struct Mark {
        QCPItemStraightLine* line = nullptr;
        QCPItemText* text = nullptr;
    };

    static double seconds(qint64 time) { return static_cast<double>(time - Epoch) / 1000; }

    static void put(const Mark& mark, double value, const char* name)
    {
        mark.line->point1->setCoords(0, value);
        mark.line->point2->setCoords(1, value);
        mark.text->position->setCoords(0.01, value);
        mark.text->setText(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(value));
    }

    RunningRange m_range;
    QCustomPlot m_plot;
    Mark m_marks[2];
};

} // namespace

std::unique_ptr<StripChart> makeQCustomPlot(const Load& load)
{
    return std::make_unique<QCustomPlotChart>(load);
}
