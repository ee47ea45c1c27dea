#include "CurveLayer_p.h"

#include "CurveColumns_p.h"
#include "GraphItem.h"
#include "Numbers.h"
#include "XTimeAxisItem.h"

#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

// Fewer strokes than this many widths are drawn sooner than a picture is copied.
constexpr double PictureWidths = 1.0;
constexpr int EdgeColumns = 7; // px with ticks of the value axis
constexpr int LineReach = 2;   // px of an antialiased line to either side

qint64 floorMod(qint64 value, qint64 divisor)
{
    const qint64 rest = value % divisor;
    return rest < 0 ? rest + divisor : rest;
}

/// The end of a line, or where it is cut that goes on beyond the edge: in a whole row or column,
/// for the engine would cut it between two and draw the rest up to a pixel beside its place.
QPointF cut(const QPointF& end, const QPointF& other, double edge)
{
    const double slope = (other.y() - end.y()) / (other.x() - end.x());
    const double y = end.y() + slope * (edge - end.x());
    if (qAbs(slope) <= 1)
        return {edge, y};
    const double row = other.y() > y ? std::ceil(y) : std::floor(y);
    return {end.x() + (row - end.y()) / slope, row};
}

/// The line, without what of it lies beyond a picture of this width.
QLineF cut(const QLineF& line, int width)
{
    const QPointF left =
        line.x1() < -1 && line.x2() > -1 ? cut(line.p1(), line.p2(), -1) : line.p1();
    const double right = width + 1;
    return {left, line.x2() > right && left.x() < right ? cut(line.p2(), left, right) : line.p2()};
}

bool isWhole(double value) { return value == std::floor(value); }

} // namespace

CurveLayer::CurveLayer(XTimeAxisItem* axis) : m_axis(axis) {}

CurveLayer::~CurveLayer() = default;

void CurveLayer::add(GraphItem* item) { m_curves.push_back({item, CurveColumns::Nothing}); }

bool CurveLayer::Look::operator!=(const Look& other) const
{
    return size != other.size || place != other.place || height != other.height ||
           minValue != other.minValue || maxValue != other.maxValue || ground != other.ground ||
           !std::equal(
               bands.begin(), bands.end(), other.bands.begin(),
               [](const Rows& a, const Rows& b) { return a.top == b.top && a.bottom == b.bottom; });
}

QRectF CurveLayer::boundingRect() const { return scene() ? scene()->sceneRect() : QRectF(); }

bool CurveLayer::isDrawn() const
{
    return !m_curves.empty() && m_curves.front().item->m_useConnectedDataPoints;
}

void CurveLayer::paintGround(QPainter* painter, const QRect& area, const QBrush& brush)
{
    m_isLaid = isDrawn() && usesPicture(*painter, brush) && advancePicture();
    if (!m_isLaid) {
        painter->fillRect(area, brush);
        return;
    }
    const int left = toInt(m_look.place.x()) + EdgeColumns;
    const int width = m_look.size.width() - EdgeColumns;
    const int right = left + width;
    painter->fillRect(area.left(), area.top(), left - area.left(), area.height(), brush);
    painter->fillRect(right, area.top(), area.right() + 1 - right, area.height(), brush);
    int top = area.top();
    for (const Rows& band : m_look.bands) {
        painter->fillRect(left, top, width, band.top - top, brush);
        copyRows(painter, m_opaque, band);
        top = band.bottom;
    }
    painter->fillRect(left, top, width, area.bottom() + 1 - top, brush);
}

void CurveLayer::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (!isDrawn())
        return;
    for (const Curve& curve : m_curves) {
        curve.item->separateRange();
        curve.item->m_hasLines = true;
    }
    if (!std::exchange(m_isLaid, false)) {
        drawDirectly(painter, toInt(boundingRect().width()));
        return;
    }
    int top = 0;
    for (const Rows& band : m_look.bands) {
        copyRows(painter, m_picture, {top, band.top});
        top = band.bottom;
    }
    copyRows(painter, m_picture, {top, m_picture.height()});
    drawDirectly(painter, EdgeColumns);
}

bool CurveLayer::usesPicture(const QPainter& painter, const QBrush& brush)
{
    for (const Curve& curve : m_curves)
        curve.item->separateRange();
    const QTransform& device = painter.deviceTransform();
    const GraphItem& first = *m_curves.front().item;
    const bool isPixelForPixel = painter.testRenderHint(QPainter::Antialiasing) &&
                                 device.type() <= QTransform::TxTranslate && isWhole(device.dx()) &&
                                 isWhole(device.dy()) && isWhole(first.x());
    const bool ascends = std::all_of(m_curves.begin(), m_curves.end(), [](const Curve& curve) {
        return curve.item->m_columns->isAscending();
    });
    if (!ascends)
        m_look = {}; // no part of the picture can be told from the others
    // A look that changes from frame to frame, as while the range grows, is not worth a picture.
    const Look wanted = look(brush, painter.fontMetrics().height());
    const bool isNew = std::exchange(m_wanted, wanted) != wanted;
    return ascends && isPixelForPixel && !isNew && wanted.size.width() > EdgeColumns &&
           brush.style() == Qt::SolidPattern && brush.isOpaque() &&
           static_cast<double>(strokes()) >= PictureWidths * wanted.size.width();
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

/// \param width of the plot's left part that is to be drawn, in pixels
void CurveLayer::drawDirectly(QPainter* painter, int width)
{
    const CurveGeometry geometry = m_curves.front().item->geometry();
    if (geometry.isEmpty())
        return;
    clipToDevice(painter);
    const QPointF place = m_curves.front().item->pos();
    const QRectF clip = painter->clipBoundingRect();
    if (width < geometry.width)
        painter->setClipRect(clip & QRectF(place.x(), 0, width, boundingRect().height()));
    painter->translate(place);
    const qint64 left = geometry.origin();
    for (const Curve& curve : m_curves) {
        const std::vector<QLineF>& lines = m_strokes.lines(
            *curve.item->m_columns, curve.item->geometry(), left, left + width + LineReach, left);
        if (lines.empty())
            continue;
        painter->setPen(curve.item->m_pen);
        painter->drawLines(lines.data(), static_cast<int>(lines.size()));
    }
    painter->translate(-place);
    if (width < geometry.width)
        painter->setClipRect(clip); // a view's own, a rectangle
}

CurveLayer::Look CurveLayer::look(const QBrush& brush, int fontHeight) const
{
    const GraphItem& item = *m_curves.front().item;
    const CurveGeometry geometry = item.geometry();
    const QSize size(toInt(geometry.width), toInt(boundingRect().height()));
    return {size,
            item.pos(),
            geometry.height,
            geometry.minValue,
            geometry.maxValue,
            brush.color().rgb(),
            bands(size.height(), fontHeight)};
}

/// Above and below the rows of the time axis, below its caption.
CurveLayer::Bands CurveLayer::bands(int height, int fontHeight) const
{
    if (!m_axis)
        return {Rows{0, height}, Rows{height, height}};
    const TimeAxisGeometry axis = m_axis->geometry(fontHeight);
    const int first = m_axis->m_yCaption.isEmpty() ? 0 : qBound(0, axis.captionBottom(), height);
    const int top = qBound(first, axis.timeRows().top, height);
    return {Rows{first, top}, Rows{qBound(top, axis.timeRows().bottom, height), height}};
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
        changed = qMin(changed, columns.takeChange(CurveColumns::Lines));
        const std::size_t next = columns.findAfter(m_time);
        if (next < columns.size() && columns[next].time <= geometry.actualTime)
            changed = qMin(changed, columns[next > 0 ? next - 1 : 0].slot);
        const qint64 firstLine = CurveStrokes::firstLine(columns, geometry);
        if (firstLine != curve.firstLine)
            gone = qMax(gone, qMin(firstLine, right) + LineReach);
        curve.firstLine = firstLine;
    }
    changed = qMax(changed - LineReach, left);

    if (m_picture.size() != look.size) {
        m_picture = QImage(look.size, QImage::Format_ARGB32_Premultiplied);
        m_opaque = QImage(m_picture.bits(), look.size.width(), look.size.height(),
                          m_picture.bytesPerLine(), QImage::Format_RGB32);
    }
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
    const auto clear = [&](int top, int bottom, QRgb ground) {
        for (int y = top; y < bottom; ++y)
            std::fill_n(reinterpret_cast<QRgb*>(m_picture.scanLine(y)) + x, width, ground);
    };
    int top = 0;
    for (const Rows& band : m_look.bands) {
        clear(top, band.top, qRgba(0, 0, 0, 0));
        clear(band.top, band.bottom, m_look.ground);
        top = band.bottom;
    }
    clear(top, m_picture.height(), qRgba(0, 0, 0, 0));
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(x, 0, width, m_picture.height());
    painter.translate(0, m_look.place.y());
    for (const Curve& curve : m_curves) {
        const GraphItem& item = *curve.item;
        painter.setPen(item.m_pen);
        std::vector<QLineF>& lines = m_strokes.lines(*item.m_columns, item.geometry(),
                                                     from - LineReach, to + LineReach, base);
        for (QLineF& line : lines)
            line = cut(line, m_look.size.width());
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }
}

/// The columns right of the value axis' ticks, of some rows.
void CurveLayer::copyRows(QPainter* painter, const QImage& picture, const Rows& rows) const
{
    const int height = rows.bottom - rows.top;
    if (height <= 0)
        return;
    const int width = picture.width();
    const qint64 right = CurveColumns::slotOf(m_time);
    int x = EdgeColumns;
    while (x < width) { // two parts, for the columns go round
        const auto from = static_cast<int>(floorMod(right - width + x, width));
        const int part = qMin(width - from, width - x);
        painter->drawImage(QPointF(m_look.place.x() + x, rows.top), picture,
                           QRectF(from, rows.top, part, height));
        x += part;
    }
}
