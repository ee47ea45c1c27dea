#include "DrawingLog.h"

#include <QFontMetrics>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>

#include <utility>

class DrawingEngine : public QPaintEngine
{
public:
    DrawingEngine() : QPaintEngine(AllFeatures) {}

    QStringList lines;

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& now) override
    {
        if (now.state() & DirtyPen)
            m_color = now.pen().color();
        if (now.state() & DirtyTransform)
            m_transform = now.transform();
    }
    void drawLines(const QLineF* list, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const QLineF line = m_transform.map(list[i]);
            note("line", {line.x1(), line.y1(), line.x2(), line.y2()});
        }
    }
    void drawEllipse(const QRectF& area) override { noteArea("ellipse", area); }
    void drawPath(const QPainterPath& path) override { noteArea("rect", path.boundingRect()); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode) override
    {
        QPolygonF polygon;
        for (int i = 0; i < count; ++i)
            polygon << points[i];
        noteArea("rect", polygon.boundingRect());
    }
    void drawPixmap(const QRectF& area, const QPixmap&, const QRectF&) override
    {
        noteArea("rect", area);
    }
    void drawTextItem(const QPointF& place, const QTextItem& item) override
    {
        const QPointF baseline = m_transform.map(place);
        note("text", {baseline.x(), baseline.y()}, ' ' + item.text());
    }

private:
    void noteArea(const char* what, const QRectF& area)
    {
        const QRectF mapped = m_transform.mapRect(area);
        note(what, {mapped.x(), mapped.y(), mapped.width(), mapped.height()});
    }
    void note(QString entry, std::initializer_list<double> numbers, const QString& text = {})
    {
        for (double number : numbers)
            entry += ' ' + QString::number(number);
        entry += text;
        lines << (m_color == Qt::black ? entry : entry + ' ' + m_color.name());
    }

    QColor m_color = Qt::black;
    QTransform m_transform;
};

DrawingLog::DrawingLog() : m_engine(std::make_unique<DrawingEngine>()) {}

DrawingLog::~DrawingLog() = default;

QStringList DrawingLog::takeLines() { return std::exchange(m_engine->lines, {}); }

QPaintEngine* DrawingLog::paintEngine() const { return m_engine.get(); }

QFont DrawingLog::font()
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setPixelSize(18);
    font.setHintingPreference(QFont::PreferFullHinting);
    const QFontMetrics metrics(font);
    if (metrics.height() != 22 || metrics.horizontalAdvance(QStringLiteral("0123")) != 44)
        qFatal("the font of the tests is missing");
    return font;
}

int DrawingLog::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return 1000;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return 96;
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(metric);
    }
}
