#ifndef VALUEOVERTIMEGRAPH_H
#define VALUEOVERTIMEGRAPH_H

#include "AXRGuiExport.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class Command;
class Graph;
class GraphClock;
class GraphLog;
class GraphRange;
class GraphScene;
class QTimer;
class TraceCommand;

namespace Ui
{
class ValueOverTimeGraph;
}

/// A strip chart: values of a device as curves that scroll to the left against the wall clock, 10
/// ms for a pixel, 25 frames a second. The value range follows the data or is set by hand. The
/// context menu has the look of the curves and, if enabled, their selection; the panel to the
/// right, shown by the button at the edge, starts, stops, scales, saves and logs.
///
/// The host hands in every reply of the device and cares for the polling. Curves start to move with
/// startDrawing(), which is the host's to call. While they stand still, samples are stored and
/// logged as before. GUI thread only.
class AXRGUI_EXPORT ValueOverTimeGraph : public QWidget
{
    Q_OBJECT
public:
    explicit ValueOverTimeGraph(QWidget* parent = nullptr);
    ~ValueOverTimeGraph() override;

    /// Appends a curve, which becomes this widget's; null and one that it has already are ignored.
    /// It is drawn when the scene is built again: after a resize, clearValues() or a selection by
    /// the user.
    void addGraph(Graph* graph);
    /// Deletes the curves. What is drawn stays until the scene is built again.
    void removeAllGraphs();
    QList<Graph*> getGraphs() { return m_graphs; }

    /// Appends what the selection dialog offers. The elements stay the caller's and must live as
    /// long as they are offered; null is ignored.
    void addTraceableParameters(QList<TraceCommand*>* parameters);
    void clearTraceableParameter() { m_traceableParameters.clear(); }

    /// Text at the top of the value axis, empty by default.
    void setYAxisCaption(const QString& caption);
    /// A red frame about the scene from its next building on; off by default.
    void setDrawBoundingEnabled(bool enabled);
    /// Whether the curves have dots, as the context menu says which; on by default. Lines alone are
    /// clearer, and cheaper, where there are many samples.
    void setDataPointsEnabled(bool enabled);
    /// Whether the context menu offers "Select items ..."; off by default.
    void setChartSelectorEnabled(bool enabled) { m_chartSelectorEnabled = enabled; }
    /// The panel's settings are loaded from this key, and the selection is stored under it. Empty,
    /// the default: nothing is stored.
    void setAppSettingKey(QString key);

    /// Where the time of the widget comes from, in ms since the epoch; default is the system's
    /// clock. For hosts that replay records, and for tests. An empty function brings the system's
    /// clock back.
    void setClock(std::function<qint64()> clock);

    /// Advances the picture to the clock's time; painting it is another matter.
    void updateScene();
    /// The same for a given time, in ms since the epoch.
    void updateScene(qint64 now);

    /// A reply that came at `now`, in ms since the epoch. Stored for each curve that it belongs to,
    /// and logged.
    void takeReply(const Command& reply, qint64 now);

    using QWidget::minimumSizeHint;
    /// Room for the axis labels in the widget's font. Becomes the minimum size when the font
    /// changes.
    virtual QSize minimumSizeHint();

    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    /// A reply of now; null is ignored. Its status is not looked at: a host that wants no values of
    /// refused requests does not hand them in.
    void IN_replyValue(Command* reply);
    /// \param pos where the menu opens, in this widget's coordinates
    void contextMenuRequest(QPoint pos);
    void startDrawing();
    void stopDrawing();
    /// Forgets all samples.
    void clearValues();
    /// Asks for a file and writes all samples into it, one line each, in ascending time. The file
    /// is written whole or not at all; there is no word when it cannot be.
    void saveGraph();
    /// Asks for a file that then gets a line with each reply, whole or not at all, until false is
    /// given. When the user refuses, the panel that asked is told. A log that runs already goes on
    /// meanwhile, and ends when the new one has begun: a refusal, or a file that cannot be written,
    /// leaves it running.
    void startLogging(bool start);
    // What the axis has drawn, for the next frame.
    void updateYMinMax(qreal min, qreal max);
    void updateMinMaxValue(qreal min, qreal max);
    void updateMaxTextWidth(qreal width);

Q_SIGNALS:
    /// The range that dynamic scaling wants. Comes again while the data do not fill it. A host may
    /// run a frame in it; to delete the widget use deleteLater(), for it may come from a resize.
    void scaleChanged(int minValue, int maxValue);
    /// The user chose other curves, which are there already, or the default ones, which are the
    /// host's to set. In both cases the selection is stored.
    void graphSelectionChanged();

private Q_SLOTS:
    void initializeScene();
    void updateItemClock();
    void doManualScaling();
    void doDynamicScaling();
    void setMinValue(int min);
    void setMaxValue(int max);
    void handleToggledHideButton(bool toggled);
    void handleSetDefaultCharts();

private:
    void connectController();
    void setDrawing(bool drawing);
    void advance(qint64 now);
    bool scaleToData();
    void setTimeOut(qint64 time);
    /// As of the picture's time, or of now when the clock was set back while the picture stands.
    void limitAge(qint64 now);
    qint64 lifetime() const;
    void selectItems();
    QString askFileName();

    std::unique_ptr<Ui::ValueOverTimeGraph> m_ui;
    std::unique_ptr<GraphClock> m_clock;
    std::unique_ptr<GraphRange> m_range;
    std::unique_ptr<GraphRange> m_told; // by the last scaleChanged()
    std::unique_ptr<GraphLog> m_log;
    GraphScene* m_scene;
    QTimer* m_updateTimer;
    bool m_dynamicScaling = true;
    bool m_chartSelectorEnabled = false;
    QList<TraceCommand*> m_traceableParameters;
    QString m_appSettingKey;
    int m_logRequests = 0;
    bool m_rejectingLog = false;
    QList<Graph*> m_graphs;
};

#endif
