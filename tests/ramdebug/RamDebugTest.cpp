#include "Bytes.h"
#include "Chart.h"
#include "Command.h"
#include "Global.h"
#include "Instruction.h"
#include "RamDebugThread_p.h"
#include "SimpleScaledDrawer.h"
#include "SimulatedModule.h"
#include "TestCase.h"
#include "User.h"
#include "WRamDebug.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include <chrono>
#include <random>

namespace
{

constexpr int SettleTime = 15; // ms

/// Answers for a module, on the GUI thread, and notes what was asked for.
class Host : public QObject
{
    Q_OBJECT
public:
    explicit Host(WRamDebug& panel)
    {
        connect(&panel, &WRamDebug::doDirectRequest, this, &Host::answer);
    }

    QStringList lines;
    QString silentFor; // the beginning of a line that gets no answer
    int elements = 3;
    std::function<void(const QString&)> onRequest; // before the answer
    SimulatedModule module;
    bool usesModule = false;

public Q_SLOTS:
    void answer(Command* request, Command* reply)
    {
        const std::unique_ptr<Command> owned(request);
        const QString line = QStringLiteral("%1 %2 %3 %4")
                                 .arg(u8(request->getCommand()))
                                 .arg(u8(request->getType()))
                                 .arg(u8(request->getMotorBank()))
                                 .arg(request->getValue());
        lines << line;
        if (const auto action = onRequest) // which may replace itself
            action(line);
        if (!silentFor.isEmpty() && line.startsWith(silentFor))
            return;
        if (usesModule) {
            module.advance(1);
            *reply = module.execute(*request);
            return;
        }
        *reply = *request;
        reply->setStatus(StatusOk);
        if (line.startsWith("142 1 "))
            reply->setValue(elements);
        else if (line.startsWith("142 2 "))
            reply->setValue(2);
        else if (line.startsWith("142 3 "))
            reply->setValue(100 * request->getValue() + request->getMotorBank());
        else if (line.startsWith("6 1 "))
            reply->setValue(777);
        reply->setValid(true);
    }
};

QComboBox* combo(WRamDebug& panel, const char* name) { return User::find<QComboBox>(&panel, name); }
QPushButton* button(WRamDebug& panel, const char* name)
{
    return User::find<QPushButton>(&panel, name);
}
QSpinBox* box(WRamDebug& panel, const char* name) { return User::find<QSpinBox>(&panel, name); }

bool isNoThreadLeft() { return Global::instance()->registeredThreads().isEmpty(); }

bool isIdle(WRamDebug& panel)
{
    return button(panel, "btnStart")->isEnabled() && !button(panel, "btnStop")->isEnabled();
}

QString values(WRamDebug& panel)
{
    QStringList all;
    for (const Chart* chart :
         qAsConst(*User::find<SimpleScaledDrawer>(&panel, "drawer")->getCharts())) {
        QStringList texts;
        for (double value : chart->getValues())
            texts << QString::number(value);
        all << chart->getLabel() + ": " + texts.join(' ');
    }
    return all.join(", ");
}

} // namespace

class RamDebugTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { RamDebugThread::Shared::settleTime = SettleTime; }

    void commandsOfARun_data()
    {
        QTest::addColumn<int>("target");
        QTest::addColumn<int>("velocityCommand");
        QTest::addColumn<int>("positionCommand");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("back");
        const struct {
            const char* name;
            int target;
            int velocityCommand;
            int positionCommand;
            const char* start;
            const char* end;
            const char* back;
        } rows[] = {
            {"torque", 0, 5, 5, "5 155 2 10", "5 155 2 20", "5 0 2 777"},
            {"velocity", 1, 5, 5, "5 2 2 10", "5 2 2 20", "5 0 2 777"},
            {"velocity by rotation", 1, 2, 4, "2 0 2 10", "2 0 2 20", "4 0 2 777"},
            {"position", 2, 5, 5, "5 1 2 10, 5 0 2 10", "5 0 2 20", "5 0 2 10"},
            {"position by move", 2, 5, 4, "5 1 2 10, 4 0 2 10", "4 0 2 20", "4 0 2 10"},
            {"none", 3, 5, 5, "", "", ""},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.target << row.velocityCommand << row.positionCommand
                                    << row.start << row.end << row.back;
    }
    void commandsOfARun()
    {
        QFETCH(int, target);
        QFETCH(int, velocityCommand);
        QFETCH(int, positionCommand);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, back);
        WRamDebug panel;
        panel.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt)); // writes other digits
        Host host(panel);
        panel.setAllowDefinedMode(true);
        panel.setTargetVelocityCommand(toByte(velocityCommand));
        panel.setTargetPositionCommand(toByte(positionCommand));
        panel.setAddressAndMotorBank(toByte(200), 2);
        combo(panel, "cmbTargetMode")->setCurrentIndex(target);
        combo(panel, "cmbTriggerType")->setCurrentIndex(4);
        box(panel, "sbTriggerValue")->setValue(-5);
        box(panel, "sbMeasureDelay")->setValue(7);
        box(panel, "sbFromTarget")->setValue(10);
        box(panel, "sbToTarget")->setValue(20);
        QStringList polls = {"1", "1"};
        host.onRequest = [&](const QString& line) {
            host.silentFor = line.startsWith("142 6") && !polls.isEmpty() ? polls.takeFirst() : "";
        };
        QSignalSpy started(&panel, &WRamDebug::measurementStarted);
        button(panel, "btnStart")->click();
        QCOMPARE(started.size(), 1);
        QVERIFY(!isIdle(panel));
        QVERIFY(!combo(panel, "cmbTargetMode")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        const int measured = target == 3 ? 3 : 0;
        QStringList wanted = {
            "142 0 2 0", "142 1 2 0", "142 2 2 0", "6 1 2 0", QString("142 7 2 %1").arg(measured),
            "142 9 2 7"};
        const auto add = [&wanted](const QString& lines) {
            if (!lines.isEmpty())
                wanted << lines.split(", ");
        };
        add(start);
        wanted << "142 4 4 -5";
        add(end);
        wanted << "142 6 2 0"
               << "142 6 2 0"
               << "142 6 2 0";
        add(back);
        for (int element = 0; element < 3; ++element)
            wanted << QString("142 3 0 %1").arg(element) << QString("142 3 1 %1").arg(element);
        QCOMPARE(host.lines, wanted);
        QCOMPARE(values(panel), target == 3
                                    ? QString("Debug 1: 0 100 200, Debug 2: 1 101 201, Debug 3: , "
                                              "Debug 4: ")
                                    : QString("target [mA]: 0 100 200, actual [mA]: 1 101 201"));
        QTRY_VERIFY(isNoThreadLeft());
    }

    void lostAnswersAndStop()
    {
        WRamDebug panel;
        Host host(panel);
        host.elements = 50;
        host.silentFor = "142 3 0 1"; // target of element 1 and of 10 to 19
        host.onRequest = [&](const QString& line) {
            if (line == "142 3 0 20") {
                button(panel, "btnStop")->click();
                QVERIFY(isIdle(panel));
            }
        };
        button(panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(host.lines.contains("142 3 1 20"), 10000);
        QTRY_VERIFY(isNoThreadLeft());
        const QString shown = values(panel);
        QVERIFY2(shown.startsWith("target [mA]: 0 200 300 400 500 600 700 800 900 2000, actual"),
                 qPrintable(shown));

        // started anew at once: the end of the run before, of which the panel has not heard yet,
        // is not that of this one; a stop before the thread has begun counts
        for (bool stopped : {false, true}) {
            host.lines.clear();
            host.onRequest = nullptr;
            host.silentFor.clear();
            host.elements = 3;
            button(panel, "btnStart")->click();
            QVERIFY(!isIdle(panel));
            if (stopped)
                button(panel, "btnStop")->click();
            QTRY_VERIFY_WITH_TIMEOUT(!host.lines.isEmpty(), 10000);
            QCOMPARE(isIdle(panel), stopped);
            QTRY_VERIFY_WITH_TIMEOUT(isNoThreadLeft(), 10000);
            QCOMPARE(host.lines.count("142 0 0 0"), 1);
            QCOMPARE(host.lines.last(), stopped ? QString("142 3 1 0") : QString("142 3 1 2"));
            QTRY_VERIFY(isIdle(panel)); // "Start" takes a click again
        }
    }

    void givenUp_data()
    {
        QTest::addColumn<QString>("at");
        QTest::addColumn<int>("where");
        for (const char* at : {"142 0", "5 2 0 0", "142 4", "5 2 0 1000", "142 6", "5 0 0 777",
                               "142 3 0 0", "142 3 1 2"}) {
            QTest::addRow("%s, in the handler", at) << QString(at) << 0;
            QTest::addRow("%s, with the next one queued", at) << QString(at) << 1;
        }
    }
    /// Nothing more is sent, and the next "Start" works, at once and after the end.
    void givenUp()
    {
        QFETCH(QString, at);
        QFETCH(int, where);
        WRamDebug panel;
        Host host(panel);
        panel.abort(); // there is no run
        combo(panel, "cmbTargetMode")->setCurrentIndex(1);
        int asked = 0;
        const auto giveUp = [&] {
            panel.abort();
            asked = host.lines.size();
        };
        const auto giveUpAt = [&](const QString& line, const std::function<void()>& action) {
            if (!line.startsWith(at))
                return;
            host.onRequest = nullptr;
            if (where == 0)
                action();
            else
                QTimer::singleShot(0, &host, [action] {
                    QThread::msleep(5); // the thread goes on to its next request
                    action();
                });
        };
        host.onRequest = [&](const QString& line) { giveUpAt(line, giveUp); };
        button(panel, "btnStart")->click();
        QVERIFY(panel.isMeasuring());
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        QVERIFY(!panel.isMeasuring());
        QCOMPARE(host.lines.size(), asked);

        host.lines.clear();
        host.onRequest = [&](const QString& line) {
            giveUpAt(line, [&] {
                button(panel, "btnStop")->click();
                giveUp();
                button(panel, "btnStart")->click();
                QVERIFY(panel.isMeasuring() && !isIdle(panel));
            });
        };
        button(panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        const QStringList anew = host.lines.mid(asked);
        QCOMPARE(anew.first(), QString("142 0 0 0"));
        QCOMPARE(anew.last(), QString("142 3 1 2"));
        QCOMPARE(anew.size(), 17);
    }

    /// A thread without a panel, given up before and while it asks.
    void threadGivenUp()
    {
        const auto owner = std::make_unique<RamDebugThread>(nullptr);
        RamDebugThread& thread = *owner;
        int asked = 0;
        connect(
            &thread, &RamDebugThread::doDirectRequest, this,
            [&](Command* request, Command*) {
                delete request;
                if (++asked == 3)
                    thread.abort();
            },
            Qt::BlockingQueuedConnection);
        for (int wanted : {3, 0, 3}) {
            asked = 0;
            thread.abort(); // there is no run
            thread.start();
            if (wanted == 0)
                thread.abort();
            QTRY_VERIFY_WITH_TIMEOUT(thread.isFinished(), 10000);
            QCOMPARE(asked, wanted);
        }
    }

    void startBehindStop_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("end");
        QTest::newRow("same mode") << 0 << "5 155 0 50";
        QTest::newRow("numbers of another unit") << 2 << "5 155 0 1000";
    }
    /// It begins nothing, but what the run has still to send is replaced.
    void startBehindStop()
    {
        QFETCH(int, mode);
        QFETCH(QString, end);
        WRamDebug panel;
        Host host(panel);
        host.onRequest = [&](const QString& line) {
            if (line != "5 155 0 0")
                return;
            button(panel, "btnStop")->click();
            combo(panel, "cmbTargetMode")->setCurrentIndex(mode);
            box(panel, "sbToTarget")->setValue(50);
            button(panel, "btnStart")->click();
        };
        button(panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(!panel.isMeasuring(), 10000);
        QCOMPARE(host.lines.mid(6), QStringList({"5 155 0 0", "142 4 0 0", end, "142 6 0 0",
                                                 "5 0 0 777", "142 3 0 0", "142 3 1 0"}));
    }

    void destroyedAndDrivenBack_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("at");
        QTest::addColumn<QString>("end"); // what happens to the run there
        QTest::addColumn<QString>("back");
        const struct {
            const char* name;
            int mode;
            const char* at;
            const char* end;
            const char* back;
        } rows[] = {
            {"before any target", 1, "142 9", "", ""},
            {"at the start target", 1, "5 2 0 0", "", "4 0 0 777"},
            {"torque, in the poll", 0, "142 6", "", "4 0 0 777"},
            {"velocity, in the poll", 1, "142 6", "", "4 0 0 777"},
            {"stopped before", 1, "142 6", "stop", "4 0 0 777"},
            {"position defined, no target yet", 2, "5 1 0 10", "", ""},
            {"position, in the poll", 2, "142 6", "", "4 0 0 10"},
            {"no target", 3, "142 6", "", ""},
            {"driven back already", 1, "142 3", "", ""},
            {"given up", 1, "142 6", "abort", ""},
            {"in the handler", 1, "142 6", "inside", ""},
            {"in the handler of another request", 1, "142 6", "insideOther", ""},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.mode << row.at << row.end << row.back;
    }
    void destroyedAndDrivenBack()
    {
        QFETCH(int, mode);
        QFETCH(QString, at);
        QFETCH(QString, end);
        QFETCH(QString, back);
        if (at == "5 2 0 0") // which the axis must not have left yet
            RamDebugThread::Shared::settleTime = 5000;
        const auto restore = qScopeGuard([] { RamDebugThread::Shared::settleTime = SettleTime; });
        auto panel = std::make_unique<WRamDebug>();
        Host host(*panel);
        panel->setAllowDefinedMode(true);
        panel->setTargetPositionCommand(4);
        combo(*panel, "cmbTargetMode")->setCurrentIndex(mode);
        box(*panel, "sbFromTarget")->setValue(mode == 2 ? 10 : 0);
        host.silentFor = at; // polls without end
        bool isHere = false;
        host.onRequest = [&](const QString& line) {
            if (!line.startsWith(at))
                return;
            host.onRequest = nullptr;
            if (end == "inside")
                panel.reset();
            // the thread's next request is on its way when this comes
            QTimer::singleShot(0, &host, [&] {
                QThread::msleep(5);
                if (end == "stop")
                    button(*panel, "btnStop")->click();
                if (end == "abort")
                    panel->abort();
                const auto destroy = [&] {
                    host.onRequest = nullptr;
                    host.lines.clear();
                    panel.reset();
                };
                if (end == "insideOther") {
                    host.onRequest = [&](const QString&) { destroy(); };
                    panel->updateValues();
                } else {
                    destroy();
                }
                isHere = true;
            });
        };
        button(*panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(isHere, 10000);
        QTRY_VERIFY(isNoThreadLeft());
        QCOMPARE(host.lines.join(", "), back);
    }

    void answersThatComeLate()
    {
        WRamDebug panel;
        Host host(panel);
        Command* late = nullptr;
        disconnect(&panel, nullptr, &host, nullptr);
        connect(&panel, &WRamDebug::doDirectRequest, &host, [&](Command* request, Command* reply) {
            if (!carries(request->getCommand(), Instruction::RD) || request->getType() != 3) {
                host.answer(request, reply);
                return;
            }
            delete request;
            late = reply;
            QTimer::singleShot(0, &host, [reply] {
                reply->setValue(5);
                reply->setValid(true);
            });
        });
        button(panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        QVERIFY(late);
        QCOMPARE(values(panel), QString("target [mA]: , actual [mA]: "));
    }

    /// Space goes from one button of the pair to the other.
    void focusFollowsThePair()
    {
        WRamDebug panel;
        Host host(panel);
        host.silentFor = "142 6";
        panel.show();
        const QWidget* start = button(panel, "btnStart");
        const QWidget* stop = button(panel, "btnStop");
        button(panel, "btnStart")->setFocus();
        for (const QWidget* next : {stop, start, stop}) {
            QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
            QCOMPARE(panel.focusWidget(), next);
        }
        host.silentFor.clear();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        QCOMPARE(panel.focusWidget(), start);
        auto* save = button(panel, "btnSave");
        save->setFocus();
        button(panel, "btnStart")->click();
        QCOMPARE(panel.focusWidget(), save);
        panel.abort();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        QCOMPARE(panel.focusWidget(), save);
    }

    /// Painted above the buttons: that a run is still ending, that the buffer's size is none.
    void signs()
    {
        WRamDebug panel;
        panel.resize(1000, 343);
        Host host(panel);
        const auto hasSign = [&panel] {
            const QImage image = panel.grab().toImage();
            const QRect row(button(panel, "btnStart")->x(), 0, 30, button(panel, "btnStart")->y());
            for (int x = row.left(); x <= row.right(); ++x)
                for (int y = row.top(); y <= row.bottom(); ++y)
                    if (image.pixelColor(x, y) == QColor(0xff, 0x99, 0))
                        return true;
            return false;
        };
        QVERIFY(!hasSign());
        for (int size : {1000000, 1000001, -1, 0, 1}) {
            const bool isGood = size == 1 || size == 1000000;
            host.elements = size;
            const int before = box(panel, "sbDuration")->value();
            box(panel, "sbMeasureDelay")->setValue(1);
            panel.updateValues();
            QCOMPARE(box(panel, "sbDuration")->value(), isGood ? size : before);
            QCOMPARE(hasSign(), !isGood);
        }
        host.silentFor = "142 6";
        button(panel, "btnStart")->click();
        QVERIFY(!hasSign());
        button(panel, "btnStop")->click();
        QVERIFY(hasSign());
        button(panel, "btnStart")->click();
        QVERIFY(hasSign());
        panel.abort();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        QVERIFY(!hasSign());
    }

    /// At any instant of a run, from within the handler, from its nested loop and from outside:
    /// gone within a second. AXR_DESTRUCTIONS sets how often.
    void destroyedDuringARun()
    {
        const int rounds = qMax(30, qEnvironmentVariableIntValue("AXR_DESTRUCTIONS"));
        std::mt19937 random(3);
        for (int round = 0; round < rounds; ++round) {
            auto panel = std::make_unique<WRamDebug>();
            auto host = std::make_unique<Host>(*panel);
            host->elements = 500;
            enum Where { Outside, Inside, NestedLoop, HandlerFirst, Muted, Instants };
            const int where = static_cast<int>(random() % Instants);
            const int at = static_cast<int>(random() % (random() % 4 == 0 ? 60 : 16));
            if (random() % 5 == 0)
                host->silentFor = "142 6"; // polls without end
            const auto delay = std::chrono::microseconds(random() % 300);
            int requests = 0;
            bool done = false;
            host->onRequest = [&](const QString&) {
                if (requests++ < at)
                    return;
                host->onRequest = nullptr;
                done = true;
                if (where == Inside)
                    panel.reset();
                if (where == NestedLoop) {
                    QEventLoop loop;
                    QTimer::singleShot(1, &loop, [&] {
                        panel.reset();
                        loop.quit();
                    });
                    loop.exec();
                }
            };
            if (random() % 4 == 0)
                panel->show();
            button(*panel, "btnStart")->click();
            if (random() % 4 == 0)
                button(*panel, "btnStop")->click();
            const QDeadlineTimer limit(500);
            while (!done && !limit.hasExpired())
                QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            const auto until = std::chrono::steady_clock::now() + delay;
            while (std::chrono::steady_clock::now() < until) {
            }
            if (where == HandlerFirst)
                host.reset();
            if (where == Muted)
                panel->blockSignals(true);
            QCoreApplication::processEvents(); // requests that reach nobody
            const QDeadlineTimer gone(1000);
            panel.reset();
            while (!isNoThreadLeft() && !gone.hasExpired())
                QCoreApplication::processEvents();
            QVERIFY2(isNoThreadLeft(),
                     qPrintable(QString("round %1, request %2").arg(round).arg(at)));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    void withTheSimulatedRecorder()
    {
        WRamDebug panel;
        Host host(panel);
        host.usesModule = true;
        panel.updateValues();
        QCOMPARE(box(panel, "sbDuration")->value(), SimulatedRecorder::Elements);
        combo(panel, "cmbTargetMode")->setCurrentIndex(1);
        combo(panel, "cmbMeasureMode")->setCurrentIndex(1);
        box(panel, "sbToTarget")->setValue(500);
        button(panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 20000);
        const auto* charts = User::find<SimpleScaledDrawer>(&panel, "drawer")->getCharts();
        QCOMPARE(charts->size(), 2);
        for (int item = 0; item < 2; ++item) {
            QList<double> truth;
            for (const auto& element : host.module.recorder().recorded())
                truth << element[static_cast<std::size_t>(item)];
            QCOMPARE(truth.size(), SimulatedRecorder::Elements);
            QCOMPARE(charts->at(item)->getValues(), truth);
        }
    }

    void listsAndBounds()
    {
        WRamDebug panel;
        const auto items = [&panel](const char* name) {
            QStringList texts;
            const QComboBox* list = combo(panel, name);
            for (int i = 0; i < list->count(); ++i)
                texts << list->itemText(i) + '=' + list->itemData(i).toStringList().value(1);
            return texts.join(' ');
        };
        for (int height : {-1, QWIDGETSIZE_MAX + 1}) // warns of nothing
            panel.setMaximumDrawerHeight(height);
        panel.setVelocityUnit("[pps]");
        QCOMPARE(items("cmbTargetMode"), QString("Torque=0 Velocity=1 Position=2"));
        for (bool allow : {false, false, true, true}) {
            panel.setAllowDefinedMode(allow);
            QCOMPARE(items("cmbTargetMode"), QString("Torque=0 Velocity=1 Position=2 No target=3"));
        }
        QVERIFY(!box(panel, "sbTriggerValue")->isEnabled());
        const struct {
            int mode;
            const char* modes;
            const char* unit;
            const char* targets;
            const char* caption;
        } rows[] = {
            {1, "Torque=0 Velocity=1", "[pps]", "0 1000 -4000 4000 100", "Torque"},
            {2, "Torque=0 Velocity=1 Position=2", "", "0 4000 -2147483647 2147483647 4000",
             "Torque"},
            {3, "Defined=3", "", "0 4000 -2147483647 2147483647 4000", "Debug"},
            {0, "Torque=0", "[mA]", "0 1000 -4000 4000 100", "Torque"},
        };
        for (const auto& row : rows) {
            combo(panel, "cmbTargetMode")->setCurrentIndex(row.mode);
            QCOMPARE(items("cmbMeasureMode"), QString(row.modes));
            QCOMPARE(User::find<QLabel>(&panel, "lblMinUnit")->text(), QString(row.unit));
            const QSpinBox* to = box(panel, "sbToTarget");
            QCOMPARE(QString("%1 %2 %3 %4 %5")
                         .arg(box(panel, "sbFromTarget")->value())
                         .arg(to->value())
                         .arg(to->minimum())
                         .arg(to->maximum())
                         .arg(to->singleStep()),
                     QString(row.targets));
            QCOMPARE(to->isEnabled(), row.mode != 3);
            QCOMPARE(User::find<SimpleScaledDrawer>(&panel, "drawer")->getYAxisCaption(),
                     QString(row.caption));
        }
        combo(panel, "cmbTargetMode")->setCurrentIndex(1);
        QCOMPARE(User::find<QLabel>(&panel, "lblDelayUnit")->text(), QString("[1/10 mS]"));
        combo(panel, "cmbMeasureMode")->setCurrentIndex(1);
        QCOMPARE(User::find<QLabel>(&panel, "lblDelayUnit")->text(), QString("[mS]"));
        QCOMPARE(values(panel), QString("target [pps]: , actual [pps]: "));
    }

    void savedFile()
    {
        QTemporaryDir folder;
        WRamDebug panel;
        Host host(panel);
        host.silentFor = "142 3 1 2";
        button(panel, "btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(panel), 10000);
        const QString name = folder.filePath("capture.csv");
        QTimer::singleShot(0, this, [name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
            User::find<QLineEdit>(dialog, "fileNameEdit")->setText(name);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        button(panel, "btnSave")->click();
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray("time tick;target [mA];actual [mA]\n0;0;1\n1;100;101\n2;200;\n"));
    }
};

AXR_TEST_MAIN(RamDebugTest)
#include "RamDebugTest.moc"
