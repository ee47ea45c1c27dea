#include "FunctionPlot_p.h"

#include "Numbers.h"

#include <QFontMetricsF>
#include <QGraphicsItem>

#include <cmath>

namespace
{

constexpr double PaperSquare = 7;      // px
constexpr double ValueStep = 0.005;    // in units of the scale
constexpr double ColumnStep = 10;      // px
constexpr int ColumnsPerLabel = 20;    // columns between two long lines
constexpr double LongLine = 3;         // px beyond the plot
constexpr double MostSteps = 20000;    // more lines would only fill memory
constexpr double NoLabelYet = -5000;   // px
constexpr double RoundingNoise = 1e-6; // px
constexpr int FewSteps = 100;
constexpr int BorderDepth = -1;

/// The step, or the smallest tenfold of it that divides the span into a bearable number.
double bearableStep(double step, double span)
{
    while (span / step > MostSteps)
        step *= 10;
    return step;
}

bool isMultiple(double k, int of) { return std::fmod(k, of) == 0.0; }

} // namespace

ValueAxis ValueAxis::around(double min, double max)
{
    ValueAxis axis;
    const double exponent = std::floor(std::log10(std::abs(max - min))) + 1;
    axis.scale = std::pow(10.0, exponent);
    axis.decimals = qMax(2, toInt(exponent));
    double hundredths = std::ceil(max * 100);
    const double rest = std::fmod(hundredths, 25); // has the sign of what is divided
    if (rest != 0.0)
        hundredths += 25 - rest;
    axis.max = hundredths / (100 * axis.scale);
    axis.min = std::floor(std::floor(min * 10) / axis.scale) / 10;
    return axis;
}

bool ValueAxis::isValid() const
{
    return max > min && std::isfinite(max - min) && std::isfinite(scale);
}

FunctionPlot::FunctionPlot(QGraphicsScene& scene, const QFont& font, const QPen& gridPen)
    : m_scene(scene)
    , m_font(font)
    , m_gridPen(gridPen)
    , m_width(scene.sceneRect().width())
    , m_height(scene.sceneRect().height())
    , m_fontHeight(QFontMetricsF(font).height())
{
}

double FunctionPlot::widthOf(const QString& text) const
{
    return QFontMetricsF(m_font).horizontalAdvance(text);
}

QGraphicsSimpleTextItem* FunctionPlot::addText(const QString& text, QPointF position)
{
    QGraphicsSimpleTextItem* item = m_scene.addSimpleText(text, m_font);
    item->setPos(position);
    return item;
}

void FunctionPlot::addTurnedText(const QString& text, QPointF position, const QBrush& brush)
{
    QGraphicsSimpleTextItem* item = addText(text, position);
    item->setBrush(brush);
    item->setRotation(-90);
}

QPen FunctionPlot::gridPen(const QColor& color) const
{
    QPen pen = m_gridPen;
    pen.setColor(color);
    return pen;
}

void FunctionPlot::drawSquaredPaper()
{
    const double rows = bearableStep(PaperSquare, m_height);
    for (int i = 0; i <= m_height / rows; ++i)
        m_scene.addLine(0, i * rows, m_width, i * rows, m_gridPen);
    const double columns = bearableStep(PaperSquare, m_width);
    for (int i = 0; i <= m_width / columns; ++i)
        m_scene.addLine(i * columns, 0, i * columns, m_height, m_gridPen);
    m_labelWidth = 2 * m_fontHeight;
    m_footerHeight = 2 * m_fontHeight + 3;
}

void FunctionPlot::drawValueAxis(const ValueAxis& axis)
{
    const double span = axis.max - axis.min;
    const double step = bearableStep(ValueStep, span);
    const double steps = span / step;
    const double firstStep = axis.max / step;
    const int stepsPerLabel = steps > FewSteps ? 10 : 5;
    double lastLabel = NoLabelYet;
    // By counting, for a step that is subtracted again and again drifts, and from a large value it
    // takes nothing away at all.
    for (int i = 0; i < steps + 1; ++i) {
        const double value = axis.max - i * step;
        const int y = toInt(i / steps * m_height + RoundingNoise);
        const double k = std::abs(std::round(firstStep - i));
        if (isMultiple(k, stepsPerLabel) && y >= m_fontHeight + lastLabel) {
            QString text = QString::number(value * axis.scale, 'f', axis.decimals);
            const bool isZero = k == 0.0;
            if (isZero && text.startsWith(QLatin1Char('-')))
                text.remove(0, 1);
            addLabel(text, y);
            m_scene.addLine(-LongLine, y, m_width + LongLine, y,
                            isZero ? gridPen(Qt::black) : m_gridPen);
            lastLabel = y;
        } else if (isMultiple(k, 5)) {
            m_scene.addLine(0, y, m_width, y, gridPen(QColor(QStringLiteral("lightgrey"))));
        }
    }
}

void FunctionPlot::addLabel(const QString& text, double y)
{
    const QString label = text + QStringLiteral("  ");
    m_labelWidth = qMax(m_labelWidth, widthOf(label));
    addText(label, QPointF(-m_labelWidth, y - m_fontHeight / 2));
}

void FunctionPlot::drawColumns()
{
    const QString blanks(5, QLatin1Char(' ')); // keep the room of labels
    const double width = widthOf(blanks);
    const double step = bearableStep(ColumnStep, m_width);
    for (int i = 0; i <= m_width / step; ++i) {
        const double x = i * step;
        if (i % ColumnsPerLabel != 0) {
            m_scene.addLine(x, 0, x, m_height, m_gridPen);
            continue;
        }
        addTurnedText(blanks, QPointF(x - m_fontHeight / 2, m_height + m_fontHeight + width),
                      QBrush(Qt::black));
        m_footerHeight = qMax(m_footerHeight, width + m_fontHeight);
        m_scene.addLine(x, -LongLine, x, m_height + LongLine, m_gridPen);
    }
}

void FunctionPlot::drawCurve(const QList<double>& values, const ValueAxis& axis, const QPen& pen)
{
    const auto point = [&](int i) {
        return QPointF(i * m_width / (values.size() - 1),
                       m_height - (values.at(i) / axis.scale - axis.min) * m_height /
                                      (axis.max - axis.min));
    };
    for (int i = 1; i < values.size(); ++i)
        m_scene.addLine(QLineF(point(i - 1), point(i)), pen);
}

void FunctionPlot::drawCaptions(const QString& top, const QString& left, const QString& bottom,
                                const QString& right, const QBrush& brush)
{
    addTurnedText(left, QPointF(-2 * m_fontHeight - m_labelWidth, widthOf(left)), brush);
    if (!right.isEmpty()) {
        addTurnedText(right, QPointF(m_width + 2 * m_fontHeight, widthOf(right)), brush);
        m_rightWidth = 2 * m_fontHeight;
    }
    addText(bottom, QPointF(m_width + m_fontHeight, m_fontHeight + m_height + 2))->setBrush(brush);
    addText(top, QPointF((m_width - widthOf(top)) / 2, -2 * m_fontHeight))->setBrush(brush);
    m_rightWidth = qMax(m_rightWidth, widthOf(bottom));
}

QSize FunctionPlot::close(QPen pen)
{
    const double left = m_labelWidth + m_fontHeight;
    const QSizeF size(left + m_width + m_rightWidth, m_footerHeight + m_height + m_fontHeight);
    m_scene.setSceneRect(QRectF(QPointF(-left, -2 * m_fontHeight), size));

    pen.setColor(QColor(QStringLiteral("whitesmoke")));
    pen.setCapStyle(Qt::SquareCap);
    pen.setWidthF(m_footerHeight + left);
    const double half = pen.widthF() / 2;
    const int right = toInt(m_width + 1);
    const int bottom = toInt(m_height + 1);
    const QLineF sides[] = {QLineF(-half, -half, right + half, -half),
                            QLineF(-half, bottom + half, right + half, bottom + half),
                            QLineF(-half, half, -half, bottom - half),
                            QLineF(right + half, half, right + half, bottom - half)};
    for (const QLineF& side : sides)
        m_scene.addLine(side, pen)->setZValue(BorderDepth);
    return QSize(roundToInt(size.width() + left), roundToInt(size.height() + m_footerHeight));
}
