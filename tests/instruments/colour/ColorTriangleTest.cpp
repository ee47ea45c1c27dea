#include "ColorTriangle.h"
#include "ColorTriangleFill_p.h"
#include "ColorTriangleGeometry_p.h"
#include "SignalLog.h"
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

double length(QPointF way) { return std::hypot(way.x(), way.y()); }

/// How far a point is outside of the triangle; below 0 inside.
double outside(const G& geometry, QPointF point)
{
    double farthest = -1e9;
    for (int i = 0; i < 3; ++i) {
        const QPointF from = geometry.corner(G::Corner(i));
        const QPointF edge = geometry.corner(G::Corner((i + 1) % 3)) - from;
        farthest = qMax(farthest, cross(edge, point - from) / length(edge));
    }
    return farthest;
}

} // namespace

class ColorTriangleTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void geometry()
    {
        // width, height; radii, pen, marker, side of the outer circle
        const int sizes[][7] = {{400, 400, 200, 160, 4, 16, 401},
                                {700, 199, 99, 80, 1, 7, 199},
                                {9, 300, 4, 4, 0, 0, 9},
                                {0, 300, 0, 0, 0, 0, 1}};
        for (const auto& [width, height, outer, inner, pen, marker, side] : sizes) {
            const G g = geometryOf(QSize(width, height), 0);
            QCOMPARE(QRect(g.outerRadius(), g.innerRadius(), g.penWidth(), g.markerSize()),
                     QRect(outer, inner, pen, marker));
            QCOMPARE(g.circle(outer).size(), QSize(side, side));
            QCOMPARE(g.circle(outer).center(), g.center());
            QCOMPARE(g.isEmpty(), outer == 0);
        }
        // Hues go clockwise from the top.
        G g = geometryOf(QSize(201, 201), 0);
        for (int hue = 0; hue < 360; ++hue) {
            g.hueAngle = G::angleOfHue(hue);
            QCOMPARE(g.hue(), hue);
            g.hueAngle = g.angleAt(g.hueMarker());
            QCOMPARE(g.hue(), hue);
            const double angle = hue * G::FullTurn / 360;
            const QPointF wanted =
                QPointF(g.center()) + 90 * QPointF(std::sin(angle), -std::cos(angle));
            QVERIFY(length(g.hueMarker() - wanted) < 1e-9);
        }
        QCOMPARE(g.angleAt(g.center()), 0.0);
        for (const QPointF& offset : {QPointF(80, 0), QPointF(0, -80)}) {
            QVERIFY(g.isInsideRing(g.center() + offset));
            QVERIFY(!g.isInsideRing(g.center() + offset * 1.01));
        }
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
            const QPair<QPointF, QPointF> moves[] = {
                {onEdge + outward, onEdge},
                {onEdge - outward * 0.1, onEdge - outward * 0.1},
                {center + (corner - center) * 5, corner},
                {corner + outward, corner}};
            for (const auto& [from, to] : moves)
                QVERIFY2(length(geometry.movedIntoTriangle(from) - to) < 1e-9,
                         qPrintable(QString::number(i)));
        }
        const G nothing = geometryOf(QSize(0, 0), 1);
        QCOMPARE(nothing.movedIntoTriangle({5, 5}), QPointF(nothing.center()));
    }

    void fillIsLinearAndTellsItsPixels_data()
    {
        QTest::addColumn<QSize>("size");
        for (const int degrees : {0, 30, 47, 90, 163, 210, 330})
            QTest::addRow("%d", degrees) << QSize(161, 131);
        QTest::newRow("23, three pixels") << QSize(3, 3);
        QTest::newRow("6, larger than any screen") << QSize(2400, 2400);
    }
    void fillIsLinearAndTellsItsPixels()
    {
        QFETCH(QSize, size);
        const double angle =
            qDegreesToRadians(QString(QTest::currentDataTag()).section(',', 0, 0).toDouble());
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
                QVERIFY(difference(seen, qRgb(mix(255), mix(0), mix(128))) <= tolerance);
            }
        }
        QCOMPARE(fill.colorAt(a), pure);
        QCOMPARE(fill.colorAt(b), qRgb(0, 0, 0));
        QCOMPARE(fill.colorAt(c), qRgb(255, 255, 255));
    }

    /// What is cut off by the image's edges changes nothing of the rest.
    void fillStaysInItsImage()
    {
        const auto fillAt = [](QPointF by) {
            return ColorTriangleFill({{{QPointF(-50, 20) + by, qRgb(255, 0, 0)},
                                       {QPointF(90, -30.5) + by, qRgb(0, 255, 0)},
                                       {QPointF(30, 120) + by, qRgb(0, 0, 255)}}});
        };
        QImage part(40, 40, QImage::Format_RGB32);
        QImage whole(200, 200, QImage::Format_RGB32);
        part.fill(Qt::white);
        whole.fill(Qt::white);
        fillAt({0, 0}).paint(part);
        fillAt({60, 60}).paint(whole);
        QCOMPARE(part, whole.copy(60, 60, 40, 40));
        QVERIFY(part.pixel(0, 0) == 0xFFFFFFFF && part.pixel(20, 39) != 0xFFFFFFFF);
    }

    /// An edge that lies level is one row with both its ends, whatever the trigonometry's noise.
    void levelEdges()
    {
        for (int hue = 0; hue < 360; hue += 60) {
            for (int side = 300; side < 312; ++side) {
                const G g = geometryOf(QSize(side, side), G::angleOfHue(hue));
                const ColorTriangleFill level = fillOf(g, QColor::fromHsv(hue, 255, 255).rgb());
                for (int i = 0; i < 3; ++i) {
                    const QPointF from = g.corner(G::Corner(i));
                    const QPointF edge = g.corner(G::Corner((i + 1) % 3)) - from;
                    for (double step = 0.01; qAbs(edge.y()) < 0.5 && step < 1; step += 0.01) {
                        const QRgb before =
                            level.colorAt(g.movedIntoTriangle(from + edge * (step - 0.01)));
                        const QRgb here = level.colorAt(g.movedIntoTriangle(from + edge * step));
                        QVERIFY2(difference(here, before) <= 8,
                                 qPrintable(QString("%1 %2").arg(hue).arg(side)));
                    }
                }
            }
        }
    }

    /// By setColor() or a key: what is emitted, and the hue that the ring keeps.
    void takesColors()
    {
        const auto hsv = [](int h, int s, int v) { return QColor::fromHsv(h, s, v); };
        const struct {
            QColor before;
            Qt::Key key;
            QColor after;
            Qt::KeyboardModifier modifier = Qt::NoModifier;
        } rows[] = {{hsv(1, 60, 70), Qt::Key_Left, hsv(0, 60, 70)},
                    {hsv(0, 60, 70), Qt::Key_Left, hsv(358, 60, 70)}, // by 359
                    {hsv(359, 60, 70), Qt::Key_Right, hsv(1, 60, 70)},
                    {hsv(8, 0, 70), Qt::Key_Right, hsv(9, 0, 70)},
                    {hsv(50, 60, 253), Qt::Key_Up, hsv(50, 60, 255)},
                    {hsv(50, 60, 7), Qt::Key_Down, hsv(50, 60, 2)},
                    {hsv(50, 3, 70), Qt::Key_Down, hsv(50, 0, 70), Qt::ShiftModifier},
                    // too dark to tell in RGB
                    {hsv(120, 100, 10), Qt::Key_Up, hsv(120, 105, 10), Qt::ShiftModifier},
                    // greys keep the default's hue, and these change nothing
                    {QColor(90, 90, 90), Qt::Key_Right, hsv(77, 0, 90)},
                    {Qt::black, Qt::Key_Right, hsv(77, 0, 0)},
                    {QColor(), Qt::Key_Right, hsv(77, 184, 206)},
                    {hsv(76, 184, 206).toRgb(), Qt::Key_Right, hsv(77, 184, 206)}};
        for (const auto& row : rows) {
            ColorTriangle triangle;
            const bool isNew = row.before.isValid() && row.before.rgb() != triangle.color().rgb();
            SignalLog log(&triangle);
            triangle.setColor(row.before);
            triangle.setColor(row.before);
            QCOMPARE(log.takeLines().size(), isNew ? 1 : 0);
            QTest::keyClick(&triangle, row.key, row.modifier);
            QCOMPARE(log.takeLines(), QStringList{"colorChanged " + row.after.name()});
            QCOMPARE(triangle.color(), row.after);
        }
    }

    void mouse()
    {
        ColorTriangle triangle;
        triangle.setContentsMargins(20, 10, 0, 0);
        triangle.resize(320, 310);
        triangle.grab(); // lays it out
        SignalLog log(&triangle);
        const QPoint origin(20, 10);
        G geometry = geometryOf(QSize(300, 300), G::angleOfHue(76));
        QTest::mousePress(&triangle, Qt::RightButton, {}, origin + QPoint(150, 150));

        // In the triangle: what is reported is what is painted there, the markers being rings.
        const QPoint at = pixel(geometry.position(90, 150));
        QTest::mouseClick(&triangle, Qt::LeftButton, {}, origin + at);
        const QRgb seen = triangle.color().rgb();
        QCOMPARE(log.takeLines(), QStringList{"colorChanged " + triangle.color().name()});
        QCOMPARE(triangle.grab().toImage().pixel(origin + at), seen);
        QVERIFY(difference(seen, QColor::fromHsv(76, 90, 150).rgb()) <= 3);

        // A drag that began in the triangle stays in it: beyond a corner is the corner.
        const QPointF center = geometry.center();
        const QPointF beyond = center + (geometry.corner(G::White) - center) * 1.4;
        User::drag(&triangle, origin + at, origin + pixel(beyond));
        QCOMPARE(log.takeLines(), QStringList{"colorChanged #ffffff"});

        // On the ring: the hue alone; white stays white, and is told of as the hue changed.
        geometry.hueAngle = G::angleOfHue(200);
        const QPoint onRing = pixel(geometry.hueMarker());
        User::drag(&triangle, origin + onRing, origin + onRing);
        QCOMPARE(log.takeLines(), QStringList{"colorChanged #ffffff"});
        QVERIFY(qAbs(triangle.color().hsvHue() - 200) <= 1);

        QMouseEvent loose(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&triangle, &loose);
        QCOMPARE(log.takeLines(), QStringList());
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
        const QPointF across(geometry.markerSize() / 2, 0);
        // 30 x 255 is dark: the marker on red is white; it is hollow.
        QCOMPARE(image.pixel(pixel(geometry.hueMarker() + across)), qRgb(255, 255, 255));
        QVERIFY(difference(image.pixel(pixel(geometry.hueMarker())), qRgb(255, 0, 0)) <= 2);
        for (int hue = 36; hue < 360; hue += 36) { // between these the ring mixes
            geometry.hueAngle = G::angleOfHue(hue);
            const QColor seen = image.pixelColor(pixel(geometry.hueMarker()));
            QVERIFY2(qAbs(seen.hue() - hue) <= 1 && seen.saturation() >= 250,
                     qPrintable(seen.name()));
        }
        // Lit from one side: here the outer edge is the most coloured, the inner one the least.
        const double angle = G::FullTurn * (90 - 112) / 360;
        const auto edge = [&](int radius) {
            const QPointF offset = radius * QPointF(std::cos(angle), -std::sin(angle));
            return image.pixelColor(geometry.center() + offset.toPoint()).saturation();
        };
        QVERIFY(edge(geometry.innerRadius()) < edge(geometry.outerRadius()) - 50);
        palette.setColor(QPalette::Mid, Qt::cyan);
        triangle.setPalette(palette);
        triangle.setColor(QColor::fromHsv(90, 255, 255)); // bright, at the right
        geometry.hueAngle = G::angleOfHue(90);
        image = triangle.grab().toImage();
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::cyan));
        QCOMPARE(image.pixel(pixel(geometry.hueMarker() + across)), qRgb(0, 0, 0));
        for (const QSize size : {QSize(1, 1), QSize(2, 2), QSize(3, 40), QSize(40, 1)}) {
            triangle.resize(size); // too small for a picture
            triangle.grab();
            User::click(&triangle);
            QVERIFY(triangle.color().isValid());
        }
    }
};

AXR_TEST_MAIN(ColorTriangleTest)
#include "ColorTriangleTest.moc"
