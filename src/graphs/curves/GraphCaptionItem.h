#ifndef GRAPHCAPTIONITEM_H
#define GRAPHCAPTIONITEM_H

#include "AXRGuiExport.h"

#include <QGraphicsItem>
#include <QPen>
#include <QStaticText>

#include <vector>

/// The names of the curves below one another, each in its colour.
class AXRGUI_EXPORT GraphCaptionItem : public QGraphicsItem
{
public:
    GraphCaptionItem() = default;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    /// \param font measures the item; it is drawn with the painter's font
    void addCaption(QString text, QColor color, QFont font);
    /// The item's size becomes 0.
    void clearCaptions();

    /// In pixels: of the widest name, and of all names.
    double getWidth() const { return m_width; }
    double getHeight() const { return m_height; }

private:
    Q_DISABLE_COPY(GraphCaptionItem)

    struct Caption {
        QStaticText text;
        QPen pen;
    };

    double m_width = 0;
    double m_height = 0;
    std::vector<Caption> m_captions;
};

#endif
