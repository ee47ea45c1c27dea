#include "GraphItem.h"

#include "CurveColumns_p.h"
#include "CurveStrokes_p.h"
#include "Numbers.h"

#include <QDateTime>
#include <QPainter>

namespace
{

constexpr int BoldDot = 4; // px
constexpr int SmallDot = 2;

} // namespace

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
    if (m_minValue == m_maxValue) {
        // at the ends of int the other side alone gives way
        m_maxValue = toInt(qint64(m_maxValue) + 1);
        m_minValue = toInt(qint64(m_minValue) - 1);
    }
    const CurveGeometry geometry{m_width, m_height, m_actualTime, m_minValue, m_maxValue};
    if (geometry.timeSpan() <= 0 || m_height <= 0)
        return;
    CurveStrokes& strokes = m_drawing->strokes;
    strokes.build(*m_columns, geometry, m_useConnectedDataPoints,
                  m_useBoldDataPoints ? CurveStrokes::ThinnedDots : CurveStrokes::AllDots,
                  sceneTransform());
    painter->setPen(m_pen);
    // with a clip the engine draws antialiased lines many times faster
    painter->setClipRect(painter->worldTransform().inverted().mapRect(QRectF(painter->viewport())));
    painter->drawLines(strokes.lines().data(), static_cast<int>(strokes.lines().size()));
    m_drawing->dot.draw(painter, strokes.dots(), m_useBoldDataPoints ? BoldDot : SmallDot);
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

void GraphItem::show(Graph* graph)
{
    setValues(graph->getColor(), graph->getValues());
    graph->m_drawn = m_columns;
}
