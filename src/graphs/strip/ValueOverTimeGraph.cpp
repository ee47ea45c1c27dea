#include "ValueOverTimeGraph.h"

#include "AppSettings.h"
#include "BasicTools.h"
#include "Bytes.h"
#include "Command.h"
#include "Csv_p.h"
#include "CurveLayer_p.h"
#include "Graph.h"
#include "GraphCaptionItem.h"
#include "GraphController.h"
#include "GraphItem.h"
#include "GraphSelector.h"
#include "Logging.h"
#include "MarkerItem.h"
#include "MethodName.h"
#include "Numbers.h"
#include "SelectionTable_p.h"
#include "ValueKey.h"
#include "XTimeAxisItem.h"
#include "ui_ValueOverTimeGraph.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGraphicsScene>
#include <QMenu>
#include <QPointer>
#include <QSaveFile>
#include <QTimer>

#include <algorithm>
#include <utility>
#include <vector>

namespace
{

constexpr int FrameInterval = 40;           // ms
constexpr double MillisecondsPerPixel = 10; // of the time axis
constexpr int Lifetime = 5;                 // of a sample, in spans of the plot

constexpr double AxisDepth = -123.0;
constexpr double LayerDepth = -0.5;
constexpr double CaptionDepth = 100.0;
constexpr double MinMarkerDepth = 123.3;
constexpr double MaxMarkerDepth = 123.7;
constexpr double CurveDepth = 0.5; // from one curve to the next

// Qt calls the name out of date, and the raster engine does nothing with it; others still do.
constexpr auto HighQualityAntialiasing = static_cast<QPainter::RenderHint>(0x08);

// Beyond these, the extremes of the data do not count.
constexpr double HighestMinimum = 214783647.0;
constexpr double LowestMaximum = -214783648.0;

CsvLine headerLine(const QList<Graph*>& graphs)
{
    CsvLine line;
    line.add(QStringLiteral("timestamp[ms]"));
    for (const Graph* graph : graphs)
        line.add(graph->getLabel());
    return line;
}

/// \param column of the curve that has the value; the others stay empty
CsvLine valueLine(qint64 time, int column, int columns, int value)
{
    CsvLine line;
    return line.add(time).skip(column).add(value).skip(columns - column - 1);
}

} // namespace

ValueOverTimeGraph::ValueOverTimeGraph(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ValueOverTimeGraph>())
    , m_scene(new QGraphicsScene(this))
    , m_updateTimer(new QTimer(this))
    , m_actualTime(now())
{
    m_ui->setupUi(this);
    m_ui->graphicsView->viewport()->setStyleSheet(QStringLiteral("background: white"));
    m_ui->graphicsView->setBackgroundBrush(Qt::white); // whatever a sheet of the application says
    // The view's background covers all of it; filling it before would double the cost.
    m_ui->graphicsView->viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    // The items change their size and place with each frame; an index would only cost.
    m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    m_ui->graphicsView->show(m_scene);
    m_ui->graphicsView->setRenderHint(HighQualityAntialiasing);
    GraphController* controller = m_ui->graphController;
    controller->setMinValue(m_minValue);
    controller->setMaxValue(m_maxValue);

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

ValueOverTimeGraph::~ValueOverTimeGraph() { qDeleteAll(m_graphs); }

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

void ValueOverTimeGraph::setAppSettingKey(QString key)
{
    m_ui->graphController->setAppSettingsKey(key);
    m_appSettingKey = std::move(key);
}

void ValueOverTimeGraph::setClock(std::function<qint64()> clock) { m_clock = std::move(clock); }

qint64 ValueOverTimeGraph::now() const
{
    return m_clock ? m_clock() : QDateTime::currentMSecsSinceEpoch();
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
    // A picture that stands still survives.
    std::vector<std::shared_ptr<CurveColumns>> kept;
    for (const Graph* graph : qAsConst(m_graphs))
        kept.push_back(m_drawing ? nullptr : graph->m_drawn.lock());
    m_graphItems.clear();
    m_scene->clear();
    const QRectF area(QPointF(), QSizeF(m_ui->graphicsView->viewport()->size()));
    m_scene->setSceneRect(area);
    if (m_drawBoundingEnabled) {
        const QPointF corners[] = {area.topLeft(), area.topRight(), area.bottomRight(),
                                   area.bottomLeft(), area.topLeft()};
        for (int i = 0; i < 4; ++i)
            m_scene->addLine(QLineF(corners[i], corners[i + 1]), QPen(Qt::red));
    }

    m_timeAxis = new XTimeAxisItem;
    m_timeAxis->setZValue(AxisDepth);
    m_scene->addItem(m_timeAxis);
    connect(m_timeAxis, &XTimeAxisItem::updateYMinMax, this, &ValueOverTimeGraph::updateYMinMax);
    connect(m_timeAxis, &XTimeAxisItem::updateMinMaxValue, this,
            &ValueOverTimeGraph::updateMinMaxValue);
    connect(m_timeAxis, &XTimeAxisItem::updateMaxTextWidth, this,
            &ValueOverTimeGraph::updateMaxTextWidth);

    m_captionItem = new GraphCaptionItem;
    for (const Graph* graph : qAsConst(m_graphs))
        m_captionItem->addCaption(graph->getLabel(), graph->getColor(), font());
    m_scene->addItem(m_captionItem);
    m_captionItem->setZValue(CaptionDepth);

    auto* layer = new CurveLayer(m_timeAxis);
    layer->setZValue(LayerDepth);
    m_scene->addItem(layer);
    for (Graph* graph : qAsConst(m_graphs)) {
        auto* item = new GraphItem;
        item->setAddress(graph->getAddress());
        item->setMotorBank(graph->getMotorBank());
        item->setCommand(graph->getCommand());
        item->setType(graph->getType());
        item->setUseConnectedDataPoints(graph->isUseConnectPointsEnabled());
        item->setPos(m_timeAxis->plotLeft(), m_yAreaMin);
        item->follow(graph, kept[static_cast<std::size_t>(m_graphItems.size())]);
        item->setZValue(m_graphItems.size() * CurveDepth);
        m_graphItems.append(item);
        m_scene->addItem(item);
        layer->add(item);
    }
    layOut(); // so that all shows also while a curve without samples holds the frames
    layOutItems();
    for (GraphItem* item : qAsConst(m_graphItems))
        item->setFrozen(!m_drawing); // at the time that it shows
    m_updateTimer->start();
    m_minMarker = addMarker(QStringLiteral("\nMin"), MinMarkerDepth);
    m_maxMarker = addMarker(QStringLiteral("Max\n"), MaxMarkerDepth);
}

MarkerItem* ValueOverTimeGraph::addMarker(const QString& text, double z)
{
    auto* marker = new MarkerItem(false, text, QPen(QColor(QStringLiteral("sandybrown"))),
                                  m_ui->graphicsView->viewport()->size(), false, nullptr);
    marker->adjust(font());
    m_scene->addItem(marker);
    marker->setZValue(z);
    marker->hide(); // until a frame has its value
    return marker;
}

void ValueOverTimeGraph::updateItemClock()
{
    if (!isVisible() || window()->isMinimized())
        return;
    // When the widget was resized while it was hidden, its view follows only now, without a word.
    if (m_scene->sceneRect().size() != QSizeF(m_ui->graphicsView->viewport()->size()))
        initializeScene();
    const QPointer<ValueOverTimeGraph> self(this);
    updateScene(now());
    if (self)
        m_scene->update();
}

void ValueOverTimeGraph::updateScene() { updateScene(m_inFrame ? m_frameTime : now()); }

void ValueOverTimeGraph::updateScene(qint64 now)
{
    // The panel's answer to scaleChanged() comes back here and belongs to the same frame.
    const bool wasInFrame = std::exchange(m_inFrame, true);
    const bool wasNested = std::exchange(m_nested, wasInFrame);
    m_frameTime = now;
    const QPointer<ValueOverTimeGraph> self(this);
    advance(now);
    if (self) { // a host may delete the widget when the scale changes
        m_inFrame = wasInFrame;
        m_nested = wasNested;
    }
}

void ValueOverTimeGraph::advance(qint64 now)
{
    if (m_drawing)
        m_actualTime = now;
    limitAge(now); // a curve that holds the others must not let them grow without end
    if (!m_graphs.isEmpty()) {
        if (!m_dynamicScaling)
            showMarkers(false, false);
        else if (!scaleToData())
            return;
    }
    if (m_minValue == m_maxValue) {
        m_maxValue = toInt(qint64(m_maxValue) + 1);
        m_minValue = toInt(qint64(m_minValue) - 1);
    }

    layOut();
    layOutItems();
    limitAge(now);
}

/// Axis and captions, in the widget's present size and the axis' last text width.
void ValueOverTimeGraph::layOut()
{
    const QSize view = m_ui->graphicsView->viewport()->size();
    const QFontMetrics metrics = fontMetrics();
    if (m_captionGap < 0 || m_gapFont != font()) {
        m_gapFont = font();
        m_captionGap = metrics.horizontalAdvance(QStringLiteral("XXX"));
    }
    const double sceneWidth = view.width() - 2 * metrics.horizontalAdvance(QLatin1Char('X'));
    const double sceneHeight = view.height() - 2 * metrics.height();
    m_timeAxis->setActualTime(m_actualTime);
    m_timeAxis->setMinValue(m_minValue);
    m_timeAxis->setMaxValue(m_maxValue);
    m_timeAxis->setSize(view.width(), view.height());
    m_timeAxis->setMaxTextWidth(m_maxTextWidth);
    m_timeAxis->setYCaption(m_yAxisCaption);

    const double plotWidth = m_timeAxis->plotWidth();
    m_visibleSpan = qMax(0, toInt((plotWidth > 0 ? plotWidth : sceneWidth) * MillisecondsPerPixel));
    const double captionWidth = m_captionItem->getWidth();
    m_captionItem->setVisible(plotWidth >= captionWidth + m_captionGap);
    m_captionItem->setPos(sceneWidth - captionWidth - m_captionGap,
                          (sceneHeight - m_captionItem->getHeight()) / 3.0);
}

void ValueOverTimeGraph::layOutItems()
{
    for (GraphItem* item : qAsConst(m_graphItems)) {
        item->setActualTime(m_actualTime);
        item->setMinValue(toInt(m_xyMinValue));
        item->setMaxValue(toInt(m_xyMaxValue));
        item->setPos(m_timeAxis->plotLeft(), m_yAreaMin);
        item->setSize(qMax(0.0, m_timeAxis->plotWidth()), m_yAreaMax - m_yAreaMin);
        item->setUseBoldDataPoints(m_useBoldDataPoints);
        item->setUseConnectedDataPoints(m_useConnectedDataPoints);
        item->setDataPointsEnabled(m_dataPointsEnabled);
    }
}

bool ValueOverTimeGraph::scaleToData()
{
    double minimum = HighestMinimum;
    double maximum = LowestMaximum;
    bool hasData = false;
    for (const Graph* graph : qAsConst(m_graphs)) {
        if (graph->valueCount() < 2) {
            showMarkers(false, false);
            return false;
        }
        double lowest = minimum;
        double highest = maximum;
        hasData = graph->valueRange(&lowest, &highest) || hasData;
        minimum = qMin(minimum, lowest);
        maximum = qMax(maximum, highest);
    }
    const bool hasPlace = maximum > minimum && m_xyMaxValue != m_xyMinValue;
    showMarkers(hasPlace && m_showMinMaxMarker && minimum != 0,
                hasPlace && m_showMinMaxMarker && maximum != 0);
    if (hasPlace) {
        const double scale = (m_yAreaMax - m_yAreaMin) / (m_xyMaxValue - m_xyMinValue);
        placeMarker(m_maxMarker, maximum, m_yAreaMin + (m_xyMaxValue - maximum) * scale);
        placeMarker(m_minMarker, minimum, m_yAreaMax - (minimum - m_xyMinValue) * scale);
        if (m_drawBoundingEnabled)
            qCDebug(axrGraphs) << AXR_METHOD.constData() << "yMinMarker:" << m_minMarker->y()
                               << "yMaxMarker:" << m_maxMarker->y();
    }
    if (!hasData || (m_maxValue == maximum && m_minValue == minimum))
        return true;
    m_maxValue = toInt(maximum);
    m_minValue = toInt(minimum);
    BasicTools::adjustLinearAxis(m_minValue, m_maxValue);
    // A receiver may run a frame itself; told once is enough then.
    const QPair<int, int> told(m_minValue, m_maxValue);
    if (m_nested && told == m_told)
        return true;
    m_told = told;
    const QPointer<ValueOverTimeGraph> self(this);
    emit scaleChanged(m_minValue, m_maxValue);
    return self;
}

void ValueOverTimeGraph::placeMarker(MarkerItem* marker, double value, double y)
{
    marker->setValue(toInt(value), QPointF(m_timeAxis->plotLeft(), 0));
    marker->setPos(0, y);
}

void ValueOverTimeGraph::showMarkers(bool minimum, bool maximum)
{
    m_minMarker->setVisible(minimum);
    m_maxMarker->setVisible(maximum);
}

void ValueOverTimeGraph::setTimeOut(qint64 time)
{
    for (GraphItem* item : qAsConst(m_graphItems))
        item->setTimeOutTime(time);
    for (Graph* graph : qAsConst(m_graphs))
        graph->setTimeOutTime(time);
}

void ValueOverTimeGraph::limitAge(qint64 now) { setTimeOut(qMin(m_actualTime, now) - lifetime()); }

qint64 ValueOverTimeGraph::lifetime() const { return Lifetime * qint64(m_visibleSpan); }

void ValueOverTimeGraph::IN_replyValue(Command* reply)
{
    if (reply)
        takeReply(*reply, now());
}

void ValueOverTimeGraph::takeReply(const Command& reply, qint64 now)
{
    const auto isEarly = [now](const Graph* graph) { return now < graph->m_timeOutTime; };
    if (std::any_of(m_graphs.cbegin(), m_graphs.cend(), isEarly)) { // the clock was set back
        setTimeOut(now - lifetime());
    } else if (m_drawing && now - m_actualTime > m_visibleSpan) {
        // While the widget is hidden no frame tells what of the curves is out of date. The samples
        // themselves are limited by their number.
        for (GraphItem* item : qAsConst(m_graphItems))
            item->setTimeOutTime(now - lifetime());
    }
    const double value = reply.getValue();
    for (int i = 0; i < m_graphs.size(); ++i) {
        Graph* graph = m_graphs.at(i);
        if (!isSameValue(*graph, reply))
            continue;
        graph->store(value, now);
        if (!m_log)
            continue;
        const qint64 elapsed = now - m_logStartTime;
        m_log->append(valueLine(elapsed, i, m_graphs.size(), reply.getValue()));
        qCDebug(axrGraphs) << AXR_METHOD.constData() << "Logging:" << elapsed;
    }
    for (GraphItem* item : qAsConst(m_graphItems)) {
        if (isSameValue(*item, reply))
            item->addValue(value, now);
    }
}

void ValueOverTimeGraph::startDrawing() { setDrawing(true); }

void ValueOverTimeGraph::stopDrawing() { setDrawing(false); }

void ValueOverTimeGraph::setDrawing(bool drawing)
{
    m_drawing = drawing;
    bool isIncomplete = false;
    for (GraphItem* item : qAsConst(m_graphItems)) {
        item->setFrozen(!drawing);
        isIncomplete = isIncomplete || item->isIncomplete();
    }
    if (drawing && isIncomplete)
        initializeScene();
}

void ValueOverTimeGraph::clearValues()
{
    for (Graph* graph : qAsConst(m_graphs))
        graph->clearValues();
    initializeScene();
}

void ValueOverTimeGraph::updateYMinMax(qreal min, qreal max)
{
    m_yAreaMin = min;
    m_yAreaMax = max;
}

void ValueOverTimeGraph::updateMinMaxValue(qreal min, qreal max)
{
    m_xyMinValue = min;
    m_xyMaxValue = max;
}

void ValueOverTimeGraph::updateMaxTextWidth(qreal width) { m_maxTextWidth = toInt(width); }

void ValueOverTimeGraph::doManualScaling() { m_dynamicScaling = false; }

void ValueOverTimeGraph::doDynamicScaling() { m_dynamicScaling = true; }

void ValueOverTimeGraph::setMinValue(int min)
{
    m_minValue = min;
    updateScene();
}

void ValueOverTimeGraph::setMaxValue(int max)
{
    m_maxValue = max;
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
    AppSettings().saveParaMapVariant({}, m_appSettingKey);
    emit graphSelectionChanged();
}

void ValueOverTimeGraph::contextMenuRequest(QPoint pos)
{
    const QPointer<QMenu> menu(new QMenu(this));
    const auto addEntry = [&menu](const QString& text, const QString& statusTip) {
        QAction* entry = menu->addAction(text);
        entry->setStatusTip(statusTip);
        return entry;
    };
    const auto addSwitch = [&addEntry](const QString& text, const QString& statusTip, bool on) {
        QAction* entry = addEntry(text, statusTip);
        entry->setCheckable(true);
        entry->setChecked(on);
        return entry;
    };
    const QAction* bold =
        addSwitch(tr("Bold points"), tr("paint bolded points"), m_useBoldDataPoints);
    const QAction* pointsOnly = addSwitch(tr("Points only"), tr("don't paint lines between points"),
                                          !m_useConnectedDataPoints);
    const QAction* markers =
        addSwitch(tr("Show min/max marker"), tr("display range of minimum and maximum values"),
                  m_showMinMaxMarker);
    menu->addSeparator();
    const QAction* select = m_chartSelectorEnabled
                                ? addEntry(tr("Select items ..."), tr("add given value to graph"))
                                : nullptr;

    const QAction* chosen = menu->exec(mapToGlobal(pos));
    if (!menu) // the widget was deleted meanwhile
        return;
    menu->deleteLater();
    if (!chosen)
        return;
    if (chosen == bold) {
        m_useBoldDataPoints = chosen->isChecked();
        for (GraphItem* item : qAsConst(m_graphItems))
            item->setUseBoldDataPoints(m_useBoldDataPoints);
    } else if (chosen == pointsOnly) {
        m_useConnectedDataPoints = !chosen->isChecked();
        for (GraphItem* item : qAsConst(m_graphItems))
            item->setUseConnectedDataPoints(m_useConnectedDataPoints);
    } else if (chosen == markers) {
        m_showMinMaxMarker = chosen->isChecked();
    } else if (chosen == select) {
        selectItems();
    }
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

    removeAllGraphs();
    const QTableWidget& table = *dialog.getSelectionTable();
    QMap<QString, QMap<QString, QVariant>> selection;
    for (int row = 0; row < table.rowCount(); ++row) {
        const SelectionRow chosen = SelectionTable::read(table, row);
        addGraph(new Graph(chosen.address, chosen.motor, chosen.command, chosen.type, chosen.name,
                           chosen.color));
        const char stored[] = {chosen.address, chosen.motor, chosen.command, chosen.type};
        selection.insert(BasicTools::iToInt(row, 4, QString(), '0') + chosen.name,
                         {{QStringLiteral("ba"), QByteArray(stored, sizeof stored)},
                          {QStringLiteral("col"), chosen.color}});
    }
    if (!m_appSettingKey.isEmpty())
        AppSettings().saveParaMapVariant(selection, m_appSettingKey);
    emit graphSelectionChanged();
    if (self)
        initializeScene();
}

QString ValueOverTimeGraph::askFileName()
{
    QString name =
        QDateTime::fromMSecsSinceEpoch(now()).toString(QStringLiteral("./yyyyMMdd_hh.mm.ss"));
    for (const Graph* graph : qAsConst(m_graphs)) {
        QString label = graph->getLabel(); // must not lead into another folder
        name += QLatin1Char('_') + label.replace(QLatin1Char('/'), QLatin1Char('_'))
                                       .replace(QLatin1Char('\\'), QLatin1Char('_'));
    }
    return QFileDialog::getSaveFileName(nullptr, tr("Save"), name + QStringLiteral(".csv"),
                                        QStringLiteral("csv (*.csv)"));
}

void ValueOverTimeGraph::saveGraph()
{
    struct Entry {
        qint64 time;
        int column;
        int value;
    };
    const bool wasDrawing = m_drawing;
    m_drawing = false; // the picture stands still meanwhile
    std::vector<Entry> entries;
    for (int i = 0; i < m_graphs.size(); ++i) {
        const QList<TValue> values = m_graphs.at(i)->getValues();
        for (const TValue& sample : values)
            entries.push_back({sample.time, i, toInt(sample.value)});
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.time < b.time; });
    const CsvLine header = headerLine(m_graphs);
    const int columns = m_graphs.size();

    const QPointer<ValueOverTimeGraph> self(this);
    const QString name = askFileName();
    if (self)
        m_drawing = wasDrawing;
    QSaveFile file(name);
    file.setDirectWriteFallback(true); // a folder that allows no other file
    if (name.isEmpty() || !file.open(QIODevice::WriteOnly))
        return;
    file.write(header.bytes());
    for (const Entry& entry : entries)
        file.write(valueLine(entry.time - entries.front().time, entry.column, columns, entry.value)
                       .bytes());
    file.commit();
}

void ValueOverTimeGraph::startLogging(bool start)
{
    if (m_rejectingLog) // its panel's answer; what ran before goes on
        return;
    const int request = ++m_logRequests;
    if (!start) {
        m_log.reset();
        return;
    }
    const QPointer<QObject> asker(sender());
    const QPointer<ValueOverTimeGraph> self(this);
    const QString name = askFileName();
    if (!self || request != m_logRequests)
        return; // ended or asked for again meanwhile
    if (name.isEmpty()) {
        qCDebug(axrGraphs) << AXR_METHOD.constData() << "fileName:"
                           << "empty" << asker.data();
        if (auto* controller = qobject_cast<GraphController*>(asker)) {
            m_rejectingLog = true;
            controller->rejectLogging();
            if (self)
                m_rejectingLog = false;
        }
        return;
    }
    qCDebug(axrGraphs) << AXR_METHOD.constData() << "fileName:" << name;
    auto log = std::make_unique<CsvLog>(name);
    if (!log->start(headerLine(m_graphs)))
        return;
    m_log = std::move(log);
    m_logStartTime = now();
}
