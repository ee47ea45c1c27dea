#include "XTimeAxisItem.h"

#include "BasicTools.h"
#include "CurveStrokes_p.h"
#include "Numbers.h"
#include "TimeAxisGeometry_p.h"

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QPainter>
#include <QStaticText>

#include <array>
#include <vector>

/// The texts at the ticks, laid out once: a frame mostly draws those of the one before.
class AxisLabels
{
public:
    struct Label {
        QStaticText text;
        int width = -1; // none yet
        double value = 0;
    };

    void setFont(const QFont& font)
    {
        if (font == m_font)
            return;
        m_font = font;
        m_values = {};
        m_seconds = {};
    }

    const Label& value(int tick, double value)
    {
        Label& label = m_values[static_cast<std::size_t>(tick)];
        if (label.width < 0 || label.value != value) {
            label.value = value;
            lay(&label, BasicTools::intInsertDot(value, 1));
        }
        return label;
    }

    const Label& second(int second)
    {
        Label& label = m_seconds[static_cast<std::size_t>(qBound(0, second, 59))];
        if (label.width < 0)
            lay(&label, QStringLiteral("%1 s").arg(second));
        return label;
    }

    void draw(QPainter* painter, const QPoint& baseline, const Label& label) const
    {
        painter->drawStaticText(baseline - QPoint(0, QFontMetrics(m_font).ascent()), label.text);
    }

private:
    void lay(Label* label, const QString& text) const
    {
        label->text = QStaticText(text);
        label->text.setTextFormat(Qt::PlainText);
        label->text.prepare(QTransform(), m_font);
        label->width = QFontMetrics(m_font).horizontalAdvance(text);
    }

    QFont m_font;
    std::array<Label, TimeAxisGeometry::MaximumValueTicks> m_values;
    std::array<Label, 60> m_seconds;
};

XTimeAxisItem::XTimeAxisItem()
    : m_pen(Qt::black, 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
    , m_labels(std::make_unique<AxisLabels>())
{
}

XTimeAxisItem::~XTimeAxisItem() = default;

QRectF XTimeAxisItem::boundingRect() const { return scene() ? scene()->sceneRect() : QRectF(); }

void XTimeAxisItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_minValue == m_maxValue) {
        m_maxValue = toInt(qint64(m_maxValue) + 1);
        m_minValue = toInt(qint64(m_minValue) - 1);
    }
    const int fontHeight = painter->fontMetrics().height();
    m_leftMargin = m_maxTextWidth;
    m_topMargin = m_bottomMargin = 1.5 * fontHeight;
    const TimeAxisGeometry geometry(m_width, m_height, m_minValue, m_maxValue, m_leftMargin,
                                    fontHeight);
    m_labels->setFont(painter->font());
    painter->setPen(m_pen);
    clipToDevice(painter);
    const int widest = drawValueAxis(painter, geometry);
    m_areaTop = geometry.topmost().y;
    m_areaBottom = geometry.bottommost().y;
    emit updateMaxTextWidth(widest + 20);
    emit updateYMinMax(m_areaTop, m_areaBottom);
    emit updateMinMaxValue(geometry.bottommost().value, geometry.topmost().value);
    drawTimeAxis(painter, geometry);
}

int XTimeAxisItem::drawValueAxis(QPainter* painter, const TimeAxisGeometry& geometry)
{
    std::array<QLine, TimeAxisGeometry::MaximumValueTicks + 1> lines;
    int count = 0;
    const int x = toInt(m_leftMargin);
    lines[0] = {x, toInt(geometry.top()), x, toInt(geometry.bottom())};
    int widest = 0;
    for (const auto& tick : geometry) {
        const AxisLabels::Label& label = m_labels->value(count, tick.value);
        lines[static_cast<std::size_t>(++count)] = geometry.valueTickLine(tick);
        if (tick.hasLabel())
            m_labels->draw(painter, geometry.valueLabel(tick, label.width), label);
        widest = qMax(widest, label.width);
    }
    painter->drawLines(lines.data(), count + 1);
    if (!m_yCaption.isEmpty())
        painter->drawText(toInt(m_leftMargin + 30.0),
                          toInt(0.5 * painter->fontMetrics().height() + geometry.top()),
                          m_yCaption);
    return widest;
}

void XTimeAxisItem::drawTimeAxis(QPainter* painter, const TimeAxisGeometry& geometry)
{
    const int zero = toInt(geometry.zeroLine());
    painter->drawLine(toInt(m_leftMargin + 1.0), zero, toInt(m_width), zero);
    geometry.forEachTimeTick(m_actualTime, [&](const TimeAxisGeometry::TimeTick& tick) {
        painter->drawLine(geometry.timeTickLine(tick));
        if (!tick.isMajor)
            return;
        const AxisLabels::Label& label = m_labels->second(tick.second);
        const QPoint baseline = geometry.timeLabel(tick, label.width);
        if (baseline.x() >= 0)
            m_labels->draw(painter, baseline, label);
    });
}

void XTimeAxisItem::setSize(qreal width, qreal height)
{
    m_width = width;
    m_height = height;
}

void XTimeAxisItem::setMaxTextWidth(int maxTextWidth)
{
    if (maxTextWidth > 40)
        m_maxTextWidth = maxTextWidth;
}
