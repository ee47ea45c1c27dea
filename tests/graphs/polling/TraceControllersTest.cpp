#include "Bytes.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "TraceController.h"
#include "User.h"
#include "WTraceController.h"

#include <QPushButton>
#include <QSpinBox>

namespace
{

/// A controller under the hands of host and user, and what it tells: a command by its caption, the
/// tick besides as "pdo", "start", "stop" and "delay 5".
template <class Controller>
struct Bench {
    static constexpr bool IsWide = std::is_same_v<Controller, WTraceController>;

    QPushButton* button(const char* name) { return User::find<QPushButton>(&controller, name); }
    QString told()
    {
        QString text = log.takeLines().join(' ');
        text.replace("requestPDOValues", "pdo").remove("requestTraceCommand ");
        return text.replace("delayChanged", "delay");
    }
    /// Which buttons can be pressed, and what was told.
    QString state()
    {
        return QString(button("btnStart")->isEnabled() ? "start" : "") +
               (button("btnStop")->isEnabled() ? "stop: " : ": ") + told();
    }
    QString ticks(int count)
    {
        while (count-- > 0)
            QMetaObject::invokeMethod(&controller, "requestTraceValue", Qt::DirectConnection);
        return told();
    }
    /// What the wide one tells, or the other one.
    static QString either(const char* wide, const char* other) { return IsWide ? wide : other; }

    Controller controller;
    SignalLog log{&controller};
    QSpinBox* delay = User::find<QSpinBox>(&controller, "sbDelay");
};

TraceCommand value(const QString& caption, int type)
{
    return TraceCommand(1, 6, toByte(type), 0, caption);
}

/// Walks a list that shrinks, empties and grows meanwhile.
template <class Controller>
void checkTurns()
{
    Bench<Controller> bench;
    Controller& controller = bench.controller;
    TraceCommand a = value("a", 1);
    TraceCommand b = value("b", 2);
    TraceCommand c = value("c", 3);
    controller.appendTraceCommand(nullptr);
    QCOMPARE(bench.ticks(1), bench.either("pdo", ""));
    for (TraceCommand* command : {&a, &b, &c})
        controller.appendTraceCommand(command);
    QCOMPARE(bench.ticks(6), bench.either("a pdo b pdo c pdo a pdo b pdo c pdo", "a b c a b c"));
    controller.getTraceCommands()->removeLast(); // with the third one's successor next
    QCOMPARE(bench.ticks(2), bench.either("a pdo b pdo", "a b"));
    controller.appendTraceCommand(&c);
    QCOMPARE(bench.ticks(1), bench.either("c pdo", "c"));
    controller.getTraceCommands()->replace(1, nullptr);
    QCOMPARE(bench.ticks(3), bench.either("a pdo pdo c pdo", "a c"));
    controller.clearTraceCommands();
    controller.appendTraceCommand(&b);
    bench.log.onSignal([&](const QString&) { controller.clearTraceCommands(); });
    QCOMPARE(bench.ticks(2), bench.either("b pdo pdo", "b"));
}

/// Two are the same value when all four bytes are the same; only the first one stays.
template <class Controller>
void checkValues(int usersAfterTwo)
{
    Controller controller;
    TraceCommand entry(toByte(200), toByte(142), toByte(255), toByte(128), "entry");
    TraceCommand same(toByte(200), toByte(142), toByte(255), toByte(128), "same");
    TraceCommand others[] = {{1, toByte(142), toByte(255), toByte(128), ""},
                             {toByte(200), 6, toByte(255), toByte(128), ""},
                             {toByte(200), toByte(142), 1, toByte(128), ""},
                             {toByte(200), toByte(142), toByte(255), 0, ""}};
    for (TraceCommand* command : {&entry, &same, &others[0], &others[1], &others[2], &others[3]})
        controller.appendTraceCommand(command);
    QCOMPARE(controller.getTraceCommands()->size(), 5);
    QCOMPARE(entry.getUsedCounter(), usersAfterTwo);
    QCOMPARE(same.getUsedCounter(), 1);
    if constexpr (!Bench<Controller>::IsWide) {
        for (int size : {5, 4, 4}) { // the third time it is unknown
            controller.removeTraceCommand(&same);
            QCOMPARE(controller.getTraceCommands()->size(), size);
        }
        controller.removeTraceCommand(nullptr);
        QCOMPARE(controller.getTraceCommands()->first(), &others[0]);
        controller.appendTraceCommand(&entry); // its counter is 0 and stays so
        controller.removeTraceCommand(&entry);
        QCOMPARE(controller.getTraceCommands()->size(), 4);
    }
}

/// By hand, by code and by keys; the focus goes with the two buttons.
template <class Controller>
void checkHands()
{
    Bench<Controller> bench;
    Controller& controller = bench.controller;
    QCOMPARE(bench.state(), bench.either("start: ", "startstop: "));
    controller.setActive(false);
    QCOMPARE(bench.state(), bench.either("start: stop", "startstop: "));
    for (int i = 0; i < 2; ++i)
        controller.setActive(true);
    QCOMPARE(bench.state(), bench.either("stop: start start", "stop: "));
    controller.setActive(false);
    QCOMPARE(bench.state(), bench.either("start: stop", "start: "));
    controller.setValue(3600);
    controller.show();
    bench.button("btnStart")->setFocus();
    for (const char* next : {"btnStop", "btnStart"}) {
        QTest::keyClick(controller.focusWidget(), Qt::Key_Space);
        QCOMPARE(controller.focusWidget(), bench.button(next));
    }
    QCOMPARE(bench.told(), bench.either("delay 3600 start stop", "delay 3600"));
    bench.delay->selectAll();
    User::type(bench.delay, "500");
    QCOMPARE(bench.told(), QString());
    QTest::keyClick(bench.delay, Qt::Key_Return);
    bench.delay->stepDown();
    QCOMPARE(bench.told(), bench.either("delay 500 delay 499", "delay 500 delay 495"));
    for (int ms : {0, 200000})
        controller.setValue(ms);
    QCOMPARE(bench.told(), bench.either("delay 0 delay 100000", "delay 1 delay 100000"));
    controller.setMaximum(50);
    controller.setSingleStep(7);
    bench.delay->stepDown();
    controller.setMinimum(45);
    QCOMPARE(bench.told(), QString("delay 50 delay 43 delay 45"));
    bench.button("btnStart")->setFocus();
    User::wheel(bench.delay, 120);
    QCOMPARE(bench.told(), QString());
}

} // namespace

class TraceControllersTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void turns()
    {
        checkTurns<TraceController>();
        checkTurns<WTraceController>();
    }

    void values()
    {
        checkValues<TraceController>(2);
        checkValues<WTraceController>(1);
    }

    void hands()
    {
        checkHands<TraceController>();
        checkHands<WTraceController>();
    }

    /// The first tick comes at once, the others at 5 ms, until the delay is changed; a change holds
    /// for the timer that runs.
    void intervals()
    {
        Bench<TraceController> first;
        Bench<TraceController> slow;
        Bench<WTraceController> wide;
        TraceCommand a = value("a", 1);
        first.controller.appendTraceCommand(&a);
        slow.controller.appendTraceCommand(&a);
        slow.controller.setValue(100000);
        wide.controller.setValue(100000);
        wide.controller.activateTracing();
        slow.controller.setActive(true);
        first.controller.setActive(true);
        QElapsedTimer clock;
        clock.start();
        QList<qint64> times;
        first.log.onSignal([&](const QString&) { times << clock.elapsed(); });
        QCoreApplication::processEvents();
        QCOMPARE(times.size(), 1);
        QTRY_VERIFY(times.size() >= 7);
        QVERIFY2(times.at(6) >= 25, qPrintable(QString::number(times.at(6))));
        QCOMPARE(slow.told() + wide.told(), QString("delay 100000delay 100000 start"));
        first.controller.setActive(false);
        bool hasTicked = false;
        wide.log.onSignal([&](const QString& line) { hasTicked |= line == "requestPDOValues"; });
        slow.log.onSignal([&](const QString& line) { hasTicked |= line.endsWith(" a"); });
        wide.controller.setMinimum(-10);
        for (QSpinBox* delay : {wide.delay, wide.delay, slow.delay}) {
            hasTicked = false;
            delay->setValue(delay->value() == 0 ? -3 : 0); // which is no interval of a timer
            QTRY_VERIFY(hasTicked);
        }
        wide.controller.deactivateTracing();
        QVERIFY(wide.told().endsWith("stop"));
    }

    void hostDeletesTheControllerInsideAnEmission()
    {
        TraceCommand a = value("a", 1);
        using Controller = WTraceController;
        const std::pair<const char*, std::function<void(Controller*)>> rows[] = {
            {"start()", &Controller::activateTracing},
            {"stop()", &Controller::deactivateTracing},
            {"delayChanged(int)", [](Controller* c) { c->setValue(7); }},
            {"requestPDOValues()", [](Controller* c) { c->setActive(true); }},
            {"requestTraceCommand(TraceCommand*)",
             [&a](Controller* c) { c->appendTraceCommand(&a), c->setActive(true); }}};
        for (const auto& row : rows) {
            QPointer<Controller> controller(new Controller);
            const auto gesture = [&] {
                row.second(controller);
                QTRY_VERIFY(!controller);
            };
            QVERIFY2(endsInside(controller, row.first, gesture), row.first);
        }
    }
};

AXR_TEST_MAIN(TraceControllersTest)
#include "TraceControllersTest.moc"
