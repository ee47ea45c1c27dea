#include "ColorTriangle.h"
#include "ColorTriangleFill_p.h"
#include "ColorTriangleGeometry_p.h"
#include "ColorViewer.h"
#include "TestCase.h"
#include "User.h"

#include <cmath>

namespace
{

using G = ColorTriangleGeometry;

G geometryOf(QSize size, double angle)
{
    G geometry;
    geometry.size = size;
    geometry.hueAngle = angle;
    return geometry;
}

ColorTriangleFill fillOf(const G& geometry, QRgb pure)
{
    return ColorTriangleFill({{{geometry.corner(G::PureHue), pure},
                               {geometry.corner(G::Black), qRgb(0, 0, 0)},
                               {geometry.corner(G::White), qRgb(255, 255, 255)}}});
}

int difference(QRgb a, QRgb b)
{
    return qMax(qAbs(qRed(a) - qRed(b)),
                qMax(qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))));
}

QPoint pixel(QPointF point)
{
    return QPoint(int(std::floor(point.x())), int(std::floor(point.y())));
}

double cross(QPointF a, QPointF b) { return a.x() * b.y() - a.y() * b.x(); }

/// How far a point is outside of the triangle; below 0 inside.
double outside(const G& geometry, QPointF point)
{
    double farthest = -1e9;
    for (int i = 0; i < 3; ++i) {
        const QPointF from = geometry.corner(G::Corner(i));
        const QPointF edge = geometry.corner(G::Corner((i + 1) % 3)) - from;
        farthest = qMax(farthest, cross(edge, point - from) / std::hypot(edge.x(), edge.y()));
    }
    return farthest;
}

struct Recorder {
    explicit Recorder(ColorTriangle& triangle)
    {
        QObject::connect(&triangle, &ColorTriangle::colorChanged, &triangle,
                         [this](const QColor& color) { colors << color; });
    }
    QList<QColor> colors;
};

} // namespace

class ColorTriangleTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void measures_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QList<int>>("measures"); // radii, pen, marker
        QTest::newRow("square") << QSize(400, 400) << QList<int>{200, 160, 4, 16};
        QTest::newRow("wide, odd") << QSize(700, 199) << QList<int>{99, 80, 1, 7};
        QTest::newRow("tiny") << QSize(9, 300) << QList<int>{4, 4, 0, 0};
        QTest::newRow("nothing") << QSize(0, 300) << QList<int>{0, 0, 0, 0};
    }
    void measures()
    {
        QFETCH(QSize, size);
        const G geometry = geometryOf(size, 0);
        const QList<int> seen{geometry.outerRadius(), geometry.innerRadius(), geometry.penWidth(),
                              geometry.markerSize()};
        QTEST(seen, "measures");
        QCOMPARE(geometry.isEmpty(), seen.first() == 0);
    }

    void huesGoClockwiseFromTheTop()
    {
        G geometry = geometryOf(QSize(201, 201), 0);
        for (int hue = 0; hue < 360; ++hue) {
            geometry.hueAngle = G::angleOfHue(hue);
            QCOMPARE(geometry.hue(), hue);
            geometry.hueAngle = geometry.angleAt(geometry.hueMarker());
            QCOMPARE(geometry.hue(), hue);
        }
        const QPointF offsets[] = {{0, -90}, {90, 0}, {0, 90}, {-90, 0}};
        for (int i = 0; i < 4; ++i) {
            geometry.hueAngle = G::angleOfHue(i * 90);
            const QPointF off = geometry.hueMarker() - geometry.center() - offsets[i];
            QVERIFY(std::hypot(off.x(), off.y()) < 1e-9);
        }
        QCOMPARE(geometry.angleAt(geometry.center()), 0.0);
    }

    void pointsMoveIntoTheTriangle()
    {
        const G geometry = geometryOf(QSize(301, 301), 0.3);
        const QPointF center = geometry.center();
        for (int i = 0; i < 3; ++i) {
            const QPointF corner = geometry.corner(G::Corner(i));
            const QPointF next = geometry.corner(G::Corner((i + 1) % 3));
            const QPointF onEdge = corner * 0.7 + next * 0.3;
            const QPointF outward = (corner + next) / 2 - center;
            const struct {
                QPointF from, to;
            } moves[] = {{onEdge + outward, onEdge},
                         {onEdge - outward * 0.1, onEdge - outward * 0.1},
                         {center + (corner - center) * 5, corner},
                         {corner + outward, corner}};
            for (const auto& move : moves) {
                const QPointF miss = geometry.movedIntoTriangle(move.from) - move.to;
                QVERIFY2(std::hypot(miss.x(), miss.y()) < 1e-9, qPrintable(QString::number(i)));
            }
        }
        QCOMPARE(geometryOf(QSize(0, 0), 1).movedIntoTriangle({5, 5}),
                 QPointF(QRect(0, 0, 0, 0).center()));
    }

    void fillIsLinearAndTellsItsPixels_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("angle");
        for (const int degrees : {0, 30, 47, 90, 163, 210, 330})
            QTest::addRow("%d degrees", degrees)
                << QSize(161, 131) << qDegreesToRadians(degrees * 1.0);
        QTest::newRow("three pixels") << QSize(3, 3) << 0.4;
        QTest::newRow("larger than any screen") << QSize(2400, 2400) << 0.1;
    }
    void fillIsLinearAndTellsItsPixels()
    {
        QFETCH(QSize, size);
        QFETCH(double, angle);
        const G geometry = geometryOf(size, angle);
        const QRgb pure = qRgb(255, 0, 128);
        const ColorTriangleFill fill = fillOf(geometry, pure);
        QImage image(size, QImage::Format_RGB32);
        const QRgb ground = qRgb(1, 2, 3);
        image.fill(ground);
        fill.paint(image);

        const QPointF a = geometry.corner(G::PureHue);
        const QPointF b = geometry.corner(G::Black);
        const QPointF c = geometry.corner(G::White);
        const double area = cross(b - a, c - a);
        const int step = size.width() > 1000 ? 7 : 1;
        // One level of difference for each pixel of the edge, and one for rounding.
        const int tolerance = 2 + 255 / qMax(1, geometry.innerRadius());
        for (int y = 0; y < size.height(); y += step) {
            for (int x = 0; x < size.width(); x += step) {
                const QPointF point(x + 0.5, y + 0.5);
                const double off = outside(geometry, point);
                const QRgb seen = image.pixel(x, y);
                if (off > 1.5)
                    QCOMPARE(seen, ground);
                if (off > -1.5)
                    continue;
                QCOMPARE(seen, fill.colorAt(QPointF(x + 0.3, y + 0.9)));
                const double shareA = cross(b - point, c - point) / area;
                const double shareC = cross(a - point, b - point) / area;
                const auto mix = [&](int channel) { return int(channel * shareA + 255 * shareC); };
                QVERIFY(difference(seen, qRgb(mix(qRed(pure)), mix(qGreen(pure)),
                                              mix(qBlue(pure)))) <= tolerance);
            }
        }
        QCOMPARE(fill.colorAt(a), pure);
        QCOMPARE(fill.colorAt(b), qRgb(0, 0, 0));
        QCOMPARE(fill.colorAt(c), qRgb(255, 255, 255));
    }

    void fillStaysInItsImage()
    {
        const ColorTriangleFill fill(
            {{{{-50, 20}, qRgb(255, 0, 0)}, {{90, -30.5}, qRgb(0, 255, 0)}, {{30, 1e6}, 0}}});
        QImage image(40, 40, QImage::Format_RGB32);
        image.fill(Qt::white);
        fill.paint(image);
        QCOMPARE(image.pixel(20, 39), fill.colorAt({20, 39}));
        QCOMPARE(image.pixel(0, 0), 0xFFFFFFFF); // the edge passes below
    }

    void colorsHaveTheirPlace()
    {
        const G geometry = geometryOf(QSize(400, 400), G::angleOfHue(76));
        const ColorTriangleFill fill = fillOf(geometry, QColor::fromHsv(76, 255, 255).rgb());
        for (int saturation = 0; saturation <= 255; saturation += 17) {
            for (int value = 0; value <= 255; value += 17) {
                const QPointF at = geometry.position(saturation, value);
                QVERIFY(outside(geometry, at) < 1e-9);
                const QRgb wanted = QColor::fromHsv(76, saturation, value).rgb();
                QVERIFY(difference(fill.colorAt(at), wanted) <= 3);
            }
        }
    }

    /// An edge that lies level is one row with both its ends, whatever the trigonometry's noise.
    void levelEdges()
    {
        for (int hue = 0; hue < 360; hue += 60) {
            for (int side = 300; side < 312; ++side) {
                const G geometry = geometryOf(QSize(side, side), G::angleOfHue(hue));
                const ColorTriangleFill fill =
                    fillOf(geometry, QColor::fromHsv(hue, 255, 255).rgb());
                for (int i = 0; i < 3; ++i) {
                    const QPointF from = geometry.corner(G::Corner(i));
                    const QPointF edge = geometry.corner(G::Corner((i + 1) % 3)) - from;
                    const bool isLevel = qAbs(edge.y()) < 0.5;
                    QRgb before = fill.colorAt(from);
                    for (int step = 1; isLevel && step < 100; ++step) {
                        const QRgb here =
                            fill.colorAt(geometry.movedIntoTriangle(from + edge * (step / 100.0)));
                        QVERIFY2(difference(here, before) <= 8,
                                 qPrintable(QString("%1 %2").arg(hue).arg(side)));
                        before = here;
                    }
                }
            }
        }
    }

    void takesColors_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<int>("hue"); // of the ring, afterwards
        QTest::addColumn<bool>("changes");
        QTest::newRow("grey keeps the hue") << QColor(90, 90, 90) << 76 << true;
        QTest::newRow("black too") << QColor(Qt::black) << 76 << true;
        QTest::newRow("a hue") << QColor(Qt::blue) << 240 << true;
        QTest::newRow("invalid") << QColor() << 76 << false;
        QTest::newRow("same") << QColor::fromHsv(76, 184, 206) << 76 << false;
        QTest::newRow("same, other model") << QColor::fromHsv(76, 184, 206).toRgb() << 76 << false;
    }
    void takesColors()
    {
        QFETCH(QColor, color);
        ColorTriangle triangle;
        const Recorder recorder(triangle);
        triangle.setColor(color);
        QTEST(!recorder.colors.isEmpty(), "changes");
        triangle.setColor(color);
        QVERIFY(recorder.colors.size() <= 1);
        QTest::keyClick(&triangle, Qt::Key_Right);
        triangle.setColor(QColor::fromHsv(triangle.color().hsvHue(), 255, 255));
        QFETCH(int, hue);
        QCOMPARE(triangle.color().hue(), hue + 1);
    }

    void keys_data()
    {
        QTest::addColumn<QColor>("before");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("shift");
        QTest::addColumn<QColor>("after");
        const auto hsv = [](int h, int s, int v) { return QColor::fromHsv(h, s, v); };
        QTest::newRow("left") << hsv(50, 60, 70) << int(Qt::Key_Left) << false << hsv(49, 60, 70);
        QTest::newRow("left wraps by 359")
            << hsv(0, 60, 70) << int(Qt::Key_Left) << false << hsv(358, 60, 70);
        QTest::newRow("right wraps by 359")
            << hsv(359, 60, 70) << int(Qt::Key_Right) << false << hsv(1, 60, 70);
        QTest::newRow("grey turns")
            << hsv(8, 0, 70) << int(Qt::Key_Right) << false << hsv(9, 0, 70);
        QTest::newRow("up") << hsv(50, 60, 253) << int(Qt::Key_Up) << false << hsv(50, 60, 255);
        QTest::newRow("down") << hsv(50, 60, 70) << int(Qt::Key_Down) << true << hsv(50, 55, 70);
        QTest::newRow("too dark to tell")
            << hsv(120, 100, 10) << int(Qt::Key_Up) << true << hsv(120, 105, 10);
        QTest::newRow("bottom") << hsv(50, 3, 70) << int(Qt::Key_Down) << true << hsv(50, 0, 70);
    }
    void keys()
    {
        QFETCH(QColor, before);
        QFETCH(QColor, after);
        QFETCH(int, key);
        QFETCH(bool, shift);
        ColorTriangle triangle;
        triangle.setColor(before);
        const Recorder recorder(triangle);
        QTest::keyClick(&triangle, Qt::Key(key), shift ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(recorder.colors, QList<QColor>{after});
        QCOMPARE(triangle.color(), after);
    }

    void mouse()
    {
        ColorTriangle triangle;
        triangle.setContentsMargins(20, 10, 0, 0);
        triangle.resize(320, 310);
        triangle.grab(); // lays it out
        const Recorder recorder(triangle);
        const QPoint origin(20, 10);
        G geometry = geometryOf(QSize(300, 300), G::angleOfHue(76));

        QTest::mousePress(&triangle, Qt::RightButton, {}, origin + QPoint(150, 150));
        QVERIFY(recorder.colors.isEmpty());

        // In the triangle: what is reported is what is painted there, the markers being rings.
        const QPoint at = pixel(geometry.position(90, 150));
        QTest::mouseClick(&triangle, Qt::LeftButton, {}, origin + at);
        QCOMPARE(recorder.colors.size(), 1);
        QCOMPARE(triangle.grab().toImage().pixel(origin + at), recorder.colors.last().rgb());
        QVERIFY(difference(recorder.colors.last().rgb(), QColor::fromHsv(76, 90, 150).rgb()) <= 3);

        // A drag that began in the triangle stays in it: beyond a corner is the corner.
        const QPointF center = geometry.center();
        const QPointF beyond = center + (geometry.corner(G::White) - center) * 1.4;
        User::drag(&triangle, origin + at, origin + pixel(beyond));
        QCOMPARE(recorder.colors.last(), QColor(Qt::white));

        // On the ring: the hue alone; white stays white, and is told of as the hue changed.
        const int before = recorder.colors.size();
        geometry.hueAngle = G::angleOfHue(200);
        const QPoint onRing = pixel(geometry.hueMarker());
        User::drag(&triangle, origin + onRing, origin + onRing);
        QCOMPARE(recorder.colors.size(), before + 1);
        QVERIFY(qAbs(recorder.colors.last().hsvHue() - 200) <= 1);
        QCOMPARE(recorder.colors.last().rgb(), QColor(Qt::white).rgb());

        QMouseEvent loose(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&triangle, &loose);
        QCOMPARE(recorder.colors.size(), before + 1);
    }

    void picture()
    {
        ColorTriangle triangle;
        QPalette palette;
        palette.setColor(QPalette::Mid, QColor(10, 20, 30));
        triangle.setPalette(palette);
        triangle.resize(400, 400);
        triangle.setColor(QColor::fromHsv(0, 255, 255));
        QImage image = triangle.grab().toImage();
        G geometry = geometryOf(QSize(400, 400), G::angleOfHue(0));
        QCOMPARE(image.pixelColor(0, 0), QColor(10, 20, 30));
        QCOMPARE(image.pixelColor(pixel(geometry.center() + QPointF(0, -120))).hue(), 0);
        const int radius = geometry.markerSize() / 2;
        const QPointF across(radius, 0);
        // 30 x 255 is dark: the marker on red is white; it is hollow.
        QCOMPARE(image.pixel(pixel(geometry.hueMarker() + across)), qRgb(255, 255, 255));
        QVERIFY(difference(image.pixel(pixel(geometry.hueMarker())), qRgb(255, 0, 0)) <= 2);
        for (int hue = 36; hue < 360; hue += 36) { // between these the ring mixes
            geometry.hueAngle = G::angleOfHue(hue);
            const QColor seen = image.pixelColor(pixel(geometry.hueMarker()));
            QVERIFY2(qAbs(seen.hue() - hue) <= 1 && seen.saturation() >= 250,
                     qPrintable(seen.name()));
        }
        palette.setColor(QPalette::Mid, Qt::cyan);
        triangle.setPalette(palette);
        triangle.setColor(QColor::fromHsv(90, 255, 255)); // bright, at the right
        geometry.hueAngle = G::angleOfHue(90);
        image = triangle.grab().toImage();
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::cyan));
        QCOMPARE(image.pixel(pixel(geometry.hueMarker() + across)), qRgb(0, 0, 0));
    }

    void tooSmallForAPicture()
    {
        ColorTriangle triangle;
        for (const QSize size : {QSize(1, 1), QSize(2, 2), QSize(3, 40), QSize(40, 1)}) {
            triangle.resize(size);
            triangle.grab();
            User::click(&triangle);
        }
        QVERIFY(triangle.color().isValid());
    }

    void viewerNamesTheColor()
    {
        ColorViewer viewer;
        QCOMPARE(viewer.minimumSize(), QSize(10, 10));
        viewer.resize(120, 40);
        const struct {
            QColor color, text;
        } rows[] = {{QColor(0x80, 0x80, 0x80), Qt::white}, // 12800 is dark, 12801 is not
                    {QColor(0x80, 0x80, 0x81), Qt::black}};
        for (const auto& row : rows) {
            viewer.changeColor(row.color);
            const QImage image = viewer.grab().toImage();
            QCOMPARE(image.pixelColor(2, 2), QColor(Qt::black));
            QCOMPARE(image.pixelColor(4, 4), row.color);
            QCOMPARE(image.pixelColor(118, 38), QColor(Qt::black));
            bool found = false;
            for (int y = 4; y < 36; ++y)
                for (int x = 8; x < 110; ++x)
                    found = found || image.pixelColor(x, y) == row.text;
            QVERIFY(found);
        }
    }
};

AXR_TEST_MAIN(ColorTriangleTest)
#include "ColorTriangleTest.moc"
