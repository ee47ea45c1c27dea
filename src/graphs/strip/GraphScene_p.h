#ifndef GRAPHSCENE_P_H
#define GRAPHSCENE_P_H

#include <QFont>
#include <QGraphicsScene>

class Command;
class Graph;
class GraphCaptionItem;
class GraphItem;
class GraphRange;
class MarkerItem;
class QGraphicsView;
class XTimeAxisItem;

/// What a live graph shows: axes, captions, lines and dots of the curves, and the markers of their
/// extremes. The curves are scaled to the ticks that the axis drew last, so what it tells while it
/// is painted holds for the next layOut().
class GraphScene : public QGraphicsScene
{
    Q_OBJECT
public:
    /// Of the curves and their extremes.
    struct Look {
        bool hasBoldDots = true;
        bool hasDots = true;
        bool hasLines = true;
        bool hasMarkers = true;
    };

    /// \param graph owns the scene, and gives the texts their font
    /// \param view that shows it, and whose size it takes
    GraphScene(QWidget* graph, const QGraphicsView* view);

    const Look& look() const { return m_look; }
    void setLook(const Look& look);
    /// At the top of the value axis; from the next layOut() on.
    void setYAxisCaption(const QString& caption) { m_yAxisCaption = caption; }
    /// A red frame from the next build() on.
    void setFrameEnabled(bool enabled) { m_hasFrame = enabled; }

    /// Makes everything anew, for these curves.
    /// \param keepsPicture what is shown of a curve stays, whatever it has stored since
    void build(const QList<Graph*>& graphs, bool keepsPicture);
    /// The present ones; new ones after each build().
    XTimeAxisItem* axis() const { return m_axis; }

    /// \param edge time at the right edge, ms since the epoch
    void layOut(qint64 edge, const GraphRange& range);
    /// Puts the markers to the extremes of the data, and shows those that are wanted and not 0.
    void markExtremes(double minimum, double maximum);
    void hideMarkers();

    // What the axis tells: pixel rows and values of its outermost ticks, and room for its labels.
    void setTickRows(double top, double bottom);
    void setTickValues(double bottom, double top);
    void setLabelRoom(int width) { m_labelRoom = width; }

    /// A reply of now, for the curves that it belongs to.
    void take(const Command& reply, qint64 now);
    /// Samples older than this go when the next one arrives.
    void setTimeOutTime(qint64 time);
    /// While time stands still the picture keeps what it shows.
    void setFrozen(bool frozen);
    /// Whether a curve did not take a sample because of that.
    bool isIncomplete() const;
    /// Milliseconds from the left to the right edge of the plot.
    int visibleSpan() const { return m_visibleSpan; }

private:
    void addFrame();
    void addCurves(const QList<Graph*>& graphs, bool keepsPicture);
    MarkerItem* addMarker(const QString& text, double z);
    void layOutCaptions();
    QSize viewSize() const;
    void placeMarker(MarkerItem* marker, double value, double y);

    const QWidget* m_graph;
    const QGraphicsView* m_view;
    Look m_look;
    QString m_yAxisCaption;
    bool m_hasFrame = false;

    XTimeAxisItem* m_axis = nullptr;
    GraphCaptionItem* m_captions = nullptr;
    MarkerItem* m_minMarker = nullptr;
    MarkerItem* m_maxMarker = nullptr;
    QList<GraphItem*> m_items; // of the curves, in their order

    double m_topRow = 100.0;
    double m_bottomRow = 200.0;
    double m_bottomValue = 0.0;
    double m_topValue = 0.0;
    int m_labelRoom = 80;
    int m_visibleSpan = 60000; // ms; generous until the first layout knows the width
    QFont m_gapFont;           // of the gap beside the captions, kept, for measuring takes memory
    int m_captionGap = -1;
};

#endif
