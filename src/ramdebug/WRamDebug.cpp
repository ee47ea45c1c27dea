#include "WRamDebug.h"

#include "Bytes.h"
#include "Chart.h"
#include "Command.h"
#include "Csv_p.h"
#include "FocusPair_p.h"
#include "Instruction.h"
#include "Logging.h"
#include "MethodName.h"
#include "Numbers.h"
#include "RamDebugThread_p.h"
#include "Recorder.h"
#include "RoomForText_p.h"
#include "ShowsOnly_p.h"
#include "SimpleScaledDrawer.h"
#include "WheelFocus.h"
#include "ui_WRamDebug.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>

#include <limits>

namespace
{

using Recorder::Mode;
using Recorder::Target;
using Recorder::Trigger;

enum Entry { NameEntry, IdEntry, UnitEntry }; // of an item's list

constexpr int LongestChart = 10000;
constexpr int LargestBuffer = 1000000; // elements; more is no answer of a recorder
constexpr int ThreadPatience = 5;      // ms
constexpr int ButtonColumn = 8;        // of the row of fields
constexpr int SignSpace = 4;           // px
constexpr QRgb SignColor = 0xffff9900; // orange
constexpr int BoxFrame = 34;           // px, with the arrows of the widest style

template <class Id>
void addItem(QComboBox* box, const QString& name, Id id, const QStringList& more = {})
{
    box->addItem(name, QStringList{name, QString::number(static_cast<int>(id))} + more);
}

QStringList entriesAt(const QComboBox* box, int index)
{
    QStringList entries = box->itemData(index).toStringList();
    while (entries.size() <= UnitEntry)
        entries << QString();
    return entries;
}

/// What the box shows, also when it was typed and not yet taken. The text itself holds the digits
/// of the locale, which toInt() reads as 0.
int shownValue(QSpinBox* box)
{
    box->interpretText();
    return box->value();
}

} // namespace

WRamDebug::WRamDebug(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::WRamDebug>()), m_velocityUnit(tr("[rpm]"))
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    new ShowsOnly(m_ui->sbDuration);
    fitBoxes();
    RoomForText::giveTo(this);
    m_ui->btnStop->setEnabled(false);
    m_ui->sbTriggerValue->setEnabled(false);
    addTorqueMeasureMode();
    addTriggerTypes();
    connect(m_ui->cmbMeasureMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &WRamDebug::measureModeChanged);
    connect(m_ui->cmbTriggerType, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &WRamDebug::triggerTypeChanged);
    m_ui->drawer->setChartSize(LongestChart);
    m_ui->drawer->setYAxisCaption(tr("Torque"));
    m_ui->drawer->startDrawing();

    m_thread = std::make_unique<RamDebugThread>(m_ui->drawer);
    m_thread->shared().isOfPanel = true;
    connect(m_ui->sbMeasureDelay, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &WRamDebug::measureDelayChanged);
    connect(m_thread.get(), &RamDebugThread::doDirectRequest, this,
            &WRamDebug::forwardDoDirectRequest, Qt::BlockingQueuedConnection);
    connect(m_thread.get(), &RamDebugThread::ready, this, &WRamDebug::ramDebugThreadReady);

    setAddressAndMotorBank(1, 0);
    updateChartSelection();
    updateTargetBounds();
    updateUnits();
    connect(m_ui->cmbTargetMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &WRamDebug::targetModeChanged);
}

WRamDebug::~WRamDebug()
{
    RamDebugThread::Shared& shared = m_thread->shared();
    const bool isGivenUp = shared.isAborted;
    m_thread->abort();
    shared.leaveDrawer();
    if (m_forwarding > 0) {
        // The thread waits for the slot in which this is destroyed: it must outlive the panel, and
        // goes by itself, or with the application where that quits at once.
        RamDebugThread* orphan = m_thread.release();
        orphan->setParent(QCoreApplication::instance());
        connect(orphan, &QThread::finished, orphan, &QObject::deleteLater);
    } else {
        // A request that is on its way to this panel frees the thread when it is dropped.
        while (!m_thread->wait(ThreadPatience))
            QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
        const std::optional<Command> wayBack = shared.takeWayBack();
        Command reply;
        if (wayBack && !isGivenUp && m_asking == 0)
            ask(new Command(*wayBack), &reply);
    }
    m_ui->drawer->removeAllCharts();
}

void WRamDebug::addTorqueMeasureMode()
{
    addItem(m_ui->cmbMeasureMode, tr("Torque"), Mode::Torque);
}

void WRamDebug::addVelocityMeasureMode()
{
    addItem(m_ui->cmbMeasureMode, tr("Velocity"), Mode::Velocity);
}

void WRamDebug::addPositionMeasureMode()
{
    addItem(m_ui->cmbMeasureMode, tr("Position"), Mode::Position);
}

void WRamDebug::addNoTargetMeasureMode()
{
    addItem(m_ui->cmbMeasureMode, tr("Defined"), Mode::Defined);
}

void WRamDebug::addTriggerTypes()
{
    QComboBox* box = m_ui->cmbTriggerType;
    addItem(box, tr("Always"), Trigger::Always);
    addItem(box, tr("Position lower"), Trigger::PositionLower);
    addItem(box, tr("Position higher"), Trigger::PositionHigher);
    addItem(box, tr("Velocity lower"), Trigger::VelocityLower);
    addItem(box, tr("Velocity higher"), Trigger::VelocityHigher);
    addItem(box, tr("Torque lower"), Trigger::TorqueLower);
    addItem(box, tr("Torque higher"), Trigger::TorqueHigher);
}

void WRamDebug::setAddressAndMotorBank(char address, char bank)
{
    m_thread->setAddress(address);
    m_thread->setMotorBank(bank);
    makeCharts();
    updateChartSelection();
}

void WRamDebug::makeCharts()
{
    m_ui->drawer->removeAllCharts(); // before the charts that it draws go
    const struct {
        char type;
        QString label;
        QColor color;
    } rows[] = {
        {m_thread->getTargetTorqueType(), tr("target [mA]"), Qt::red},
        {m_thread->getActualTorqueType(), tr("actual [mA]"), Qt::blue},
        {m_thread->getRampTargetVelocityType(), tr("target ") + m_velocityUnit, Qt::red},
        {m_thread->getActualVelocityType(), tr("actual ") + m_velocityUnit, Qt::blue},
        {m_thread->getTargetPositionType(), tr("target"), Qt::red},
        {m_thread->getActualPositionType(), tr("actual"), Qt::blue},
        {0, tr("Debug 1"), Qt::green},
        {1, tr("Debug 2"), Qt::blue},
        {2, tr("Debug 3"), Qt::red},
        {3, tr("Debug 4"), Qt::black},
    };
    for (std::size_t i = 0; i < m_charts.size(); ++i)
        m_charts[i] = std::make_unique<Chart>(m_thread->getAddress(), m_thread->getMotorBank(),
                                              toByte(Instruction::GAP), rows[i].type, rows[i].label,
                                              rows[i].color);
}

template <class Setter>
void WRamDebug::setNumber(Setter setter, char number)
{
    (m_thread.get()->*setter)(number);
    setAddressAndMotorBank(m_thread->getAddress(), m_thread->getMotorBank());
}

void WRamDebug::setTargetTorqueCommand(char command)
{
    setNumber(&RamDebugThread::setTargetTorqueCommand, command);
}

void WRamDebug::setTargetTorqueType(char type)
{
    setNumber(&RamDebugThread::setTargetTorqueType, type);
}

void WRamDebug::setTargetVelocityCommand(char command)
{
    setNumber(&RamDebugThread::setTargetVelocityCommand, command);
}

void WRamDebug::setTargetVelocityType(char type)
{
    setNumber(&RamDebugThread::setTargetVelocityType, type);
}

void WRamDebug::setRampTargetVelocityType(char type)
{
    setNumber(&RamDebugThread::setRampTargetVelocityType, type);
}

void WRamDebug::setTargetPositionCommand(char command)
{
    setNumber(&RamDebugThread::setTargetPositionCommand, command);
}

void WRamDebug::setTargetPositionType(char type)
{
    setNumber(&RamDebugThread::setTargetPositionType, type);
}

void WRamDebug::setActualTorqueType(char type)
{
    setNumber(&RamDebugThread::setActualTorqueType, type);
}

void WRamDebug::setActualVelocityType(char type)
{
    setNumber(&RamDebugThread::setActualVelocityType, type);
}

void WRamDebug::setActualPositionType(char type)
{
    setNumber(&RamDebugThread::setActualPositionType, type);
}

void WRamDebug::updateTargetBounds()
{
    struct Bounds {
        int maximum;
        int step;
    };
    const Bounds bounds[] = {{m_maxTargetTorque, 100},
                             {m_maxTargetVelocity, 100},
                             {std::numeric_limits<int>::max(), 4000}};
    const int mode = m_thread->getTargetMode();
    if (mode == int(Target::None))
        return;
    for (QSpinBox* box : {m_ui->sbFromTarget, m_ui->sbToTarget}) {
        box->setRange(toInt(-qint64(bounds[mode].maximum)), bounds[mode].maximum);
        box->setSingleStep(bounds[mode].step);
    }
}

void WRamDebug::setVelocityUnit(QString unit)
{
    m_velocityUnit = std::move(unit);
    updateUnits();
}

void WRamDebug::updateUnits()
{
    {
        const QSignalBlocker blocker(m_ui->cmbTargetMode);
        m_ui->cmbTargetMode->clear();
        addItem(m_ui->cmbTargetMode, tr("Torque"), Target::Torque, {QStringLiteral("[mA]")});
        addItem(m_ui->cmbTargetMode, tr("Velocity"), Target::Velocity, {m_velocityUnit});
        addItem(m_ui->cmbTargetMode, tr("Position"), Target::Position, {QString()});
    }
    setAddressAndMotorBank(m_thread->getAddress(), m_thread->getMotorBank());
}

void WRamDebug::setAllowDefinedMode(bool allow)
{
    if (m_allowDefinedMode)
        return;
    m_allowDefinedMode = allow;
    m_thread->setAllowDefinedMode(allow);
    const QString name = tr("No target");
    if (m_ui->cmbTargetMode->findText(name) < 0)
        addItem(m_ui->cmbTargetMode, name, Target::None, {QString()});
}

void WRamDebug::updateValues()
{
    Command reply;
    const QPointer<WRamDebug> self(this);
    ask(new Command(m_thread->getAddress(), toByte(Instruction::RD),
                    toByte(Recorder::Type::Elements), m_thread->getMotorBank(), 0),
        &reply);
    if (!self || !reply.isValid())
        return;
    const int elements = reply.getValue();
    m_hasBadBufferSize = elements < 1 || elements > LargestBuffer;
    update();
    if (m_hasBadBufferSize)
        return;
    m_bufferElements = elements;
    m_ui->sbMeasureDelay->setValue(1);
    measureDelayChanged(1);
    m_ui->drawer->setChartSize(elements);
}

void WRamDebug::setMaximumDrawerHeight(int height)
{
    m_ui->drawer->setMaximumHeight(qBound(0, height, QWIDGETSIZE_MAX));
}

void WRamDebug::measureDelayChanged(int newDelay)
{
    const int duration = toInt(qint64(m_bufferElements) * newDelay);
    m_ui->sbDuration->setMaximum(duration);
    m_ui->sbDuration->setValue(duration);
}

void WRamDebug::targetModeChanged(int index)
{
    const QStringList entries = entriesAt(m_ui->cmbTargetMode, index);
    const int mode = entries.at(IdEntry).toInt();
    m_thread->setTargetMode(mode);
    if (m_lastTargetMode != int(Target::None))
        m_targets[static_cast<std::size_t>(m_lastTargetMode)] = {m_ui->sbFromTarget->value(),
                                                                 m_ui->sbToTarget->value()};
    m_ui->lblMinUnit->setText(entries.at(UnitEntry));
    m_ui->lblMaxUnit->setText(entries.at(UnitEntry));
    updateTargetBounds();
    m_ui->cmbMeasureMode->clear();
    m_ui->sbFromTarget->setEnabled(true);
    m_ui->sbToTarget->setEnabled(true);
    if (mode != int(Target::None)) {
        addTorqueMeasureMode();
        if (mode >= int(Target::Velocity))
            addVelocityMeasureMode();
        if (mode >= int(Target::Position))
            addPositionMeasureMode();
        const Targets& targets = m_targets[static_cast<std::size_t>(mode)];
        m_ui->sbFromTarget->setValue(targets.from);
        m_ui->sbToTarget->setValue(targets.to);
    } else if (m_allowDefinedMode) {
        addNoTargetMeasureMode();
        m_ui->sbFromTarget->setEnabled(false);
        m_ui->sbToTarget->setEnabled(false);
    }
    m_lastTargetMode = mode;
}

void WRamDebug::measureModeChanged(int index)
{
    if (index < 0)
        return;
    const QStringList entries = entriesAt(m_ui->cmbMeasureMode, index);
    const int mode = entries.at(IdEntry).toInt();
    m_thread->setMeasureMode(mode);
    qCDebug(axrRamDebug) << AXR_METHOD.constData() << entries.at(NameEntry) << " Mode: " << mode;
    const QString unit = mode == int(Mode::Torque) ? tr("[1/10 mS]") : tr("[mS]");
    m_ui->lblDurationUnit->setText(unit);
    m_ui->lblDelayUnit->setText(unit);
    updateChartSelection();
}

void WRamDebug::updateChartSelection()
{
    const struct {
        QString caption;
        std::size_t first;
        std::size_t count;
    } rows[] = {
        {tr("Torque"), 0, 2}, {tr("Velocity"), 2, 2}, {tr("Position"), 4, 2}, {tr("Debug"), 6, 4}};
    const int mode = m_thread->getMeasureMode();
    if (mode == int(Mode::Defined) && !m_allowDefinedMode)
        return;
    m_ui->drawer->setYAxisCaption(rows[mode].caption);
    m_ui->drawer->removeAllCharts();
    for (std::size_t i = 0; i < rows[mode].count; ++i)
        m_ui->drawer->addChart(m_charts[rows[mode].first + i].get());
}

void WRamDebug::triggerTypeChanged(int index)
{
    if (index < 0)
        return;
    const QStringList entries = entriesAt(m_ui->cmbTriggerType, index);
    m_thread->setTriggerType(entries.at(IdEntry).toInt());
    m_ui->sbTriggerValue->setEnabled(!entries.at(NameEntry).contains(tr("Always")));
}

void WRamDebug::on_sbTriggerValue_valueChanged(int value) { m_thread->setTriggerValue(value); }

void WRamDebug::enableInputFields(bool enable)
{
    m_ui->cmbMeasureMode->setEnabled(enable);
    m_ui->cmbTargetMode->setEnabled(enable);
    m_ui->cmbTriggerType->setEnabled(enable);
    m_ui->sbMeasureDelay->setEnabled(enable);
    m_ui->sbDuration->setEnabled(false);
    const bool hasTarget = m_thread->getTargetMode() != int(Target::None);
    m_ui->sbFromTarget->setEnabled(enable && hasTarget);
    m_ui->sbToTarget->setEnabled(enable && hasTarget);
    m_ui->sbTriggerValue->setEnabled(enable && m_thread->getTriggerType() != int(Trigger::Always));
}

void WRamDebug::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitBoxes();
}

void WRamDebug::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    const bool isEnding = m_run == Run::Ends || m_run == Run::BeginsAgain;
    if (isEnding)
        paintSign(tr("still ending"));
    else if (m_hasBadBufferSize)
        paintSign(tr("bad buffer size"));
}

/// In the free place above the buttons.
void WRamDebug::paintSign(const QString& text)
{
    const QGridLayout* row = m_ui->gridLayout;
    const QRect place = row->cellRect(0, ButtonColumn) | row->cellRect(0, row->columnCount() - 1);
    const int diameter = fontMetrics().ascent() - 1;
    QRect dot(place.left(), 0, diameter, diameter);
    dot.moveCenter({dot.center().x(), place.center().y()});
    const QRect room = place.adjusted(diameter + SignSpace, 0, 0, 0);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
    painter.setBrush(QColor(SignColor));
    painter.drawEllipse(dot);
}

/// The ranges are far wider than the values that are usual, which always show in full.
void WRamDebug::fitBoxes()
{
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-9999")) + BoxFrame;
    for (QSpinBox* box : {m_ui->sbFromTarget, m_ui->sbToTarget, m_ui->sbTriggerValue})
        box->setMinimumWidth(width);
}

void WRamDebug::showMeasuring(bool measuring)
{
    const FocusPair focus(m_ui->btnStart, m_ui->btnStop);
    m_ui->btnStart->setEnabled(!measuring);
    m_ui->btnStop->setEnabled(measuring);
    enableInputFields(!measuring);
}

void WRamDebug::on_btnStart_clicked()
{
    const QPointer<WRamDebug> self(this);
    emit measurementStarted();
    if (!self)
        return;
    showMeasuring(true);
    const int delay = shownValue(m_ui->sbMeasureDelay);
    const int to = shownValue(m_ui->sbToTarget);
    const int from = shownValue(m_ui->sbFromTarget);
    m_thread->setMeasurementConstraints(from, to, delay);
    const bool isUnderWay = m_thread->isRunning() && !m_thread->shared().isOver;
    if (!isUnderWay)
        beginRun();
    else if (m_thread->shared().isAborted)
        setRun(Run::BeginsAgain);
}

void WRamDebug::on_btnStop_clicked()
{
    showMeasuring(false);
    m_thread->stop();
    if (isMeasuring())
        setRun(Run::Ends);
}

void WRamDebug::abort()
{
    if (!isMeasuring())
        return;
    m_thread->abort();
    setRun(Run::Ends);
}

void WRamDebug::ramDebugThreadReady()
{
    const bool isOfAnEarlierRun = m_thread->isRunning() && !m_thread->shared().isOver;
    if (isOfAnEarlierRun)
        return;
    if (m_run == Run::BeginsAgain) {
        beginRun();
        return;
    }
    setRun(Run::None);
    showMeasuring(false);
}

void WRamDebug::beginRun()
{
    setRun(Run::Goes);
    m_thread->start(QThread::InheritPriority);
}

void WRamDebug::setRun(Run run)
{
    m_run = run;
    update();
}

void WRamDebug::forwardDoDirectRequest(Command* request, Command* reply)
{
    RamDebugThread::Shared& shared = m_thread->shared(); // the thread waits for the end of this
    if (shared.isAborted || !hasHost())
        return; // not taken, so it was not sent
    shared.take();
    shared.answer = Command();
    const QPointer<WRamDebug> self(this);
    ++m_forwarding;
    ask(request, &shared.answer);
    *reply = shared.answer;
    shared.giveBack();
    if (self)
        --m_forwarding;
}

bool WRamDebug::hasHost() const
{
    return !signalsBlocked() && receivers(SIGNAL(doDirectRequest(Command*, Command*))) > 0;
}

void WRamDebug::ask(Command* request, Command* reply)
{
    if (!hasHost()) {
        delete request;
        return;
    }
    const QPointer<WRamDebug> self(this);
    ++m_asking;
    emit doDirectRequest(request, reply);
    if (self)
        --m_asking;
}

void WRamDebug::on_btnSave_clicked()
{
    QList<QList<double>> columns;
    QStringList labels;
    CsvLine header;
    header.add(QStringLiteral("time tick")); // read by programs: in no language
    int rows = 0;
    for (Chart* chart : qAsConst(*m_ui->drawer->getCharts())) {
        labels << chart->getLabel();
        columns << chart->getValues();
        rows = qMax(rows, columns.last().size());
        qCDebug(axrRamDebug) << AXR_METHOD.constData() << "Name: " << labels.last()
                             << "Value_Size:" << columns.last().size();
        header.add(labels.last());
    }
    qCDebug(axrRamDebug) << AXR_METHOD.constData() << "MaxDataLength: " << rows;
    QByteArray lines = header.bytes();
    for (int row = 0; row < rows; ++row) {
        CsvLine line;
        line.add(row);
        for (const QList<double>& values : qAsConst(columns)) {
            if (row < values.size())
                line.add(values.at(row));
            else
                line.skip(1);
        }
        lines += line.bytes();
    }
    Csv::save(QFileDialog::getSaveFileName(nullptr, tr("Save"),
                                           Csv::proposedName(QDateTime::currentDateTime(), labels),
                                           tr("csv (*.csv)")),
              lines);
}
