// The least that a strip chart can cost with Qt's painter.

#include "StripChart.h"

#include <QImage>
#include <QPainter>
#include <QStaticText>

#include <cstring>

namespace
{

constexpr QRect Plot(70, 20, 1120, 555);
constexpr int Ticks = 10;

struct Column {
    qint64 slot; // time / 10 ms
    double lowest;
    double highest;
};

class FloorChart : public QWidget, public StripChart
{
public:
    FloorChart(const Load& load, bool scrolled)
        : m_range(load.rangeSpan)
        , m_curves(static_cast<std::size_t>(load.curves))
        , m_scrolled(scrolled)
        , m_image(scrolled ? Plot.size() : QSize(), QImage::Format_RGB32)
    {
        resize(CanvasSize);
        setAttribute(Qt::WA_OpaquePaintEvent);
        for (int i = 0; i < load.curves; ++i)
            m_names.push_back(label(curveName(i)));
        for (int i = 0; i < 60; ++i)
            m_seconds.push_back(label(QStringLiteral("%1 s").arg(i)));
        m_values.resize(Ticks + 1);
        show();
    }

    void take(const Sample& sample) override
    {
        Ring<Column>& columns = m_curves[static_cast<std::size_t>(sample.curve)];
        const qint64 slot = sample.time / MillisecondsPerPixel;
        if (columns.isEmpty() || columns.back().slot != slot) {
            columns.append({slot, sample.value, sample.value});
        } else {
            Column& column = columns.back();
            column.lowest = qMin(column.lowest, sample.value);
            column.highest = qMax(column.highest, sample.value);
        }
        m_range.take(sample.value, sample.time);
    }

    void update(qint64 now) override
    {
        m_right = now / MillisecondsPerPixel;
        for (Ring<Column>& columns : m_curves) {
            while (columns.front().slot <= m_right - History / MillisecondsPerPixel)
                columns.removeFirst();
        }
        if (m_range.advance(now)) {
            m_imageRight = 0;
            const double step = (m_range.top() - m_range.bottom()) / double(Ticks);
            for (int i = 0; i <= Ticks; ++i)
                m_values[static_cast<std::size_t>(i)] =
                    label(QString::number(m_range.bottom() + i * step));
        }
        mark(&m_least, m_range.lowest(), "Min");
        mark(&m_greatest, m_range.highest(), "Max");
        QWidget::update();
    }

    QWidget* canvas() override { return this; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(rect()); // without one, lines miss the engine's fast path
        if (m_scrolled) {
            scroll();
            painter.drawImage(Plot.topLeft(), m_image);
            painter.fillRect(0, 0, width(), Plot.top(), Qt::white);
            painter.fillRect(0, Plot.bottom() + 1, width(), height(), Qt::white);
            painter.fillRect(0, Plot.top(), Plot.left(), Plot.height(), Qt::white);
            painter.fillRect(Plot.right() + 1, Plot.top(), width(), Plot.height(), Qt::white);
        } else {
            painter.fillRect(rect(), Qt::white);
            painter.translate(Plot.topLeft() + QPointF(0.5, 0.5));
            drawCurves(&painter, 0);
            painter.resetTransform();
        }
        drawAxes(&painter);
        drawMarks(&painter);
    }

private:
    struct Mark {
        double value = 0;
        QStaticText text;
    };

    QStaticText label(const QString& text) const
    {
        QStaticText label(text);
        label.setTextFormat(Qt::PlainText);
        label.prepare(QTransform(), font());
        return label;
    }

    void mark(Mark* mark, double value, const char* name) const
    {
        if (mark->value == value)
            return;
        mark->value = value;
        mark->text = label(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(value));
    }

    double y(double value) const
    {
        return (m_range.top() - value) * Plot.height() / (m_range.top() - m_range.bottom());
    }

    /// From the pixel column `from` of the plot on.
    void drawCurves(QPainter* painter, int from)
    {
        const qint64 origin = m_right - Plot.width();
        for (std::size_t curve = 0; curve < m_curves.size(); ++curve) {
            const Ring<Column>& columns = m_curves[curve];
            std::size_t i = columns.size();
            while (i > 0 && columns[i - 1].slot >= origin + from)
                --i;
            i -= i > 0; // the line that leads there
            m_points.clear();
            bool upward = true;
            for (; i < columns.size(); ++i) {
                const Column& column = columns[i];
                const double x = static_cast<double>(column.slot - origin);
                const double first = upward ? column.lowest : column.highest;
                m_points.emplace_back(x, y(first));
                if (column.lowest == column.highest)
                    continue;
                m_points.emplace_back(x, y(upward ? column.highest : column.lowest));
                upward = !upward; // the way to the next column is short
            }
            painter->setPen(QPen(curveColor(static_cast<int>(curve)), 0));
            painter->drawPolyline(m_points.data(), static_cast<int>(m_points.size()));
        }
    }

    void scroll()
    {
        constexpr int Overlap = 2; // px that an antialiased line reaches back
        const auto shift = static_cast<int>(qMin<qint64>(m_right - m_imageRight, Plot.width()));
        m_imageRight = m_right;
        const int from = qMax(0, Plot.width() - shift - Overlap);
        if (from > 0) // what wraps into the next line is drawn over
            std::memmove(m_image.bits(), m_image.constBits() + shift * 4,
                         static_cast<std::size_t>(m_image.sizeInBytes()) - shift * 4u);
        const QRect fresh(from, 0, Plot.width() - from, Plot.height());
        QPainter painter(&m_image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(fresh);
        painter.fillRect(fresh, Qt::white);
        painter.translate(0.5, 0.5);
        drawCurves(&painter, from);
    }

    void drawAxes(QPainter* painter)
    {
        painter->setPen(QPen(Qt::black, 0));
        const int bottom = Plot.bottom() + 1;
        m_lines.assign({QLine(Plot.left(), Plot.top(), Plot.left(), bottom),
                        QLine(Plot.left(), bottom, Plot.right(), bottom)});
        for (int i = 0; i <= Ticks; ++i) {
            const int tickY = bottom - i * Plot.height() / Ticks;
            m_lines.emplace_back(Plot.left() - 5, tickY, Plot.left() + 5, tickY);
            painter->drawStaticText(10, tickY - 8, m_values[static_cast<std::size_t>(i)]);
        }
        constexpr int Spacing = 1000 / MillisecondsPerPixel / Ticks;
        for (qint64 tick = m_right - m_right % Spacing; tick > m_right - Plot.width();
             tick -= Spacing) {
            const int x = static_cast<int>(tick - m_right) + Plot.right();
            const bool isMajor = tick % (Spacing * Ticks) == 0;
            m_lines.emplace_back(x, bottom, x, bottom - (isMajor ? 15 : 7));
            if (isMajor)
                painter->drawStaticText(
                    x - 8, bottom + 4,
                    m_seconds[static_cast<std::size_t>(tick / (Spacing * Ticks) % 60)]);
        }
        painter->drawLines(m_lines.data(), static_cast<int>(m_lines.size()));
    }

    void drawMarks(QPainter* painter) const
    {
        for (std::size_t i = 0; i < m_names.size(); ++i) {
            painter->setPen(curveColor(static_cast<int>(i)));
            painter->drawStaticText(Plot.right() - 80, Plot.top() + 10 + static_cast<int>(i) * 15,
                                    m_names[i]);
        }
        painter->setPen(QPen(QColor(244, 164, 96), 0));
        for (const Mark* mark : {&m_least, &m_greatest}) {
            const double markY = Plot.top() + y(mark->value);
            painter->drawLine(QPointF(Plot.left(), markY), QPointF(Plot.right(), markY));
            painter->drawStaticText(QPointF(Plot.left() + 10, markY), mark->text);
        }
    }

    RunningRange m_range;
    std::vector<Ring<Column>> m_curves;
    bool m_scrolled;
    QImage m_image;
    qint64 m_right = 0;      // slot at the right edge of the plot
    qint64 m_imageRight = 0; // of the image
    std::vector<QPointF> m_points;
    std::vector<QLine> m_lines;
    std::vector<QStaticText> m_names;
    std::vector<QStaticText> m_values;
    std::vector<QStaticText> m_seconds;
    Mark m_least;
    Mark m_greatest;
};

} // namespace

std::unique_ptr<StripChart> makeRedrawnFloor(const Load& load)
{
    return std::make_unique<FloorChart>(load, false);
}

std::unique_ptr<StripChart> makeScrolledFloor(const Load& load)
{
    return std::make_unique<FloorChart>(load, true);
}
