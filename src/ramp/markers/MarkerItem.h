#ifndef MARKERITEM_H
#define MARKERITEM_H

#include "AXRGuiExport.h"

#include <QFont>
#include <QGraphicsObject>
#include <QPen>
#include <QStaticText>

#include <vector>

/// A line with a caption that marks a place on a drawing: a vertical one with its caption turned
/// above it, or a horizontal one with its caption at its right end. The place is the item's x or
/// y; xChanged() and yChanged() follow a drag.
///
/// A movable marker stays within its parent's bounding rectangle, or without a parent within the
/// scene's: the vertical one upon the lower edge, the horizontal one at the left. A fixed one stays
/// wherever it is put and ignores the mouse.
class AXRGUI_EXPORT MarkerItem : public QGraphicsObject
{
    Q_OBJECT
public:
    enum { Type = UserType + 1 };

    /// Takes no room, and so shows nothing, until adjust().
    /// \param text caption. A line feed at its end asks for the value below a horizontal line, one
    ///        at its beginning for the value above; the end counts if both have one
    /// \param pen of line and texts; bounds allow for widths up to 4
    /// \param size of the area that the line spans
    /// \param movable also makes it selectable and gives it a tool tip
    MarkerItem(bool vertical, QString text, QPen pen, QSizeF size, bool movable,
               QGraphicsItem* parent = nullptr);

    /// Measures the caption in this font, which it is drawn in from now on. The same font again
    /// does nothing.
    void adjust(QFont font);

    /// What a horizontal marker whose caption has a line feed shows; 0 at first.
    /// \param point where the line starts, from the marker's position; the number stands 10 to the
    ///        right. (0, 0) at first
    void setValue(int value, QPointF point);

    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;
    int type() const override { return Type; }

Q_SIGNALS:
    /// Whether or not the marker was moved. A host may delete the marker in here.
    void mouseReleased();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    struct CaptionLine {
        QStaticText text;
        QPointF place; // of its upper left corner
    };

    void layOutCaption();
    void layOutValue();
    void updateBounds();
    void drawVertical(QPainter* painter) const;
    void drawHorizontal(QPainter* painter) const;

    QString m_text;
    QPen m_pen;
    QRectF m_rect;
    QSizeF m_size;
    bool m_vertical;
    QRectF m_textRect;
    QFont m_font;
    int m_value = 0;
    QPointF m_point;
    QString m_valueText;                     // kept, so that a frame does not make it anew
    int m_valueAlignment;                    // 0: no value is shown
    std::vector<CaptionLine> m_captionLines; // of a horizontal marker
    QStaticText m_laidOutValue;
    QRectF m_bounds;
    bool m_measured = false; // a new marker has the default font without being measured in it
};

#endif
