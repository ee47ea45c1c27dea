#ifndef CURVELAYER_P_H
#define CURVELAYER_P_H

#include "CurveStrokes_p.h"
#include "TimeAxisGeometry_p.h"

#include <QGraphicsItem>
#include <QImage>
#include <QPen>

#include <array>
#include <vector>

class GraphItem;
class XTimeAxisItem;

/// Draws the lines of all curves of a graph. They only move to the left from frame to frame, so
/// they are kept in a picture, whose columns are used round and round: a frame clears and draws
/// those where something came or where a line's start went out of sight, and copies the picture to
/// its place. A frame with another scale, size or place is drawn directly, and so is one with
/// samples that do not ascend in time.
///
/// In the rows where nothing lies below the lines the picture has the background's colour, and is
/// copied in its place before anything else is painted. The rows of the axis' own drawing are
/// transparent and laid over it. The few columns with the ticks of the value axis are drawn
/// directly.
///
///     value axis |caption          |  transparent
///                +-----------------+
///              --|                 |  covers the background
///                +-----------------+
///     ___________|___|____|____|___|  transparent
///
/// The curves take their lines as drawn in their next painting; one that is painted alone draws its
/// own.
///
/// It lies at the scene's origin, and expects items of one size and place, as their graph keeps
/// them.
class CurveLayer : public QGraphicsItem
{
public:
    enum { Type = UserType + 2 };

    /// \param axis what lies below the curves; of the same scene, or null
    explicit CurveLayer(XTimeAxisItem* axis = nullptr);
    ~CurveLayer() override;

    /// The items belong to the scene, and must not go before this one is painted no more. They are
    /// painted in this order.
    void add(GraphItem* item);

    QRectF boundingRect() const override;
    int type() const override { return Type; }
    /// Fills the area with the brush, or with what of the curves lies on it alone. paint() then
    /// adds the rest; without this before it draws all curves directly.
    void paintGround(QPainter* painter, const QRect& area, const QBrush& brush);
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

private:
    static constexpr int MaximumBands = 2;
    using Rows = TimeAxisGeometry::Rows;
    using Bands = std::array<Rows, MaximumBands>;

    struct Curve {
        GraphItem* item;
        qint64 firstLine; // in the picture, as a slot
    };
    /// All that the picture depends on but time and samples.
    struct Look {
        QSize size;
        QPointF place;
        double height;
        int minValue;
        int maxValue;
        QRgb ground;
        Bands bands; // the rows in which the picture covers the background
        bool operator!=(const Look& other) const;
    };

    Look look(const QBrush& brush, int fontHeight) const;
    Bands bands(int height, int fontHeight) const;
    bool isDrawn() const;
    bool usesPicture(const QPainter& painter, const QBrush& brush);
    std::size_t strokes() const;
    void drawDirectly(QPainter* painter, int width);
    bool advancePicture();
    void redraw(qint64 from, qint64 to);
    void redrawPart(qint64 base, qint64 from, qint64 to);
    void copyRows(QPainter* painter, const QImage& picture, const Rows& rows) const;

    XTimeAxisItem* m_axis;
    std::vector<Curve> m_curves;
    CurveStrokes m_strokes;
    QImage m_picture; // the column of a slot is the slot modulo the width
    QImage m_opaque;  // the same pixels without their alpha
    bool m_isLaid = false;
    Look m_wanted{};   // of the last frame
    Look m_look{};     // of the picture
    qint64 m_time = 0; // at the right edge of the picture
};

#endif
