#include "OwnChart.h"

#include "Graph.h"

#include <QCoreApplication>
#include <QGraphicsView>
#include <QTimer>

OwnChart::OwnChart(const Load& load, bool dots)
    : m_view(m_graph.findChild<QGraphicsView*>(QStringLiteral("graphicsView")))
{
    m_graph.setClock([this] { return m_now; });
    m_graph.setDataPointsEnabled(dots);
    for (int i = 0; i < load.curves; ++i) {
        m_curves.push_back(
            new Graph(1, 0, 6, static_cast<char>(i), curveName(i), curveColor(i))); // the graph's
        m_curves.back()->setMaxValues(load.rate * qMin(load.history, load.rangeSpan) / 1000);
        m_graph.addGraph(m_curves.back());
    }
    m_graph.resize(CanvasSize);
    m_graph.show();
    QCoreApplication::sendPostedEvents();
    m_graph.resize(m_graph.size() + CanvasSize - m_view->viewport()->size());
    QCoreApplication::sendPostedEvents();
    m_graph.clearValues();
    m_graph.startDrawing();
    m_graph.findChild<QTimer*>()->stop(); // the ticks come from the benchmark
}

void OwnChart::take(const Sample& sample)
{
    m_curves[static_cast<std::size_t>(sample.curve)]->addValue(sample.value, sample.time);
}

void OwnChart::update(qint64 now)
{
    m_now = now;
    QMetaObject::invokeMethod(&m_graph, "updateItemClock");
}

QWidget* OwnChart::canvas() { return m_view->viewport(); }

std::unique_ptr<StripChart> makeOurs(const Load& load)
{
    return std::make_unique<OwnChart>(load, false);
}

std::unique_ptr<StripChart> makeOursWithDots(const Load& load)
{
    return std::make_unique<OwnChart>(load, true);
}
