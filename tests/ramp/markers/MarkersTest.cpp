#include "MarkerItem.h"
#include "NoteItem.h"
#include "NoteTextItem.h"
#include "ObsoleteMarkerItem.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "User.h"

#include <QGraphicsView>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <tuple>

namespace
{

const QSizeF Area(200, 100);
const QRectF Room(10, 20, 400, 300);
constexpr int Margin = 100; // left and above of the origin in a picture

/// The item alone on white, its origin at (Margin, Margin).
QImage pictureOf(QGraphicsItem* item, QStyle::State state = QStyle::State_None)
{
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(Margin, Margin);
    QStyleOptionGraphicsItem option;
    option.state = state;
    item->paint(&painter, &option, nullptr);
    return image;
}

QColor at(const QImage& image, double x, double y)
{
    return image.pixelColor(qRound(x) + Margin, qRound(y) + Margin);
}

/// What is painted within `rect`, in the item's coordinates; null when nothing is. Only of a colour
/// if one is given.
QRect inked(const QImage& image, const QRectF& rect, const QColor& colour = QColor())
{
    QRect ink;
    const QRect pixels = rect.translated(Margin, Margin).toRect() & image.rect();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const QColor seen = image.pixelColor(x, y);
            if (colour.isValid() ? seen == colour : seen != Qt::white)
                ink |= QRect(x - Margin, y - Margin, 1, 1);
        }
    }
    return ink;
}

QFont sized(int pixels)
{
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

/// Whether the gesture has a shown item painted anew.
bool repaints(QGraphicsItem* item, const std::function<void()>& gesture)
{
    bool isChanged = false;
    QObject::connect(item->scene(), &QGraphicsScene::changed, item->scene(),
                     [&isChanged] { isChanged = true; });
    QCoreApplication::processEvents();
    isChanged = false;
    gesture();
    QCoreApplication::processEvents();
    item->scene()->disconnect(SIGNAL(changed(QList<QRectF>)));
    return isChanged;
}

} // namespace

class MarkersTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void measures()
    {
        const std::tuple<QString, double, double> rows[] = {
            {"Ax", 3, 0}, {"Ax\n", 6, 8}, {"\nAx", 6, 8}, {"\nAx\n", 9, 8}};
        for (const auto& [text, padding, extra] : rows) {
            MarkerItem vertical(true, text, QPen(), Area, false);
            MarkerItem horizontal(false, text, QPen(), Area, false);
            QVERIFY(vertical.boundingRect().isEmpty());
            for (int pixels : {0, 40, 12}) { // the first equals what it has, but is not measured
                const QFont font = pixels ? sized(pixels) : QFont();
                const QRect bare = QFontMetrics(font).boundingRect(text + '|');
                const double width = bare.width() + 4;
                const double height = bare.height() + 2 * padding;
                vertical.adjust(font);
                horizontal.adjust(font);
                QCOMPARE(vertical.boundingRect(),
                         QRectF(-height / 2, -width - extra, height, 100 + width + 2 * extra));
                QCOMPARE(horizontal.boundingRect(),
                         QRectF(0, -height / 2 - extra, 200 + width, height + 2 * extra));
            }
        }
    }

    void linesAndCaption()
    {
        MarkerItem vertical(true, "Caption", QPen(Qt::red), Area, false);
        vertical.adjust(QFont());
        QImage image = pictureOf(&vertical);
        QCOMPARE(inked(image, QRectF(-50, 1, 100, 250)), QRect(0, 1, 1, 100));
        const QRect turned = inked(image, QRectF(-90, -95, 180, 95));
        QVERIFY(turned.height() > turned.width() * 2);
        QVERIFY(vertical.boundingRect().toAlignedRect().contains(turned));

        MarkerItem horizontal(false, "Caption", QPen(Qt::red), Area, false);
        horizontal.adjust(QFont());
        horizontal.setValue(12345, QPointF(30, 20)); // no line feed, no value
        image = pictureOf(&horizontal);
        QCOMPARE(at(image, 115, 10), QColor(Qt::red));
        QCOMPARE(inked(image, QRectF(-90, -90, 290, 300)), QRect(30, 0, 170, 21));
        const QRect caption = inked(image, QRectF(201, -90, 190, 300));
        QVERIFY(horizontal.boundingRect().toAlignedRect().contains(caption));
        QVERIFY(horizontal.boundingRect().contains(30, 20));
        QVERIFY(caption.height() > 5 && caption.right() > horizontal.boundingRect().right() - 6);
    }

    void valueBesideTheLine()
    {
        const std::tuple<QString, bool, bool> rows[] = {{"Max\n", false, true},
                                                        {"\nMin", true, false},
                                                        {"\nBoth\n", false, true},
                                                        {"In\nner", false, false},
                                                        {"", false, false}};
        for (const auto& [text, above, below] : rows) {
            MarkerItem marker(false, text, QPen(Qt::red), Area, false);
            marker.setValue(-1234567, QPointF(20, 0)); // before it is measured
            marker.adjust(QFont());
            const QImage image = pictureOf(&marker);
            const QRect upper = inked(image, QRectF(-90, -90, 290, 90));
            const QRect lower = inked(image, QRectF(-90, 1, 290, 90));
            QVERIFY(upper.isNull() != above && lower.isNull() != below);
            const QRect value = upper | lower;
            const int width = QFontMetrics(QFont()).horizontalAdvance("-1,234,567");
            if (!value.isNull()) {
                QVERIFY(qAbs(value.left() - 30) <= 3 && qAbs(value.width() - width) <= 4);
                QVERIFY(marker.boundingRect().toAlignedRect().contains(value));
                QVERIFY(above ? value.top() < marker.boundingRect().top() + 6
                              : value.bottom() > marker.boundingRect().bottom() - 8);
            }
            marker.setValue(1, QPointF(500, 0)); // beyond the line's end
            QVERIFY(marker.boundingRect().right() >= (value.isNull() ? 200 : 511));
        }
    }

    void selectionAndRepaints()
    {
        QGraphicsScene scene;
        auto* marker = new MarkerItem(false, "Ax\n", QPen(Qt::darkGreen, 3), Area, true);
        marker->adjust(QFont());
        scene.addItem(marker);
        const double bottom = marker->boundingRect().bottom();
        QCOMPARE(at(pictureOf(marker), 150, bottom - 3), QColor(Qt::white));
        marker->setSelected(true);
        const QColor inside = at(pictureOf(marker), 150, bottom - 3);
        QVERIFY(qAbs(inside.red() - 210) <= 2 && qAbs(inside.blue() - 253) <= 2); // 96 of 255
        for (int up : {0, 1})
            QCOMPARE(at(pictureOf(marker), 150, bottom - up), QColor(Qt::darkGreen));

        QFont struck;
        struck.setStrikeOut(true); // as large
        QVERIFY(repaints(marker, [&] { marker->setValue(7, QPointF()); }));
        QVERIFY(!repaints(marker, [&] { marker->setValue(7, QPointF()); }));
        QVERIFY(repaints(marker, [&] { marker->adjust(struck); }));
        QVERIFY(!repaints(marker, [&] { marker->adjust(struck); }));
    }

    void staysInItsRoom()
    {
        const std::tuple<bool, bool, QPointF, QPointF, QPointF> rows[] = {
            // vertical, movable, moved to, is then in the scene and in a parent of (-5, -5, 110,
            // 60)
            {true, true, {50, 70}, {50, 200}, {50, -40}},
            {true, true, {-1e9, 70}, {10, 200}, {-5, -40}},
            {true, true, {1e9, -70}, {410, 200}, {105, -40}},
            {false, true, {50, 30}, {0, 30}, {0, 30}},
            {false, true, {50, -1e9}, {0, 20}, {0, -5}},
            {false, true, {-50, 1e9}, {0, 320}, {0, 55}},
            {true, false, {-1e3, 70}, {-1e3, 70}, {-1e3, 70}}};
        QGraphicsScene scene;
        scene.setSceneRect(Room);
        auto* parent = scene.addRect(-5, -5, 110, 60, QPen(Qt::NoPen));
        parent->setPos(33, 44);
        for (const auto& [isVertical, isMovable, to, inScene, inParent] : rows) {
            MarkerItem marker(isVertical, "Ax", QPen(), Area, isMovable);
            QCOMPARE(marker.toolTip(), isMovable ? QString("Ax: press to drag") : QString());
            QCOMPARE(bool(marker.flags() & QGraphicsItem::ItemIsMovable), isMovable);
            QCOMPARE(bool(marker.flags() & QGraphicsItem::ItemIsSelectable), isMovable);
            QCOMPARE(static_cast<QGraphicsItem&>(marker).type(), 65537);
            marker.adjust(QFont());
            marker.setPos(to);
            QCOMPARE(marker.pos(), to); // neither scene nor parent
            scene.addItem(&marker);
            marker.setPos(QPointF());
            marker.setPos(to);
            QCOMPARE(marker.pos(), inScene);
            marker.setParentItem(parent);
            marker.setPos(to);
            QCOMPARE(marker.pos(), inParent);
        }
    }

    void mouse()
    {
        QGraphicsScene scene;
        scene.setSceneRect(Room);
        QGraphicsView view(&scene);
        view.resize(600, 500);
        view.show();
        auto* marker = new MarkerItem(false, "Ax", QPen(Qt::black, 3), Area, true);
        marker->adjust(QFont());
        scene.addItem(marker);
        marker->setPos(0, 100);
        SignalLog log(marker, {"mouseReleased"});
        const auto drag = [&view](double from, double to) {
            User::drag(view.viewport(), view.mapFromScene(50, from), view.mapFromScene(90, to));
        };
        drag(100, 150);
        QCOMPARE(marker->pos(), QPointF(0, 150));
        marker->setPos(0, 200);
        drag(200, 230);
        QCOMPARE(marker->pos(), QPointF(0, 230));
        QCOMPARE(log.takeLines(), QStringList({"mouseReleased", "mouseReleased"}));
        QVERIFY(endsInside(marker, "mouseReleased()", [&] { drag(230, 240); }));
    }

    void obsoleteMarkers()
    {
        QGraphicsScene scene;
        scene.setSceneRect(Room);
        QFont font = sized(20);
        QPen pen(Qt::red);
        QSizeF size = Area;
        const double height = QFontMetricsF(font).height();
        const double width = QFontMetricsF(font).horizontalAdvance("Load|");
        ObsoleteMarkerItem vertical(true, "Load", font, pen, size, true);
        ObsoleteMarkerItem horizontal(false, "Load", font, pen, size, false);
        QCOMPARE(vertical.boundingRect(), QRectF(0, -height / 2, width, height + 100));
        QCOMPARE(horizontal.boundingRect(), QRectF(0, -1.5 * height, 200, 3 * height));
        QCOMPARE(vertical.zValue(), 313.13);
        QVERIFY(vertical.flags() & QGraphicsItem::ItemIsMovable && !horizontal.flags());
        const QRect line = inked(pictureOf(&vertical), QRectF(-90, 1 + height / 2, 200, 200));
        QVERIFY(line.width() == 1 && qAbs(line.center().x() - width / 2) <= 1);
        QVERIFY(qAbs(line.bottom() - (height / 2 + 100)) <= 1);
        const QImage image = pictureOf(&horizontal);
        QVERIFY(at(image, 0, 0) == QColor(Qt::red) && at(image, 199, 0) == QColor(Qt::red));
        const QRect text = inked(image, QRectF(0, -1.5 * height, 250, 1.5 * height));
        QVERIFY(text.bottom() < -height / 2 && text.right() > 190 && text.right() < 200);
        vertical.setSelected(true);
        QVERIFY(at(pictureOf(&vertical), 2, 80) != QColor(Qt::white));

        scene.addItem(&vertical);
        SignalLog log(&vertical, {"newPos"});
        const auto told = [&](double to, double y) {
            vertical.setPos(to, y);
            return log.takeLines();
        };
        const auto at = [&](double x, double offset) {
            const double place = (width / 2 + x) / 200;
            return QStringList(QString("newPos %1 %2")
                                   .arg(place, 0, 'g', QLocale::FloatingPointShortest)
                                   .arg(offset));
        };
        for (const auto& [to, x, offset] :
             {std::tuple(60, 60, 60), {40, 40, 40}, {1000, 410, 400}, {0, 10, 0}}) {
            QCOMPARE(told(to, 5), at(x, offset));
            QCOMPARE(vertical.pos(), QPointF(x, -height / 2));
        }
        QCOMPARE(told(0, 5), QStringList());
        scene.setSceneRect(-50, -50, 500, 500);
        QCOMPARE(told(99, -height / 2), at(99, 0)); // within the room, at its height: no drag

        size = QSizeF(0, 100);
        ObsoleteMarkerItem narrow(true, "Load", font, pen, size, true);
        SignalLog narrowLog(&narrow, {"newPos"});
        SignalLog horizontalLog(&horizontal, {"newPos"});
        scene.addItem(&narrow);
        scene.addItem(&horizontal);
        narrow.setPos(7, 5);
        horizontal.setPos(-1000, 1000);
        QCOMPARE(horizontal.pos(), QPointF(-1000, 1000));
        QCOMPARE(narrowLog.takeLines() + horizontalLog.takeLines(), QStringList("newPos 0 7"));
    }

    void notes()
    {
        QGraphicsScene scene;
        auto* note = new NoteItem("Start");
        note->setBrush(QColor("crimson"));
        scene.addItem(note);
        QVERIFY(note->rect() == QRectF(0, -2.5, 14, 14) && note->name() == "Start");
        QCOMPARE(note->toolTip(), QString("<html style=\"white-space:nowrap\">Start</html>"));
        QCOMPARE(note->flags(), QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsFocusable);
        const auto edge = [note](QStyle::State state) { // how deep it is at the top
            const QImage image = pictureOf(note, state);
            return inked(image, QRectF(7, -6, 1, 9), QColor("crimson")).height();
        };
        QCOMPARE(edge(QStyle::State_None), 1);
        QCOMPARE(edge(QStyle::State_MouseOver | QStyle::State_Selected), 3);
        QVERIFY(edge(QStyle::State_Selected) >= 2);
        QCOMPARE(at(pictureOf(note), 7, 4.5), QColor("lightskyblue"));
        QVERIFY(note->boundingRect().contains(note->rect().adjusted(-1.45, -1.45, 1.45, 1.45)));
        QVERIFY(note->acceptHoverEvents());
        for (QEvent::Type type :
             {QEvent::GraphicsSceneHoverEnter, QEvent::GraphicsSceneHoverLeave}) {
            QGraphicsSceneHoverEvent event(type);
            QVERIFY(repaints(note, [&] { scene.sendEvent(note, &event); }));
        }

        NoteTextItem badge("g");
        badge.setFont(sized(24));
        badge.setBrush(Qt::red);
        const QRectF text = QFontMetricsF(sized(24)).boundingRect("XXX");
        const double diameter = qMax(text.width(), text.height()) * 1.3;
        const QRectF circle(text.topLeft(), QSizeF(diameter, diameter));
        const QImage image = pictureOf(&badge);
        const QRect ink = inked(image, QRectF(-100, -100, 400, 400));
        QVERIFY(qAbs(ink.left() - circle.left()) <= 1 && qAbs(ink.bottom() - circle.bottom()) <= 1);
        QVERIFY(badge.boundingRect().adjusted(-1, -1, 1, 1).contains(ink));
        QCOMPARE(at(image, circle.left() + 6, circle.center().y()), QColor("lightskyblue"));
        QVERIFY(badge.contains(circle.center()) && !badge.contains(circle.topLeft()));
        const QRectF letter(circle.center() - QPointF(5, 8), QSizeF(10, 16));
        QVERIFY(!inked(image, letter, Qt::red).isNull());
    }
};

AXR_TEST_MAIN(MarkersTest)
#include "MarkersTest.moc"
