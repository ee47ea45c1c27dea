#ifndef NOTEITEM_H
#define NOTEITEM_H

#include "AXRGuiExport.h"

#include <QGraphicsEllipseItem>

/// A round dot at a named place of a drawing. It is selectable and can have the focus. Its edge has
/// the colour of the brush, and becomes broad under the mouse and when it is selected; the inside
/// is always of the same light blue.
class AXRGUI_EXPORT NoteItem : public QGraphicsEllipseItem
{
public:
    /// A dot of 14 by 14, its centre at (7, 4.5).
    /// \param name also the tool tip, where it is read as rich text
    explicit NoteItem(QString name);

    QString name() const { return m_name; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

private:
    QString m_name;
};

#endif
