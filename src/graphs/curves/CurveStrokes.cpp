#include "CurveStrokes_p.h"

#include "CurveColumns_p.h"
#include "Numbers.h"
#include "StraightLine_p.h"

#include <QPainter>
#include <QTransform>

#include <cmath>
#include <utility>

namespace
{

constexpr double BoldDistance = 20.0; // px of way from dot to dot
constexpr int Margin = 1;             // px from a dot's picture to the circle

/// The leftmost pixels start no line.
bool startsLine(const CurveColumns::Column& column, const CurveGeometry& geometry)
{
    return geometry.exactX(column.time) > 1.0;
}

/// Calls visit(column) for the columns in sight in the order of their arrival. Of ascending ones
/// only for those between two slots and, for the lines across the ends, for one more at each.
template <class Visit>
void forEachInSight(const CurveColumns& columns, const CurveGeometry& geometry, qint64 from,
                    qint64 to, Visit visit)
{
    const qint64 left = geometry.origin();
    if (columns.isAscending()) {
        const std::size_t start = columns.find(left);
        std::size_t i = columns.find(from);
        for (i = i > start ? i - 1 : start; i < columns.size(); ++i) {
            if (columns[i].time > geometry.actualTime)
                return;
            visit(columns[i]);
            if (columns[i].slot > to)
                return;
        }
        return;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].slot >= left && columns[i].time <= geometry.actualTime)
            visit(columns[i]);
    }
}

} // namespace

int CurveGeometry::timeSpan() const { return toInt(CurveColumns::Milliseconds * width); }

double CurveGeometry::exactX(qint64 time) const
{
    return width - static_cast<double>(actualTime - time) * width / timeSpan();
}

qint64 CurveGeometry::origin() const { return CurveColumns::slotOf(actualTime) - toInt(width); }

int CurveGeometry::y(double value) const
{
    // beyond a million pixels a line's slope is no longer to be seen
    constexpr double Far = 1e6;
    const double range = static_cast<double>(maxValue) - minValue;
    return toInt(qBound(-Far, (maxValue - value) * height / range, Far));
}

std::vector<QLineF>& CurveStrokes::lines(const CurveColumns& columns, const CurveGeometry& geometry,
                                         qint64 from, qint64 to, qint64 origin)
{
    m_lines.clear();
    bool connects = false;
    QPointF previous;
    forEachInSight(columns, geometry, from, to, [&](const CurveColumns::Column& column) {
        const auto x = static_cast<qreal>(column.slot - origin);
        if (connects)
            m_lines.emplace_back(previous, QPointF(x, geometry.y(column.first)));
        connects = startsLine(column, geometry);
        if (connects && column.lowest < column.highest)
            m_lines.emplace_back(x, geometry.y(column.highest), x, geometry.y(column.lowest));
        previous = QPointF(x, geometry.y(column.last));
    });
    return m_lines;
}

void CurveStrokes::drawLines(QPainter* painter, const CurveColumns& columns,
                             const CurveGeometry& geometry)
{
    const qint64 origin = geometry.origin();
    lines(columns, geometry, origin, CurveColumns::slotOf(geometry.actualTime), origin);
    clipToDevice(painter);
    painter->drawLines(m_lines.data(), static_cast<int>(m_lines.size()));
}

qint64 CurveStrokes::firstLine(const CurveColumns& columns, const CurveGeometry& geometry)
{
    for (std::size_t i = columns.find(geometry.origin()); i < columns.size(); ++i) {
        if (startsLine(columns[i], geometry))
            return columns[i].slot;
    }
    return CurveColumns::Nothing;
}

const std::vector<QPoint>& CurveStrokes::dots(CurveColumns& columns, const CurveGeometry& geometry,
                                              Dots dots, const QTransform& scene)
{
    const qint64 changed = columns.takeChange(CurveColumns::Dots);
    const CurveGeometry before = std::exchange(m_dotsGeometry, geometry);
    m_dotsBefore.swap(m_dots);
    m_dots.clear();
    const bool isShifted = scene.type() <= QTransform::TxTranslate;
    const bool isWalk = dots == ThinnedDots && isShifted && columns.isAscending();
    const bool wasWalk = std::exchange(m_dotsAreWalk, isWalk);
    if (dots == NoDots)
        return m_dots;
    const qint64 origin = geometry.origin();
    QPoint lastBold(-1, -1);
    const auto mark = [&](const QPoint& point) {
        if (dots == ThinnedDots) {
            QPointF way = point - lastBold;
            if (!isShifted)
                way = scene.map(way) - scene.map(QPointF());
            if (QPointF::dotProduct(way, way) <= BoldDistance * BoldDistance)
                return;
            lastBold = point;
        }
        m_dots.push_back(point);
    };
    const auto markColumn = [&](const CurveColumns::Column& column) {
        const auto x = static_cast<int>(column.slot - origin);
        const QPoint first(x, geometry.y(column.first));
        mark(first);
        if (column.lowest == column.highest)
            return;
        const QPoint highest(x, geometry.y(column.highest));
        const QPoint lowest(x, geometry.y(column.lowest));
        const QPoint last(x, geometry.y(column.last));
        if (highest != first)
            mark(highest);
        if (lowest != first)
            mark(lowest);
        if (last != first && last != highest && last != lowest)
            mark(last);
    };
    if (!isWalk) {
        forEachInSight(columns, geometry, origin, CurveColumns::Nothing, markColumn);
        return m_dots;
    }

    // Which point gets the next dot depends on the dot before alone. So where this frame and the
    // one before set the same dot, they agree from there on, up to the first column that changed.
    bool compares = wasWalk && before.height == geometry.height &&
                    before.minValue == geometry.minValue && before.maxValue == geometry.maxValue &&
                    before.actualTime <= geometry.actualTime;
    const std::size_t unseen = compares ? columns.findAfter(before.actualTime) : 0;
    const qint64 same =
        qMin(changed, unseen < columns.size() ? columns[unseen].slot : CurveColumns::Nothing);
    const QPoint shift(static_cast<int>(origin - before.origin()), 0);
    auto old = m_dotsBefore.cbegin();
    for (std::size_t i = columns.find(origin); i < columns.size(); ++i) {
        const CurveColumns::Column& column = columns[i];
        if (column.time > geometry.actualTime)
            break;
        const std::size_t count = m_dots.size();
        markColumn(column);
        if (!compares || m_dots.size() == count || column.slot >= same)
            continue;
        while (old != m_dotsBefore.cend() && old->x() - shift.x() <= lastBold.x())
            ++old;
        if (old == m_dotsBefore.cbegin() || *(old - 1) - shift != lastBold)
            continue;
        for (; old != m_dotsBefore.cend() && old->x() - shift.x() + origin < same; ++old)
            m_dots.push_back(*old - shift);
        lastBold = m_dots.back();
        i = columns.find(same) - 1;
        compares = false;
    }
    return m_dots;
}

void clipToDevice(QPainter* painter)
{
    if (paintsPixels(painter) && !painter->hasClipping() && !painter->viewTransformEnabled())
        painter->setClipRect(
            painter->worldTransform().inverted().mapRect(QRectF(painter->viewport())));
}

void DotPicture::draw(QPainter* painter, const std::vector<QPoint>& points, int diameter)
{
    if (points.empty())
        return;
    const int radius = diameter / 2;
    const QTransform& device = painter->deviceTransform();
    if (device.type() > QTransform::TxTranslate || !paintsPixels(painter)) {
        for (const QPoint& point : points)
            painter->drawEllipse(point.x() - radius, point.y() - radius, diameter, diameter);
        return;
    }
    const QPointF shift(device.dx() - std::floor(device.dx()),
                        device.dy() - std::floor(device.dy()));
    make(painter->pen().color(), diameter, shift, painter->renderHints());
    const QPointF corner = shift + QPointF(radius + Margin, radius + Margin) - m_inked.topLeft();
    for (const QPoint& point : points)
        painter->drawImage(point - corner, m_picture);
}

void DotPicture::make(const QColor& color, int diameter, const QPointF& shift,
                      QPainter::RenderHints hints)
{
    if (m_diameter == diameter && m_color == color && m_shift == shift && m_hints == hints)
        return;
    m_diameter = diameter;
    m_color = color;
    m_shift = shift;
    m_hints = hints;
    const int side = diameter + 2 * Margin + 1;
    m_picture = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    m_picture.fill(Qt::transparent);
    QPainter painter(&m_picture);
    painter.setRenderHints(hints);
    painter.setPen(QPen(color, 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(shift + QPointF(Margin, Margin));
    painter.drawEllipse(0, 0, diameter, diameter);
    painter.end();
    crop();
}

/// To what is inked, for each row of each dot counts.
void DotPicture::crop()
{
    m_inked = QRect();
    for (int y = 0; y < m_picture.height(); ++y) {
        for (int x = 0; x < m_picture.width(); ++x) {
            if (qAlpha(m_picture.pixel(x, y)) > 0)
                m_inked |= QRect(x, y, 1, 1);
        }
    }
    m_picture = m_picture.copy(m_inked);
}
