#include "GraphRange_p.h"

#include "BasicTools.h"
#include "Graph.h"
#include "Numbers.h"

namespace
{

// Beyond these, the extremes of the data do not count.
constexpr double HighestMinimum = 214783647.0;
constexpr double LowestMaximum = -214783648.0;

} // namespace

std::optional<GraphRange::Extremes> GraphRange::extremesOf(const QList<Graph*>& graphs)
{
    Extremes all{HighestMinimum, LowestMaximum, true};
    for (const Graph* graph : graphs) {
        if (graph->valueCount() < 2)
            return std::nullopt;
        double lowest = 0;
        double highest = 0;
        if (graph->valueRange(&lowest, &highest))
            all = {qMin(all.lowest, lowest), qMax(all.highest, highest), false};
    }
    return all;
}

bool GraphRange::follow(const Extremes& extremes)
{
    if (extremes.isEmpty || (maximum == extremes.highest && minimum == extremes.lowest))
        return false;
    maximum = toInt(extremes.highest);
    minimum = toInt(extremes.lowest);
    BasicTools::adjustLinearAxis(minimum, maximum);
    return true;
}

void GraphRange::separate()
{
    if (minimum != maximum)
        return;
    maximum = toInt(qint64(maximum) + 1);
    minimum = toInt(qint64(minimum) - 1);
}
