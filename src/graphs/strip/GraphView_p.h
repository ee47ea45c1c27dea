#ifndef GRAPHVIEW_P_H
#define GRAPHVIEW_P_H

#include <QGraphicsView>

#include <vector>

/// The view of a live graph. A frame repaints all of it 25 times a second, so it paints the scene's
/// items straight after one another on its background brush, without looking for what changed, and
/// without the background's pixmap, which costs more to copy than the brush to fill.
///
/// The items are those of a graph: without opacity, effects or caches of their own, and leaving
/// nothing behind in the painter but pen, brush and font.
class GraphView : public QGraphicsView
{
    Q_OBJECT
public:
    using QGraphicsView::QGraphicsView;

    /// Sets the scene, on white, and follows its signal. Without a listener a scene tells its views
    /// directly, and takes no further update until a view has painted in the base class's way.
    void show(QGraphicsScene* scene);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<QGraphicsItem*> m_items; // in the order of painting
};

#endif
