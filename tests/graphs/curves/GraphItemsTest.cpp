#include "Bytes.h"
#include "CurveLayer_p.h"
#include "GraphCaptionItem.h"
#include "GraphItem.h"
#include "TestCase.h"
#include "XTimeAxisItem.h"

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QPicture>

#include <climits>
#include <random>

namespace
{

constexpr qint64 Now = 1600000000000;
constexpr int Margin = 20; // px around the item that is painted

/// Without dots unless it says so, values 0 to 100 over 100 px, so that a value is a row.
class Curve : public GraphItem
{
public:
    explicit Curve(double width = 300)
    {
        setSize(width, 100);
        setMinValue(0);
        setMaxValue(100);
        setActualTime(Now);
        setDataPointsEnabled(false);
        setValues(Qt::black, {});
        setTimeOutTime(0);
    }
    /// A sample that stands at this x.
    void add(double value, double x) { addValue(value, Now - qRound(10 * (width() - x))); }
    double width() const { return boundingRect().width(); }
};

QImage paint(GraphItem& item, bool smooth = false)
{
    QImage image(item.boundingRect().size().toSize() + QSize(2 * Margin, 2 * Margin),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.translate(Margin, Margin);
    item.paint(&painter, nullptr);
    return image;
}

/// The columns in which something is drawn, as "first-last", in the item's pixels.
QString drawnColumns(const QImage& image, int top = -Margin, int bottom = 1000)
{
    QStringList ranges;
    int first = INT_MIN;
    for (int x = 0; x <= image.width(); ++x) {
        bool isDrawn = false;
        for (int y = qMax(0, top + Margin); y < qMin(image.height(), bottom + Margin); ++y)
            isDrawn = isDrawn || (x < image.width() && image.pixel(x, y) != qRgb(255, 255, 255));
        if (isDrawn && first == INT_MIN)
            first = x;
        if (!isDrawn && first != INT_MIN) {
            ranges << QString("%1-%2").arg(first - Margin).arg(x - 1 - Margin);
            first = INT_MIN;
        }
    }
    return ranges.join(' ');
}

} // namespace

class GraphItemsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void staysWithinThePaintersClip()
    {
        Curve curve(101);
        curve.setUseConnectedDataPoints(true);
        for (int x = 10; x < 100; ++x)
            curve.add(x, x);
        QImage image(200, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setClipRect(0, 0, 50, 200);
        curve.paint(&painter, nullptr);
        painter.end();
        QVERIFY(drawnColumns(image).startsWith(QString::number(10 - Margin)));
        QVERIFY(drawnColumns(image).endsWith(QString("-%1").arg(49 - Margin)));
    }

    /// Into a recording, and onto a painter that has its own window.
    void drawsElsewhere()
    {
        Curve curve(101);
        curve.setUseConnectedDataPoints(true);
        curve.setDataPointsEnabled(true);
        for (int x = 10; x < 100; ++x)
            curve.add(x, x);
        XTimeAxisItem axis;
        axis.setSize(160, 120);
        for (QGraphicsItem* item :
             {static_cast<QGraphicsItem*>(&curve), static_cast<QGraphicsItem*>(&axis)}) {
            QImage images[3];
            for (int k = 0; k < 3; ++k) {
                images[k] = QImage(200, 200, QImage::Format_RGB32);
                images[k].fill(Qt::white);
                QPainter painter(&images[k]);
                QPicture recording;
                if (k == 1) {
                    QPainter recorder(&recording);
                    item->paint(&recorder, nullptr, nullptr);
                    recorder.end();
                    recording.play(&painter);
                    continue;
                }
                if (k == 2) { // a tenth of it is a pixel
                    painter.setWindow(0, 0, 2000, 2000);
                    painter.scale(10, 10);
                }
                item->paint(&painter, nullptr, nullptr);
            }
            QVERIFY(drawnColumns(images[0]).size() > 4);
            QCOMPARE(drawnColumns(images[1]), drawnColumns(images[0]));
            QCOMPARE(drawnColumns(images[2]), drawnColumns(images[0]));
        }
    }

    void dots()
    {
        for (bool isBold : {true, false}) {
            Curve curve(101);
            curve.setDataPointsEnabled(true);
            curve.setUseBoldDataPoints(isBold);
            for (int x = 1; x <= 101; x += isBold ? 1 : 10)
                curve.add(50, x);
            // bold: more than 20 px from dot to dot; half a pixel of smooth pen to either side
            QCOMPARE(
                drawnColumns(paint(curve, true)),
                QString(isBold
                            ? "-2-3 19-24 40-45 61-66 82-87"
                            : "-1-2 9-12 19-22 29-32 39-42 49-52 59-62 69-72 79-82 89-92 99-102"));
        }
        // the way counts, not the width, and in the scene's pixels
        Curve curve(101);
        curve.setDataPointsEnabled(true);
        for (int x = 10; x < 100; x += 10)
            curve.add(x % 20 ? 20 : 80, x);
        QCOMPARE(drawnColumns(paint(curve)).count('-'), 9);
        curve.setTransform(QTransform::fromScale(0.1, 0.1));
        QCOMPARE(drawnColumns(paint(curve)), QString());
        curve.setTransform(QTransform::fromScale(0.5, 0.5));
        QCOMPARE(drawnColumns(paint(curve)).count('-'), 9);
    }

    void lines()
    {
        const struct {
            QVector<QPointF> samples; // x, value
            const char* drawn;
        } rows[] = {
            {{{10, 50}}, ""},
            {{{10, 50}, {60, 50}}, "10-60"},
            {{{10, 50}, {60, 50}, {110, 50}}, "10-110"},
            {{{-5, 50}, {60, 50}, {110, 50}}, "60-110"}, // from out of sight no line leads in
            {{{0, 50}, {60, 50}, {110, 50}}, "60-110"},
            {{{1, 50}, {60, 50}, {110, 50}}, "60-110"}, // nor from the leftmost pixels
            {{{1.1, 50}, {60, 50}, {110, 50}}, "1-110"},
            {{{250, 50}, {290, 50}, {300, 50}}, "250-300"},
            {{{250, 50}, {290, 50}, {310, 50}}, "250-290"}, // younger than the right edge
            {{{100, 50}, {50, 50}, {70, 50}}, "50-100"},    // the clock was set back
            {{{310, 50}, {50, 50}, {70, 50}}, "50-70"},     // what is out of sight leads nowhere
            {{{100, 50}, {-5, 50}, {70, 50}}, "70-100"},
            {{{100, 50}, {1, 50}, {70, 50}}, "1-100"}, // nor from the leftmost pixels
            {{{100, 50}, {100, 20}}, "100-100"},
            {{{100, 50}, {100, qQNaN()}, {120, 50}}, "100-120"},
            {{{100, 50}, {110, 1e300}, {120, 50}}, "100-100 119-119"}, // out of the picture
            {{{100, 50}, {110, -qInf()}, {120, 50}}, "100-100 119-120"},
        };
        for (const auto& row : rows) {
            Curve curve;
            curve.setUseConnectedDataPoints(true);
            for (const QPointF& sample : row.samples)
                curve.add(sample.y(), sample.x());
            QCOMPARE(drawnColumns(paint(curve)), QString(row.drawn));
            curve.setUseConnectedDataPoints(false);
            QCOMPARE(drawnColumns(paint(curve)), QString());
        }
    }

    void rows()
    {
        const struct {
            int min;
            int max;
            double value;
            int row;
        } rows[] = {
            {0, 100, 0, 100},
            {0, 100, 100, 0},
            {0, 100, 49.5, 50},
            {0, 100, 110, -10},
            {-50, 50, 10, 40},
            {100, 0, 25, 25},
            {5, 5, 5, 50},
            {5, 5, 6, 0},
            {INT_MIN, INT_MAX, 0, 49},
            {INT_MAX, INT_MAX, INT_MAX, 0},
            {INT_MIN, INT_MIN, INT_MIN, 100},
        };
        for (const auto& row : rows) {
            Curve curve;
            curve.setUseConnectedDataPoints(true);
            curve.setMinValue(row.min);
            curve.setMaxValue(row.max);
            curve.add(row.value, 100);
            curve.add(row.value, 200);
            const QImage image = paint(curve);
            for (int y = 0; y < image.height(); ++y)
                QCOMPARE(image.pixel(Margin + 150, y) != qRgb(255, 255, 255),
                         y - Margin == row.row);
        }
    }

    void timeOut()
    {
        Curve curve;
        curve.setUseConnectedDataPoints(true);
        for (int x : {50, 100, 150})
            curve.add(50, x);
        curve.setTimeOutTime(Now - 10 * 200);
        QCOMPARE(drawnColumns(paint(curve)), QString("50-150")); // until the next one
        curve.add(50, 200);
        QCOMPARE(drawnColumns(paint(curve)), QString("100-200"));
        QList<TValue> values;
        values << TValue{50, Now - 1000} << TValue{50, Now};
        curve.setValues(Qt::red, values);
        QCOMPARE(drawnColumns(paint(curve)), QString("200-300"));
        curve.setActualTime(Now + 500);
        QCOMPARE(drawnColumns(paint(curve)), QString("150-250"));
    }

    void anySize()
    {
        for (double width : {-5., 0., 0.05, 0.5, 1., 5., 4000.}) {
            for (double height : {-5., 0., 0.5, 4000.}) {
                Curve curve(4000);
                curve.setDataPointsEnabled(true);
                curve.setUseConnectedDataPoints(true);
                for (int i = 0; i < 100; ++i)
                    curve.add(i, 3990 - i);
                curve.add(7, 4000);
                curve.setSize(width, height);
                QImage image(50, 50, QImage::Format_RGB32);
                image.fill(Qt::white);
                QPainter painter(&image);
                curve.paint(&painter, nullptr);
                painter.end();
                if (width <= 0 || height <= 0)
                    QCOMPARE(drawnColumns(image), QString());
            }
        }
    }

    /// The layer's kept picture shows what the items draw, but for the pixel column in which a
    /// smooth line at the left edge stands out to the left. The picture is laid over the ground as
    /// a whole rather than curve by curve: each curve may round once more.
    void layer()
    {
        constexpr int Width = 200;
        constexpr int Curves = 6;
        QGraphicsScene scenes[2];
        std::vector<GraphItem*> items[2];
        XTimeAxisItem* axes[2] = {new XTimeAxisItem, new XTimeAxisItem};
        auto* layer = new CurveLayer(axes[1]);
        layer->setZValue(-0.5);
        scenes[1].addItem(layer);
        for (int k = 0; k < 2; ++k) {
            scenes[k].setSceneRect(0, 0, Width + 40, 140);
            axes[k]->setSize(Width + 40, 140);
            axes[k]->setYCaption("caption");
            axes[k]->setZValue(-1);
            scenes[k].addItem(axes[k]);
            for (int i = 0; i < Curves; ++i) {
                auto* item = new Curve(Width);
                item->setPos(40, 20.5);
                item->setUseConnectedDataPoints(true);
                item->setValues(QColor::fromHsv(i * 60, 255, 255), {});
                scenes[k].addItem(item);
                items[k].push_back(item);
            }
        }
        for (GraphItem* item : items[1])
            layer->add(item);
        std::mt19937 random(7);
        qint64 now = Now;
        for (int frame = 0; frame < 200; ++frame) {
            const qint64 step = frame == 120 ? -700 : 30 + static_cast<int>(random() % 20);
            now += step;
            for (int i = 0; i < Curves; ++i) {
                if (frame % 70 < i) // curves with gaps
                    continue;
                for (qint64 time = now - step; time < now;
                     time += 1 + static_cast<int>(random() % 9)) {
                    const auto value = static_cast<int>(random() % 140) - 20;
                    for (auto& list : items)
                        list[static_cast<std::size_t>(i)]->addValue(value, time);
                }
            }
            QImage images[2];
            for (int k = 0; k < 2; ++k) {
                axes[k]->setActualTime(now);
                axes[k]->setMinValue(frame < 70 ? -100 : frame < 100 ? 0 : -10000); // zones
                axes[k]->setMaxValue(frame < 100 ? 100 : 0);
                for (GraphItem* item : items[k]) {
                    item->setActualTime(now);
                    item->setMaxValue(frame < 150 ? 100 : 130);
                }
                images[k] = QImage(Width + 40, 140, QImage::Format_RGB32);
                images[k].fill(Qt::white);
                QPainter painter(&images[k]);
                painter.setRenderHint(QPainter::Antialiasing);
                if (k == 1)
                    layer->paintGround(&painter, images[k].rect(), Qt::white);
                scenes[k].render(&painter);
            }
            for (int y = frame % 4; y < images[0].height(); y += 4) {
                for (int x = 41; x < images[0].width(); ++x) {
                    const QColor a = images[0].pixelColor(x, y);
                    const QColor b = images[1].pixelColor(x, y);
                    const int difference =
                        std::max({qAbs(a.red() - b.red()), qAbs(a.green() - b.green()),
                                  qAbs(a.blue() - b.blue())});
                    QVERIFY2(difference <= Curves,
                             qPrintable(QString("frame %1 at %2 %3").arg(frame).arg(x).arg(y)));
                }
            }
        }
    }

    void axis()
    {
        QGraphicsScene scene(0, 0, 300, 200);
        auto* axis = new XTimeAxisItem;
        QCOMPARE(axis->boundingRect(), QRectF());
        scene.addItem(axis);
        QCOMPARE(axis->boundingRect(), scene.sceneRect());
        QCOMPARE(axis->plotLeft(), 61.0);
        QCOMPARE(axis->plotWidth(), -51.0);
        QStringList lines;
        const auto note = [&lines](const char* name, double a, double b) {
            lines << QString("%1 %2 %3").arg(name).arg(a).arg(b);
        };
        connect(axis, &XTimeAxisItem::updateYMinMax, [&](qreal a, qreal b) { note("rows", a, b); });
        connect(axis, &XTimeAxisItem::updateMinMaxValue,
                [&](qreal a, qreal b) { note("values", a, b); });
        connect(axis, &XTimeAxisItem::updateMaxTextWidth, [&](qreal a) { note("width", a, 0); });
        const struct {
            int min;
            int max;
            int textWidth;
            const char* widest;
            QPair<int, int> values;
            double plotLeft;
        } rows[] = {
            {0, 100, 80, "100.0", {0, 100}, 81},
            {-1000, 0, 40, "-1,000.0", {-1000, 0}, 81}, // too narrow: the room stays
            {0, 125, 41, "112.5", {0, 125}, 42},        // counts though it is not drawn
            {5, 5, 50, "4.8", {4, 6}, 51},
        };
        QImage image(300, 200, QImage::Format_RGB32);
        for (const auto& row : rows) {
            axis->setSize(300, 200);
            axis->setActualTime(Now);
            axis->setMinValue(row.min);
            axis->setMaxValue(row.max);
            axis->setMaxTextWidth(row.textWidth);
            axis->setYCaption("value");
            QPainter painter(&image);
            lines.clear();
            axis->paint(&painter, nullptr);
            const QFontMetrics metrics = painter.fontMetrics();
            const double top = 1.5 * metrics.height();
            const bool isTop = row.max <= 0;
            QCOMPARE(lines,
                     QStringList(
                         {QString("width %1 0").arg(metrics.horizontalAdvance(row.widest) + 20),
                          QString("rows %1 %2")
                              .arg(isTop ? int(top) : int(200 - top) - (200 - 2 * top))
                              .arg(isTop ? int(top) + (200 - 2 * top) : int(200 - top)),
                          QString("values %1 %2").arg(row.values.first).arg(row.values.second)}));
            QCOMPARE(axis->plotLeft(), row.plotLeft);
            QCOMPARE(axis->plotWidth(), 300 - row.plotLeft);
        }
    }

    void axisOnDevices()
    {
        XTimeAxisItem axes[2];
        QList<qreal> widths[2];
        for (int k = 0; k < 2; ++k) {
            axes[k].setSize(900, 600);
            connect(&axes[k], &XTimeAxisItem::updateMaxTextWidth,
                    [&widths, k](qreal width) { widths[k] << width; });
        }
        for (int dots : {96, 300}) { // per inch
            QImage image(900, 600, QImage::Format_RGB32);
            image.setDotsPerMeterX(qRound(dots / 0.0254));
            image.setDotsPerMeterY(image.dotsPerMeterX());
            QPainter painter(&image);
            axes[0].paint(&painter, nullptr);
            if (dots == 300) // by itself
                axes[1].paint(&painter, nullptr);
        }
        QVERIFY(widths[0].at(1) > widths[0].at(0));
        QCOMPARE(widths[0].at(1), widths[1].at(0));
    }

    void captions()
    {
        GraphCaptionItem item;
        QCOMPARE(item.boundingRect(), QRectF());
        QFont font;
        font.setPixelSize(17);
        const QFontMetrics metrics(font);
        const char* names[] = {"short", "a long name <b>", "x"};
        for (int i = 0; i < 3; ++i) {
            item.addCaption(names[i], QColor::fromHsv(i * 120, 255, 255), font);
            QCOMPARE(item.getHeight(), 1.0 * (i + 1) * metrics.height());
            QCOMPARE(item.getWidth(), 1.0 * metrics.horizontalAdvance(names[qMin(i, 1)]));
            QCOMPARE(item.boundingRect(), QRectF(0, 0, item.getWidth(), item.getHeight()));
        }
        QImage image(item.boundingRect().size().toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setFont(font);
        item.paint(&painter, nullptr);
        painter.end();
        // text on the baseline of its row, in its colour
        for (int i = 0; i < 3; ++i) {
            bool isColored = false;
            const int baseline = (i + 1) * metrics.height();
            for (int y = baseline - metrics.xHeight(); y < baseline; ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor color = image.pixelColor(x, y);
                    isColored =
                        isColored || (color.hsvSaturation() > 200 && color.hue() == i * 120);
                }
            }
            QVERIFY(isColored);
        }
        item.clearCaptions();
        QCOMPARE(item.boundingRect(), QRectF());
    }
};

AXR_TEST_MAIN(GraphItemsTest)
#include "GraphItemsTest.moc"
