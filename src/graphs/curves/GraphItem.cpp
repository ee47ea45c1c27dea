#include "GraphItem.h"

#include "CurveColumns_p.h"
#include "CurveStrokes_p.h"
#include "Numbers.h"

#include <QDateTime>
#include <QPainter>

#include <utility>

namespace
{

constexpr int BoldDot = 4; // px
constexpr int SmallDot = 2;

} // namespace

/// What an item keeps from frame to frame, so that a frame allocates nothing.
class CurveDrawing
{
public:
    CurveStrokes strokes;
    DotPicture dot;
};

GraphItem::GraphItem()
    : m_columns(std::make_shared<CurveColumns>()), m_drawing(std::make_unique<CurveDrawing>())
{
    setTimeOutTime(QDateTime::currentMSecsSinceEpoch());
    setValues(QColor(), {});
}

GraphItem::~GraphItem() = default;

QRectF GraphItem::boundingRect() const { return {0, 0, m_width, m_height}; }

void GraphItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    separateRange();
    const bool hasLines = std::exchange(m_hasLines, false);
    const CurveGeometry area = geometry();
    if (area.isEmpty())
        return;
    painter->setPen(m_pen);
    if (m_useConnectedDataPoints && !hasLines)
        m_drawing->strokes.drawLines(painter, *m_columns, area);
    CurveStrokes::Dots dots = CurveStrokes::NoDots;
    if (m_dataPointsEnabled)
        dots = m_useBoldDataPoints ? CurveStrokes::ThinnedDots : CurveStrokes::AllDots;
    m_drawing->dot.draw(painter, m_drawing->strokes.dots(*m_columns, area, dots, sceneTransform()),
                        m_useBoldDataPoints ? BoldDot : SmallDot);
}

CurveGeometry GraphItem::geometry() const
{
    return {m_width, m_height, m_actualTime, m_minValue, m_maxValue};
}

void GraphItem::separateRange()
{
    if (m_minValue != m_maxValue)
        return;
    m_maxValue = toInt(qint64(m_maxValue) + 1); // at the ends of int only the other side gives way
    m_minValue = toInt(qint64(m_minValue) - 1);
}

void GraphItem::setSize(double width, double height)
{
    if (width == m_width && height == m_height)
        return;
    prepareGeometryChange();
    m_width = width;
    m_height = height;
}

void GraphItem::setTimeOutTime(const qint64& timeOutTime)
{
    m_columns->setTimeOutTime(timeOutTime);
}

void GraphItem::setValues(QColor color, QList<TValue> values)
{
    m_pen = QPen(color, 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    m_columns->clear();
    for (const TValue& sample : qAsConst(values))
        m_columns->add(sample.value, sample.time);
    update();
}

void GraphItem::addValue(double value) { addValue(value, QDateTime::currentMSecsSinceEpoch()); }

void GraphItem::addValue(double value, qint64 time) { m_columns->append(value, time); }

void GraphItem::follow(Graph* graph, const std::shared_ptr<CurveColumns>& kept)
{
    m_columns->setTimeOutTime(graph->m_timeOutTime);
    setValues(graph->getColor(), kept ? QList<TValue>() : graph->getValues());
    if (kept)
        m_columns = kept;
    graph->m_drawn = m_columns;
}

void GraphItem::setFrozen(bool frozen)
{
    if (frozen)
        m_columns->freeze(m_actualTime);
    else
        m_columns->unfreeze();
}

bool GraphItem::isIncomplete() const { return m_columns->isIncomplete(); }
