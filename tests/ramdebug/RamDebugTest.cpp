#include "Chart.h"
#include "CommandRecorder.h"
#include "Global.h"
#include "Instruction.h"
#include "RamDebugThread_p.h"
#include "SimpleScaledDrawer.h"
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

/// Waits for a condition, without the pauses of QTRY_VERIFY, which each request would see.
bool gets(const std::function<bool()>& condition, int patience = 20000)
{
    for (const QDeadlineTimer limit(patience); !condition() && !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    return condition();
}

bool isNoThreadLeft() { return Global::instance()->registeredThreads().isEmpty(); }

/// How the panel goes at a request: from the event loop, where it is stopped, given up or without a
/// host before, or inside a handler.
enum End { Outside, Stopped, Aborted, HandlerFirst, Muted, Inside, NestedLoop, InsideOther, Ends };

/// A panel and what answers it for a module, on the GUI thread, and notes what was asked for as
/// "command type bank value".
struct Host : QObject {
    Host() { connect(panel.get(), &WRamDebug::doDirectRequest, this, &Host::answer); }

    QComboBox* combo(const char* name) { return User::find<QComboBox>(panel.get(), name); }
    QSpinBox* box(const char* name) { return User::find<QSpinBox>(panel.get(), name); }
    QPushButton* button(const char* name) { return User::find<QPushButton>(panel.get(), name); }
    SimpleScaledDrawer* drawer() { return User::find<SimpleScaledDrawer>(panel.get(), "drawer"); }

    bool isIdle() { return button("btnStart")->isEnabled() && !button("btnStop")->isEnabled(); }
    bool measures()
    {
        button("btnStart")->click();
        return !isIdle() && gets([this] { return isIdle(); });
    }
    QString shown()
    {
        QStringList all;
        for (const Chart* chart : qAsConst(*drawer()->getCharts())) {
            all << chart->getLabel() + ':';
            for (double value : chart->getValues())
                all.last() += ' ' + QString::number(value);
        }
        return all.join(", ");
    }
    /// Once, within the first request that begins like this; or later, when the thread's next one
    /// is on its way.
    void when(const QString& start, const std::function<void()>& action, bool later = false)
    {
        onRequest = [=](const QString& asked) {
            if (!asked.startsWith(start))
                return;
            onRequest = nullptr;
            if (!later)
                return action();
            QTimer::singleShot(0, this, [action] {
                QThread::msleep(5);
                action();
            });
        };
    }
    void answer(Command* request, Command* reply)
    {
        const std::unique_ptr<Command> owned(request);
        const QString asked = line(*request).section(' ', 1);
        lines << asked;
        if (const auto action = onRequest) // which may replace itself
            action(asked);
        if (!silentFor.isEmpty() && asked.startsWith(silentFor))
            return;
        const bool isSample = asked.startsWith("142 3 ");
        Command answer = *request;
        answer.setValue(isSample ? 100 * request->getValue() + request->getMotorBank()
                                 : values.value(asked.section(' ', 0, 1), request->getValue()));
        answer.setValid(true);
        if (isSample && answersSamplesLate)
            QTimer::singleShot(0, this, [reply, answer] { *reply = answer; });
        else
            *reply = answer;
    }

    /// Runs to this request and destroys the panel then; what it sent in its end. The last pause is
    /// in us.
    QString sentAtTheEnd(const QString& at, End end, unsigned long pause = 0)
    {
        const auto destroy = [this] {
            lines.clear();
            panel.reset();
        };
        const auto act = [&] {
            QThread::usleep(pause);
            if (end == Stopped)
                button("btnStop")->click();
            if (end == Aborted)
                panel->abort();
            if (end == HandlerFirst)
                panel->disconnect(this);
            if (end == Muted)
                panel->blockSignals(true);
            if (end == InsideOther) {
                when("142 1", destroy);
                panel->updateValues();
            } else if (end == NestedLoop) {
                QTimer::singleShot(1, this, destroy);
                gets([this] { return !panel; });
            } else
                destroy();
        };
        when(at, act, end != Inside && end != NestedLoop);
        button("btnStart")->click();
        gets([this] { return !panel && isNoThreadLeft(); });
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return lines.join(", ");
    }

    QStringList lines;
    QString silentFor; // the beginning of a line that gets no answer
    bool answersSamplesLate = false;
    QHash<QString, int> values{{"142 1", 3}, {"142 2", 2}, {"6 1", 777}};
    std::function<void(const QString&)> onRequest;                    // before the answer
    std::unique_ptr<WRamDebug> panel = std::make_unique<WRamDebug>(); // asks until it is gone
};

} // namespace

class RamDebugTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        TestCase::init();
        RamDebugThread::Shared::settleTime = SettleTime;
    }

    void commandsOfARun()
    {
        const char torque[] = "target [mA]: 0 100 200, actual [mA]: 1 101 201";
        const char velocity[] = "target [rpm]: 0 100 200, actual [rpm]: 1 101 201";
        const char position[] = "target: 0 100 200, actual: 1 101 201";
        const struct {
            int target, velocityCommand, positionCommand;
            const char *driven, *back, *shown;
        } rows[] = {
            {0, 5, 5, "5 155 2 10, 142 4 4 -5, 5 155 2 20", ", 5 0 2 777", torque},
            {1, 5, 5, "5 2 2 10, 142 4 4 -5, 5 2 2 20", ", 5 0 2 777", velocity},
            {1, 1, 4, "1 0 2 10, 142 4 4 -5, 1 0 2 20", ", 4 0 2 777", velocity}, // by rotation
            {1, 2, 4, "2 0 2 10, 142 4 4 -5, 2 0 2 20", ", 4 0 2 777", velocity},
            {2, 5, 5, "5 1 2 10, 5 0 2 10, 142 4 4 -5, 5 0 2 20", ", 5 0 2 10", position},
            {2, 5, 4, "5 1 2 10, 4 0 2 10, 142 4 4 -5, 4 0 2 20", ", 4 0 2 10", position}, // moves
            {3, 5, 5, "142 4 4 -5", "",
             "Debug 1: 0 100 200, Debug 2: 1 101 201, Debug 3:, Debug 4:"},
        };
        for (const auto& row : rows) {
            Host host;
            WRamDebug& panel = *host.panel;
            panel.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt)); // writes other digits
            panel.setAllowDefinedMode(true);
            panel.setTargetVelocityCommand(toByte(row.velocityCommand));
            panel.setTargetPositionCommand(toByte(row.positionCommand));
            panel.setAddressAndMotorBank(toByte(200), 2);
            host.combo("cmbTargetMode")->setCurrentIndex(row.target);
            auto* measured = host.combo("cmbMeasureMode");
            measured->setCurrentIndex(measured->count() - 1); // the same
            host.combo("cmbTriggerType")->setCurrentIndex(4);
            host.box("sbTriggerValue")->setValue(-5);
            host.box("sbMeasureDelay")->setValue(7);
            host.box("sbFromTarget")->setValue(10);
            host.box("sbToTarget")->setValue(20);
            int polls = 0;
            host.onRequest = [&](const QString& asked) {
                host.silentFor = asked.startsWith("142 6") && ++polls < 3 ? asked : QString();
            };
            QSignalSpy started(&panel, &WRamDebug::measurementStarted);
            host.button("btnStart")->click();
            QVERIFY(started.size() == 1 && !host.isIdle());
            QString open;
            for (bool idle : {false, true}) {
                QVERIFY(!idle || gets([&host] { return host.isIdle(); }));
                for (const char* name :
                     {"cmbTargetMode", "cmbMeasureMode", "cmbTriggerType", "sbMeasureDelay",
                      "sbFromTarget", "sbToTarget", "sbTriggerValue", "sbDuration"})
                    open += QString::number(User::find<QWidget>(&panel, name)->isEnabled());
            }
            QCOMPARE(open, QString(row.target == 3 ? "0000000011110010" : "0000000011111110"));
            QCOMPARE(host.lines.join(", "),
                     QString("142 0 2 0, 142 1 2 0, 142 2 2 0, 6 1 2 0, 142 7 2 %1, 142 9 2 7, %2, "
                             "142 6 2 0, 142 6 2 0, 142 6 2 0%3, 142 3 0 0, 142 3 1 0, 142 3 0 1, "
                             "142 3 1 1, 142 3 0 2, 142 3 1 2")
                         .arg(row.target)
                         .arg(row.driven, row.back));
            QCOMPARE(host.shown(), QString(row.shown));
            QTRY_VERIFY(isNoThreadLeft());
        }
    }

    void lostAnswersAndStop()
    {
        Host host;
        host.values["142 1"] = 50;
        host.silentFor = "142 3 0 1"; // target of element 1 and of 10 to 19
        host.when("142 3 0 20", [&] {
            host.button("btnStop")->click();
            QVERIFY(host.isIdle() && host.panel->isMeasuring());
        });
        QVERIFY(host.measures() && gets(isNoThreadLeft));
        QCOMPARE(host.lines.last(), QString("142 3 1 20"));
        QCOMPARE(host.shown().section(", ", 0, 0),
                 QString("target [mA]: 0 200 300 400 500 600 700 800 900 2000"));

        // started anew at once: the end of the run before, of which the panel has not heard yet,
        // is not that of this one; a stop before the thread has begun counts
        host.values["142 1"] = 3;
        for (bool stopped : {false, true}) {
            host.lines.clear();
            host.button("btnStart")->click();
            if (stopped)
                host.button("btnStop")->click();
            QVERIFY(gets([&] { return !host.lines.isEmpty(); }));
            QCOMPARE(host.isIdle(), stopped);
            QTRY_VERIFY_WITH_TIMEOUT(isNoThreadLeft(), 10000);
            QCOMPARE(host.lines.count("142 0 0 0"), 1);
            QCOMPARE(host.lines.last(), QString(stopped ? "142 3 1 0" : "142 3 1 2"));
            QVERIFY(gets([&] { return host.isIdle(); })); // "Start" takes a click again
        }
        QVERIFY(gets([&] { return !host.panel->isMeasuring(); }));

        // what comes after the handler has returned is looked at by nobody
        host.silentFor.clear();
        host.answersSamplesLate = true;
        QVERIFY(host.measures());
        QCOMPARE(host.shown(), QString("target [mA]:, actual [mA]:"));
        // without its sizes nothing is fetched, without its position it drives to 0
        for (const QString unknown : {"142 1", "142 2", "6 1"}) {
            host.lines.clear();
            host.silentFor = unknown;
            QVERIFY(host.measures());
            QCOMPARE(host.lines.contains("142 3 0 0"), unknown == "6 1");
            QCOMPARE(host.lines.contains("5 0 0 0"), unknown == "6 1");
        }
    }

    /// Nothing more is sent, and the next "Start" works, at once and after the end.
    void givenUp()
    {
        for (const QString at : {"142 0", "5 2 0 0", "142 4", "5 2 0 1000", "142 6", "5 0 0 777",
                                 "142 3 0 0", "142 3 1 2"}) {
            for (bool later : {false, true}) {
                Host host;
                host.panel->abort(); // there is no run
                host.combo("cmbTargetMode")->setCurrentIndex(1);
                int asked = 0;
                for (bool again : {false, true}) {
                    host.lines.clear();
                    const auto giveUp = [&] {
                        QVERIFY(host.panel->isMeasuring());
                        if (again)
                            host.button("btnStop")->click();
                        host.panel->abort();
                        asked = host.lines.size();
                        if (again)
                            host.button("btnStart")->click();
                    };
                    host.when(at, giveUp, later);
                    QVERIFY(host.measures());
                    QVERIFY(!host.panel->isMeasuring());
                    QCOMPARE(host.lines.size(), asked + (again ? 17 : 0));
                }
                QCOMPARE(host.lines.value(asked), QString("142 0 0 0"));
                QCOMPARE(host.lines.last(), QString("142 3 1 2"));
            }
        }
    }

    /// A thread without a panel, given up before and while it asks.
    void threadGivenUp()
    {
        // not on the stack, which is used anew without the sanitizer having seen the thread's end
        const auto thread = std::make_unique<RamDebugThread>(nullptr);
        int asked = 0;
        connect(
            thread.get(), &RamDebugThread::doDirectRequest, this,
            [&](Command* request) {
                delete request;
                if (++asked == 3)
                    thread->abort();
            },
            Qt::BlockingQueuedConnection);
        for (int wanted : {3, 0, 3}) {
            asked = 0;
            thread->abort(); // there is no run
            thread->start();
            if (wanted == 0)
                thread->abort();
            QVERIFY(gets([&] { return thread->isFinished(); }));
            QCOMPARE(asked, wanted);
        }
    }

    /// It begins nothing, but what the run has still to send is replaced, unless it is in another
    /// unit.
    void startBehindStop()
    {
        for (int mode : {0, 2}) {
            Host host;
            host.when("5 155 0 0", [&] {
                host.button("btnStop")->click();
                host.combo("cmbTargetMode")->setCurrentIndex(mode);
                host.box("sbToTarget")->setValue(50);
                host.button("btnStart")->click();
            });
            QVERIFY(host.measures());
            QCOMPARE(host.lines.mid(6).join(", "),
                     QString("5 155 0 0, 142 4 0 0, 5 155 0 %1, 142 6 0 0, 5 0 0 777, 142 3 0 0, "
                             "142 3 1 0")
                         .arg(mode ? 1000 : 50));
        }
    }

    void destroyedAndDrivenBack()
    {
        const struct {
            int mode;
            QString at;
            End end;
            QString back;
        } rows[] = {
            {1, "142 9", Outside, ""}, // no target yet
            {1, "5 2 0 0", Outside, "4 0 0 777"},
            {0, "142 6", Outside, "4 0 0 777"},
            {1, "142 6", Stopped, "4 0 0 777"},
            {2, "5 1 0 10", Outside, ""}, // defines the position and moves nothing
            {2, "142 6", Outside, "4 0 0 10"},
            {3, "142 6", Outside, ""},
            {1, "142 3", Outside, ""}, // driven back already
            {1, "142 6", Aborted, ""},
            {1, "142 6", Inside, ""},
            {1, "142 6", InsideOther, ""}, // in the handler of another request
            {1, "142 6", NestedLoop, ""},
            {1, "142 6", HandlerFirst, ""},
            {1, "142 6", Muted, ""},
        };
        for (const auto& row : rows) {
            // the axis must not leave the start target before this looks
            RamDebugThread::Shared::settleTime = row.at == "5 2 0 0" ? 5000 : SettleTime;
            Host host;
            host.panel->setAllowDefinedMode(true);
            host.panel->setTargetPositionCommand(4);
            host.combo("cmbTargetMode")->setCurrentIndex(row.mode);
            host.box("sbFromTarget")->setValue(row.mode == 2 ? 10 : 0);
            host.silentFor = row.at; // polls without end
            const QString name = QString("%1 at %2: ").arg(row.end).arg(row.at);
            QCOMPARE(name + host.sentAtTheEnd(row.at, row.end), name + row.back);
        }
        // a run that is over leaves nothing to drive back, though nobody heard it
        Host host;
        host.when("142 6", [&host] { host.panel->blockSignals(true); });
        QVERIFY(host.measures());
        host.panel->blockSignals(false);
        host.lines.clear();
        host.panel.reset();
        QCOMPARE(host.lines, QStringList());
    }

    /// At any instant of a run, gone within a second. AXR_DESTRUCTIONS sets how often.
    void destroyedDuringARun()
    {
        std::mt19937 random(3);
        for (int i = qMax(30, qEnvironmentVariableIntValue("AXR_DESTRUCTIONS")); i > 0; --i) {
            Host host;
            host.values["142 1"] = 500;
            const QStringList requests{"142 0",     "142 1",   "142 2",    "6 1",   "142 7",
                                       "142 9",     "5 155 0", "142 4",    "142 6", "5 0 0",
                                       "142 3 0 0", "142 3 1", "142 3 0 5"};
            const QString at = requests[int(random() % requests.size())];
            host.sentAtTheEnd(at, End(random() % Ends), random() % 300);
            QVERIFY2(isNoThreadLeft(), qPrintable(at));
        }
    }

    void listsAndBounds()
    {
        Host host;
        WRamDebug& panel = *host.panel;
        const auto items = [&host](const char* name) {
            QStringList texts;
            const QComboBox* list = host.combo(name);
            for (int i = 0; i < list->count(); ++i)
                texts << list->itemText(i) + '=' + list->itemData(i).toStringList().value(1);
            return texts.join(' ');
        };
        const auto shown = [&] {
            const QSpinBox* to = host.box("sbToTarget");
            QString text = items("cmbMeasureMode") + ", ";
            for (const char* label : {"lblMinUnit", "lblMaxUnit", "lblDelayUnit"})
                text += User::find<QLabel>(&panel, label)->text();
            for (const char* name : {"sbFromTarget", "sbToTarget"})
                text += QString(" %1").arg(host.box(name)->value());
            return text + QString(", %1..%2 by %3 %4, %5: %6")
                              .arg(to->minimum())
                              .arg(to->maximum())
                              .arg(to->singleStep())
                              .arg(to->isEnabled())
                              .arg(host.drawer()->getYAxisCaption(), host.shown());
        };
        for (int height : {-1, QWIDGETSIZE_MAX + 1}) // warns of nothing
            panel.setMaximumDrawerHeight(height);
        panel.setVelocityUnit("[pps]");
        QCOMPARE(items("cmbTargetMode"), QString("Torque=0 Velocity=1 Position=2"));
        for (bool allow : {false, false, true, true}) {
            panel.setAllowDefinedMode(allow);
            QCOMPARE(items("cmbTargetMode"), QString("Torque=0 Velocity=1 Position=2 No target=3"));
        }
        QCOMPARE(items("cmbTriggerType"),
                 QString("Always=0 Position lower=1 Position higher=2 Velocity lower=3 Velocity "
                         "higher=4 Torque lower=5 Torque higher=6"));
        panel.setMaxTargetTorque(300);
        panel.setMaxTargetVelocity(3000);
        const std::pair<int, const char*> rows[] = {
            {1, "Torque=0 Velocity=1, [pps][pps][1/10 mS] 0 1000, -3000..3000 by 100 1, Torque: "
                "target [mA]:, actual [mA]:"},
            {-1, "Torque=0 Velocity=1, [pps][pps][mS] 0 1000, -3000..3000 by 100 1, Velocity: "
                 "target [pps]:, actual [pps]:"},
            {2, "Torque=0 Velocity=1 Position=2, [1/10 mS] 0 4000, -2147483647..2147483647 by 4000 "
                "1, Torque: target [mA]:, actual [mA]:"},
            {3, "Defined=3, [mS] 0 4000, -2147483647..2147483647 by 4000 0, Debug: Debug 1:, "
                "Debug 2:, Debug 3:, Debug 4:"},
            {0, "Torque=0, [mA][mA][1/10 mS] 0 300, -300..300 by 100 1, Torque: target [mA]:, "
                "actual [mA]:"},
        };
        for (const auto& [target, expected] : rows) {
            if (target < 0)
                host.combo("cmbMeasureMode")->setCurrentIndex(1);
            else
                host.combo("cmbTargetMode")->setCurrentIndex(target);
            QCOMPARE(shown(), QString(expected));
        }
        for (bool hasValue : {false, true}) {
            QCOMPARE(host.box("sbTriggerValue")->isEnabled(), hasValue);
            host.combo("cmbTriggerType")->setCurrentIndex(1);
        }
    }

    /// Of what is no size, a sign above the buttons tells.
    void bufferSizes()
    {
        Host host;
        host.panel->resize(1000, 343);
        for (int size : {1000000, 1000001, -1, 0, 1}) {
            const bool isGood = size == 1 || size == 1000000;
            host.values["142 1"] = size;
            host.box("sbMeasureDelay")->setValue(2);
            const int before = host.box("sbDuration")->value();
            host.panel->updateValues();
            QCOMPARE(host.box("sbDuration")->value(), isGood ? size : before);
            const QImage image = host.panel->grab().toImage();
            const QPoint corner = host.button("btnStart")->pos();
            bool hasSign = false;
            for (int i = 0; i < 30 * corner.y(); ++i)
                hasSign |= image.pixelColor(corner.x() + i % 30, i / 30) == QColor(0xff, 0x99, 0);
            QCOMPARE(hasSign, !isGood);
        }
    }

    void savedFile()
    {
        QTemporaryDir folder;
        Host host;
        host.silentFor = "142 3 1 2";
        host.panel->show();
        host.button("btnSave")->setFocus(); // and keeps it
        QVERIFY(host.measures());
        QCOMPARE(host.panel->focusWidget(), host.button("btnSave"));
        const QString name = folder.filePath("capture.csv");
        QTimer::singleShot(0, this, [name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
            auto* edit = User::find<QLineEdit>(dialog, "fileNameEdit");
            QVERIFY(edit->text().endsWith("_target [mA]_actual [mA].csv"));
            edit->setText(name);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        host.button("btnSave")->click();
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray("time tick;target [mA];actual [mA]\n0;0;1\n1;100;101\n2;200;\n"));
    }
};

AXR_TEST_MAIN(RamDebugTest)
#include "RamDebugTest.moc"
