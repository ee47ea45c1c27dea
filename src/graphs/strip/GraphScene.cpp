#include "GraphScene_p.h"

#include "Command.h"
#include "CurveLayer_p.h"
#include "Graph.h"
#include "GraphCaptionItem.h"
#include "GraphItem.h"
#include "GraphRange_p.h"
#include "Logging.h"
#include "MarkerItem.h"
#include "Numbers.h"
#include "ValueKey.h"
#include "XTimeAxisItem.h"

#include <QFontMetrics>
#include <QGraphicsView>

#include <algorithm>
#include <vector>

namespace
{

constexpr double MillisecondsPerPixel = 10; // of the time axis

constexpr double AxisDepth = -123.0;
constexpr double LayerDepth = -0.5;
constexpr double CaptionDepth = 100.0;
constexpr double MinMarkerDepth = 123.3;
constexpr double MaxMarkerDepth = 123.7;
constexpr double CurveDepth = 0.5; // from one curve to the next

} // namespace

GraphScene::GraphScene(QWidget* graph, const QGraphicsView* view)
    : QGraphicsScene(graph), m_graph(graph), m_view(view)
{
    // The items change their size and place with each frame; an index would only cost.
    setItemIndexMethod(NoIndex);
}

void GraphScene::setLook(const Look& look)
{
    m_look = look;
    for (GraphItem* item : qAsConst(m_items)) {
        item->setUseBoldDataPoints(look.hasBoldDots);
        item->setDataPointsEnabled(look.hasDots);
        item->setUseConnectedDataPoints(look.hasLines);
    }
}

void GraphScene::build(const QList<Graph*>& graphs, bool keepsPicture)
{
    // What is kept must outlive the items that show it.
    std::vector<std::shared_ptr<CurveColumns>> shown;
    for (const Graph* graph : graphs)
        shown.push_back(graph->m_drawn.lock());
    m_items.clear();
    clear();
    setSceneRect(QRectF(QPointF(), viewSize()));
    if (m_hasFrame)
        addFrame();

    m_axis = new XTimeAxisItem;
    m_axis->setZValue(AxisDepth);
    addItem(m_axis);
    m_captions = new GraphCaptionItem;
    for (const Graph* graph : graphs)
        m_captions->addCaption(graph->getLabel(), graph->getColor(), m_graph->font());
    m_captions->setZValue(CaptionDepth);
    addItem(m_captions);
    addCurves(graphs, keepsPicture);
    m_minMarker = addMarker(QStringLiteral("\nMin"), MinMarkerDepth);
    m_maxMarker = addMarker(QStringLiteral("Max\n"), MaxMarkerDepth);
}

void GraphScene::addFrame()
{
    const QRectF area = sceneRect();
    const QPointF corners[] = {area.topLeft(), area.topRight(), area.bottomRight(),
                               area.bottomLeft(), area.topLeft()};
    for (int i = 0; i < 4; ++i)
        addLine(QLineF(corners[i], corners[i + 1]), QPen(Qt::red));
}

void GraphScene::addCurves(const QList<Graph*>& graphs, bool keepsPicture)
{
    auto* layer = new CurveLayer(m_axis);
    layer->setZValue(LayerDepth);
    addItem(layer);
    for (Graph* graph : graphs) {
        auto* item = new GraphItem;
        item->setAddress(graph->getAddress());
        item->setMotorBank(graph->getMotorBank());
        item->setCommand(graph->getCommand());
        item->setType(graph->getType());
        item->setUseConnectedDataPoints(graph->isUseConnectPointsEnabled());
        item->follow(graph, keepsPicture ? graph->m_drawn.lock() : nullptr);
        item->setZValue(m_items.size() * CurveDepth);
        m_items.append(item);
        addItem(item);
        layer->add(item);
    }
}

QSize GraphScene::viewSize() const { return m_view->viewport()->size(); }

MarkerItem* GraphScene::addMarker(const QString& text, double z)
{
    auto* marker = new MarkerItem(false, text, QPen(QColor(QStringLiteral("sandybrown"))),
                                  viewSize(), false, nullptr);
    marker->adjust(m_graph->font());
    addItem(marker);
    marker->setZValue(z);
    marker->hide(); // until a frame has its value
    return marker;
}

void GraphScene::layOut(qint64 edge, const GraphRange& range)
{
    m_axis->setActualTime(edge);
    m_axis->setMinValue(range.minimum);
    m_axis->setMaxValue(range.maximum);
    m_axis->setSize(viewSize().width(), viewSize().height());
    m_axis->setMaxTextWidth(m_labelRoom);
    m_axis->setYCaption(m_yAxisCaption);
    layOutCaptions();
    for (GraphItem* item : qAsConst(m_items)) {
        item->setActualTime(edge);
        item->setMinValue(toInt(m_bottomValue));
        item->setMaxValue(toInt(m_topValue));
        item->setPos(m_axis->plotLeft(), m_topRow);
        item->setSize(qMax(0.0, m_axis->plotWidth()), m_bottomRow - m_topRow);
    }
    setLook(m_look);
}

/// In the upper right corner, as long as the plot has room for them.
void GraphScene::layOutCaptions()
{
    const QFontMetrics metrics = m_graph->fontMetrics();
    if (m_captionGap < 0 || m_gapFont != m_graph->font()) {
        m_gapFont = m_graph->font();
        m_captionGap = metrics.horizontalAdvance(QStringLiteral("XXX"));
    }
    const double right = viewSize().width() - 2 * metrics.horizontalAdvance(QLatin1Char('X'));
    const double bottom = viewSize().height() - 2 * metrics.height();
    const double plotWidth = m_axis->plotWidth();
    m_visibleSpan = qMax(0, toInt((plotWidth > 0 ? plotWidth : right) * MillisecondsPerPixel));
    m_captions->setVisible(plotWidth >= m_captions->getWidth() + m_captionGap);
    m_captions->setPos(right - m_captions->getWidth() - m_captionGap,
                       (bottom - m_captions->getHeight()) / 3.0);
}

void GraphScene::markExtremes(double minimum, double maximum)
{
    const bool hasPlace = maximum > minimum && m_topValue != m_bottomValue;
    m_minMarker->setVisible(hasPlace && m_look.hasMarkers && minimum != 0);
    m_maxMarker->setVisible(hasPlace && m_look.hasMarkers && maximum != 0);
    if (!hasPlace)
        return;
    const double scale = (m_bottomRow - m_topRow) / (m_topValue - m_bottomValue);
    placeMarker(m_maxMarker, maximum, m_topRow + (m_topValue - maximum) * scale);
    placeMarker(m_minMarker, minimum, m_bottomRow - (minimum - m_bottomValue) * scale);
    if (m_hasFrame)
        qCDebug(axrGraphs) << "ValueOverTimeGraph::scaleToData()"
                           << "yMinMarker:" << m_minMarker->y()
                           << "yMaxMarker:" << m_maxMarker->y();
}

void GraphScene::placeMarker(MarkerItem* marker, double value, double y)
{
    marker->setValue(toInt(value), QPointF(m_axis->plotLeft(), 0));
    marker->setPos(0, y);
}

void GraphScene::hideMarkers()
{
    m_minMarker->hide();
    m_maxMarker->hide();
}

void GraphScene::setTickRows(double top, double bottom)
{
    m_topRow = top;
    m_bottomRow = bottom;
}

void GraphScene::setTickValues(double bottom, double top)
{
    m_bottomValue = bottom;
    m_topValue = top;
}

void GraphScene::take(const Command& reply, qint64 now)
{
    for (GraphItem* item : qAsConst(m_items)) {
        if (isSameValue(*item, reply))
            item->addValue(reply.getValue(), now);
    }
}

void GraphScene::setTimeOutTime(qint64 time)
{
    for (GraphItem* item : qAsConst(m_items))
        item->setTimeOutTime(time);
}

void GraphScene::setFrozen(bool frozen)
{
    for (GraphItem* item : qAsConst(m_items))
        item->setFrozen(frozen);
}

bool GraphScene::isIncomplete() const
{
    return std::any_of(m_items.cbegin(), m_items.cend(),
                       [](const GraphItem* item) { return item->isIncomplete(); });
}
