#include "XTimeAxisItem.h"

#include "BasicTools.h"
#include "CurveStrokes_p.h"
#include "Numbers.h"
#include "StraightLine_p.h"
#include "TimeAxisGeometry_p.h"

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QPainter>
#include <QStaticText>

#include <array>
#include <vector>

/// What an axis keeps from frame to frame: the texts at the ticks, laid out once, of which a frame
/// mostly draws those of the one before, and the memory of the time ticks.
class AxisLabels
{
public:
    struct Label {
        QStaticText text;
        int width = -1; // none yet
        double value = 0;
    };

    std::vector<QLine> ticks;

    /// \param height of the font on its device; fonts of two resolutions are equal
    void setFont(const QFont& font, int height)
    {
        if (font == m_font && height == m_height)
            return;
        m_font = font;
        m_height = height;
        m_values = {};
        m_seconds = {};
        m_caption = {};
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

    const Label& caption(const QString& text)
    {
        if (m_caption.width < 0 || m_caption.text.text() != text)
            lay(&m_caption, text);
        return m_caption;
    }

    /// \param second within the minute; negative before the epoch
    const Label& second(int second)
    {
        Label& label = m_seconds[static_cast<std::size_t>(qMax(0, second))];
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
    int m_height = 0;
    std::array<Label, TimeAxisGeometry::MaximumValueTicks> m_values;
    std::array<Label, 60> m_seconds;
    Label m_caption;
};

XTimeAxisItem::XTimeAxisItem()
    : m_pen(Qt::black, 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
    , m_labels(std::make_unique<AxisLabels>())
{
}

XTimeAxisItem::~XTimeAxisItem() = default;

QRectF XTimeAxisItem::boundingRect() const { return scene() ? scene()->sceneRect() : QRectF(); }

TimeAxisGeometry XTimeAxisItem::geometry(int fontHeight)
{
    if (m_minValue == m_maxValue) {
        m_maxValue = toInt(qint64(m_maxValue) + 1);
        m_minValue = toInt(qint64(m_minValue) - 1);
    }
    return {m_width, m_height, m_minValue, m_maxValue, double(m_maxTextWidth), fontHeight};
}

void XTimeAxisItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const int fontHeight = painter->fontMetrics().height();
    const TimeAxisGeometry geometry = this->geometry(fontHeight);
    m_leftMargin = m_maxTextWidth;
    m_labels->setFont(painter->font(), fontHeight);
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
    std::array<QLine, TimeAxisGeometry::MaximumValueTicks> lines;
    int count = 0;
    const int x = toInt(m_leftMargin);
    drawStraightLine(painter, QLine(x, toInt(geometry.top()), x, toInt(geometry.bottom())));
    int widest = 0;
    for (const auto& tick : geometry) {
        const AxisLabels::Label& label = m_labels->value(count, tick.value);
        lines[static_cast<std::size_t>(count++)] = geometry.valueTickLine(tick);
        if (tick.hasLabel())
            m_labels->draw(painter, geometry.valueLabel(tick, label.width), label);
        widest = qMax(widest, label.width);
    }
    painter->drawLines(lines.data(), count);
    if (!m_yCaption.isEmpty())
        m_labels->draw(painter, QPoint(toInt(m_leftMargin + 30.0), geometry.captionBaseline()),
                       m_labels->caption(m_yCaption));
    return widest;
}

void XTimeAxisItem::drawTimeAxis(QPainter* painter, const TimeAxisGeometry& geometry)
{
    const int zero = toInt(geometry.zeroLine());
    drawStraightLine(painter, QLine(toInt(m_leftMargin + 1.0), zero, toInt(m_width), zero));
    m_labels->ticks.clear();
    geometry.forEachTimeTick(m_actualTime, [&](const TimeAxisGeometry::TimeTick& tick) {
        m_labels->ticks.push_back(geometry.timeTickLine(tick));
        if (!tick.isMajor)
            return;
        const AxisLabels::Label& label = m_labels->second(tick.second);
        const QPoint baseline = geometry.timeLabel(tick, label.width);
        if (baseline.x() >= 0)
            m_labels->draw(painter, baseline, label);
    });
    painter->drawLines(m_labels->ticks.data(), static_cast<int>(m_labels->ticks.size()));
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
