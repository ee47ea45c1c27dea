#include "GraphPage.h"

#include "AppSettings.h"
#include "Bytes.h"
#include "Command.h"
#include "DelayFloor.h"
#include "Graph.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "PanelParts.h"
#include "ParameterCatalogue.h"
#include "ValueKey.h"
#include "ValueOverTimeGraph.h"
#include "WTraceController.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>

#include <algorithm>

namespace Number = AxisParameterNumber;

namespace
{

const QString settingsKey = QStringLiteral("Workbench/Graph");
constexpr int RowDigits = 4; // in front of a stored curve's name
constexpr int UserVariableBank = 2;
constexpr int DigitalBank = 0;
constexpr int AnalogBank = 1;

struct DefaultCurve {
    int axis;
    quint8 number;
    const char* color;
};
constexpr DefaultCurve defaultCurves[] = {{0, Number::ActualVelocity, "blue"},
                                          {0, Number::RampVelocity, "darkorange"},
                                          {1, Number::ActualVelocity, "green"},
                                          {0, Number::ActualCurrent, "red"}};

QString caption(int axis, const ParameterInfo& parameter)
{
    const QString unit = QString::fromUtf8(parameter.unit);
    return QStringLiteral("%1 %2%3").arg(axis).arg(
        QString::fromUtf8(parameter.name),
        unit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(unit));
}

} // namespace

GraphPage::GraphPage(const PageContext& context)
    : m_link(context.link)
    , m_graph(new ValueOverTimeGraph(nullptr))
    , m_controller(new WTraceController)
    , m_delay(new DelayFloor(m_controller))
    , m_rate(new QLabel)
{
    m_rate->setObjectName(QStringLiteral("lblPolled"));
    auto* row = new QHBoxLayout;
    row->addWidget(m_controller);
    row->addWidget(m_rate);
    auto* hint = new QLabel(tr("Right click: select values, look. Arrow at the edge: scale, save, "
                               "log.\nPause or run: Ctrl+Space. Forget samples: Ctrl+Del."));
    hint->setWordWrap(true);
    row->addWidget(hint, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(m_graph, 1);

    m_graph->setObjectName(QStringLiteral("graph"));
    m_graph->setWindowTitle(tr("Values of the module"));
    m_graph->setYAxisCaption(tr("device units"));
    m_graph->setChartSelectorEnabled(true);
    m_graph->setAppSettingKey(settingsKey);
    m_graph->setClock(context.clock);
    m_graph->startDrawing(); // its panel says so from the start

    const auto addKey = [this](const QKeySequence& key, const auto& action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    addKey(Qt::CTRL + Qt::Key_Space, [this] { PanelParts::pauseOrRun(*m_graph); });
    addKey(Qt::CTRL + Qt::Key_Delete, [this] { m_graph->clearValues(); });

    connect(m_graph, &ValueOverTimeGraph::graphSelectionChanged, this,
            &GraphPage::restoreSelection);
    connect(m_controller, &WTraceController::requestTraceCommand, this, &GraphPage::request);
    setAddress(m_address);
}

void GraphPage::setAddress(char address)
{
    m_address = address;
    offerParameters(address);
    restoreSelection();
}

void GraphPage::offerParameters(char address)
{
    m_graph->clearTraceableParameter();
    m_offered.clear();
    const auto offer = [this, address](Instruction instruction, int type, int bank,
                                       const QString& name) {
        m_offered.emplace_back(address, toByte(instruction), toByte(type), toByte(bank), name);
    };
    for (int axis = 0; axis < m_link.profile().axes; ++axis) {
        for (const ParameterInfo& parameter : m_link.profile().axisParameters)
            offer(Instruction::GAP, parameter.number, axis, caption(axis, parameter));
    }
    for (const ParameterInfo& variable : UserVariables)
        offer(Instruction::GGP, variable.number, UserVariableBank,
              QString::fromUtf8(variable.name));
    for (int port = 0; port < m_link.profile().digitalInputs; ++port)
        offer(Instruction::GIO, port, DigitalBank, tr("Digital input %1").arg(port));
    for (int port = 0; port < m_link.profile().analogInputs; ++port)
        offer(Instruction::GIO, port, AnalogBank, tr("Analog input %1").arg(port));
    QList<TraceCommand*> offered;
    for (TraceCommand& command : m_offered)
        offered << &command;
    m_graph->addTraceableParameters(&offered);
}

/// After a start, after the user's choice, which is stored by then, and after "Default", which
/// stores an empty one.
void GraphPage::restoreSelection()
{
    const auto stored = AppSettings().getParaMapVariant(settingsKey);
    const bool isShown =
        m_graph->getGraphs().size() == stored.size() && !stored.isEmpty() && sender() == m_graph;
    if (!isShown) {
        m_graph->removeAllGraphs();
        for (auto curve = stored.begin(); curve != stored.end(); ++curve) {
            const QByteArray value = curve.value().value(QStringLiteral("ba")).toByteArray();
            if (value.size() != 4)
                continue;
            m_graph->addGraph(
                new Graph(m_address, value[1], value[2], value[3], curve.key().mid(RowDigits),
                          curve.value().value(QStringLiteral("col")).value<QColor>()));
        }
        if (m_graph->getGraphs().isEmpty())
            showDefaultCurves();
        m_graph->clearValues(); // builds the scene
    }
    pollCurves();
}

void GraphPage::showDefaultCurves()
{
    for (const DefaultCurve& curve : defaultCurves)
        m_graph->addGraph(new Graph(
            m_address, toByte(curve.axis), toByte(Instruction::GAP), toByte(curve.number),
            caption(curve.axis, axisParameter(curve.number)), QColor(QLatin1String(curve.color))));
}

void GraphPage::pollCurves()
{
    m_controller->clearTraceCommands();
    m_polled.clear();
    const QList<Graph*> graphs = m_graph->getGraphs();
    for (const Graph* graph : graphs)
        m_polled.emplace_back(graph->getAddress(), graph->getCommand(), graph->getType(),
                              graph->getMotorBank(), graph->getLabel());
    for (TraceCommand& command : m_polled)
        m_controller->appendTraceCommand(&command);
}

void GraphPage::refresh() { m_controller->setActive(true); }

void GraphPage::request(const TraceCommand* wanted)
{
    // Equal reads wait once only: a slow module is asked for all in turn, and no more waits than
    // there are curves.
    if (m_link.isOpen())
        emit read(Command(wanted->getAddress(), wanted->getCommand(), wanted->getType(),
                          wanted->getMotorBank(), 0));
}

void GraphPage::take(const Command& reply)
{
    if (u8(reply.getStatus()) != StatusOk)
        return;
    Command shown = reply;
    m_graph->IN_replyValue(&shown);
    m_answers += std::any_of(m_polled.begin(), m_polled.end(), [&reply](const TraceCommand& each) {
        return isSameValue(reply, each);
    });
}

void GraphPage::frame(qint64 now)
{
    m_delay->follow(m_link.answerTime());
    const int milliseconds = m_second.passed(now);
    if (milliseconds == 0)
        return;
    const int curves = static_cast<int>(m_polled.size());
    const double rate = m_answers * 1000.0 / milliseconds;
    m_rate->setText(
        tr("%1 values, each %2 times a second").arg(curves).arg(rate / qMax(1, curves), 0, 'f', 1));
    m_answers = 0;
}
