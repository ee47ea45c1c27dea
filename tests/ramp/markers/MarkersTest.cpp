#include "MarkerItem.h"
#include "NoteItem.h"
#include "NoteTextItem.h"
#include "ObsoleteMarkerItem.h"
#include "TestCase.h"
#include "User.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionGraphicsItem>

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

/// What is painted within `rect`, in the item's coordinates; null when nothing is.
QRect inked(const QImage& image, const QRectF& rect)
{
    QRect ink;
    const QRect pixels = rect.translated(Margin, Margin).toRect() & image.rect();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            if (image.pixelColor(x, y) != Qt::white)
                ink |= QRect(x - Margin, y - Margin, 1, 1);
    return ink;
}

/// A view at one pixel to a unit, with its upper left corner at the scene's.
struct View : QGraphicsView {
    explicit View(QGraphicsScene* scene) : QGraphicsView(scene)
    {
        setFrameShape(NoFrame);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        resize(600, 500);
        show();
    }
    void drag(QPointF from, QPointF to)
    {
        User::drag(viewport(), mapFromScene(from), mapFromScene(to));
    }
};

} // namespace

class MarkersTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void measures()
    {
        const struct {
            const char* text;
            double padding, lineFeedRoom;
        } rows[] = {{"Ax", 3, 0}, {"Ax\n", 6, 8}, {"\nAx", 6, 8}, {"\nAx\n", 9, 8}};
        for (const auto& row : rows) {
            const QString text(row.text);
            const QRect bare = QFontMetrics(QFont()).boundingRect(text + '|');
            const double width = bare.width() + 4;
            const double height = bare.height() + 2 * row.padding;
            const double extra = row.lineFeedRoom;
            MarkerItem vertical(true, text, QPen(), Area, false);
            MarkerItem horizontal(false, text, QPen(), Area, false);
            QVERIFY(vertical.boundingRect().isEmpty());
            vertical.adjust(QFont()); // equals what it has, and yet was never measured
            horizontal.adjust(QFont());
            QCOMPARE(vertical.boundingRect(),
                     QRectF(-height / 2, -width - extra, height, 100 + width + 2 * extra));
            QCOMPARE(horizontal.boundingRect(),
                     QRectF(0, -height / 2 - extra, 200 + width, height + 2 * extra));
            QFont large;
            large.setPixelSize(40);
            horizontal.adjust(large);
            QVERIFY(horizontal.boundingRect().height() > height + 10);
        }
    }

    void flagsAndToolTip()
    {
        MarkerItem movable(true, "Ax", QPen(), Area, true);
        MarkerItem fixed(true, "Ax", QPen(), Area, false);
        QCOMPARE(movable.toolTip(), QString("Ax: press to drag"));
        QCOMPARE(movable.flags(), QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                                      QGraphicsItem::ItemSendsGeometryChanges);
        QVERIFY(fixed.toolTip().isEmpty() && !fixed.flags());
        QCOMPARE(static_cast<QGraphicsItem&>(fixed).type(), 65537);
        QCOMPARE(qgraphicsitem_cast<MarkerItem*>(static_cast<QGraphicsItem*>(&fixed)), &fixed);
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
        QCOMPARE(at(image, 30, 20), QColor(Qt::red));
        QCOMPARE(at(image, 115, 10), QColor(Qt::red));
        QCOMPARE(inked(image, QRectF(-90, -90, 290, 300)), QRect(30, 0, 170, 21));
        QVERIFY(horizontal.boundingRect().contains(QPointF(30, 20)));
        const QRect caption = inked(image, QRectF(201, -90, 190, 300));
        QVERIFY(horizontal.boundingRect().toAlignedRect().contains(caption));
        QVERIFY(caption.height() > 5);
    }

    void valueBesideTheLine()
    {
        const struct {
            const char* text;
            bool above, below;
        } rows[] = {{"Max\n", false, true},
                    {"\nMin", true, false},
                    {"\nBoth\n", false, true},
                    {"In\nner", false, false},
                    {"", false, false}};
        for (const auto& row : rows) {
            MarkerItem marker(false, row.text, QPen(Qt::red), Area, false);
            marker.adjust(QFont());
            marker.setValue(-1234567, QPointF(20, 0));
            const QImage image = pictureOf(&marker);
            const QRect above = inked(image, QRectF(-90, -90, 290, 90));
            const QRect below = inked(image, QRectF(-90, 1, 290, 90));
            QCOMPARE(!above.isNull(), row.above);
            QCOMPARE(!below.isNull(), row.below);
            const QRect value = above | below;
            const int width = QFontMetrics(QFont()).horizontalAdvance("-1,234,567");
            if (!value.isNull()) {
                QVERIFY(qAbs(value.left() - 30) <= 3 && qAbs(value.width() - width) <= 4);
                QVERIFY(marker.boundingRect().toAlignedRect().contains(value));
            }
            marker.setValue(1, QPointF(500, 0)); // beyond the line's end
            QVERIFY(marker.boundingRect().right() >= (value.isNull() ? 200 : 511));
        }
    }

    void selection()
    {
        QGraphicsScene scene;
        auto* marker = new MarkerItem(false, "Ax", QPen(Qt::darkGreen, 3), Area, true);
        marker->adjust(QFont());
        scene.addItem(marker);
        const QRectF rect = marker->boundingRect();
        QCOMPARE(at(pictureOf(marker), 50, rect.bottom() - 3), QColor(Qt::white));
        marker->setSelected(true);
        const QImage image = pictureOf(marker);
        const QColor inside = at(image, 50, rect.bottom() - 3);
        QVERIFY(qAbs(inside.red() - 210) <= 2 && qAbs(inside.blue() - 253) <= 2); // 96 of 255
        QCOMPARE(at(image, 50, rect.bottom()), QColor(Qt::darkGreen));
        QCOMPARE(at(image, 50, rect.bottom() - 1), QColor(Qt::darkGreen));
    }

    void staysInItsRoom()
    {
        const struct {
            bool vertical, movable;
            QPointF to, inScene, inParent; // the parent's room is (-5, -5, 110, 60)
        } rows[] = {
            {true, true, {50, 70}, {50, 200}, {50, -40}},
            {true, true, {-1e9, 70}, {10, 200}, {-5, -40}},
            {true, true, {1e9, -70}, {410, 200}, {105, -40}},
            {false, true, {50, 30}, {0, 30}, {0, 30}},
            {false, true, {50, -1e9}, {0, 20}, {0, -5}},
            {false, true, {-50, 1e9}, {0, 320}, {0, 55}},
            {true, false, {-1e3, 70}, {-1e3, 70}, {-1e3, 70}},
        };
        QGraphicsScene scene;
        scene.setSceneRect(Room);
        auto* parent = scene.addRect(-5, -5, 110, 60, QPen(Qt::NoPen));
        parent->setPos(33, 44);
        for (const auto& row : rows) {
            auto* marker = new MarkerItem(row.vertical, "Ax", QPen(), Area, row.movable);
            marker->adjust(QFont());
            marker->setPos(row.to);
            QCOMPARE(marker->pos(), row.to); // neither scene nor parent
            scene.addItem(marker);
            marker->setPos(QPointF());
            marker->setPos(row.to);
            QCOMPARE(marker->pos(), row.inScene);
            marker->setParentItem(parent);
            marker->setPos(row.to);
            QCOMPARE(marker->pos(), row.inParent);
            delete marker;
        }
    }

    void mouse()
    {
        QGraphicsScene scene;
        scene.setSceneRect(Room);
        View view(&scene);
        auto* movable = new MarkerItem(false, "Ax", QPen(Qt::black, 3), Area, true);
        auto* fixed = new MarkerItem(false, "Ax", QPen(Qt::black, 3), Area, false);
        for (MarkerItem* marker : {fixed, movable}) {
            marker->adjust(QFont());
            scene.addItem(marker);
        }
        movable->setPos(0, 100);
        fixed->setPos(0, 200);
        int releases = 0;
        connect(movable, &MarkerItem::mouseReleased, this, [&releases] { ++releases; });
        connect(fixed, &MarkerItem::mouseReleased, this, [&releases] { releases += 100; });
        view.drag({50, 100}, {90, 150});
        QCOMPARE(movable->pos(), QPointF(0, 150));
        QVERIFY(movable->isSelected());
        QCOMPARE(releases, 1);
        view.drag({50, 200}, {50, 230});
        QCOMPARE(fixed->pos(), QPointF(0, 200));
        QCOMPARE(releases, 1);

        const QPointer<MarkerItem> alive(movable);
        connect(movable, &MarkerItem::mouseReleased, this, [movable] { delete movable; });
        view.drag({50, 150}, {50, 160});
        QVERIFY(!alive);
        view.drag({50, 150}, {50, 160});
        QCOMPARE(releases, 2);
    }

    void obsoleteRectangles()
    {
        QFont font;
        font.setPixelSize(20);
        QPen pen(Qt::red);
        QSizeF size = Area;
        const QFontMetricsF metrics(font);
        const double height = metrics.height();
        const double width = metrics.horizontalAdvance("Load|");
        ObsoleteMarkerItem vertical(true, "Load", font, pen, size, true);
        ObsoleteMarkerItem horizontal(false, "Load", font, pen, size, false);
        QCOMPARE(vertical.boundingRect(), QRectF(0, -height / 2, width, height + 100));
        QCOMPARE(horizontal.boundingRect(), QRectF(0, -1.5 * height, 200, 3 * height));
        QCOMPARE(vertical.zValue(), 313.13);
        QVERIFY(vertical.flags() & QGraphicsItem::ItemIsMovable && !horizontal.flags());
        QImage image = pictureOf(&vertical);
        const QRect line = inked(image, QRectF(-90, 1 + height / 2, 200, 200));
        QVERIFY(line.width() == 1 && qAbs(line.center().x() - width / 2) <= 1);
        QVERIFY(qAbs(line.bottom() - (height / 2 + 100)) <= 1);
        image = pictureOf(&horizontal);
        QCOMPARE(at(image, 0, 0), QColor(Qt::red));
        QCOMPARE(at(image, 199, 0), QColor(Qt::red));
        const QRect text = inked(image, QRectF(0, -1.5 * height, 250, 1.5 * height));
        QVERIFY(text.bottom() < -height / 2 && text.right() > 190 && text.right() < 200);
    }

    void obsoleteTellsWhereItIs()
    {
        QFont font;
        QPen pen;
        QSizeF size = Area;
        QGraphicsScene scene;
        scene.setSceneRect(Room);
        auto* marker = new ObsoleteMarkerItem(true, "Load", font, pen, size, true);
        scene.addItem(marker);
        const double top = marker->boundingRect().top();
        const double half = marker->boundingRect().width() / 2;
        QVector<QPointF> told;
        connect(marker, &ObsoleteMarkerItem::newPos, this,
                [&told](double place, double offset) { told << QPointF(place, offset); });
        const struct {
            double to, x, offset; // one after the other
        } rows[] = {{60, 60, 60}, {40, 40, 40}, {1000, 410, 400}, {1000, 410, 400}, {0, 10, 0}};
        for (const auto& row : rows) {
            const int before = told.size();
            const bool moves = marker->x() != row.x;
            marker->setPos(row.to, 5);
            QCOMPARE(marker->pos(), QPointF(row.x, top));
            QCOMPARE(told.size(), before + (moves ? 1 : 0));
            QCOMPARE(told.last().x(), (half + row.x) / 200);
            if (moves)
                QCOMPARE(told.last().y(), row.offset);
        }
        scene.setSceneRect(-50, -50, 500, 500);
        marker->setPos(99, top); // within the room, at the right height: no drag
        QCOMPARE(told.last(), QPointF((half + 99) / 200, 0));

        told.clear();
        size = QSizeF(0, 100);
        auto* narrow = new ObsoleteMarkerItem(true, "Load", font, pen, size, true);
        connect(narrow, &ObsoleteMarkerItem::newPos, this,
                [&told](double place, double offset) { told << QPointF(place, offset); });
        auto* horizontal = new ObsoleteMarkerItem(false, "Load", font, pen, size, true);
        connect(horizontal, &ObsoleteMarkerItem::newPos, this,
                [&told](double place, double offset) { told << QPointF(-place, -offset); });
        scene.addItem(narrow);
        scene.addItem(horizontal);
        narrow->setPos(7, 5);
        horizontal->setPos(-1000, 1000);
        QCOMPARE(horizontal->pos(), QPointF(-1000, 1000));
        QCOMPARE(told, QVector<QPointF>{QPointF(0, 7)});
    }

    void note()
    {
        QGraphicsScene scene;
        scene.setSceneRect(-50, -50, 200, 200);
        View view(&scene);
        auto* note = new NoteItem("Start");
        note->setBrush(QColor("crimson"));
        scene.addItem(note);
        QCOMPARE(note->rect(), QRectF(0, -2.5, 14, 14));
        QCOMPARE(note->toolTip(), QString("<html style=\"white-space:nowrap\">Start</html>"));
        const auto edge = [&view] { // how deep it is, downwards from the uppermost point
            const QImage image = view.viewport()->grab().toImage();
            const QPoint top = view.mapFromScene(7, -6);
            int depth = 0;
            for (int y = 0; y < 8; ++y)
                depth += image.pixelColor(top + QPoint(0, y)) == QColor("crimson") ? 1 : 0;
            return depth;
        };
        const auto hover = [&view](QPointF place) {
            const QPoint to = view.mapFromScene(place);
            QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton,
                             Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(view.viewport(), &move);
        };
        QCOMPARE(edge(), 1);
        const QImage image = view.viewport()->grab().toImage();
        QCOMPARE(image.pixelColor(view.mapFromScene(7, 4.5)), QColor("lightskyblue"));
        hover({7, 4});
        QCOMPARE(edge(), 3);
        hover({60, 60});
        QCOMPARE(edge(), 1);
        view.drag({7, 4}, {40, 40});
        QVERIFY(note->isSelected() && note->pos().isNull());
        hover({60, 60});
        QVERIFY(edge() >= 2);
        QVERIFY(note->boundingRect().contains(note->rect().adjusted(-1.45, -1.45, 1.45, 1.45)));
    }

    void badge()
    {
        NoteTextItem badge("g");
        QFont font;
        font.setPixelSize(24);
        badge.setFont(font);
        badge.setBrush(Qt::red);
        const QRectF text = QFontMetricsF(font).boundingRect("XXX");
        const double diameter = qMax(text.width(), text.height()) * 1.3;
        const QRectF circle(text.topLeft(), QSizeF(diameter, diameter));
        const QImage image = pictureOf(&badge);
        const QRect ink = inked(image, QRectF(-100, -100, 400, 400));
        QVERIFY(qAbs(ink.left() - circle.left()) <= 1 && qAbs(ink.bottom() - circle.bottom()) <= 1);
        QVERIFY(badge.boundingRect().adjusted(-1, -1, 1, 1).contains(ink));
        QCOMPARE(at(image, circle.left() + 6, circle.center().y()), QColor("lightskyblue"));
        QVERIFY(badge.contains(circle.center()) && !badge.contains(circle.topLeft()));
        bool hasLetter = false;
        for (int y = -8; y <= 8; ++y)
            for (int x = -5; x <= 5; ++x)
                hasLetter |=
                    at(image, circle.center().x() + x, circle.center().y() + y) == QColor(Qt::red);
        QVERIFY(hasLetter);
    }
};

AXR_TEST_MAIN(MarkersTest)
#include "MarkersTest.moc"
