#include "Tour.h"

#include "CANConnection.h"
#include "ColorDialog.h"
#include "ColorPicker.h"
#include "ColorTriangle.h"
#include "Connection.h"
#include "CurrentControl.h"
#include "EthernetConnection.h"
#include "GraphPage.h"
#include "Instruction.h"
#include "MarkerItem.h"
#include "ParameterTable.h"
#include "ParametersPage.h"
#include "PollingPage.h"
#include "PositionControl.h"
#include "ScreenPicture.h"
#include "SerialConnection.h"
#include "ShaftView.h"
#include "SpinBox.h"
#include "TourInput.h"
#include "TraceCommand.h"
#include "TraceController.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"
#include "WDirectMode.h"
#include "WTraceController.h"
#include "Workbench.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QTextStream>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace TourInput;
namespace Number = AxisParameterNumber;

namespace
{

constexpr double Velocity = 500.0;
constexpr int PollDelay = 5;     // ms between two ticks
constexpr int TickWithin = 1000; // ms of real time
constexpr int PictureTime = 300; // ms of real time that a page is seen before its picture
constexpr int MotionTime = 200;  // ms of real time between two pictures of what lives

QString panelName(const char* panel, int axis)
{
    return QStringLiteral("%1%2").arg(panel).arg(axis);
}

QTableView* parameterTable(const Workbench& bench)
{
    return bench.findChild<ParametersPage*>()->findChild<QTableView*>();
}

} // namespace

Tour::Tour(Workbench& bench, const QString& folder) : m_bench(bench), m_folder(folder) {}

bool Tour::run()
{
    QTextStream out(stdout);
    if (!QDir().mkpath(m_folder)) {
        QTextStream(stderr) << "axrworkbench: cannot make the folder \"" << m_folder << "\""
                            << Qt::endl;
        return false;
    }
    m_bench.show();
    connectByEachPanel();
    click(find<QPushButton>(QStringLiteral("btnStop"), m_bench.findChild<GraphPage*>()));
    setRamp();
    turnAndStop();
    jog();
    move();
    turnByCurrent();
    sendRawInstructions();
    stopByKey();
    editParameter();
    pollValues();
    watchCurves();
    capture();
    editRegisters();
    pickColours();
    moveMarkers();
    turnRamp();
    changeLook();
    surviveSilence();
    disconnect();

    const bool written = writeReport();
    out << m_lines.join(QLatin1Char('\n')) << '\n'
        << m_lines.size() - m_failures << " passed, " << m_failures << " failed" << Qt::endl;
    return written && m_failures == 0;
}

void Tour::settle(Workbench& bench)
{
    click(bench.findChild<Connection*>()->findChild<QPushButton*>(QStringLiteral("btnConnect")));
    for (int i = 0; i < 1000 / Step; ++i) {
        bench.advance(Step);
        QApplication::processEvents();
    }
}

void Tour::connectByEachPanel()
{
    struct Entry {
        const char* name;
        QWidget* panel;
    };
    const Entry entries[] = {{"USB", m_bench.findChild<Connection*>()},
                             {"serial", m_bench.findChild<SerialConnection*>()},
                             {"CAN", m_bench.findChild<CANConnection*>()},
                             {"Ethernet", m_bench.findChild<EthernetConnection*>()}};
    m_bench.showPage(QStringLiteral("connection"));
    for (const Entry& entry : entries) {
        const QString name = QString::fromLatin1(entry.name);
        const int before = m_bench.link().answers();
        click(find<QPushButton>(QStringLiteral("btnConnect"), entry.panel));
        expectNumber(
            QStringLiteral("connect by the %1 panel: the module answers").arg(name),
            [&] { return m_bench.link().answers() > before ? 1 : 0; }, 1, 0, Settle);
        if (&entry == &entries[0])
            photograph(QStringLiteral("connection"));
        click(find<QPushButton>(QStringLiteral("btnDisconnect"), entry.panel));
        expectText(
            QStringLiteral("disconnect by the %1 panel").arg(name),
            [&] { return m_bench.linkText(); }, QStringLiteral("Not connected"), Settle);
    }
    auto* ethernet = m_bench.findChild<EthernetConnection*>();
    auto* port = find<QSpinBox>(QStringLiteral("sbPort"), ethernet);
    port->setValue(1501);
    click(find<QPushButton>(QStringLiteral("btnConnect"), ethernet));
    check(QStringLiteral("connect to a port where no module is"),
          QStringLiteral("refused, Connect is offered again"), m_bench.linkText(),
          !m_bench.link().isOpen() &&
              find<QPushButton>(QStringLiteral("btnConnect"), ethernet)->isEnabled());
    port->setValue(1500);
    click(find<QPushButton>(QStringLiteral("btnConnect"), m_bench.findChild<Connection*>()));
    expectText(
        QStringLiteral("connect by the USB panel again"), [&] { return m_bench.linkText(); },
        QStringLiteral("Connected: SIM1"), Settle);
}

void Tour::setRamp()
{
    m_bench.showPage(QStringLiteral("motion"));
    pass(Settle);
    const auto* ramp = find<VelocityRampControl>(panelName("VelocityRampControl", 0));
    const struct {
        const char* box;
        quint8 number;
        int value;
    } settings[] = {{"sbMaxVelocity", Number::MaxVelocity, 2000},
                    {"sbAcceleration", Number::Acceleration, 4000}};
    for (const auto& setting : settings) {
        auto* box = find<SpinBox>(QString::fromLatin1(setting.box), ramp);
        expectNumber(
            QStringLiteral("%1 shows the module's value").arg(QString::fromLatin1(setting.box)),
            [&] { return box->value(); }, m_bench.simulator().module().axis(0).read(setting.number),
            0, Settle);
        type(box, QString::number(setting.value));
        expectNumber(
            QStringLiteral("type %1 and Return: the module's parameter").arg(setting.value),
            [&] { return m_bench.simulator().module().axis(0).read(setting.number); },
            setting.value, 0, Settle);
    }
}

void Tour::turnAndStop()
{
    const auto* panel = find<VelocityControl>(panelName("VelocityControl", 0));
    const auto* shown = find<QSpinBox>(QStringLiteral("sbActualVelocity"), panel);
    const SimulatedModule& module = m_bench.simulator().module();
    find<QSpinBox>(QStringLiteral("sbTargetVelocity"), panel)->setValue(qRound(Velocity));
    click(find<QPushButton>(QStringLiteral("btnRight"), panel));
    expectNumber(
        QStringLiteral("turn right: shown actual velocity [rpm]"), [&] { return shown->value(); },
        Velocity, 1, 2000);
    expectNumber(
        QStringLiteral("turn right: the simulated axis [rpm]"),
        [&] { return module.axis(0).velocity(); }, Velocity, 1, 0);
    expectMotion(m_bench.findChild<ShaftView*>(), QStringLiteral("the shaft of axis 0 turns"));
    photograph(QStringLiteral("motion"));
    click(find<QPushButton>(QStringLiteral("btnStop"), panel));
    expectNumber(
        QStringLiteral("stop: shown actual velocity [rpm]"), [&] { return shown->value(); }, 0, 0,
        2000);
    expectNumber(
        QStringLiteral("stop: the simulated axis [rpm]"), [&] { return module.axis(0).velocity(); },
        0, 0.01, 2000);
}

void Tour::jog()
{
    const auto* panel = find<VelocityControl>(panelName("VelocityControl", 0));
    const auto* shown = find<QSpinBox>(QStringLiteral("sbActualVelocity"), panel);
    auto* button = find<QPushButton>(QStringLiteral("btnJogLeft"), panel);
    mouse(button, QEvent::MouseButtonPress);
    expectNumber(
        QStringLiteral("hold jog left: shown actual velocity [rpm]"),
        [&] { return shown->value(); }, -Velocity, 1, 2000);
    mouse(button, QEvent::MouseButtonRelease);
    expectNumber(
        QStringLiteral("release it: shown actual velocity [rpm]"), [&] { return shown->value(); },
        0, 0, 2000);
}

void Tour::move()
{
    const auto* panel = find<PositionControl>(panelName("PositionControl", 0));
    const auto* shown = find<QSpinBox>(QStringLiteral("sbActualPosition"), panel);
    auto* target = find<QSpinBox>(QStringLiteral("sbTargetPosition"), panel);
    auto* relativeTo = find<QComboBox>(QStringLiteral("cmbRelativeTo"), panel);
    const SimulatedModule& module = m_bench.simulator().module();
    const auto expectPosition = [&](const QString& done, int position) {
        expectNumber(
            done + QStringLiteral(": shown position"), [&] { return shown->value(); }, position, 0,
            20000);
        expectNumber(
            done + QStringLiteral(": simulated position"),
            [&] { return module.axis(0).read(Number::ActualPosition); }, position, 0, 0);
    };
    click(find<QPushButton>(QStringLiteral("btnClear"), panel));
    expectPosition(QStringLiteral("clear"), 0);
    target->setValue(20000);
    click(find<QPushButton>(QStringLiteral("btnMoveAbsolute"), panel));
    expectPosition(QStringLiteral("move absolute to 20000"), 20000);
    target->setValue(-5000);
    click(find<QPushButton>(QStringLiteral("btnMoveRelative"), panel));
    expectPosition(QStringLiteral("move by -5000 from the actual position"), 15000);
    relativeTo->setCurrentIndex(1);
    target->setValue(1000);
    click(find<QPushButton>(QStringLiteral("btnMoveRelative"), panel));
    click(find<QPushButton>(QStringLiteral("btnMoveRelative"), panel));
    expectPosition(QStringLiteral("twice by 1000 from the target position"), 17000);
}

void Tour::turnByCurrent()
{
    const auto* panel = find<CurrentControl>(panelName("CurrentControl", 1));
    const auto* velocity = find<QSpinBox>(QStringLiteral("sbActualVelocity"),
                                          find<VelocityControl>(panelName("VelocityControl", 1)));
    find<QSpinBox>(QStringLiteral("sbTargetCurrent"), panel)->setValue(400);
    click(find<QPushButton>(QStringLiteral("btnLeft"), panel));
    const bool turns = wait(3000, [&] { return velocity->value() < -50; });
    check(QStringLiteral("axis 1, -400 mA: it turns left"),
          QStringLiteral("actual velocity below -50 rpm"), QString::number(velocity->value()),
          turns);
    expectNumber(
        QStringLiteral("axis 1: shown actual current [mA]"),
        [&] { return find<QSpinBox>(QStringLiteral("sbActualCurrent"), panel)->value(); }, -400, 5,
        1000);
    click(find<QPushButton>(QStringLiteral("btnStop"),
                            find<VelocityControl>(panelName("VelocityControl", 1))));
    expectNumber(
        QStringLiteral("axis 1, stop: shown actual velocity [rpm]"),
        [&] { return velocity->value(); }, 0, 0, 5000);
}

void Tour::sendRawInstructions()
{
    m_bench.showPage(QStringLiteral("console"));
    const auto* console = m_bench.findChild<WDirectMode*>();
    const auto reply = [&] {
        QStringList fields;
        for (const char* name :
             {"sbReplyCommand", "sbReplyType", "sbReplyMotorBank", "sbReplyValue"})
            fields << QString::number(find<QSpinBox>(QString::fromLatin1(name), console)->value());
        return fields.join(QLatin1Char(' '));
    };
    const struct {
        const char* done;
        Instruction instruction;
        int type;
        int value;
        QString expected; // command, status, bank, value
    } requests[] = {
        {"GAP actual position", Instruction::GAP, Number::ActualPosition, 0,
         QStringLiteral("6 100 0 17000")},
        {"SAP acceleration", Instruction::SAP, Number::Acceleration, 3000,
         QStringLiteral("5 100 0 3000")},
        {"SAP out of range", Instruction::SAP, Number::Acceleration, -1,
         QStringLiteral("5 %1 0 -1").arg(int(ReplyStatus::OutOfRange))},
        {"an instruction that the module lacks", Instruction::CALCX, 0, 0,
         QStringLiteral("33 %1 0 0").arg(int(ReplyStatus::UnknownInstruction))},
    };
    auto* command = find<QComboBox>(QStringLiteral("cbCommand"), console);
    for (const auto& request : requests) {
        command->setCurrentIndex(command->findData(static_cast<int>(request.instruction)));
        find<QSpinBox>(QStringLiteral("sbRequestType"), console)->setValue(request.type);
        find<QSpinBox>(QStringLiteral("sbRequestValue"), console)->setValue(request.value);
        click(find<QPushButton>(QStringLiteral("btnSend"), console));
        expectText(QStringLiteral("console, %1: reply command, status, bank, value")
                       .arg(QString::fromLatin1(request.done)),
                   reply, request.expected, Settle);
    }
    photograph(QStringLiteral("console"));
}

void Tour::stopByKey()
{
    m_bench.showPage(QStringLiteral("motion"));
    const SimulatedModule& module = m_bench.simulator().module();
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis) {
        const auto* panel = find<VelocityControl>(panelName("VelocityControl", axis));
        find<QSpinBox>(QStringLiteral("sbTargetVelocity"), panel)->setValue(qRound(Velocity));
        click(find<QPushButton>(QStringLiteral("btnRight"), panel));
    }
    const bool turning = wait(
        3000, [&] { return module.axis(0).velocity() > 400 && module.axis(1).velocity() > 400; });
    check(QStringLiteral("turn both axes right"), QStringLiteral("above 400 rpm"),
          QStringLiteral("%1 and %2 rpm")
              .arg(module.axis(0).velocity())
              .arg(module.axis(1).velocity()),
          turning);
    m_bench.showPage(QStringLiteral("parameters"));
    press(parameterTable(m_bench), Qt::Key_F12);
    const bool stopped = wait(5000, [&] {
        return std::abs(module.axis(0).velocity()) + std::abs(module.axis(1).velocity()) < 0.01;
    });
    check(QStringLiteral("F12 on another page"), QStringLiteral("both axes stand"),
          QStringLiteral("%1 and %2 rpm")
              .arg(module.axis(0).velocity())
              .arg(module.axis(1).velocity()),
          stopped && !m_bench.link().isStopping());
}

void Tour::editParameter()
{
    m_bench.showPage(QStringLiteral("parameters"));
    int row = 0;
    for (const ParameterInfo& parameter : axisParameters()) {
        if (parameter.number == Number::Acceleration)
            break;
        ++row;
    }
    parameterTable(m_bench)->selectRow(row);
    pass(Settle);
    auto* box = find<SpinBox>(QStringLiteral("sbParameter"));
    type(box, QStringLiteral("3500"));
    expectNumber(
        QStringLiteral("parameters page, acceleration 3500 and Return: the module's value"),
        [&] { return m_bench.simulator().module().axis(0).read(Number::Acceleration); }, 3500, 0,
        Settle);
    pass(1000);
    photograph(QStringLiteral("parameters"));
}

void Tour::pollValues()
{
    struct Row {
        const char* name;
        quint8 number;
        double tolerance; // while the axis turns
    };
    const SimulatedModule& module = m_bench.simulator().module();
    const double reaction = 2.0 * 4 * PollDelay / 60000.0; // min, two rounds of four values
    const double stepsPerTurn = module.axis(0).read(Number::EncoderSteps);
    const Row rows[] = {
        {"Actual position", Number::ActualPosition, Velocity * stepsPerTurn * reaction},
        {"Actual velocity", Number::ActualVelocity, 1},
        {"Temperature", Number::Temperature, 1},
        {"Actual current", Number::ActualCurrent, 5}};
    constexpr int ReadingColumn = 2;
    constexpr int RateColumn = 4;
    const auto* table = find<QTableWidget>(QStringLiteral("twPolled"));
    const auto number = [table](int row, int column) {
        return table->item(row, column)->text().toDouble();
    };
    const auto* panel = find<VelocityControl>(panelName("VelocityControl", 0));
    const auto* page = m_bench.findChild<PollingPage*>();
    const QList<const QWidget*> controllers = {page->findChild<WTraceController*>(),
                                               page->findChild<TraceController*>()};

    m_bench.showPage(QStringLiteral("motion"));
    click(find<QPushButton>(QStringLiteral("btnRight"), panel));
    m_bench.showPage(QStringLiteral("polling"));
    for (const QWidget* controller : controllers)
        click(find<QPushButton>(QStringLiteral("btnStart"), controller));
    const bool ticked =
        passTicks(2000 / Step, controllers); // the last whole second of them is counted
    QStringList rates;
    bool steady = ticked;
    for (int row = 0; row < table->rowCount(); ++row) {
        rates << table->item(row, RateColumn)->text();
        steady = steady && std::abs(number(row, RateColumn) - 1000.0 / (4 * PollDelay)) <= 2;
    }
    check(QStringLiteral("poll four values of each axis every 5 ms: answers per second"),
          QStringLiteral("50 +-2 each"), rates.join(QLatin1Char(' ')), steady);
    int row = 0;
    for (const Row& value : rows) {
        expectNumber(
            QStringLiteral("axis 0 turns, polled: %1").arg(QString::fromLatin1(value.name)),
            [&] { return number(row, ReadingColumn); }, module.axis(0).read(value.number),
            value.tolerance, 0);
        ++row;
    }
    photograph(QStringLiteral("polling"));

    m_bench.showPage(QStringLiteral("motion"));
    click(find<QPushButton>(QStringLiteral("btnStop"), panel));
    wait(2000, [&] { return std::abs(module.axis(0).velocity()) < 0.01; });
    m_bench.showPage(QStringLiteral("polling"));
    passTicks(2 * 4, controllers);
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis)
        expectNumber(
            QStringLiteral("axis %1 stands, polled: Actual position").arg(axis),
            [&] { return number(4 * axis, ReadingColumn); },
            module.axis(axis).read(Number::ActualPosition), 0, 0);
    for (const QWidget* controller : controllers)
        click(find<QPushButton>(QStringLiteral("btnStop"), controller));
    pass(Settle);
    const int before = m_bench.link().answers();
    pass(1000);
    const int answers = m_bench.link().answers() - before;
    check(QStringLiteral("stop polling"),
          QStringLiteral("at most 5 answers in a second, to the link's own question"),
          QStringLiteral("%1 answers").arg(answers), answers <= 5);
}

void Tour::pickColours()
{
    m_bench.showPage(QStringLiteral("colours"));
    QApplication::processEvents();
    auto* picker = find<ColorPicker>(QStringLiteral("btnCustomColor"));
    auto* grid = picker->findChild<QDialog*>();
    const auto emitted = [&] { return find<QLabel>(QStringLiteral("lblEmitted"))->text(); };
    const auto cell = [&](const QString& name) {
        const QList<QFrame*> cells = grid->findChildren<QFrame*>();
        for (QFrame* each : cells) {
            if (each->toolTip() == name)
                return each;
        }
        qFatal("the grid has no colour %s", qPrintable(name));
    };
    // Without a window manager the display complains when a window gets the focus before it shows.
    const auto isShown = [this](const QWidget* window) {
        return wait(1000, [window] { return window->windowHandle()->isExposed(); });
    };
    click(picker);
    isShown(grid);
    photographWidget(grid, QStringLiteral("grid of colours"), QStringLiteral("colour-grid"));
    click(cell(QStringLiteral("Tomato")));
    expectText(QStringLiteral("pick \"Tomato\" in the grid: what the picker tells"), emitted,
               QStringLiteral("Tomato (#ff6347)"), 0);
    expectText(
        QStringLiteral("the button's own picture, at its centre"),
        [&] { return ScreenPicture::of(picker).pixelColor(picker->rect().center()).name(); },
        QStringLiteral("#ff6347"), 0);

    // The custom colours are the user's; so the dialog is looked at and refused.
    const int cells = picker->colorList().size();
    wait(1000, [grid] { return !grid->windowHandle()->isExposed(); });
    click(picker);
    isShown(grid);
    auto* more = cell(QString()); // the last cell alone is without a name
    QTimer::singleShot(0, &m_bench, [this, isShown] {
        auto* dialog = qobject_cast<ColorDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            qFatal("the grid's last cell opens no dialog");
        isShown(dialog);
        dialog->setColor(QColor(QStringLiteral("cornflowerblue")));
        photographWidget(dialog, QStringLiteral("colour dialog"), QStringLiteral("colour-dialog"));
        dialog->reject();
    });
    press(more, Qt::Key_Return);
    check(QStringLiteral("refuse the colour dialog"), QStringLiteral("no new cell, same colour"),
          emitted(),
          picker->colorList().size() == cells &&
              picker->currentColor() == QColor(0xff, 0x63, 0x47));

    auto* triangle = m_bench.findChild<ColorTriangle*>();
    triangle->setColor(QColor::fromHsv(200, 255, 255));
    press(triangle, Qt::Key_Right);
    check(QStringLiteral("the colour triangle, one step to the right"), QStringLiteral("hue 201"),
          QStringLiteral("hue %1").arg(triangle->color().hsvHue()),
          triangle->color().hsvHue() == 201);
    photograph(QStringLiteral("colours"));
}

void Tour::moveMarkers()
{
    m_bench.showPage(QStringLiteral("markers"));
    QApplication::processEvents();
    const auto* view = find<QGraphicsView>(QStringLiteral("gvMarkers"));
    const auto marker = [view](const QString& name) -> QGraphicsItem* {
        for (QGraphicsItem* item : view->items()) {
            if (item->type() == MarkerItem::Type && item->toGraphicsObject()->objectName() == name)
                return item;
        }
        qFatal("the plot has no marker %s", qPrintable(name));
    };
    const auto shown = [this](const char* label) {
        return find<QLabel>(QString::fromLatin1(label))->text();
    };
    const QGraphicsItem* time = marker(QStringLiteral("timeMarker"));
    const QGraphicsItem* velocity = marker(QStringLiteral("velocityMarker"));
    const QRectF plot = time->parentItem()->sceneBoundingRect();
    // One pixel of the view is about 2 ms. The ramp rises by 1 rpm in a millisecond.
    drag(view, QPointF(time->x(), plot.bottom() - 20), QPointF(plot.width() / 8, plot.top()));
    expectNumber(
        QStringLiteral("drag the time marker to an eighth of the plot: its x"),
        [&] { return time->x(); }, plot.width() / 8, 1, 0);
    expectNumber(
        QStringLiteral("... the time beside it [ms]"),
        [&] { return shown("lblTime").section(QLatin1Char(' '), 0, 0).toDouble(); }, 200, 3, 0);
    expectNumber(
        QStringLiteral("... the velocity there [rpm]"),
        [&] { return shown("lblTime").section(QLatin1Char(' '), -2, -2).toDouble(); }, 200, 3, 0);
    drag(view, QPointF(plot.right() - 20, velocity->y()), plot.topLeft() - QPointF(0, 40));
    expectText(
        QStringLiteral("drag the velocity marker beyond the top of the plot"),
        [&] { return shown("lblVelocity"); }, QStringLiteral("400 rpm"), 0);
    check(QStringLiteral("... it stays at the edge"), QStringLiteral("0, 0"),
          QStringLiteral("%1, %2").arg(velocity->x()).arg(velocity->y()),
          velocity->pos() == plot.topLeft());
    drag(view, QPointF(plot.right() - 20, velocity->y()),
         QPointF(plot.right() - 20, plot.center().y()));
    expectNumber(
        QStringLiteral("drag it to the middle of the plot [rpm]"),
        [&] { return shown("lblVelocity").section(QLatin1Char(' '), 0, 0).toDouble(); }, 200, 2, 0);
    photograph(QStringLiteral("markers"));
    mouse(view->viewport(), QEvent::MouseButtonPress, view->mapFromScene(plot.bottomRight()));
    mouse(view->viewport(), QEvent::MouseButtonRelease, view->mapFromScene(plot.bottomRight()));
    expectText(
        QStringLiteral("click the last note"), [&] { return shown("lblNote"); },
        QStringLiteral("The target is reached"), 0);
}

void Tour::surviveSilence()
{
    m_bench.showPage(QStringLiteral("motion"));
    m_bench.simulator().setSilent(true);
    const bool told =
        wait(3000, [&] { return m_bench.linkText().contains(QStringLiteral("has not answered")); });
    check(QStringLiteral("the module falls silent"), QStringLiteral("a sign says so"),
          m_bench.linkText(), told);
    const auto* panel = find<VelocityControl>(panelName("VelocityControl", 0));
    click(find<QPushButton>(QStringLiteral("btnRight"), panel));
    pass(2000);
    photograph(QStringLiteral("motion"), QStringLiteral("silent"));
    m_bench.simulator().setSilent(false);
    expectText(
        QStringLiteral("it comes back"), [&] { return m_bench.linkText(); },
        QStringLiteral("Connected: SIM1"), 3000);
    pass(2000);
    expectNumber(
        QStringLiteral("a turn asked for meanwhile is not made up for [rpm]"),
        [&] { return m_bench.simulator().module().axis(0).velocity(); }, 0, 0.01, 0);
}

void Tour::disconnect()
{
    m_bench.showPage(QStringLiteral("connection"));
    click(find<QPushButton>(QStringLiteral("btnDisconnect"), m_bench.findChild<Connection*>()));
    pass(Settle);
    expectText(
        QStringLiteral("disconnect"), [&] { return m_bench.linkText(); },
        QStringLiteral("Not connected"), Settle);
}

bool Tour::wait(int milliseconds, const std::function<bool()>& condition)
{
    for (int passed = 0;; passed += Step) {
        if (condition())
            return true;
        if (passed >= milliseconds)
            return false;
        m_bench.advance(Step);
        QApplication::processEvents();
    }
}

void Tour::pass(int milliseconds)
{
    wait(milliseconds, [] { return false; });
}

bool Tour::passTicks(int count, const QList<const QWidget*>& controllers)
{
    QVector<int> ticks(controllers.size(), 0);
    const QObject context;
    for (int i = 0; i < controllers.size(); ++i) {
        const auto countTick = [&ticks, i] { ++ticks[i]; };
        if (const auto* grouped = qobject_cast<const WTraceController*>(controllers.at(i)))
            QObject::connect(grouped, &WTraceController::requestTraceCommand, &context, countTick);
        else if (const auto* plain = qobject_cast<const TraceController*>(controllers.at(i)))
            QObject::connect(plain, &TraceController::requestTraceCommand, &context, countTick);
    }
    for (int tick = 1; tick <= count; ++tick) {
        const QDeadlineTimer deadline(TickWithin);
        while (*std::min_element(ticks.begin(), ticks.end()) < tick) {
            if (deadline.hasExpired())
                return false;
            QApplication::processEvents();
        }
        m_bench.advance(Step);
    }
    return true;
}

void Tour::check(const QString& done, const QString& expected, const QString& seen, bool ok)
{
    m_failures += ok ? 0 : 1;
    m_lines << QStringLiteral("%1 %2 | %3 | expected %4 | seen %5")
                   .arg(m_lines.size() + 1, 2)
                   .arg(ok ? QStringLiteral("ok    ") : QStringLiteral("NOT OK"), done, expected,
                        seen);
}

void Tour::expectNumber(const QString& done, const std::function<double()>& value, double expected,
                        double tolerance, int within)
{
    const bool ok = wait(within, [&] { return std::abs(value() - expected) <= tolerance; });
    QString wanted = QString::number(expected);
    if (tolerance > 0)
        wanted += QStringLiteral(" +-%1").arg(tolerance);
    check(done, wanted, QString::number(value()), ok);
}

void Tour::expectText(const QString& done, const std::function<QString()>& text,
                      const QString& expected, int within)
{
    const bool ok = wait(within, [&] { return text() == expected; });
    check(done, expected, text(), ok);
}

void Tour::runLive(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    for (qint64 passed = 0; passed < milliseconds;) {
        QApplication::processEvents(QEventLoop::AllEvents, Step);
        const qint64 now = clock.elapsed();
        m_bench.advance(static_cast<int>(now - passed));
        passed = now;
    }
}

void Tour::expectMotion(const QWidget* widget, const QString& what)
{
    const QImage before = ScreenPicture::of(widget);
    runLive(MotionTime);
    const QImage after = ScreenPicture::of(widget);
    check(what + QStringLiteral(" on the screen"), QStringLiteral("two pictures differ"),
          before == after ? QStringLiteral("alike") : QStringLiteral("they do"),
          !before.isNull() && before != after);
}

void Tour::photograph(const QString& page, const QString& name)
{
    m_bench.showPage(page);
    runLive(PictureTime);
    photographWidget(&m_bench, QStringLiteral("page \"%1\"").arg(page),
                     name.isEmpty() ? page : name);
}

void Tour::photographWidget(QWidget* widget, const QString& what, const QString& name)
{
    const QString file = QDir(m_folder).filePath(name + QStringLiteral(".png"));
    const QImage picture = ScreenPicture::of(widget);
    const bool isEmpty = ScreenPicture::isEmpty(picture);
    const bool isSaved = picture.save(file, "PNG");
    check(QStringLiteral("picture of the %1").arg(what), QStringLiteral("written, not empty"),
          QFileInfo(file).fileName() + (isEmpty ? QStringLiteral(", empty") : QString()),
          isSaved && !isEmpty);
}

bool Tour::writeReport() const
{
    QSaveFile file(QDir(m_folder).filePath(QStringLiteral("report.txt")));
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        file.write(m_lines.join(QLatin1Char('\n')).toUtf8());
        file.write("\n");
        if (file.commit())
            return true;
    }
    QTextStream(stderr) << "axrworkbench: cannot write the report: " << file.errorString()
                        << Qt::endl;
    return false;
}
