#include "ValueOverTimeGraph.h"

#include "Command.h"
#include "Csv_p.h"
#include "Graph.h"
#include "GraphClock_p.h"
#include "GraphController.h"
#include "GraphExport_p.h"
#include "GraphLog_p.h"
#include "GraphMenu_p.h"
#include "GraphRange_p.h"
#include "GraphScene_p.h"
#include "GraphSelection_p.h"
#include "GraphSelector.h"
#include "Logging.h"
#include "MethodName.h"
#include "Numbers.h"
#include "ValueKey.h"
#include "XTimeAxisItem.h"
#include "ui_ValueOverTimeGraph.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFontMetrics>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace
{

constexpr int FrameInterval = 40; // ms
constexpr int Lifetime = 5;       // of a sample, in spans of the plot

} // namespace

ValueOverTimeGraph::ValueOverTimeGraph(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ValueOverTimeGraph>())
    , m_clock(std::make_unique<GraphClock>())
    , m_range(std::make_unique<GraphRange>())
    , m_told(std::make_unique<GraphRange>())
    , m_log(std::make_unique<GraphLog>())
    , m_updateTimer(new QTimer(this))
{
    m_ui->setupUi(this);
    m_scene = new GraphScene(this, m_ui->graphicsView);
    m_ui->graphicsView->show(m_scene);
    connectController();
    connect(m_ui->btnHideController, &QPushButton::toggled, this,
            &ValueOverTimeGraph::handleToggledHideButton);
    connect(this, &QWidget::customContextMenuRequested, this,
            &ValueOverTimeGraph::contextMenuRequest);
    handleToggledHideButton(true);

    m_updateTimer->setInterval(FrameInterval);
    connect(m_updateTimer, &QTimer::timeout, this, &ValueOverTimeGraph::updateItemClock);
    initializeScene();
    installEventFilter(this);
}

ValueOverTimeGraph::~ValueOverTimeGraph()
{
    // A box takes what is typed when it is hidden, which for a window comes after this.
    m_ui->graphController->disconnect(this);
    qDeleteAll(m_graphs);
}

void ValueOverTimeGraph::connectController()
{
    GraphController* controller = m_ui->graphController;
    controller->setMinValue(m_range->minimum);
    controller->setMaxValue(m_range->maximum);
    connect(controller, &GraphController::startGraph, this, &ValueOverTimeGraph::startDrawing);
    connect(controller, &GraphController::stopGraph, this, &ValueOverTimeGraph::stopDrawing);
    connect(controller, &GraphController::clearGraph, this, &ValueOverTimeGraph::clearValues);
    connect(controller, &GraphController::saveGraph, this, &ValueOverTimeGraph::saveGraph);
    connect(controller, &GraphController::startLogging, this, &ValueOverTimeGraph::startLogging);
    connect(controller, &GraphController::setDefaultCharts, this,
            &ValueOverTimeGraph::handleSetDefaultCharts);
    connect(controller, &GraphController::scaleManually, this,
            &ValueOverTimeGraph::doManualScaling);
    connect(controller, &GraphController::scaleDynamic, this,
            &ValueOverTimeGraph::doDynamicScaling);
    connect(controller, &GraphController::minValueChanged, this, &ValueOverTimeGraph::setMinValue);
    connect(controller, &GraphController::maxValueChanged, this, &ValueOverTimeGraph::setMaxValue);
    connect(this, &ValueOverTimeGraph::scaleChanged, controller,
            &GraphController::handleScaleChanged);
}

void ValueOverTimeGraph::addGraph(Graph* graph)
{
    if (graph && !m_graphs.contains(graph))
        m_graphs.append(graph);
}

void ValueOverTimeGraph::removeAllGraphs()
{
    qDeleteAll(m_graphs);
    m_graphs.clear();
}

void ValueOverTimeGraph::addTraceableParameters(QList<TraceCommand*>* parameters)
{
    if (parameters)
        m_traceableParameters.append(*parameters);
}

void ValueOverTimeGraph::setYAxisCaption(const QString& caption)
{
    m_scene->setYAxisCaption(caption);
}

void ValueOverTimeGraph::setDrawBoundingEnabled(bool enabled) { m_scene->setFrameEnabled(enabled); }

void ValueOverTimeGraph::setDataPointsEnabled(bool enabled)
{
    GraphScene::Look look = m_scene->look();
    look.hasDots = enabled;
    m_scene->setLook(look);
}

void ValueOverTimeGraph::setAppSettingKey(QString key)
{
    m_ui->graphController->setAppSettingsKey(key);
    m_appSettingKey = std::move(key);
}

void ValueOverTimeGraph::setClock(std::function<qint64()> clock)
{
    m_clock->setSource(std::move(clock));
}

QSize ValueOverTimeGraph::minimumSizeHint()
{
    const QFontMetrics metrics = fontMetrics();
    return {QWidget::minimumSizeHint().width() +
                2 * metrics.horizontalAdvance(QStringLiteral("actual position")),
            13 * metrics.height()};
}

bool ValueOverTimeGraph::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != this)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        initializeScene();
        updateItemClock();
        return true;
    case QEvent::FontChange:
        setMinimumSize(minimumSizeHint());
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void ValueOverTimeGraph::initializeScene()
{
    m_updateTimer->stop();
    m_scene->build(m_graphs, !m_clock->isRunning()); // a picture that stands still survives
    const XTimeAxisItem* axis = m_scene->axis();
    connect(axis, &XTimeAxisItem::updateYMinMax, this, &ValueOverTimeGraph::updateYMinMax);
    connect(axis, &XTimeAxisItem::updateMinMaxValue, this, &ValueOverTimeGraph::updateMinMaxValue);
    connect(axis, &XTimeAxisItem::updateMaxTextWidth, this,
            &ValueOverTimeGraph::updateMaxTextWidth);
    // so that all shows also while a curve without samples holds the frames
    m_scene->layOut(m_clock->edge(), *m_range);
    m_scene->setFrozen(!m_clock->isRunning()); // at the time that it shows
    m_updateTimer->start();
}

void ValueOverTimeGraph::updateItemClock()
{
    if (!isVisible() || window()->isMinimized())
        return;
    // When the widget was resized while it was hidden, its view follows only now, without a word.
    if (m_scene->sceneRect().size() != QSizeF(m_ui->graphicsView->viewport()->size()))
        initializeScene();
    const QPointer<ValueOverTimeGraph> self(this);
    updateScene(m_clock->now());
    if (self)
        m_scene->update();
}

void ValueOverTimeGraph::updateScene() { updateScene(m_clock->frameTime()); }

void ValueOverTimeGraph::updateScene(qint64 now)
{
    // The panel's answer to scaleChanged() comes back here and belongs to the same frame.
    m_clock->beginFrame(now);
    const QPointer<ValueOverTimeGraph> self(this);
    advance(now);
    if (self) // a host may delete the widget when the scale changes
        m_clock->endFrame();
}

void ValueOverTimeGraph::advance(qint64 now)
{
    limitAge(now); // a curve that holds the others must not let them grow without end
    if (!m_graphs.isEmpty()) {
        if (!m_dynamicScaling)
            m_scene->hideMarkers();
        else if (!scaleToData())
            return;
    }
    m_range->separate();
    m_scene->layOut(m_clock->edge(), *m_range);
    limitAge(now);
}

/// False when there is nothing more to do in this frame.
bool ValueOverTimeGraph::scaleToData()
{
    const auto extremes = GraphRange::extremesOf(m_graphs);
    if (!extremes) {
        m_scene->hideMarkers();
        return false;
    }
    m_scene->markExtremes(extremes->lowest, extremes->highest);
    if (!m_range->follow(*extremes))
        return true;
    // A receiver may run a frame itself; told once is enough then.
    if (m_clock->isNested() && *m_range == *m_told)
        return true;
    *m_told = *m_range;
    const QPointer<ValueOverTimeGraph> self(this);
    emit scaleChanged(m_range->minimum, m_range->maximum);
    return self;
}

void ValueOverTimeGraph::setTimeOut(qint64 time)
{
    m_scene->setTimeOutTime(time);
    for (Graph* graph : qAsConst(m_graphs))
        graph->setTimeOutTime(time);
}

void ValueOverTimeGraph::limitAge(qint64 now)
{
    setTimeOut(qMin(m_clock->edge(), now) - lifetime());
}

qint64 ValueOverTimeGraph::lifetime() const { return Lifetime * qint64(m_scene->visibleSpan()); }

void ValueOverTimeGraph::IN_replyValue(Command* reply)
{
    if (reply)
        takeReply(*reply, m_clock->now());
}

void ValueOverTimeGraph::takeReply(const Command& reply, qint64 now)
{
    const auto isEarly = [now](const Graph* graph) { return now < graph->m_timeOutTime; };
    if (std::any_of(m_graphs.cbegin(), m_graphs.cend(), isEarly)) { // the clock was set back
        setTimeOut(now - lifetime());
    } else if (m_clock->isRunning() && now - m_clock->edge() > m_scene->visibleSpan()) {
        // While the widget is hidden no frame tells what of the curves is out of date. The samples
        // themselves are limited by their number.
        m_scene->setTimeOutTime(now - lifetime());
    }
    for (int i = 0; i < m_graphs.size(); ++i) {
        Graph* graph = m_graphs.at(i);
        if (!isSameValue(*graph, reply))
            continue;
        graph->store(reply.getValue(), now);
        if (!m_log->isRunning())
            continue;
        const qint64 elapsed = m_log->add(i, m_graphs.size(), reply.getValue(), now);
        qCDebug(axrGraphs) << AXR_METHOD.constData() << "Logging:" << elapsed;
    }
    m_scene->take(reply, now);
}

void ValueOverTimeGraph::startDrawing() { setDrawing(true); }

void ValueOverTimeGraph::stopDrawing() { setDrawing(false); }

void ValueOverTimeGraph::setDrawing(bool drawing)
{
    m_clock->setRunning(drawing);
    m_scene->setFrozen(!drawing);
    if (drawing && m_scene->isIncomplete())
        initializeScene();
}

void ValueOverTimeGraph::clearValues()
{
    for (Graph* graph : qAsConst(m_graphs))
        graph->clearValues();
    initializeScene();
}

void ValueOverTimeGraph::updateYMinMax(qreal min, qreal max) { m_scene->setTickRows(min, max); }

void ValueOverTimeGraph::updateMinMaxValue(qreal min, qreal max)
{
    m_scene->setTickValues(min, max);
}

void ValueOverTimeGraph::updateMaxTextWidth(qreal width) { m_scene->setLabelRoom(toInt(width)); }

void ValueOverTimeGraph::doManualScaling() { m_dynamicScaling = false; }

void ValueOverTimeGraph::doDynamicScaling() { m_dynamicScaling = true; }

void ValueOverTimeGraph::setMinValue(int min)
{
    m_range->minimum = min;
    updateScene();
}

void ValueOverTimeGraph::setMaxValue(int max)
{
    m_range->maximum = max;
    updateScene();
}

void ValueOverTimeGraph::handleToggledHideButton(bool toggled)
{
    const int size = toggled ? 0 : QWIDGETSIZE_MAX;
    m_ui->graphController->setMaximumSize(size, size);
    m_ui->graphController->setVisible(!toggled);
}

void ValueOverTimeGraph::handleSetDefaultCharts()
{
    if (m_appSettingKey.isEmpty())
        return;
    GraphSelection().store(m_appSettingKey);
    emit graphSelectionChanged();
}

void ValueOverTimeGraph::contextMenuRequest(QPoint pos)
{
    const QPointer<GraphMenu> menu(new GraphMenu(m_scene->look(), m_chartSelectorEnabled, this));
    const QAction* chosen = menu->exec(mapToGlobal(pos));
    if (!menu) // the widget was deleted meanwhile
        return;
    menu->deleteLater();
    if (menu->isSelection(chosen))
        selectItems();
    else if (chosen)
        m_scene->setLook(menu->chosen(chosen, m_scene->look()));
}

void ValueOverTimeGraph::selectItems()
{
    const QPointer<ValueOverTimeGraph> self(this);
    GraphSelector dialog(this, this, &m_traceableParameters);
    dialog.setWindowFlags(Qt::Dialog | Qt::WindowTitleHint);
    dialog.setWindowIcon(QIcon(QStringLiteral(":/WindowIcons/Drawer")));
    connect(this, &QObject::destroyed, &dialog, &QDialog::reject); // it shows what is ours
    if (dialog.exec() != QDialog::Accepted || !self)
        return;
    const GraphSelection selection(*dialog.getSelectionTable());
    removeAllGraphs();
    m_graphs = selection.makeGraphs();
    selection.store(m_appSettingKey);
    emit graphSelectionChanged();
    if (self)
        initializeScene();
}

QString ValueOverTimeGraph::askFileName()
{
    QStringList labels;
    for (const Graph* graph : qAsConst(m_graphs))
        labels << graph->getLabel();
    const QString proposed =
        Csv::proposedName(QDateTime::fromMSecsSinceEpoch(m_clock->now()), labels);
    return QFileDialog::getSaveFileName(nullptr, tr("Save"), proposed,
                                        QStringLiteral("csv (*.csv)"));
}

void ValueOverTimeGraph::saveGraph()
{
    const bool wasRunning = m_clock->isRunning();
    m_clock->setRunning(false); // the picture stands still meanwhile
    const GraphExport file(m_graphs);
    const QPointer<ValueOverTimeGraph> self(this);
    const QString name = askFileName();
    if (self)
        m_clock->setRunning(wasRunning);
    file.save(name);
}

void ValueOverTimeGraph::startLogging(bool start)
{
    if (m_rejectingLog) // its panel's answer; what ran before goes on
        return;
    const int request = ++m_logRequests;
    if (!start) {
        m_log->end();
        return;
    }
    const QPointer<QObject> asker(sender());
    const QPointer<ValueOverTimeGraph> self(this);
    const QString name = askFileName();
    if (!self || request != m_logRequests)
        return; // ended or asked for again meanwhile
    if (!name.isEmpty()) {
        qCDebug(axrGraphs) << AXR_METHOD.constData() << "fileName:" << name;
        m_log->start(name, m_graphs, *m_clock);
        return;
    }
    qCDebug(axrGraphs) << AXR_METHOD.constData() << "fileName:"
                       << "empty" << asker.data();
    if (auto* controller = qobject_cast<GraphController*>(asker)) {
        m_rejectingLog = true;
        controller->rejectLogging();
        if (self)
            m_rejectingLog = false;
    }
}
