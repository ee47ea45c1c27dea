#ifndef CURVELAYER_P_H
#define CURVELAYER_P_H

#include "CurveStrokes_p.h"

#include <QGraphicsItem>
#include <QImage>
#include <QPen>

#include <vector>

class GraphItem;

/// Draws the lines of all curves of a graph. They only move to the left from frame to frame, so
/// they are kept in a picture, whose columns are used round and round: a frame clears and draws
/// those where something came or where a line's start went out of sight, and copies the picture to
/// its place. A frame with another scale, size or place is drawn directly, and so is one with
/// samples that do not ascend in time.
///
/// It lies at the scene's origin, and expects items of one size and place, as their graph keeps
/// them.
class CurveLayer : public QGraphicsItem
{
public:
    CurveLayer();
    ~CurveLayer() override;

    /// The items belong to the scene, and must not go before this one is painted no more. They are
    /// painted in this order.
    void add(GraphItem* item);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

private:
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
        bool operator!=(const Look& other) const;
    };

    Look look() const;
    std::size_t strokes() const;
    void drawDirectly(QPainter* painter);
    bool advancePicture();
    void redraw(qint64 from, qint64 to);
    void redrawPart(qint64 base, qint64 from, qint64 to);
    void copyPicture(QPainter* painter) const;

    std::vector<Curve> m_curves;
    CurveStrokes m_strokes;
    QImage m_picture;  // the column of a slot is the slot modulo the width
    Look m_wanted{};   // of the last frame
    Look m_look{};     // of the picture
    qint64 m_time = 0; // at the right edge of the picture
};

#endif
