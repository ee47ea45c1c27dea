#include "Bytes.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "TraceController.h"
#include "User.h"
#include "WTraceController.h"

#include <QPushButton>
#include <QSpinBox>

namespace
{

QPushButton* button(const QWidget& controller, const char* name)
{
    return User::find<QPushButton>(&controller, name);
}

QSpinBox* delay(const QWidget& controller) { return User::find<QSpinBox>(&controller, "sbDelay"); }

/// The state that the two buttons show.
QString shown(const QWidget& controller)
{
    const bool start = button(controller, "btnStart")->isEnabled();
    const bool stop = button(controller, "btnStop")->isEnabled();
    if (start && stop)
        return "both";
    return start ? "idle" : stop ? "polling" : "none";
}

void tick(QWidget& controller)
{
    QVERIFY(QMetaObject::invokeMethod(&controller, "requestTraceValue", Qt::DirectConnection));
}

TraceCommand value(const QString& caption, int type)
{
    return TraceCommand(1, 6, toByte(type), 0, caption);
}

/// Notes what a controller emits: captions of commands, "pdo", "delay <ms>", and start and stop
/// with the state that the buttons show during the emission.
class Host
{
public:
    template <class Controller>
    explicit Host(Controller& controller)
    {
        Controller* c = &controller;
        QObject::connect(c, &Controller::requestTraceCommand, c,
                         [this](TraceCommand* command) { m_lines << command->getCaption(); });
        QObject::connect(c, &Controller::delayChanged, c,
                         [this](int ms) { m_lines << QString("delay %1").arg(ms); });
        if constexpr (std::is_same_v<Controller, WTraceController>) {
            QObject::connect(c, &Controller::requestPDOValues, c, [this] { m_lines << "pdo"; });
            QObject::connect(c, &Controller::start, c,
                             [this, c] { m_lines << "start " + shown(*c); });
            QObject::connect(c, &Controller::stop, c,
                             [this, c] { m_lines << "stop " + shown(*c); });
        }
    }

    bool saw(const QString& line) const { return m_lines.contains(line); }
    /// What was emitted since the last call.
    QString take() { return std::exchange(m_lines, {}).join(' '); }

private:
    QStringList m_lines;
};

/// Walks a list that shrinks, empties and grows meanwhile. What a tick emits beside the command is
/// the same in each class.
template <class Controller>
void checkTurns(const QString& besides)
{
    TraceCommand a = value("a", 1);
    TraceCommand b = value("b", 2);
    TraceCommand c = value("c", 3);
    Controller controller;
    Host host(controller);
    const auto ticks = [&](int count) {
        for (int i = 0; i < count; ++i)
            tick(controller);
        return host.take();
    };
    const auto expected = [&](const QString& captions) {
        QStringList lines;
        for (const QChar caption : captions) {
            if (caption != '-')
                lines << caption;
            if (!besides.isEmpty())
                lines << besides;
        }
        return lines.join(' ');
    };
    QCOMPARE(ticks(2), expected("--"));
    controller.appendTraceCommand(nullptr);
    for (TraceCommand* command : {&a, &b, &c})
        controller.appendTraceCommand(command);
    QCOMPARE(ticks(5), expected("abcab"));
    QCOMPARE(ticks(1), expected("c"));
    controller.getTraceCommands()->removeLast(); // with the third one's successor next
    QCOMPARE(ticks(2), expected("ab"));
    controller.appendTraceCommand(&c);
    QCOMPARE(ticks(2), expected("ca"));
    controller.getTraceCommands()->replace(1, nullptr);
    QCOMPARE(ticks(2), expected("-c"));
    controller.clearTraceCommands();
    QCOMPARE(ticks(1), expected("-"));
    controller.appendTraceCommand(&b);
    QCOMPARE(ticks(2), expected("bb"));
}

/// Space goes from one button of the pair to the other; a delay that is typed counts when it ends.
template <class Controller>
void checkHands()
{
    Controller controller;
    Host host(controller);
    controller.show();
    button(controller, "btnStart")->setFocus();
    for (const char* next : {"btnStop", "btnStart"}) {
        QTest::keyClick(controller.focusWidget(), Qt::Key_Space);
        QCOMPARE(controller.focusWidget(), button(controller, next));
    }
    host.take();
    delay(controller)->selectAll();
    User::type(delay(controller), "500");
    QCOMPARE(host.take(), QString());
    QTest::keyClick(delay(controller), Qt::Key_Return);
    QCOMPARE(host.take(), QString("delay 500"));
}

} // namespace

class TraceControllersTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void turns()
    {
        checkTurns<TraceController>(QString());
        checkTurns<WTraceController>("pdo");
    }

    void hands()
    {
        checkHands<TraceController>();
        checkHands<WTraceController>();
    }

    void looks()
    {
        TraceController controller;
        QCOMPARE(controller.objectName(), QString("TraceController"));
        QCOMPARE(controller.size(), QSize(296, 41));
        QCOMPARE(shown(controller), QString("both"));
        QCOMPARE(delay(controller)->value(), 5);
        WTraceController wide;
        QCOMPARE(wide.windowTitle(), QString("Form"));
        QCOMPARE(wide.size(), QSize(198, 106));
        QCOMPARE(shown(wide), QString("idle"));
        QCOMPARE(delay(wide)->value(), 5);
    }

    void countsUsers()
    {
        TraceController controller;
        TraceCommand entry(toByte(200), toByte(142), toByte(255), toByte(128), "entry");
        TraceCommand same(toByte(200), toByte(142), toByte(255), toByte(128), "same");
        for (TraceCommand* command : {&entry, &same, &same})
            controller.appendTraceCommand(command);
        TraceCommand others[] = {{1, toByte(142), toByte(255), toByte(128), ""},
                                 {toByte(200), 6, toByte(255), toByte(128), ""},
                                 {toByte(200), toByte(142), 1, toByte(128), ""},
                                 {toByte(200), toByte(142), toByte(255), 0, ""}};
        for (TraceCommand& other : others) {
            controller.removeTraceCommand(&other); // unknown
            controller.appendTraceCommand(&other);
            controller.removeTraceCommand(&other);
        }
        controller.removeTraceCommand(nullptr);
        QCOMPARE(*controller.getTraceCommands(), QList<TraceCommand*>{&entry});
        for (int left : {2, 1}) {
            controller.removeTraceCommand(&same);
            QCOMPARE(entry.getUsedCounter(), left);
            QCOMPARE(controller.getTraceCommands()->size(), 1);
        }
        controller.removeTraceCommand(&same);
        QVERIFY(controller.getTraceCommands()->isEmpty());
        QCOMPARE(same.getUsedCounter(), 1);

        controller.appendTraceCommand(&entry); // its counter is 0 and stays so
        controller.removeTraceCommand(&entry);
        QVERIFY(controller.getTraceCommands()->isEmpty());
    }

    void countsNoUsersInGroupBox()
    {
        WTraceController controller;
        TraceCommand entry = value("entry", 1);
        TraceCommand same = value("same", 1);
        controller.appendTraceCommand(&entry);
        controller.appendTraceCommand(&same);
        QCOMPARE(*controller.getTraceCommands(), QList<TraceCommand*>{&entry});
        controller.clearTraceCommands();
        QCOMPARE(entry.getUsedCounter(), 1);
    }

    void buttonsFollowTheState()
    {
        TraceController controller;
        controller.setActive(false); // is so already
        QCOMPARE(shown(controller), QString("both"));
        controller.setActive(true);
        QCOMPARE(shown(controller), QString("polling"));
        User::click(button(controller, "btnStop"));
        QCOMPARE(shown(controller), QString("idle"));

        WTraceController wide;
        Host host(wide);
        for (int i = 0; i < 2; ++i)
            wide.setActive(true);
        wide.activateTracing();
        QCOMPARE(host.take(), QString("start polling start polling start polling"));
        User::click(button(wide, "btnStop"));
        wide.setActive(false);
        wide.deactivateTracing();
        QCOMPARE(host.take(), QString("stop idle stop idle stop idle"));
    }

    void delayStaysInItsRange()
    {
        TraceController controller;
        Host host(controller);
        for (int ms : {5, 20, 0, 200000})
            controller.setValue(ms);
        QCOMPARE(host.take(), QString("delay 20 delay 1 delay 100000"));
        controller.setMaximum(50);
        QCOMPARE(host.take(), QString("delay 50"));
        delay(controller)->stepDown();
        QCOMPARE(host.take(), QString("delay 45"));

        WTraceController wide;
        Host wideHost(wide);
        for (int ms : {5, 20, -3, 200000})
            wide.setValue(ms);
        QCOMPARE(wideHost.take(), QString("delay 20 delay 0 delay 100000"));
        delay(wide)->stepDown();
        QCOMPARE(wideHost.take(), QString("delay 99999"));
        wide.setMinimum(-10);
        wide.setActive(true);
        wide.setValue(-3); // no interval of a timer
        QTRY_VERIFY(wideHost.saw("pdo"));
    }

    void firstTickComesAtOnceThenEveryFiveMilliseconds()
    {
        TraceCommand a = value("a", 1);
        TraceController controller;
        controller.appendTraceCommand(&a);
        QElapsedTimer clock;
        QList<qint64> times;
        connect(&controller, &TraceController::requestTraceCommand, this,
                [&] { times << clock.elapsed(); });
        delay(controller)->setMaximum(50); // leaves the value, so the timer, as they are
        controller.setActive(true);
        clock.start();
        QCoreApplication::processEvents();
        QCOMPARE(times.size(), 1);
        QTRY_VERIFY(times.size() >= 11);
        QVERIFY2(times.at(10) >= 40, qPrintable(QString::number(times.at(10))));
    }

    void touchedDelayHoldsFromTheFirstTick()
    {
        TraceCommand a = value("a", 1);
        TraceController quick;
        TraceController controller;
        WTraceController wide;
        Host host(controller);
        Host wideHost(wide);
        quick.appendTraceCommand(&a);
        controller.appendTraceCommand(&a);
        controller.setValue(100000);
        wide.setValue(100000);
        controller.setActive(true);
        wide.setActive(true);
        int ticks = 0;
        connect(&quick, &TraceController::requestTraceCommand, this, [&ticks] { ++ticks; });
        quick.setActive(true);
        QTRY_VERIFY(ticks >= 4);
        QCOMPARE(host.take(), QString("delay 100000"));
        QCOMPARE(wideHost.take(), QString("delay 100000 start polling"));

        delay(controller)->setValue(1); // takes effect in the running timer
        delay(wide)->setValue(0);
        QTRY_VERIFY(host.saw("a"));
        QTRY_VERIFY(wideHost.saw("pdo"));
    }

    void hostEmptiesTheListInsideTheRequest()
    {
        TraceCommand a = value("a", 1);
        WTraceController controller;
        Host host(controller);
        connect(&controller, &WTraceController::requestTraceCommand, &controller,
                &WTraceController::clearTraceCommands);
        controller.appendTraceCommand(&a);
        tick(controller);
        tick(controller);
        QCOMPARE(host.take(), QString("a pdo pdo"));
    }

    void hostDeletesTheControllerInsideAnEmission_data()
    {
        QTest::addColumn<QByteArray>("signal");
        for (const char* name : {"requestTraceCommand(TraceCommand*)", "requestPDOValues()",
                                 "start()", "stop()", "delayChanged(int)"})
            QTest::newRow(name) << QByteArray(name);
    }
    void hostDeletesTheControllerInsideAnEmission()
    {
        QFETCH(QByteArray, signal);
        m_doomed = new WTraceController;
        TraceCommand a = value("a", 1);
        m_doomed->appendTraceCommand(&a);
        QVERIFY(connect(m_doomed, "2" + signal, this, SLOT(deleteDoomed())));
        QWidget* controller = m_doomed;
        if (signal.startsWith("request"))
            tick(*controller);
        else if (signal == "start()")
            User::click(button(*controller, "btnStart"));
        else if (signal == "stop()")
            m_doomed->deactivateTracing();
        else
            m_doomed->setValue(7);
        QVERIFY(!m_doomed);
    }

private:
    Q_SLOT void deleteDoomed() { delete m_doomed; }

    QPointer<WTraceController> m_doomed;
};

AXR_TEST_MAIN(TraceControllersTest)
#include "TraceControllersTest.moc"
