#include "CurveLayer_p.h"

#include "CurveColumns_p.h"
#include "GraphItem.h"
#include "Numbers.h"

#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace
{

// Fewer strokes than this many widths are drawn sooner than a picture is copied.
constexpr double PictureWidths = 1.0;
constexpr int LineReach = 2; // px of an antialiased line to either side

qint64 floorMod(qint64 value, qint64 divisor)
{
    const qint64 rest = value % divisor;
    return rest < 0 ? rest + divisor : rest;
}

bool isWhole(double value) { return value == std::floor(value); }

} // namespace

CurveLayer::CurveLayer() = default;

CurveLayer::~CurveLayer() = default;

void CurveLayer::add(GraphItem* item)
{
    item->m_hasLayer = true;
    m_curves.push_back({item, CurveColumns::Nothing});
}

bool CurveLayer::Look::operator!=(const Look& other) const
{
    return size != other.size || place != other.place || height != other.height ||
           minValue != other.minValue || maxValue != other.maxValue;
}

QRectF CurveLayer::boundingRect() const { return scene() ? scene()->sceneRect() : QRectF(); }

void CurveLayer::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_curves.empty() || !m_curves.front().item->m_useConnectedDataPoints)
        return;
    for (const Curve& curve : m_curves)
        curve.item->separateRange();
    const QTransform& device = painter->deviceTransform();
    const bool isPixelForPixel = painter->testRenderHint(QPainter::Antialiasing) &&
                                 device.type() <= QTransform::TxTranslate && isWhole(device.dx()) &&
                                 isWhole(device.dy()) && isWhole(m_curves.front().item->x());
    // A look that changes from frame to frame, as while the range grows, is not worth a picture.
    const bool isNew = std::exchange(m_wanted, look()) != look();
    const bool ascends = std::all_of(m_curves.begin(), m_curves.end(), [](const Curve& curve) {
        return curve.item->m_columns->isAscending();
    });
    if (!ascends)
        m_look = {}; // no part of the picture can be told from the others
    if (!ascends || !isPixelForPixel || isNew || strokes() < PictureWidths * boundingRect().width())
        drawDirectly(painter);
    else if (advancePicture())
        copyPicture(painter);
}

std::size_t CurveLayer::strokes() const
{
    std::size_t count = 0;
    for (const Curve& curve : m_curves) {
        const CurveColumns& columns = *curve.item->m_columns;
        count += columns.size() - columns.find(curve.item->geometry().origin());
    }
    return count;
}

void CurveLayer::drawDirectly(QPainter* painter)
{
    for (const Curve& curve : m_curves) {
        const GraphItem& item = *curve.item;
        painter->save();
        painter->translate(item.pos());
        painter->setPen(item.m_pen);
        if (!item.geometry().isEmpty())
            m_strokes.drawLines(painter, *item.m_columns, item.geometry());
        painter->restore();
    }
}

CurveLayer::Look CurveLayer::look() const
{
    const GraphItem& item = *m_curves.front().item;
    const CurveGeometry geometry = item.geometry();
    return {QSize(toInt(geometry.width), toInt(boundingRect().height())), item.pos(),
            geometry.height, geometry.minValue, geometry.maxValue};
}

bool CurveLayer::advancePicture()
{
    const CurveGeometry geometry = m_curves.front().item->geometry();
    if (geometry.isEmpty())
        return false;
    const Look look = m_wanted;
    const qint64 left = geometry.origin();
    const qint64 right = left + look.size.width();
    const qint64 oldRight = CurveColumns::slotOf(m_time);

    // What is right of `changed`, and what is left of `gone`, is to be drawn again.
    qint64 changed = oldRight;
    qint64 gone = left;
    if (look != m_look || geometry.actualTime < m_time || oldRight <= left)
        changed = left;
    for (Curve& curve : m_curves) {
        CurveColumns& columns = *curve.item->m_columns;
        changed = qMin(changed, columns.takeChange());
        const std::size_t next = columns.findAfter(m_time);
        if (next < columns.size() && columns[next].time <= geometry.actualTime)
            changed = qMin(changed, columns[next > 0 ? next - 1 : 0].slot);
        const qint64 firstLine = CurveStrokes::firstLine(columns, geometry);
        if (firstLine != curve.firstLine)
            gone = qMax(gone, qMin(firstLine, right) + LineReach);
        curve.firstLine = firstLine;
    }
    changed = qMax(changed - LineReach, left);

    if (m_picture.size() != look.size)
        m_picture = QImage(look.size, QImage::Format_ARGB32_Premultiplied);
    m_look = look;
    m_time = geometry.actualTime;
    if (gone >= changed) {
        redraw(left, right);
    } else {
        redraw(left, gone);
        redraw(changed, right);
    }
    return !m_picture.isNull();
}

void CurveLayer::redraw(qint64 from, qint64 to)
{
    const qint64 width = m_look.size.width();
    while (from < to) {
        const qint64 base = from - floorMod(from, width);
        const qint64 end = qMin(to, base + width);
        redrawPart(base, from, end);
        from = end;
    }
}

void CurveLayer::redrawPart(qint64 base, qint64 from, qint64 to)
{
    const auto x = static_cast<int>(from - base);
    const auto width = static_cast<int>(to - from);
    for (int y = 0; y < m_picture.height(); ++y)
        std::memset(reinterpret_cast<QRgb*>(m_picture.scanLine(y)) + x, 0,
                    static_cast<std::size_t>(width) * sizeof(QRgb));
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(x, 0, width, m_picture.height());
    painter.translate(0, m_look.place.y());
    for (const Curve& curve : m_curves) {
        const GraphItem& item = *curve.item;
        painter.setPen(item.m_pen);
        const std::vector<QLineF>& lines = m_strokes.lines(*item.m_columns, item.geometry(),
                                                           from - LineReach, to + LineReach, base);
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }
}

void CurveLayer::copyPicture(QPainter* painter) const
{
    const int width = m_picture.width();
    const int height = m_picture.height();
    const qint64 left = CurveColumns::slotOf(m_time) - width;
    const auto first = static_cast<int>(floorMod(left, width));
    const QPointF place(m_look.place.x(), 0);
    painter->drawImage(place, m_picture, QRectF(first, 0, width - first, height));
    painter->drawImage(place + QPointF(width - first, 0), m_picture, QRectF(0, 0, first, height));
}
