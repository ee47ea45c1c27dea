#include "PaintLog.h"

#include <QPixmap>

class PaintLog::Engine : public QPaintEngine
{
public:
    Engine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& now) override
    {
        if (now.state() & (DirtyPen | DirtyBrush))
            color = now.pen().style() == Qt::NoPen ? now.brush().color() : now.pen().color();
    }
    void drawLines(const QLineF* all, int count) override
    {
        for (const QLineF* each = all; each != all + count; ++each)
            write("line", each->p1(), at(each->p2()));
    }
    void drawRects(const QRectF* all, int count) override
    {
        for (const QRectF* each = all; each != all + count; ++each)
            write("rect", each->topLeft(), at({each->width(), each->height()}));
    }
    void drawTextItem(const QPointF& place, const QTextItem& item) override
    {
        write("text", place, item.text());
    }
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

    QStringList lines;

private:
    static QString at(const QPointF& place)
    {
        return QStringLiteral("%1,%2").arg(qRound(place.x())).arg(qRound(place.y()));
    }
    void write(const char* what, const QPointF& place, const QString& rest)
    {
        lines << QStringList{color.name(), QLatin1String(what), at(place), rest}.join(' ');
    }

    QColor color;
};

PaintLog::PaintLog(const QSize& size) : m_size(size), m_engine(std::make_unique<Engine>()) {}

PaintLog::~PaintLog() = default;

QStringList PaintLog::takeLines() { return std::exchange(m_engine->lines, {}); }

QPaintEngine* PaintLog::paintEngine() const { return m_engine.get(); }

int PaintLog::metric(PaintDeviceMetric metric) const
{
    if (metric == PdmWidth)
        return m_size.width();
    if (metric == PdmHeight)
        return m_size.height();
    switch (metric) {
    case PdmDpiX:
    case PdmPhysicalDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiY:
        return QPixmap(1, 1).logicalDpiX(); // as on the screen
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(metric);
    }
}
