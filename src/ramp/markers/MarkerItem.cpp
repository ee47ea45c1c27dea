#include "MarkerItem.h"

#include "BasicTools.h"
#include "MarkerParts_p.h"
#include "StraightLine_p.h"

#include <QFontMetrics>
#include <QPointer>

#include <cmath>

namespace
{

constexpr QChar LineFeed(QLatin1Char('\n'));
constexpr double PaddingPerLine = 3.0;
constexpr double TextMargin = 2.0;
constexpr double LineFeedMargin = 8.0; // on either side, room for the value
constexpr double ValueIndent = 10.0;

int valueAlignment(const QString& text)
{
    if (text.endsWith(LineFeed))
        return Qt::AlignBottom;
    return text.startsWith(LineFeed) ? Qt::AlignTop : 0;
}

/// A text that is laid out once, for frames that only draw it.
void prepare(QStaticText* laidOut, const QString& text, const QFont& font)
{
    laidOut->setTextFormat(Qt::PlainText);
    laidOut->setText(text);
    laidOut->prepare(QTransform(), font);
}

} // namespace

MarkerItem::MarkerItem(bool vertical, QString text, QPen pen, QSizeF size, bool movable,
                       QGraphicsItem* parent)
    : QGraphicsObject(parent)
    , m_text(text)
    , m_pen(pen)
    , m_size(size)
    , m_vertical(vertical)
    , m_valueText(BasicTools::intInsertDot(0, 0))
    , m_valueAlignment(valueAlignment(text))
{
    setMarkerMovable(this, movable);
    setAcceptHoverEvents(true);
    if (movable)
        setToolTip(text + tr(": press to drag"));
}

void MarkerItem::adjust(QFont font)
{
    if (m_measured && font == m_font)
        return;
    const double padding = (m_text.count(LineFeed) + 1) * PaddingPerLine;
    m_textRect = QFontMetrics(font).boundingRect(m_text + QLatin1Char('|'));
    m_textRect.adjust(-TextMargin, -padding, TextMargin, padding);
    const double width = m_textRect.width();
    const double height = m_textRect.height();
    m_rect = m_vertical ? QRectF(-height / 2, -width, height, m_size.height() + width)
                        : QRectF(0, -height / 2, width + m_size.width(), height);
    if (m_text.contains(LineFeed))
        m_rect.adjust(0, -LineFeedMargin, 0, LineFeedMargin);
    m_font = font;
    m_measured = true;
    layOutCaption();
    layOutValue();
    updateBounds();
    update();
}

void MarkerItem::setValue(int value, QPointF point)
{
    if (value == m_value && point == m_point)
        return;
    m_value = value;
    m_valueText = BasicTools::intInsertDot(value, 0);
    m_point = point;
    layOutValue();
    updateBounds();
    update();
}

void MarkerItem::layOutCaption()
{
    m_captionLines.clear();
    if (m_vertical)
        return;
    const QFontMetricsF metrics(m_font);
    const QStringList lines =
        QString(m_text).replace(QLatin1Char('\t'), QLatin1Char(' ')).split(LineFeed);
    double bottom = m_rect.bottom();
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        CaptionLine one;
        prepare(&one.text, *line, m_font);
        one.place = QPointF(m_rect.right() - metrics.horizontalAdvance(*line),
                            bottom - std::ceil(metrics.height()));
        bottom = one.place.y() - metrics.leading();
        if (!line->isEmpty())
            m_captionLines.push_back(one);
    }
}

void MarkerItem::layOutValue()
{
    if (m_measured && m_valueAlignment)
        prepare(&m_laidOutValue, m_valueText, m_font);
}

/// The line's start and the value may stand outside of the rectangle of caption and line.
void MarkerItem::updateBounds()
{
    if (!m_measured)
        return;
    QRectF bounds = m_rect;
    if (!m_vertical) {
        const double start = m_point.y() + m_rect.center().y();
        bounds.setLeft(qMin(bounds.left(), m_point.x()));
        bounds.setTop(qMin(bounds.top(), start));
        bounds.setBottom(qMax(bounds.bottom(), start));
        if (m_valueAlignment) {
            const double end =
                m_point.x() + ValueIndent + QFontMetrics(m_font).horizontalAdvance(m_valueText);
            bounds.setRight(qMax(bounds.right(), end));
        }
    }
    if (bounds == m_bounds)
        return;
    prepareGeometryChange();
    m_bounds = bounds;
}

void MarkerItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (isSelected())
        drawMarkerSelection(painter, m_rect, m_pen.color(), m_pen.widthF());
    painter->setPen(m_pen);
    painter->setFont(m_font); // the one that was measured
    if (m_vertical)
        drawVertical(painter);
    else
        drawHorizontal(painter);
}

void MarkerItem::drawVertical(QPainter* painter) const
{
    painter->save();
    painter->translate(0.25 * m_textRect.height(), m_rect.y() + m_textRect.width());
    painter->rotate(270);
    painter->drawText(m_textRect, Qt::AlignCenter | Qt::TextDontClip, m_text);
    painter->restore();
    const double bottom = m_rect.bottom();
    painter->drawLine(QPointF(0, bottom), QPointF(0, bottom - m_size.height()));
}

void MarkerItem::drawHorizontal(QPainter* painter) const
{
    for (const CaptionLine& line : m_captionLines)
        painter->drawStaticText(line.place, line.text);
    const double middle = m_rect.center().y();
    drawStraightLine(painter, QLineF(m_point.x(), m_point.y() + middle, m_size.width(), middle));
    if (!m_valueAlignment)
        return;
    const double y = m_valueAlignment == Qt::AlignTop
                         ? m_rect.top()
                         : m_rect.bottom() - m_laidOutValue.size().height();
    painter->drawStaticText(QPointF(m_point.x() + ValueIndent, y), m_laidOutValue);
}

QVariant MarkerItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change != ItemPositionChange || !hasRoom(this))
        return QGraphicsObject::itemChange(change, value);
    const QRectF room = roomOf(this);
    QPointF point = value.toPointF();
    if (m_vertical) {
        point.setX(qBound(room.left(), point.x(), room.right()));
        point.setY(room.height() - m_rect.bottom());
    } else {
        point.setX(m_rect.x());
        point.setY(qBound(room.top(), point.y(), room.bottom()));
    }
    return point;
}

void MarkerItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<MarkerItem> alive(this);
    emit mouseReleased();
    if (alive)
        QGraphicsObject::mouseReleaseEvent(event);
}
