#include "FunctionData.h"
#include "MarkerItem.h"
#include "TestCase.h"

#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QPainter>

#include <limits>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
const QColor Grid("#9AA9B6");
const QSize NotDrawn(-1, -1);

/// A plot of 700 by 175 pixels.
struct Plot {
    Plot() : data(&scene, QFont(), 2) {}
    explicit Plot(const QList<double>& values) : Plot()
    {
        for (double value : values)
            data.add(value);
    }

    QSize fill() { return data.fillGraph(0, QPen(Qt::red)); }
    QImage picture()
    {
        QImage image(700 + 2 * Margin, 175 + 2 * Margin, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        scene.render(&painter, image.rect(), image.rect().translated(-Margin, -Margin));
        return image;
    }
    /// Every text from the top to the bottom, without the blanks behind it.
    QStringList texts() const
    {
        QMap<double, QString> found;
        for (const QGraphicsItem* item : scene.items()) {
            const auto* text = qgraphicsitem_cast<const QGraphicsSimpleTextItem*>(item);
            if (text && !text->text().trimmed().isEmpty())
                found.insert(text->y(), text->text().trimmed());
        }
        return found.values();
    }
    const QGraphicsSimpleTextItem* text(const QString& wanted) const
    {
        for (const QGraphicsItem* item : scene.items()) {
            const auto* text = qgraphicsitem_cast<const QGraphicsSimpleTextItem*>(item);
            if (text && text->text() == wanted)
                return text;
        }
        return nullptr;
    }

    static constexpr int Margin = 100;
    QGraphicsScene scene;
    FunctionData data;
};

QColor at(const QImage& image, int x, int y)
{
    return image.pixelColor(x + Plot::Margin, y + Plot::Margin);
}

} // namespace

class FunctionDataTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void valueAxis()
    {
        const struct {
            double min, max, span;
            const char *top, *bottom;
        } rows[] = {
            {0, 400, 0.4, "400.000", "0.000"},
            {0, 401, 0.401, "401.000", "1.000"}, // labels go to the steps nearest to even ones
            {0, 33, 0.33, "32.50", "2.50"},
            {0, 0.33, 0.5, "0.50", "0.00"},
            {-0.9, -0.33, 0.9, "0.00", "-0.90"}, // the remainder has the sign of what is divided
            {-1, 1, 0.2, "1.00", "-1.00"},
            {-3, 7, 0.17, "5.00", "-10.00"},
        };
        for (const auto& row : rows) {
            Plot plot({row.min, row.max});
            QCOMPARE(plot.data.getMax(), row.max - row.min);
            QVERIFY(plot.fill().isValid());
            QCOMPARE(plot.data.getMax(), row.span);
            const QStringList texts = plot.texts();
            QCOMPARE(texts.first(), QString(row.top));
            QCOMPARE(texts.last(), QString(row.bottom));
            for (const QString& text : texts)
                QVERIFY2(!text.startsWith('-') || text.toDouble() < 0, qPrintable(text));
        }
    }

    void labelsKeepTheirDistance()
    {
        Plot plot({-1, 1});
        QFont large;
        large.setPixelSize(40);
        FunctionData data(&plot.scene, large, 2);
        data.add(-1);
        data.add(1);
        data.fillGraph(0, QPen());
        QList<double> places;
        for (const QGraphicsItem* item : plot.scene.items()) {
            const auto* text = qgraphicsitem_cast<const QGraphicsSimpleTextItem*>(item);
            if (text && text->text().endsWith("  ") && !text->text().trimmed().isEmpty())
                places << text->y();
        }
        std::sort(places.begin(), places.end());
        QVERIFY(places.size() >= 3);
        for (int i = 1; i < places.size(); ++i)
            QVERIFY(places[i] - places[i - 1] >= QFontMetricsF(large).height());
    }

    void refusesToDraw()
    {
        const QList<double> rows[] = {{5, 5, 5}, {5}, {1e308, -1e308}, {0, 1e307}, {0, 5e-324}};
        for (const QList<double>& values : rows) {
            Plot plot(values);
            const double span = plot.data.getMax();
            QCOMPARE(plot.fill(), NotDrawn);
            QCOMPARE(plot.scene.items().size(), 0);
            QCOMPARE(plot.scene.sceneRect(), QRectF(0, 0, 700, 175));
            QCOMPARE(plot.data.getMax(), span);
        }
        Plot plot({NotANumber, 1, Infinity, 3, -Infinity});
        QCOMPARE(plot.data.getMax(), 2.0);

        FunctionData without(nullptr, QFont(), 2);
        without.add(1);
        without.add(2);
        QCOMPARE(without.fillGraph(0, QPen()), NotDrawn);
        const std::unique_ptr<MarkerItem> marker(
            without.addVerticalMarker(-1, "Ax", QPen(), false, true));
        QCOMPARE(marker->pos(), QPointF(700, 0));
        QVERIFY(!marker->scene());

        auto* scene = new QGraphicsScene;
        FunctionData outliving(scene, QFont(), 2);
        outliving.add(1);
        outliving.add(2);
        delete scene;
        QCOMPARE(outliving.fillGraph(0, QPen()), NotDrawn);
    }

    // Axes of a billion steps, and values beside which a step is nothing.
    void hostileSpans()
    {
        const QList<double> rows[] = {{0, 1e-9},        {0, 1e-300},       {-1e300, 1e300},
                                      {1e15, 1e15 + 1}, {1e9, 1e9 + 1e-6}, {-1e20, 3}};
        for (const QList<double>& values : rows) {
            Plot plot(values);
            const bool drawn = plot.fill().isValid();
            QCOMPARE(drawn, !plot.scene.items().isEmpty());
            QVERIFY(plot.scene.items().size() < 21000);
            QVERIFY(plot.data.getMax() > 0);
        }
        for (double width : {-1.0, NotANumber, Infinity, 1e300}) {
            QGraphicsScene scene;
            FunctionData data(&scene, QFont(), width);
            QVERIFY(data.getGrid().width() >= 0 && data.getGrid().width() <= 1e6);
            QCOMPARE(data.getGrid().height(), 175.0);
            data.fillGraph(0, QPen());
            data.add(0);
            data.add(1);
            QVERIFY(scene.items().size() < 41000);
        }
    }

    void picture()
    {
        Plot plot({0, 400, 0, 400, 400}); // at 0, 175, 350, 525 and 700
        plot.fill();
        const QImage image = plot.picture();
        const struct {
            int x, y;
            QColor color;
        } points[] = {
            {174, 1, Qt::red},
            {349, 174, Qt::red},
            {600, 0, Qt::red},
            {525, 0, Qt::red},
            {-2, 175, Qt::black},
            {703, 175, Qt::black},
            {-2, 0, Grid},    // a label's line begins before the plot
            {10, 50, Grid},   // a column
            {200, 177, Grid}, // every twentieth goes on below
            {190, 177, QColor("whitesmoke")},
            {-20, -30, QColor("whitesmoke")},
            {720, 190, QColor("whitesmoke")},
            {45, 16, Qt::white}, // within the plot, between the lines
            {45, 10, QColor("lightgrey")},
        };
        for (const auto& point : points)
            QVERIFY2(at(image, point.x, point.y) == point.color,
                     qPrintable(QString("%1,%2: %3")
                                    .arg(point.x)
                                    .arg(point.y)
                                    .arg(at(image, point.x, point.y).name())));
    }

    void captions()
    {
        Plot plot({0, 400});
        plot.data.setCaption("Top", "Left", "Bottom", QString());
        const double font = QFontMetricsF(QFont()).height();
        const auto width = [](const char* text) {
            return QFontMetricsF(QFont()).horizontalAdvance(text);
        };
        const QSize size = plot.fill();
        const double labels = width("400.000  ");
        const double footer = width("     ") + font;
        const auto* left = plot.text("Left");
        QCOMPARE(left->pos(), QPointF(-2 * font - labels, width("Left")));
        QCOMPARE(left->rotation(), -90.0);
        QCOMPARE(left->brush().color(), QColor(Qt::red));
        QCOMPARE(plot.text("Top")->pos(), QPointF(350 - width("Top") / 2, -2 * font));
        QCOMPARE(plot.text("Bottom")->pos(), QPointF(700 + font, font + 177));
        const QRectF rect = plot.scene.sceneRect();
        QCOMPARE(rect, QRectF(-labels - font, -2 * font, labels + font + 700 + width("Bottom"),
                              footer + 175 + font));
        QCOMPARE(size, QSize(qRound(rect.width() + labels + font), qRound(rect.height() + footer)));

        Plot withRight({0, 400});
        withRight.data.setCaption("", "", "", "Right");
        withRight.fill();
        QCOMPARE(withRight.text("Right")->pos(), QPointF(700 + 2 * font, width("Right")));
        QCOMPARE(withRight.scene.sceneRect().right(), 700 + 2 * font);
    }

    void squaredPaper()
    {
        Plot plot;
        plot.scene.addText("left over");
        FunctionData data(&plot.scene, QFont(), 2); // clears
        QVERIFY(data.fillGraph(0, QPen(Qt::red)).isValid());
        const QImage image = plot.picture();
        for (int square : {0, 7, 14, 175})
            QCOMPARE(at(image, 3, square), Grid);
        for (int square : {0, 7, 14, 700})
            QCOMPARE(at(image, square, 3), Grid);
        QCOMPARE(at(image, 3, 3), QColor(Qt::white));
        QCOMPARE(plot.texts(), QStringList());
        const double font = QFontMetricsF(QFont()).height();
        QCOMPARE(plot.scene.sceneRect().left(), -3 * font);
        QCOMPARE(plot.scene.sceneRect().height(), 3 * font + 3 + 175);
    }

    void markersStandAtTheirValues()
    {
        const struct {
            QSizeF norm;
            double position, x, y;
        } rows[] = {
            {{NotANumber, 0}, 2.9, -1400, 175 + 2.9 * 175}, // still -1 by -1
            {{100, 50}, 2.9, 14, 175 - 2.9 * 3.5},
            {{0, Infinity}, 50, 350, 0}, // as before
            {{-100, 10}, 50.7, -350, 175 - 50.7 * 17.5},
            {{100, 50}, 1e300, 1e9, -1e9},
            {{100, 50}, NotANumber, 0, 0},
        };
        Plot plot;
        for (const auto& row : rows) {
            plot.data.setNorm(row.norm);
            const MarkerItem* vertical =
                plot.data.addVerticalMarker(row.position, "Ax", QPen(), false, true);
            const MarkerItem* horizontal =
                plot.data.addHorizontalMarker(row.position, "Ax", QPen(), true, false);
            QCOMPARE(vertical->pos(), QPointF(row.x, 0));
            QCOMPARE(horizontal->pos(), QPointF(0, row.y));
            QCOMPARE(vertical->boundingRect().bottom(), 175.0);
            QVERIFY(horizontal->boundingRect().right() > 700);
            QVERIFY(vertical->scene() == &plot.scene && horizontal->scene() == &plot.scene);
            QVERIFY(!vertical->toolTip().isEmpty() && horizontal->toolTip().isEmpty());
        }
        QCOMPARE(plot.data.normToWidth(10), 70.0);
        QCOMPARE(plot.data.normToHeight(10), 140.0);
    }

    void logLine()
    {
        Plot plot({1.5, -2});
        plot.data.setRange(10, 20);
        plot.data.getMax();
        QCOMPARE(debugLines().last(), QString("FunctionData::getMax() (10, 20, -2, 1.5, 1.5, -2)"));
    }
};

AXR_TEST_MAIN(FunctionDataTest)
#include "FunctionDataTest.moc"
