#include "Bytes.h"
#include "Chart.h"
#include "Command.h"
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

/// A panel and what answers it for a module, on the GUI thread, and notes what was asked for.
class Host : public QObject
{
    Q_OBJECT
public:
    Host() { connect(panel.get(), &WRamDebug::doDirectRequest, this, &Host::answer); }

    QComboBox* combo(const char* name) { return User::find<QComboBox>(panel.get(), name); }
    QSpinBox* box(const char* name) { return User::find<QSpinBox>(panel.get(), name); }
    QPushButton* button(const char* name) { return User::find<QPushButton>(panel.get(), name); }
    SimpleScaledDrawer* drawer() { return User::find<SimpleScaledDrawer>(panel.get(), "drawer"); }

    bool isIdle() { return button("btnStart")->isEnabled() && !button("btnStop")->isEnabled(); }
    bool getsIdle()
    {
        return gets([this] { return isIdle(); });
    }
    bool measures()
    {
        button("btnStart")->click();
        return !isIdle() && getsIdle();
    }
    QString shown()
    {
        QStringList all;
        for (const Chart* chart : qAsConst(*drawer()->getCharts())) {
            QStringList texts;
            for (double value : chart->getValues())
                texts << QString::number(value);
            all << chart->getLabel() + ": " + texts.join(' ');
        }
        return all.join(", ");
    }
    /// Once, within the first request that begins like this; or later, when the thread's next one
    /// is on its way.
    void when(const QString& start, const std::function<void()>& action, bool later = false)
    {
        onRequest = [=](const QString& line) {
            if (!line.startsWith(start))
                return;
            onRequest = nullptr;
            if (!later)
                action();
            else
                QTimer::singleShot(0, this, [action] {
                    QThread::msleep(5);
                    action();
                });
        };
    }

    QStringList lines;
    QString silentFor; // the beginning of a line that gets no answer
    bool answersSamplesLate = false;
    QHash<QString, int> values{{"142 1", 3}, {"142 2", 2}, {"6 1", 777}};
    std::function<void(const QString&)> onRequest;                    // before the answer
    std::unique_ptr<WRamDebug> panel = std::make_unique<WRamDebug>(); // asks until it is gone

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
        const bool isSample = line.startsWith("142 3 ");
        Command answer = *request;
        answer.setStatus(StatusOk);
        answer.setValue(isSample ? 100 * request->getValue() + request->getMotorBank()
                                 : values.value(line.section(' ', 0, 1), request->getValue()));
        answer.setValid(true);
        if (isSample && answersSamplesLate)
            QTimer::singleShot(0, this, [reply, answer] { *reply = answer; });
        else
            *reply = answer;
    }
};

bool isNoThreadLeft() { return Global::instance()->registeredThreads().isEmpty(); }

} // namespace

class RamDebugTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { RamDebugThread::Shared::settleTime = SettleTime; }

    void commandsOfARun()
    {
        const char torque[] = "target [mA]: 0 100 200, actual [mA]: 1 101 201";
        const char velocity[] = "target [rpm]: 0 100 200, actual [rpm]: 1 101 201";
        const char position[] = "target: 0 100 200, actual: 1 101 201";
        const struct {
            int target;
            int velocityCommand;
            int positionCommand;
            const char* driven;
            const char* back;
            const char* shown;
        } rows[] = {
            {0, 5, 5, "5 155 2 10, 142 4 4 -5, 5 155 2 20", ", 5 0 2 777", torque},
            {1, 5, 5, "5 2 2 10, 142 4 4 -5, 5 2 2 20", ", 5 0 2 777", velocity},
            {1, 2, 4, "2 0 2 10, 142 4 4 -5, 2 0 2 20", ", 4 0 2 777", velocity}, // by rotation
            {2, 5, 5, "5 1 2 10, 5 0 2 10, 142 4 4 -5, 5 0 2 20", ", 5 0 2 10", position},
            {2, 5, 4, "5 1 2 10, 4 0 2 10, 142 4 4 -5, 4 0 2 20", ", 4 0 2 10", position}, // moves
            {3, 5, 5, "142 4 4 -5", "",
             "Debug 1: 0 100 200, Debug 2: 1 101 201, Debug 3: , Debug 4: "},
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
            host.onRequest = [&](const QString& line) {
                host.silentFor = line.startsWith("142 6") && ++polls < 3 ? line : QString();
            };
            QSignalSpy started(&panel, &WRamDebug::measurementStarted);
            host.button("btnStart")->click();
            QCOMPARE(started.size(), 1);
            QVERIFY(!host.isIdle() && !host.combo("cmbTargetMode")->isEnabled());
            QVERIFY(host.getsIdle());
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
            QVERIFY(host.isIdle());
        });
        host.button("btnStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(host.lines.contains("142 3 1 20"), 10000);
        QTRY_VERIFY(isNoThreadLeft());
        QCOMPARE(host.shown().section(", ", 0, 0),
                 QString("target [mA]: 0 200 300 400 500 600 700 800 900 2000"));

        // started anew at once: the end of the run before, of which the panel has not heard yet,
        // is not that of this one; a stop before the thread has begun counts
        host.silentFor.clear();
        host.values["142 1"] = 3;
        for (bool stopped : {false, true}) {
            host.lines.clear();
            host.button("btnStart")->click();
            QVERIFY(!host.isIdle());
            if (stopped)
                host.button("btnStop")->click();
            QTRY_VERIFY_WITH_TIMEOUT(!host.lines.isEmpty(), 10000);
            QCOMPARE(host.isIdle(), stopped);
            QTRY_VERIFY_WITH_TIMEOUT(isNoThreadLeft(), 10000);
            QCOMPARE(host.lines.count("142 0 0 0"), 1);
            QCOMPARE(host.lines.last(), stopped ? QString("142 3 1 0") : QString("142 3 1 2"));
            QVERIFY(host.getsIdle()); // "Start" takes a click again
        }
    }

    void givenUp_data()
    {
        QTest::addColumn<QString>("at");
        QTest::addColumn<bool>("later");
        for (const char* at : {"142 0", "5 2 0 0", "142 4", "5 2 0 1000", "142 6", "5 0 0 777",
                               "142 3 0 0", "142 3 1 2"}) {
            QTest::addRow("%s, in the handler", at) << QString(at) << false;
            QTest::addRow("%s, with the next one queued", at) << QString(at) << true;
        }
    }
    /// Nothing more is sent, and the next "Start" works, at once and after the end.
    void givenUp()
    {
        QFETCH(QString, at);
        QFETCH(bool, later);
        Host host;
        host.panel->abort(); // there is no run
        host.combo("cmbTargetMode")->setCurrentIndex(1);
        int asked = 0;
        const auto giveUp = [&] {
            QVERIFY(host.panel->isMeasuring());
            host.panel->abort();
            asked = host.lines.size();
        };
        host.when(at, giveUp, later);
        QVERIFY(host.measures());
        QVERIFY(!host.panel->isMeasuring());
        QCOMPARE(host.lines.size(), asked);

        host.lines.clear();
        const auto giveUpAndStart = [&] {
            host.button("btnStop")->click();
            giveUp();
            host.button("btnStart")->click();
            QVERIFY(host.panel->isMeasuring() && !host.isIdle());
        };
        host.when(at, giveUpAndStart, later);
        QVERIFY(host.measures());
        const QStringList anew = host.lines.mid(asked);
        QCOMPARE(anew.first(), QString("142 0 0 0"));
        QCOMPARE(anew.last(), QString("142 3 1 2"));
        QCOMPARE(anew.size(), 17);
    }

    /// A thread without a panel, given up before and while it asks.
    void threadGivenUp()
    {
        RamDebugThread thread(nullptr);
        int asked = 0;
        const auto answer = [&](Command* request, Command*) {
            delete request;
            if (++asked == 3)
                thread.abort();
        };
        connect(&thread, &RamDebugThread::doDirectRequest, this, answer,
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
            QCOMPARE(host.lines.mid(6),
                     QStringList({"5 155 0 0", "142 4 0 0", mode ? "5 155 0 1000" : "5 155 0 50",
                                  "142 6 0 0", "5 0 0 777", "142 3 0 0", "142 3 1 0"}));
        }
    }

    void destroyedAndDrivenBack()
    {
        const auto restore = qScopeGuard([] { RamDebugThread::Shared::settleTime = SettleTime; });
        const struct {
            int mode;
            QString at;
            QString end; // what happens to the run there
            QString back;
        } rows[] = {
            {1, "142 9", "", ""}, // no target yet
            {1, "5 2 0 0", "", "4 0 0 777"},
            {0, "142 6", "", "4 0 0 777"},
            {1, "142 6", "", "4 0 0 777"},
            {1, "142 6", "stop", "4 0 0 777"},
            {2, "5 1 0 10", "", ""}, // defines the position and moves nothing
            {2, "142 6", "", "4 0 0 10"},
            {3, "142 6", "", ""},
            {1, "142 3", "", ""}, // driven back already
            {1, "142 6", "abort", ""},
            {1, "142 6", "inside", ""},
            {1, "142 6", "insideOther", ""}, // in the handler of another request
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
            const auto destroy = [&host] {
                host.lines.clear();
                host.panel.reset();
            };
            const auto act = [&] {
                if (row.end == "stop")
                    host.button("btnStop")->click();
                if (row.end == "abort")
                    host.panel->abort();
                if (row.end != "insideOther")
                    return destroy();
                host.when("142 1", destroy);
                host.panel->updateValues();
            };
            host.when(row.at, act, row.end != "inside");
            host.button("btnStart")->click();
            QTRY_VERIFY_WITH_TIMEOUT(!host.panel, 10000);
            QTRY_VERIFY(isNoThreadLeft());
            const QString name = row.at + ' ' + row.end + ": ";
            QCOMPARE(name + host.lines.join(", "), name + row.back);
        }
    }

    /// A run that is over leaves nothing to drive back, though nobody heard it.
    void wayBackToNobody()
    {
        Host host;
        host.when("142 6", [&host] { host.panel->blockSignals(true); });
        QVERIFY(host.measures());
        host.panel->blockSignals(false);
        host.lines.clear();
        host.panel.reset();
        QCOMPARE(host.lines, QStringList());
    }

    void answersThatComeLate()
    {
        Host host;
        host.answersSamplesLate = true;
        QVERIFY(host.measures());
        QCOMPARE(host.lines.last(), QString("142 3 1 2"));
        QCOMPARE(host.shown(), QString("target [mA]: , actual [mA]: "));
    }

    /// Of what is no size, a sign above the buttons tells.
    void bufferSizes()
    {
        Host host;
        host.panel->resize(1000, 343);
        for (int size : {1000000, 1000001, -1, 0, 1}) {
            const bool isGood = size == 1 || size == 1000000;
            host.values["142 1"] = size;
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

    /// At any instant of a run, from within the handler, from its nested loop and from outside:
    /// gone within a second. AXR_DESTRUCTIONS sets how often.
    void destroyedDuringARun()
    {
        const int rounds = qMax(30, qEnvironmentVariableIntValue("AXR_DESTRUCTIONS"));
        std::mt19937 random(3);
        for (int round = 0; round < rounds; ++round) {
            auto host = std::make_unique<Host>();
            std::unique_ptr<WRamDebug>& panel = host->panel;
            host->values["142 1"] = 500;
            enum Where { Outside, Inside, NestedLoop, HandlerFirst, Muted, Instants };
            const int where = static_cast<int>(random() % Instants);
            const int at = static_cast<int>(random() % (random() % 4 == 0 ? 60 : 16));
            if (random() % 5 == 0)
                host->silentFor = "142 6"; // polls without end
            const auto delay = std::chrono::microseconds(random() % 300);
            bool done = false;
            host->onRequest = [&](const QString&) {
                if (host->lines.size() <= at)
                    return;
                host->onRequest = nullptr;
                done = true;
                if (where == Inside)
                    panel.reset();
                if (where == NestedLoop) {
                    QTimer::singleShot(1, [&] { panel.reset(); });
                    QTRY_VERIFY(!panel);
                }
            };
            if (random() % 4 == 0)
                panel->show();
            host->button("btnStart")->click();
            if (random() % 4 == 0)
                host->button("btnStop")->click();
            gets([&done] { return done; }, 500);
            const auto until = std::chrono::steady_clock::now() + delay;
            while (std::chrono::steady_clock::now() < until) {
            }
            std::unique_ptr<WRamDebug> last = std::move(panel);
            if (where == HandlerFirst)
                host.reset();
            if (where == Muted)
                last->blockSignals(true);
            QCoreApplication::processEvents(); // requests that reach nobody
            last.reset();
            QVERIFY2(gets(isNoThreadLeft, 1000),
                     qPrintable(QString("round %1, request %2").arg(round).arg(at)));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
        const auto unit = [&panel](const char* name) {
            return User::find<QLabel>(&panel, name)->text();
        };
        QCOMPARE(panel.size(), QSize(929, 343));
        for (int height : {-1, QWIDGETSIZE_MAX + 1}) // warns of nothing
            panel.setMaximumDrawerHeight(height);
        panel.setVelocityUnit("[pps]");
        QCOMPARE(items("cmbTargetMode"), QString("Torque=0 Velocity=1 Position=2"));
        for (bool allow : {false, false, true, true}) {
            panel.setAllowDefinedMode(allow);
            QCOMPARE(items("cmbTargetMode"), QString("Torque=0 Velocity=1 Position=2 No target=3"));
        }
        QVERIFY(!host.box("sbTriggerValue")->isEnabled());
        const struct {
            int mode;
            const char* shown;
        } rows[] = {
            {1, "Torque=0 Velocity=1, [pps], 0 1000, -4000..4000 by 100, 1, Torque"},
            {2, "Torque=0 Velocity=1 Position=2, , 0 4000, -2147483647..2147483647 by 4000, 1, "
                "Torque"},
            {3, "Defined=3, , 0 4000, -2147483647..2147483647 by 4000, 0, Debug"},
            {0, "Torque=0, [mA], 0 1000, -4000..4000 by 100, 1, Torque"},
        };
        const QSpinBox* from = host.box("sbFromTarget");
        const QSpinBox* to = host.box("sbToTarget");
        for (const auto& row : rows) {
            host.combo("cmbTargetMode")->setCurrentIndex(row.mode);
            QCOMPARE(QString("%1, %2, %3 %4, %5..%6 by %7, %8, %9")
                         .arg(items("cmbMeasureMode"), unit("lblMinUnit"))
                         .arg(from->value())
                         .arg(to->value())
                         .arg(to->minimum())
                         .arg(to->maximum())
                         .arg(to->singleStep())
                         .arg(to->isEnabled())
                         .arg(host.drawer()->getYAxisCaption()),
                     QString(row.shown));
        }
        host.combo("cmbTargetMode")->setCurrentIndex(1);
        for (const char* text :
             {"[1/10 mS]: target [mA]: , actual [mA]: ", "[mS]: target [pps]: , actual [pps]: "}) {
            QCOMPARE(unit("lblDelayUnit") + ": " + host.shown(), QString(text));
            host.combo("cmbMeasureMode")->setCurrentIndex(1);
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
            User::find<QLineEdit>(dialog, "fileNameEdit")->setText(name);
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
