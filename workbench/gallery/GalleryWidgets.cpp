#include "GalleryWidgets.h"

#include "CANConnection.h"
#include "Chart.h"
#include "ChartSelector.h"
#include "ColorDialog.h"
#include "ColorPicker.h"
#include "ColorTriangle.h"
#include "ColorViewer.h"
#include "Connection.h"
#include "CurrentControl.h"
#include "DrawerArea.h"
#include "EthernetConnection.h"
#include "FunctionData.h"
#include "Graph.h"
#include "GraphController.h"
#include "GraphSelector.h"
#include "HTMLDelegate.h"
#include "Instruction.h"
#include "MarkersPage.h"
#include "PositionControl.h"
#include "SerialConnection.h"
#include "SimpleDrawer.h"
#include "SimpleScaledDrawer.h"
#include "SimpleScaledGraphController.h"
#include "SpinBox.h"
#include "SpinBoxDelegate.h"
#include "TraceCommand.h"
#include "TraceController.h"
#include "ValueOverTimeGraph.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"
#include "WDirectMode.h"
#include "WRamDebug.h"
#include "WTraceController.h"
#include "ZigBeeNode.h"

#include <QTableWidget>

#include <cmath>
#include <memory>
#include <vector>

namespace
{

constexpr int Samples = 200;
constexpr int SampleTime = 50; // ms

/// Deletes what the widget shows but does not own, after the widget.
template <class T>
class Keeper : public QObject
{
public:
    std::vector<std::unique_ptr<T>> things;
};

template <class T>
Keeper<T>* keeperOf(QWidget* widget)
{
    auto* keeper = new Keeper<T>;
    QObject::connect(widget, &QObject::destroyed, keeper, [keeper] { delete keeper; });
    return keeper;
}

double sample(int curve, int index) { return 100 * (curve + 1) * std::sin(0.05 * index + curve); }

constexpr struct {
    const char* name;
    Qt::GlobalColor color;
} curves[] = {{"Target velocity", Qt::red}, {"Actual velocity", Qt::blue}, {"Load", Qt::darkGreen}};

template <class W>
QWidget* plain()
{
    return new W(static_cast<QWidget*>(nullptr));
}

QWidget* velocityControl()
{
    auto* panel = new VelocityControl;
    panel->setActualVelocityCommandAndRange(3, -4000, 4000);
    panel->setTargetVelocityRange(0, 4000);
    return panel;
}

QWidget* positionControl()
{
    auto* panel = new PositionControl;
    panel->setActualPositionCommandAndRange(1, -2000000, 2000000);
    panel->setTargetPositionCommandAndRange(0, -2000000, 2000000);
    panel->setClearOnNullCommand(99);
    return panel;
}

QWidget* currentControl()
{
    auto* panel = new CurrentControl;
    panel->setActualCurrentCommandAndRange(toByte(150), -5000, 5000);
    panel->setTargetCurrentCommandAndRange(toByte(155), 0, 5000);
    return panel;
}

QWidget* velocityRampControl()
{
    auto* panel = new VelocityRampControl;
    panel->setMaxVelocityCommandAndRange(4, 0, 4000);
    panel->setAccelerationCommandAndRange(11, 0, 100000);
    panel->setEnableRampCommand(toByte(146));
    return panel;
}

QWidget* spinBox()
{
    auto* box = new SpinBox;
    box->setRange(-100000, 100000);
    box->setValue(12345);
    return box;
}

template <class C>
QWidget* deviceConnection()
{
    auto* panel = new C;
    panel->addDevice(QStringLiteral("port1"), QStringLiteral("Motor module"));
    return panel;
}

QWidget* canConnection()
{
    auto* panel = new CANConnection;
    panel->addBitrate(250);
    panel->addBitrate(1000);
    return panel;
}

template <class D>
QWidget* drawer()
{
    auto* drawer = new D(static_cast<QWidget*>(nullptr));
    auto* keeper = keeperOf<Chart>(drawer);
    drawer->setChartSize(Samples);
    drawer->setYAxisCaption(QStringLiteral("Velocity [rpm]"));
    int number = 0;
    for (const auto& curve : curves) {
        auto chart =
            std::make_unique<Chart>(char(1), char(0), toByte(Instruction::GAP), toByte(number),
                                    QString::fromLatin1(curve.name), curve.color);
        drawer->addChart(chart.get());
        for (int i = 0; i < Samples; ++i)
            chart->addValue(sample(number, i));
        keeper->things.push_back(std::move(chart));
        ++number;
    }
    drawer->resize(640, 320);
    return drawer;
}

QWidget* valueOverTimeGraph()
{
    auto* graph = new ValueOverTimeGraph;
    graph->setYAxisCaption(QStringLiteral("Velocity [rpm]"));
    graph->resize(640, 320);
    int number = 0;
    for (const auto& curve : curves)
        graph->addGraph(new Graph(char(1), char(0), toByte(Instruction::GAP), toByte(number++),
                                  QString::fromLatin1(curve.name), curve.color));
    graph->startDrawing();
    return graph;
}

/// Some seconds of curves, at once.
void drawCurves(QWidget* widget)
{
    auto* graph = static_cast<ValueOverTimeGraph*>(widget);
    const auto now = std::make_shared<qint64>(QDateTime::currentMSecsSinceEpoch());
    graph->setClock([now] { return *now; });
    const QList<Graph*> lines = graph->getGraphs();
    for (int i = 0; i < Samples; ++i, *now += SampleTime) {
        for (int line = 0; line < lines.size(); ++line)
            lines.at(line)->addValue(sample(line, i), *now);
        graph->updateScene(*now);
    }
    graph->grab(); // curves follow the axis as it was painted last
    graph->updateScene(*now);
}

/// A selection dialog of the widget that it is opened for, which it takes along.
template <class Dialog, class W>
QWidget* selector(W* owner)
{
    auto* keeper = keeperOf<TraceCommand>(owner);
    auto* commands = new QList<TraceCommand*>;
    QObject::connect(keeper, &QObject::destroyed, keeper, [commands] { delete commands; });
    for (const auto& curve : curves) {
        auto command = std::make_unique<TraceCommand>(char(1), toByte(Instruction::GAP),
                                                      toByte(commands->size()), char(0),
                                                      QString::fromLatin1(curve.name));
        commands->append(command.get());
        keeper->things.push_back(std::move(command));
    }
    auto* dialog = new Dialog(nullptr, owner, commands);
    QObject::connect(dialog, &QObject::destroyed, owner, [owner] { delete owner; });
    return dialog;
}

QWidget* graphSelector() { return selector<GraphSelector>(new ValueOverTimeGraph); }
QWidget* chartSelector() { return selector<ChartSelector>(new DrawerArea(nullptr)); }

QWidget* colorPicker()
{
    auto* picker = new ColorPicker;
    picker->setStandardColors();
    picker->setCurrentColor(Qt::darkCyan);
    return picker;
}

QWidget* colorDialog() { return new ColorDialog(Qt::darkCyan); }

QWidget* colorTriangle()
{
    auto* triangle = new ColorTriangle;
    triangle->setColor(Qt::darkCyan);
    triangle->resize(200, 200);
    return triangle;
}

QWidget* colorViewer()
{
    auto* viewer = new ColorViewer;
    viewer->changeColor(Qt::darkCyan);
    viewer->resize(120, 40);
    return viewer;
}

QWidget* delegates()
{
    auto* table = new QTableWidget(3, 2);
    table->setHorizontalHeaderLabels(
        {QStringLiteral("HTMLDelegate"), QStringLiteral("SpinBoxDelegate")});
    table->setItemDelegateForColumn(0, new HTMLDelegate(table));
    table->setItemDelegateForColumn(1, new SpinBoxDelegate(0, 100, table));
    const char* const texts[] = {"<b>bold</b>", "plain", "<i>x</i><sub>2</sub>"};
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setItem(row, 0, new QTableWidgetItem(QString::fromLatin1(texts[row])));
        table->setItem(row, 1, new QTableWidgetItem(QString::number(10 * row)));
    }
    table->openPersistentEditor(table->item(1, 1));
    table->resize(320, 160);
    return table;
}

QWidget* markers() { return new MarkersPage; }

} // namespace

QList<QColor> galleryColours()
{
    QList<QColor> colours;
    for (const auto& curve : curves)
        colours << QColor(curve.color);
    return colours;
}

const QList<GalleryWidget>& galleryWidgets()
{
    static const QList<GalleryWidget> widgets = {
        {"SpinBox", spinBox},
        {"VelocityControl", velocityControl},
        {"PositionControl", positionControl},
        {"CurrentControl", currentControl},
        {"VelocityRampControl", velocityRampControl},
        {"Connection", deviceConnection<Connection>},
        {"SerialConnection", deviceConnection<SerialConnection>},
        {"CANConnection", canConnection},
        {"EthernetConnection", plain<EthernetConnection>},
        {"ZigBeeNode", [] { return static_cast<QWidget*>(new ZigBeeNode); }},
        {"WDirectMode", plain<WDirectMode>},
        {"TraceController", plain<TraceController>},
        {"WTraceController", plain<WTraceController>},
        {"ValueOverTimeGraph", valueOverTimeGraph, drawCurves, true},
        {"GraphController", plain<GraphController>},
        {"GraphSelector", graphSelector},
        {"DrawerArea", drawer<DrawerArea>, nullptr, true},
        {"SimpleDrawer", drawer<SimpleDrawer>, nullptr, true},
        {"SimpleScaledDrawer", drawer<SimpleScaledDrawer>, nullptr, true},
        {"SimpleScaledGraphController", plain<SimpleScaledGraphController>},
        {"ChartSelector", chartSelector},
        {"WRamDebug", plain<WRamDebug>},
        {"FunctionData, MarkerItem, NoteItem", markers},
        {"ColorPicker", colorPicker},
        {"ColorDialog", colorDialog},
        {"ColorTriangle", colorTriangle},
        {"ColorViewer", colorViewer},
        {"HTMLDelegate, SpinBoxDelegate", delegates},
    };
    return widgets;
}
