// Clicks, drags, turns the wheel and types at random all over the connected workbench, and holds it
// to what has to be true whatever two hands do: it answers within a second, a gesture sends nothing
// that its widget does not send, and after STOP every axis brakes within its ramp and stays
// standing.
//
//     RandomHands [--seed N] [--seconds S] [--verbose]

#include "CommandText.h"
#include "Connection.h"
#include "Global.h"
#include "Instruction.h"
#include "Page.h"
#include "RampMove.h"
#include "StopGuard.h"
#include "Workbench.h"
#include "XHands.h"

#include <QtWidgets>

#include <cmath>
#include <unistd.h>

namespace
{

constexpr int Beat = 40; // ms between two gestures
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int Slowness = 4;
#else
constexpr int Slowness = 1;
#endif
constexpr int AnswerWithin = 1000 * Slowness; // ms
constexpr int HangsAfter = 30;                // s, then SIGALRM ends the program
constexpr int GesturesARound = 60;            // then STOP is pressed
constexpr int Settling = 1500;      // ms of real time after STOP; a capture rests a second
constexpr int StandingFor = 5000;   // ms of simulated time
constexpr int LongestRamp = 120000; // ms of simulated time that is waited for
constexpr double Standing = 0.5;    // rpm
constexpr int KeptGestures = 25;    // for the report

/// Milliseconds that the event loop's thread has waited for a processor: the machine's doing, not
/// the program's.
qint64 waitedForProcessor()
{
    QFile file(QString("/proc/self/schedstat"));
    constexpr int WaitColumn = 1;
    return file.open(QIODevice::ReadOnly)
               ? file.readAll().split(' ').value(WaitColumn).toLongLong() / 1000000
               : 0;
}

/// The widget whose own doing a gesture on `widget` is: a field for its line edit, a combo box for
/// its list.
QWidget* actor(QWidget* widget)
{
    for (QWidget* each = widget; each; each = each->parentWidget()) {
        if (qobject_cast<QAbstractSpinBox*>(each) || qobject_cast<QAbstractButton*>(each) ||
            qobject_cast<QComboBox*>(each) || qobject_cast<QAbstractSlider*>(each) ||
            qobject_cast<QAbstractItemView*>(each))
            return each;
        const auto* group = qobject_cast<QGroupBox*>(each);
        if (group && group->isCheckable() && each == widget)
            return each;
    }
    return nullptr;
}

} // namespace

class RandomHands : public QObject
{
    Q_OBJECT
public:
    RandomHands(Workbench& bench, quint32 seed, int seconds, bool isVerbose)
        : m_bench(bench)
        , m_random(seed)
        , m_seed(seed)
        , m_duration(seconds * 1000)
        , m_isVerbose(isVerbose)
    {
        connect(&bench.link(), &ModuleLink::sent, this, &RandomHands::judgeSent);
        for (const Page* page : bench.findChildren<Page*>())
            connect(page, &Page::command, this, &RandomHands::judgeWanted);
        connect(bench.findChild<StopGuard*>(), &StopGuard::stop, this,
                [this] { m_isStopHeard = m_isStopping; });
        connect(&m_beat, &QTimer::timeout, this, &RandomHands::step);
        beginRound();
        m_beat.setTimerType(Qt::PreciseTimer);
        m_total.start();
        m_sinceBeat.start();
        m_beat.start(Beat);
        qApp->installEventFilter(this);
    }

    bool isFine() const { return m_complaints.isEmpty(); }
    QString report() const
    {
        return QString("%1 gestures, %2 commands, %3 stops, slowest answer %4 ms, seed %5: %6")
            .arg(m_gestures)
            .arg(m_commands)
            .arg(m_stops)
            .arg(m_slowest)
            .arg(m_seed)
            .arg(isFine() ? QString("fine") : m_complaints.join(QLatin1Char('\n')));
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            if (auto* dialog = qobject_cast<QFileDialog*>(watched))
                dialog->setOption(QFileDialog::ReadOnly); // nothing is deleted or renamed by chance
        }
        return false;
    }

private:
    bool holds() const { return m_isButtonHeld || m_isKeyHeld; }
    int any(int end) { return m_random.bounded(end); }

    void step()
    {
        ::alarm(HangsAfter);
        const qint64 waited = waitedForProcessor();
        const qint64 passed = m_sinceBeat.elapsed() - (waited - m_waitedBefore);
        if (m_hasRested) {
            m_slowest = qMax(m_slowest, passed);
            if (passed > AnswerWithin)
                complain(QString("no answer for %1 ms").arg(passed));
        }
        m_hasRested = true;
        if (m_isStopping) {
            if (m_sinceStop.elapsed() >= Settling)
                checkStanding();
        } else if (!isFine() || m_total.elapsed() >= m_duration) {
            m_beat.stop();
            closeAll();
            QApplication::exit(isFine() ? EXIT_SUCCESS : EXIT_FAILURE);
        } else if (m_gestures % GesturesARound == GesturesARound - 2) {
            // What the last gesture or a release opens is open before STOP is looked for.
            ++m_gestures;
            if (holds())
                letGo();
        } else if (m_gestures % GesturesARound == GesturesARound - 1) {
            stop();
        } else {
            gesture();
        }
        m_waitedBefore = waitedForProcessor();
        m_sinceBeat.start(); // what these hands themselves waited for does not count
    }

    void gesture()
    {
        ++m_gestures;
        m_mightSend = std::exchange(m_maySend, false);
        // Without a window manager nobody else gives the keys to a window.
        if (QWidget* modal = QApplication::activeModalWidget())
            modal->activateWindow();
        else if (!QApplication::activeWindow())
            m_bench.activateWindow();
        if (holds() && any(3) == 0) {
            letGo();
            return;
        }
        // The hand's habits, in percent up to each.
        const std::pair<int, void (RandomHands::*)()> habits[] = {
            {45, &RandomHands::click},    {53, &RandomHands::drag}, {63, &RandomHands::wheel},
            {83, &RandomHands::key},      {92, &RandomHands::hold}, {97, &RandomHands::holdKey},
            {100, &RandomHands::turnPage}};
        const int kind = any(100);
        const auto* habit = habits;
        while (kind >= habit->first)
            ++habit;
        (this->*habit->second)();
        XHands::sync();
    }

    /// A place on the screen to put the hand: mostly in the middle of something.
    QPoint place()
    {
        QWidget* window = QApplication::activePopupWidget();
        if (!window || any(2))
            window = QApplication::activeModalWidget();
        if (!window) {
            const auto* pages = m_bench.findChild<QStackedWidget*>();
            window = any(7) ? pages->currentWidget() : &m_bench;
        }
        const bool isButton = any(2);
        QList<QWidget*> widgets;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->visibleRegion().isEmpty())
                continue;
            if (isButton ? qobject_cast<QPushButton*>(widget) != nullptr
                         : actor(widget) == widget || any(10) == 0)
                widgets << widget;
        }
        if (widgets.isEmpty() || any(8) == 0)
            return window->mapToGlobal(QPoint(any(window->width()), any(window->height())));
        const QWidget* widget = widgets.at(any(widgets.size()));
        return widget->mapToGlobal(any(2) ? widget->rect().center()
                                          : QPoint(any(widget->width()), any(widget->height())));
    }

    /// Whether a press at the place may send a command: something that can be worked lies there.
    static bool canSendAt(QPoint place)
    {
        QWidget* widget = QApplication::widgetAt(place);
        return widget && (QApplication::activePopupWidget() || actor(widget));
    }

    static QString nameAt(QPoint place)
    {
        const QWidget* widget = QApplication::widgetAt(place);
        return widget ? widget->metaObject()->className() + (' ' + widget->objectName())
                      : QString("nothing");
    }
    static QString focusName()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus ? " in " + focus->objectName() : QString();
    }

    void tell(const QString& text, bool maySend)
    {
        m_maySend = maySend;
        m_history << QString("%1 %2").arg(m_gestures).arg(text);
        while (m_history.size() > KeptGestures)
            m_history.removeFirst();
        if (m_isVerbose)
            QTextStream(stderr) << m_history.last() << Qt::endl;
    }

    void click()
    {
        const unsigned button = any(9) ? 1 : 3;
        const QPoint at = place();
        tell(QString("click %1 on ").arg(button) + nameAt(at), button == 1 && canSendAt(at));
        XHands::move(at.x(), at.y());
        for (int i = any(6) == 0 ? 2 : 1; i > 0; --i)
            clickButton(button);
        m_isButtonHeld &= button != 1;
    }

    void drag()
    {
        const QPoint from = place();
        const QPoint to = any(2) ? place() : from + QPoint(any(80) - 40, any(80) - 40);
        tell(QString("drag from %1 to %2").arg(nameAt(from), nameAt(to)), canSendAt(from));
        XHands::move(from.x(), from.y());
        XHands::button(1, true);
        for (int i = 1; i <= 4; ++i)
            XHands::move(from.x() + (to.x() - from.x()) * i / 4,
                         from.y() + (to.y() - from.y()) * i / 4);
        XHands::button(1, false);
        m_isButtonHeld = false;
    }

    void wheel()
    {
        const QPoint at = place();
        QWidget* widget = QApplication::widgetAt(at);
        QWidget* focus = QApplication::focusWidget();
        const bool hasFocus = widget && focus && actor(widget) && actor(focus) == actor(widget);
        tell("wheel over " + nameAt(at), hasFocus || QApplication::activePopupWidget());
        XHands::move(at.x(), at.y());
        const unsigned button = any(2) ? 4 : 5;
        for (int i = any(3); i >= 0; --i)
            clickButton(button);
    }

    static void tap(unsigned code)
    {
        XHands::key(code, true);
        XHands::key(code, false);
    }
    static void tap(const char* name) { tap(XHands::codeOf(name)); }
    static void tap(char character)
    {
        bool isShifted = false;
        tap(XHands::codeOf(character, &isShifted));
    }
    static void clickButton(unsigned button)
    {
        XHands::button(button, true);
        XHands::button(button, false);
    }

    void key()
    {
        QWidget* focus = QApplication::focusWidget();
        const bool canSend = QApplication::activePopupWidget() || (focus && actor(focus));
        if (any(2)) {
            static const QList<QByteArray> names = {
                "Tab",   "Tab",    "ISO_Left_Tab", "Return", "Return",    "KP_Enter",
                "space", "Escape", "Up",           "Down",   "Left",      "Right",
                "Home",  "End",    "Prior",        "Next",   "BackSpace", "Menu"};
            const QByteArray name = names.at(any(names.size()));
            const bool moves = name.endsWith("Tab") || name == "Menu";
            tell("key " + name + focusName(), canSend && !moves);
            if (XHands::codeOf(name))
                tap(name.constData());
            return;
        }
        const bool ends = any(2) == 0;
        const QByteArray text = QByteArray::number(any(2) ? any(20) : any(6000) - 3000);
        tell("type " + text + (ends ? " Return" : "") + focusName(), canSend && ends);
        for (char character : text)
            tap(character);
        if (ends)
            tap("Return");
    }

    void hold()
    {
        if (m_isButtonHeld)
            return;
        const QPoint at = place();
        tell("hold on " + nameAt(at), canSendAt(at));
        XHands::move(at.x(), at.y());
        XHands::button(1, true);
        m_isButtonHeld = true;
    }

    void holdKey()
    {
        if (m_isKeyHeld)
            return;
        QWidget* focus = QApplication::focusWidget();
        tell("hold space" + focusName(), focus && actor(focus));
        m_isKeyHeld = true;
        XHands::key(XHands::codeOf("space"), true);
    }

    void turnPage()
    {
        const char digit = static_cast<char>('0' + any(10));
        tell(QString("ctrl+") + digit, false);
        XHands::key(XHands::codeOf("Control_L"), true);
        tap(digit);
        XHands::key(XHands::codeOf("Control_L"), false);
    }

    void letGo()
    {
        // What was held may do its work now, as a button that is clicked by its release.
        tell("let go", true);
        if (m_isButtonHeld)
            XHands::button(1, false);
        if (m_isKeyHeld)
            XHands::key(XHands::codeOf("space"), false);
        m_isButtonHeld = m_isKeyHeld = false;
        XHands::sync();
    }

    void closeAll()
    {
        while (QWidget* open = QApplication::activePopupWidget()
                                   ? QApplication::activePopupWidget()
                                   : QApplication::activeModalWidget())
            open->close();
    }

    void stop()
    {
        ++m_gestures;
        tell("STOP", false);
        m_mightSend = false;
        const auto* button = m_bench.findChild<QWidget*>("btnStopAll");
        const QPoint at = button->mapToGlobal(button->rect().center());
        const bool isBehind =
            QApplication::activeModalWidget() && QApplication::widgetAt(at) != button;
        if (any(2) || isBehind) {
            tap("F12");
        } else {
            XHands::move(at.x(), at.y());
            clickButton(1);
        }
        XHands::sync();
        m_isStopping = true;
        ++m_stops;
        m_sinceStop.start();
    }

    void checkStanding()
    {
        if (!m_isStopHeard)
            complain(QString("STOP was not heard"));
        m_isStopHeard = false;
        m_isStopping = false;
        SimulatedModule& module = m_bench.simulator().module;
        for (int axis = 0; axis < SimulatedModule::Axes; ++axis) {
            SimulatedAxis& motor = module.axis(axis);
            const auto needed = [&motor] { // ms
                return 2000 + 1000 * std::abs(motor.rampVelocity()) /
                                  qMax(1, motor.read(AxisParameterNumber::Acceleration));
            };
            if (needed() > LongestRamp) // it would brake for an hour
                motor.write(AxisParameterNumber::Acceleration, 4000);
            const double within = needed();
            for (int time = 0; time < within && !stands(axis); time += 5)
                m_bench.advance(5);
            if (!stands(axis))
                complain(QString("axis %1 turns at %2 rpm after STOP, beyond its ramp")
                             .arg(axis)
                             .arg(motor.velocity()));
        }
        for (int time = 0; isFine() && time < StandingFor; time += 5) {
            m_bench.advance(5);
            for (int axis = 0; axis < SimulatedModule::Axes; ++axis) {
                if (!stands(axis))
                    complain(
                        QString("axis %1 turns, %2 ms after it had stopped").arg(axis).arg(time));
            }
        }
        ++m_gestures;
        beginRound();
        if (!m_bench.link().isOpen() && !QApplication::activeModalWidget())
            connectAgain();
        m_hasRested = false;
    }

    /// Each round begins where something can be driven, with targets worth stopping.
    void beginRound()
    {
        if (any(4))
            closeAll();
        const QStringList drivers = {QString("motion"), QString("motion"),     QString("capture"),
                                     QString("ramp"),   QString("parameters"), QString("console")};
        m_bench.showPage(any(4) ? drivers.at(any(drivers.size()))
                                : Workbench::pageNames().at(any(Workbench::pageNames().size())));
        for (const char* name : {"sbTargetVelocity", "sbTargetCurrent", "sbTargetPosition"}) {
            for (QSpinBox* box : m_bench.findChildren<QSpinBox*>(name))
                box->setValue(any(2000) - 1000);
        }
    }

    bool stands(int axis) const
    {
        return std::abs(m_bench.simulator().module.axis(axis).velocity()) < Standing;
    }

    void connectAgain()
    {
        m_maySend = true;
        m_bench.findChild<Connection*>()->findChild<QPushButton*>("btnConnect")->click();
    }

    /// A capture and a ramp move send step by step what their start has set going.
    bool somethingRuns() const
    {
        const auto* move = m_bench.findChild<RampMove*>();
        return !Global::instance()->registeredThreads().isEmpty() ||
               (move && move->state() != RampMove::State::Idle);
    }

    /// A held jog ends at whatever takes its button away, as a turn of the page.
    bool isStopOfHeld(const Command& request) const { return holds() && request.getValue() == 0; }

    static bool moves(const Command& request)
    {
        return !isRead(request) && !carries(request.getCommand(), Instruction::RD) &&
               !carries(request.getCommand(), Instruction::MST);
    }

    /// What leaves for the module.
    void judgeSent(const Command& request)
    {
        if (!moves(request))
            return;
        ++m_commands;
        if (m_isVerbose)
            QTextStream(stderr) << "    " << requestText(request) << Qt::endl;
        if (m_isStopHeard)
            complain(QString("after STOP: %1").arg(requestText(request)));
    }

    /// What a page wants to be sent; it may wait for its turn until the next gestures.
    void judgeWanted(const Command& request)
    {
        // The release that goes before STOP does its work. What a gesture brings about may come
        // when the next one has begun.
        if (moves(request) && !m_isStopping && !m_maySend && !m_mightSend &&
            !isStopOfHeld(request) && !somethingRuns())
            complain(QString("sent without a cause: %1").arg(requestText(request)));
    }

    void complain(const QString& text)
    {
        m_complaints << QString("%1\nafter\n%2").arg(text, m_history.join(QLatin1Char('\n')));
    }

    Workbench& m_bench;
    QRandomGenerator m_random;
    const quint32 m_seed;
    const qint64 m_duration;
    const bool m_isVerbose;
    QTimer m_beat;
    QElapsedTimer m_total;
    QElapsedTimer m_sinceBeat;
    QElapsedTimer m_sinceStop;
    bool m_maySend = false;   // the gesture
    bool m_mightSend = false; // the one before, whose effect may come late
    QStringList m_history;
    QStringList m_complaints;
    bool m_isButtonHeld = false; // the left one
    bool m_isKeyHeld = false;    // space
    bool m_isStopping = false;
    bool m_isStopHeard = false;
    bool m_hasRested = false;
    int m_gestures = 0;
    int m_commands = 0;
    int m_stops = 0;
    qint64 m_slowest = 0;
    qint64 m_waitedBefore = 0;
};

int main(int argc, char* argv[])
{
    QCoreApplication::setOrganizationName("AXRTest");
    QCoreApplication::setApplicationName("RandomHands");
    QLoggingCategory::setFilterRules("axr.*=false");
    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{"seed", "Seed, default 1.", "N", "1"},
                       {"seconds", "How long, default 20.", "S", "20"},
                       {"verbose", "Tell each gesture and each command."}});
    parser.addHelpOption();
    parser.process(app);
    if (!XHands::areThere())
        qFatal("this needs an X display with XTEST, such as that of xvfb-run");

    const QTemporaryDir folder; // where files of chance go
    QDir::setCurrent(folder.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    Workbench bench(WorkbenchOptions::parse(
        {QString("RandomHands"), QString("--photo"), QString("x")}, Workbench::pageNames()));
    bench.move(20, 20);
    bench.show();
    bench.activateWindow();
    bench.startClock();
    bench.findChild<Connection*>()->findChild<QPushButton*>("btnConnect")->click();
    RandomHands hands(bench, parser.value("seed").toUInt(), parser.value("seconds").toInt(),
                      parser.isSet("verbose"));
    QApplication::exec();
    QTextStream(stdout) << hands.report() << Qt::endl;
    return hands.isFine() ? EXIT_SUCCESS : EXIT_FAILURE;
}

#include "RandomHands.moc"
