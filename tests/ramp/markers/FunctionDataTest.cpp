#include "FunctionData.h"
#include "MarkerItem.h"
#include "TestCase.h"

#include <QGraphicsLineItem>
#include <QGraphicsSimpleTextItem>

#include <tuple>

namespace
{

constexpr QSize NotDrawn(-1, -1);
const QColor Grid("#9AA9B6");

QString line(const QLineF& line, const QColor& colour, double width = 0, double z = 0)
{
    return QString::asprintf("%g,%g %g,%g %g %g ", line.x1(), line.y1(), line.x2(), line.y2(),
                             width, z) +
           colour.name();
}

/// A plot of 700 by 175 pixels.
struct Plot {
    explicit Plot(const QList<double>& values, int fontSize = 12) : data(&scene, font(fontSize), 2)
    {
        for (double value : values)
            data.add(value);
    }
    static QFont font(int size)
    {
        QFont sized;
        sized.setPixelSize(size);
        return sized;
    }
    static double widthOf(const QString& text)
    {
        return QFontMetricsF(font(12)).horizontalAdvance(text);
    }
    QSize fill() { return data.fillGraph(0, QPen(Qt::red)); }
    QStringList lines() const
    {
        QStringList all;
        for (const QGraphicsItem* item : scene.items()) {
            if (const auto* each = qgraphicsitem_cast<const QGraphicsLineItem*>(item))
                all << line(each->line(), each->pen().color(), each->pen().widthF(),
                            each->zValue());
        }
        all.sort();
        return all;
    }
    /// Every text that is not blank, by its place from the top.
    QMap<double, const QGraphicsSimpleTextItem*> texts() const
    {
        QMap<double, const QGraphicsSimpleTextItem*> found;
        for (const QGraphicsItem* item : scene.items()) {
            const auto* text = qgraphicsitem_cast<const QGraphicsSimpleTextItem*>(item);
            if (text && !text->text().trimmed().isEmpty())
                found.insert(text->y(), text);
        }
        return found;
    }
    /// "x,y turned colour"
    QString text(const QString& wanted) const
    {
        for (const auto* text : texts()) {
            if (text->text() == wanted)
                return QString::asprintf("%g,%g %g ", text->x(), text->y(), text->rotation()) +
                       text->brush().color().name();
        }
        return QString();
    }

    QGraphicsScene scene;
    FunctionData data;
};

} // namespace

class FunctionDataTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void valueAxis()
    {
        const std::tuple<double, double, double, QString, QString> rows[] = {
            {0, 400, 0.4, "400.000  ", "0.000  "},
            {0, 401, 0.401, "401.000  ", "1.000  "}, // labels go to the steps nearest to even ones
            {0, 33, 0.33, "32.50  ", "2.50  "},
            {0, 0.33, 0.5, "0.50  ", "0.00  "},
            {-0.9, -0.33, 0.9, "0.00  ",
             "-0.90  "}, // the remainder has the sign of what is divided
            {-1, 1, 0.2, "1.00  ", "-1.00  "},
            {-3, 7, 0.17, "5.00  ", "-10.00  "}};
        Plot nearZero({-60, 43});
        nearZero.fill();
        QVERIFY(!nearZero.text("2.000  ").isEmpty()); // -2 is at the step nearest to 0
        for (const auto& [min, max, span, top, bottom] : rows) {
            for (int fontSize : {12, 40}) {
                Plot plot({min, max}, fontSize);
                QCOMPARE(plot.data.getMax(), max - min);
                QVERIFY(plot.fill().isValid());
                QCOMPARE(plot.data.getMax(), span);
                const auto texts = plot.texts();
                QCOMPARE(texts.first()->text(), top);
                QVERIFY(fontSize == 40 || texts.last()->text() == bottom);
                double last = -1000;
                for (const auto* text : texts) {
                    QVERIFY(text->text().toDouble() < 0 || !text->text().startsWith('-'));
                    QVERIFY(text->y() >= last + QFontMetricsF(text->font()).height());
                    last = text->y();
                }
            }
        }
    }

    void linesAndTexts()
    {
        Plot plot({-200, 200, -200, 200, 200});
        plot.data.setCaption("Top", "Left", "Bottom", "");
        const QSize size = plot.fill();
        QStringList lines;
        for (int y : {0, 21, 43, 65, 87, 109, 131, 153, 175})
            lines << line({-3., double(y), 703, double(y)}, y == 87 ? QColor(Qt::black) : Grid);
        for (int y : {10, 32, 54, 76, 98, 120, 142, 164})
            lines << line({0, double(y), 700, double(y)}, "lightgrey");
        for (int x = 0; x <= 700; x += 10) {
            const int longer = x % 200 == 0 ? 3 : 0;
            lines << line({double(x), double(-longer), double(x), 175. + longer}, Grid);
        }
        const double ys[] = {175, 0, 175, 0, 0};
        for (int i = 0; i < 4; ++i)
            lines << line({i * 175., ys[i], i * 175. + 175, ys[i + 1]}, Qt::red, 1);
        const double font = QFontMetricsF(Plot::font(12)).height();
        const double left = Plot::widthOf("-200.000  ") + font;
        const double footer = Plot::widthOf("     ") + font;
        const double width = left + footer;
        const double h = width / 2;
        for (const QLineF& side :
             {QLineF(-h, -h, 701 + h, -h), QLineF(-h, 176 + h, 701 + h, 176 + h),
              QLineF(-h, h, -h, 176 - h), QLineF(701 + h, h, 701 + h, 176 - h)})
            lines << line(side, "whitesmoke", width, -1);
        lines.sort();
        QCOMPARE(plot.lines(), lines);

        const auto at = [](double x, double y, double turned) {
            return QString::asprintf("%g,%g %g ", x, y, turned) + QColor(Qt::red).name();
        };
        QCOMPARE(plot.text("Left"), at(-left - font, Plot::widthOf("Left"), -90));
        QCOMPARE(plot.text("Top"), at(350 - Plot::widthOf("Top") / 2, -2 * font, 0));
        QCOMPARE(plot.text("Bottom"), at(700 + font, font + 177, 0));
        const QRectF rect(-left, -2 * font, left + 700 + Plot::widthOf("Bottom"),
                          footer + 175 + font);
        QCOMPARE(plot.scene.sceneRect(), rect);
        QCOMPARE(size, QSize(qRound(rect.width() + left), qRound(rect.height() + footer)));

        Plot paper({});
        paper.scene.addText("left over");
        FunctionData data(&paper.scene, Plot::font(12), 2); // clears
        data.setCaption("", "", "", "Right");
        QVERIFY(data.fillGraph(0, QPen(Qt::red)).isValid());
        lines = paper.lines().filter(Grid.name());
        QCOMPARE(lines.size(), 26 + 101);
        QVERIFY(lines.contains(line({0, 168, 700, 168}, Grid)));
        QVERIFY(lines.contains(line({693, 0, 693, 175}, Grid)));
        QCOMPARE(paper.text("Right"), at(700 + 2 * font, Plot::widthOf("Right"), -90));
        QCOMPARE(paper.scene.sceneRect(),
                 QRectF(-3 * font, -2 * font, 700 + 5 * font, 178 + 3 * font));
    }

    void badInput()
    {
        // Nothing is drawn or changed; of the last rows' billion steps only so many are.
        const std::pair<QList<double>, bool> rows[] = {{{5, 5, 5}, false},
                                                       {{5}, false},
                                                       {{1e308, -1e308}, false},
                                                       {{0, 1e307}, false},
                                                       {{0, 5e-324}, false},
                                                       {{0, 1e-9}, true},
                                                       {{1e15, 1e15 + 1}, true},
                                                       {{-1e20, 3}, true},
                                                       {{1, qQNaN(), qInf(), 3, -qInf()}, true}};
        for (const auto& [values, isDrawn] : rows) {
            Plot plot(values);
            const double span = plot.data.getMax();
            QCOMPARE(plot.fill() != NotDrawn, isDrawn);
            QCOMPARE(!plot.scene.items().isEmpty(), isDrawn);
            QVERIFY(plot.scene.items().size() < 21000);
            QVERIFY(isDrawn || (plot.data.getMax() == span &&
                                plot.scene.sceneRect() == QRectF(0, 0, 700, 175)));
        }
        for (const auto& [width, pixels] : {std::pair(-1.0, 0.0), {qQNaN(), 0}, {1e300, 1e6}}) {
            auto scene = std::make_unique<QGraphicsScene>();
            FunctionData data(scene.get(), QFont(), width);
            QCOMPARE(data.getGrid(), QSizeF(pixels, 175));
            data.fillGraph(0, QPen());
            QVERIFY(scene->items().size() < 41000);
            scene.reset(); // it may go first
            QCOMPARE(data.fillGraph(0, QPen()), NotDrawn);
        }
    }

    void markersStandAtTheirValues()
    {
        const std::tuple<QSizeF, double, QPointF> rows[] = {
            {{qQNaN(), 0}, 2.9, {-1400, 175 + 2.9 * 175}}, // still -1 by -1
            {{100, 50}, 2.9, {14, 175 - 2.9 * 3.5}},
            {{0, qInf()}, 50, {350, 0}}, // as before
            {{-100, 10}, 50.7, {-350, 175 - 50.7 * 17.5}},
            {{100, 50}, 1e300, {1e9, -1e9}},
            {{100, 50}, qQNaN(), {0, 0}}};
        Plot plot({});
        FunctionData without(nullptr, QFont(), 2);
        for (const auto& [norm, position, place] : rows) {
            for (FunctionData* data : {&plot.data, &without}) {
                data->setNorm(norm);
                auto* vertical = data->addVerticalMarker(position, "Ax", QPen(), false, true);
                auto* horizontal = data->addHorizontalMarker(position, "Ax", QPen(), true, false);
                QCOMPARE(vertical->pos(), QPointF(place.x(), 0));
                QCOMPARE(horizontal->pos(), QPointF(0, place.y()));
                QVERIFY(vertical->boundingRect().bottom() == 175 &&
                        horizontal->boundingRect().right() > 700);
                QVERIFY(!vertical->toolTip().isEmpty() && horizontal->toolTip().isEmpty());
                for (MarkerItem* marker : {vertical, horizontal})
                    QCOMPARE(marker->scene(), data == &without ? nullptr : &plot.scene);
                if (data == &without) {
                    delete vertical;
                    delete horizontal;
                }
            }
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
