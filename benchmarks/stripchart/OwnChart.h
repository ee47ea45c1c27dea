#ifndef OWNCHART_H
#define OWNCHART_H

#include "StripChart.h"
#include "ValueOverTimeGraph.h"

class QGraphicsView;

/// The library's graph, whose view has CanvasSize.
class OwnChart : public StripChart
{
public:
    OwnChart(const Load& load, bool dots);

    void take(const Sample& sample) override;
    void update(qint64 now) override;
    QWidget* canvas() override;

    /// Goes by the time of the samples from here on, without a frame.
    void setTime(qint64 now) { m_now = now; }

    ValueOverTimeGraph& graph() { return m_graph; }

private:
    qint64 m_now = Epoch;
    ValueOverTimeGraph m_graph;
    QGraphicsView* m_view;
    std::vector<Graph*> m_curves;
};

#endif
