#include "DrawingLog.h"
#include "GraphCaptionItem.h"
#include "GraphItem.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "XTimeAxisItem.h"

#include <QGraphicsScene>

#include <climits>

namespace
{

constexpr qint64 Now = 1600000001000;

/// Of values 0 to 100 over 100 px, so that a value is a row, with lines and without dots.
class Curve : public GraphItem
{
public:
    explicit Curve(double width = 300)
    {
        setSize(width, 100);
        setMinValue(0);
        setMaxValue(100);
        setActualTime(Now);
        setUseConnectedDataPoints(true);
        setDataPointsEnabled(false);
        setValues(Qt::black, {});
        setTimeOutTime(0);
    }
    /// A sample that stands at this x.
    void add(double value, double x)
    {
        addValue(value, Now - qRound(10 * (boundingRect().width() - x)));
    }
};

/// What an item draws, without the words.
QString drawn(QGraphicsItem& item)
{
    DrawingLog log;
    QPainter painter(&log);
    painter.setFont(DrawingLog::font());
    item.paint(&painter, nullptr);
    painter.end();
    return log.takeLines().join(", ").remove("line ").remove("ellipse ").remove("text ");
}

/// Smooth, on white.
QImage picture(const std::function<void(QPainter*)>& paint)
{
    QImage image(120, 120, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(&painter);
    return image;
}

} // namespace

class GraphItemsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void lines()
    {
        const struct {
            QVector<QPointF> samples; // x, value
            const char* drawn;
        } rows[] = {
            {{{10, 50}}, ""},
            {{{10, 50}, {60, 49.5}, {110, 110}}, "10 50 60 50, 60 50 110 -10"},
            {{{-5, 50}, {60, 50}, {110, 50}}, "60 50 110 50"}, // none leads in from out of sight
            {{{1, 50}, {60, 50}, {110, 50}}, "60 50 110 50"},  // nor from the leftmost pixels
            {{{1.1, 50}, {60, 50}}, "1 50 60 50"},
            {{{250, 50}, {300, 50}}, "250 50 300 50"},
            {{{250, 50}, {290, 50}, {310, 50}}, "250 50 290 50"}, // younger than the right edge
            {{{100, 50}, {50, 50}, {70, 50}}, "100 50 50 50, 50 50 70 50"}, // clock set back
            {{{310, 50}, {50, 50}, {70, 50}}, "50 50 70 50"},
            {{{100, 50}, {1, 50}, {70, 50}}, "100 50 1 50"},
            {{{50, 50}, {100, 40}, {100.1, 20}, {100.2, 70}, {100.3, 60}, {200, 0}},
             "50 50 100 60, 100 30 100 80, 100 40 200 100"}, // one stroke for a pixel column
            {{{100, 50}, {110, qQNaN()}, {120, 50}}, "100 50 120 50"},
            {{{100, 50}, {110, 1e300}, {120, -qInf()}}, "100 50 110 -1e+06, 110 -1e+06 120 1e+06"},
        };
        for (const auto& row : rows) {
            Curve curve;
            for (const QPointF& sample : row.samples)
                curve.add(sample.y(), sample.x());
            QCOMPARE(drawn(curve), QString(row.drawn));
            curve.setUseConnectedDataPoints(false);
            QCOMPARE(drawn(curve), QString());
        }
    }

    void range()
    {
        const struct {
            int min;
            int max;
            double value;
            int row;
        } rows[] = {{-50, 50, 10, 40},
                    {100, 0, 25, 25},
                    {5, 5, 5, 50},
                    {5, 5, 6, 0},
                    {INT_MIN, INT_MAX, 0, 49},
                    {INT_MAX, INT_MAX, INT_MAX, 0},
                    {INT_MIN, INT_MIN, INT_MIN, 100}};
        for (const auto& row : rows) {
            Curve curve;
            curve.setMinValue(row.min);
            curve.setMaxValue(row.max);
            curve.add(row.value, 100);
            curve.add(row.value, 200);
            QCOMPARE(drawn(curve), QString("100 %1 200 %1").arg(row.row));
        }
    }

    void samples()
    {
        QGraphicsScene scene;
        auto* curve = new Curve;
        scene.addItem(curve);
        for (int x : {50, 100, 150})
            curve->add(50, x);
        curve->setTimeOutTime(Now - 10 * 200);
        QCOMPARE(drawn(*curve), QString("50 50 100 50, 100 50 150 50")); // until the next one
        curve->add(50, 200);
        QCOMPARE(drawn(*curve), QString("100 50 150 50, 150 50 200 50"));
        QSignalSpy updates(&scene, &QGraphicsScene::changed);
        while (updates.wait(20)) // for all that was before
            ;
        QList<TValue> values;
        values << TValue{50, Now - 1000} << TValue{50, Now};
        curve->setValues(Qt::red, values);
        QCOMPARE(drawn(*curve), QString("200 50 300 50 #ff0000"));
        QVERIFY(updates.wait());
        curve->setActualTime(Now + 500);
        QCOMPARE(drawn(*curve), QString("150 50 250 50 #ff0000"));
        curve->setSize(200, 50);
        QCOMPARE(drawn(*curve), QString("50 25 150 25 #ff0000"));
        for (const QSizeF& size : {QSizeF(0, 50), QSizeF(-5, 50), QSizeF(50, 0), QSizeF(0.05, 5)}) {
            curve->setSize(size.width(), size.height());
            QCOMPARE(drawn(*curve), QString());
        }
    }

    void dots()
    {
        Curve curve(101);
        curve.setUseConnectedDataPoints(false);
        curve.setDataPointsEnabled(true);
        for (int x = 1; x <= 61; ++x)
            curve.add(50, x);
        // more than 20 px from dot to dot, from the upper left corner on
        QCOMPARE(drawn(curve), QString("-1 48 4 4, 20 48 4 4, 41 48 4 4"));
        QCOMPARE(drawn(curve), QString("-1 48 4 4, 20 48 4 4, 41 48 4 4"));
        curve.add(50, 62); // the frame before is taken over as far as it goes
        curve.add(10, 63);
        QCOMPARE(drawn(curve), QString("-1 48 4 4, 20 48 4 4, 41 48 4 4, 61 88 4 4"));
        curve.setMaxValue(200); // and not at all in another scale
        QCOMPARE(drawn(curve), QString("-1 73 4 4, 20 73 4 4, 41 73 4 4, 61 93 4 4"));
        curve.setMinValue(-200);
        QCOMPARE(drawn(curve), QString("-1 35 4 4, 20 35 4 4, 41 35 4 4, 61 45 4 4"));
        curve.setSize(101, 200);
        QCOMPARE(drawn(curve), QString("-1 73 4 4, 20 73 4 4, 41 73 4 4, 61 93 4 4"));
        curve.setActualTime(Now + 300);
        QCOMPARE(drawn(curve), QString("-2 73 4 4, 19 73 4 4, 31 93 4 4"));

        Curve column(101); // of which the first, highest, lowest and last sample count
        column.setUseConnectedDataPoints(false);
        column.setDataPointsEnabled(true);
        for (double value : {40, 20, 90, 45, 60})
            column.add(value, 10);
        QCOMPARE(drawn(column), QString("8 58 4 4, 8 8 4 4, 8 78 4 4, 8 38 4 4"));
        column.setUseBoldDataPoints(false);
        column.add(30, 20);
        column.add(30, 20);
        QCOMPARE(drawn(column), QString("9 59 2 2, 9 9 2 2, 9 79 2 2, 9 39 2 2, 19 69 2 2"));
        // the way counts in the scene's pixels
        column.setUseBoldDataPoints(true);
        column.setTransform(QTransform::fromScale(0.5, 0.5));
        QCOMPARE(drawn(column), QString("8 58 4 4, 8 8 4 4, 8 78 4 4"));
    }

    /// Pixels are painted from a small picture of a dot, which is one of its colour and size.
    void paintedDots()
    {
        Curve curve(101);
        curve.setUseConnectedDataPoints(false);
        curve.setDataPointsEnabled(true);
        QList<TValue> values;
        for (int x = 20; x <= 100; x += 40)
            values << TValue{70, Now - 10 * (101 - x)};
        for (double scale : {1.0, 0.5}) { // scaled, each is drawn itself
            for (int diameter : {4, 2}) {
                for (const auto color : {Qt::red, Qt::blue}) {
                    curve.setUseBoldDataPoints(diameter == 4);
                    curve.setValues(color, values);
                    const QImage painted = picture([&](QPainter* painter) {
                        painter->scale(scale, scale);
                        curve.paint(painter, nullptr);
                    });
                    QCOMPARE(painted, picture([&](QPainter* painter) {
                                 painter->scale(scale, scale);
                                 painter->setPen(QPen(color, 0, Qt::SolidLine, Qt::RoundCap));
                                 for (int x = 20; x <= 100; x += 40)
                                     painter->drawEllipse(x - diameter / 2, 30 - diameter / 2,
                                                          diameter, diameter);
                             }));
                }
            }
        }
    }

    void staysWithinThePaintersClip()
    {
        Curve curve(101);
        curve.add(90, 10);
        curve.add(10, 90);
        const auto paint = [&curve](QPainter* painter) { curve.paint(painter, nullptr); };
        const QRect part(0, 0, 50, 120);
        const QImage clipped = picture([&](QPainter* painter) {
            painter->setClipRect(part);
            paint(painter);
        });
        QCOMPARE(clipped.copy(part), picture(paint).copy(part));
        QCOMPARE(clipped.copy(50, 0, 70, 120), picture([](QPainter*) {}).copy(50, 0, 70, 120));
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
        SignalLog told(axis, {"updateMaxTextWidth", "updateYMinMax", "updateMinMaxValue"});
        const struct {
            int min;
            int max;
            int labelRoom;
            const char* told; // widest label, rows and values of the outermost ticks
        } rows[] = {
            {0, 20, 80, "updateMaxTextWidth 64, updateYMinMax 33 173, updateMinMaxValue 0 20"},
            {-1000, 0, 40, // too narrow: the room stays
             "updateMaxTextWidth 108, updateYMinMax 33 173, updateMinMaxValue -1000 0"},
            {0, 125, 41, // the widest label counts though it is not drawn
             "updateMaxTextWidth 75, updateYMinMax 33 173, updateMinMaxValue 0 125"},
            {5, 5, 50, "updateMaxTextWidth 53, updateYMinMax 33 173, updateMinMaxValue 4 6"},
        };
        axis->setSize(300, 206);
        axis->setActualTime(Now);
        axis->setYCaption("value");
        QStringList drawings;
        for (const auto& row : rows) {
            axis->setMinValue(row.min);
            axis->setMaxValue(row.max);
            axis->setMaxTextWidth(row.labelRoom);
            drawings << drawn(*axis);
            QCOMPARE(told.takeLines().join(", "), QString(row.told));
            QCOMPARE(axis->plotLeft(), row.labelRoom > 40 ? row.labelRoom + 1.0 : 81.0);
        }
        QCOMPARE(drawings.at(0),
                 QString("80 33 80 173, "
                         "32 183 0.0, 32 169 2.0, 32 155 4.0, 32 141 6.0, 32 127 8.0, 21 113 10.0, "
                         "21 99 12.0, 21 85 14.0, 21 71 16.0, 21 57 18.0, 21 43 20.0, "
                         "75 173 85 173, 75 159 85 159, 75 145 85 145, 75 131 85 131, "
                         "75 117 85 117, 75 103 85 103, 75 89 85 89, 75 75 85 75, 75 61 85 61, "
                         "75 47 85 47, 75 33 85 33, 110 44 value, "
                         "81 173 300 173, 278 195 41 s, 178 195 40 s, 78 195 39 s, "
                         "300 173 300 158, 280 173 280 166, 260 173 260 166, 240 173 240 166, "
                         "220 173 220 166, 200 173 200 158, 180 173 180 166, 160 173 160 166, "
                         "140 173 140 166, 120 173 120 166, 100 173 100 158"));
        QVERIFY(!drawings.at(2).contains("112.5"));
        QCOMPARE(drawings.at(2).count("50.0"), 1);
    }

    void captions()
    {
        GraphCaptionItem item;
        const char* names[] = {"short", "a name <b>", "x"};
        for (int i = 0; i < 3; ++i) {
            item.addCaption(names[i], QColor::fromHsv(i * 120, 255, 255), DrawingLog::font());
            QCOMPARE(item.boundingRect(), QRectF(0, 0, i < 1 ? 55 : 110, 22 * (i + 1)));
        }
        QCOMPARE(QSizeF(item.getWidth(), item.getHeight()), QSizeF(110, 66));
        QCOMPARE(drawn(item),
                 QString("0 22 short #ff0000, 0 44 a name <b> #00ff00, 0 66 x #0000ff"));
        item.clearCaptions();
        QCOMPARE(item.boundingRect(), QRectF());
        QCOMPARE(drawn(item), QString());
    }
};

AXR_TEST_MAIN(GraphItemsTest)
#include "GraphItemsTest.moc"
