#include "CANConnection.h"
#include "Connection.h"
#include "Instruction.h"
#include "OpenBench.h"
#include "ParameterCatalogue.h"
#include "SpinBox.h"
#include "TestCase.h"
#include "TraceController.h"
#include "WTraceController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>

namespace Number = AxisParameterNumber;

namespace
{

WorkbenchOptions parse(const QStringList& arguments)
{
    return WorkbenchOptions::parse(QStringList("axrworkbench") + arguments, Workbench::pageNames());
}

/// A connected workbench at its parameters page.
struct ParameterSheet : OpenBench {
    QTableView* table;
    QComboBox* axisBox;
    SpinBox* box;

    explicit ParameterSheet(const QStringList& arguments = {})
        : OpenBench("parameters", arguments)
        , table(User::find<QWidget>(this, "parameters")->findChild<QTableView*>())
        , axisBox(User::find<QWidget>(this, "parameters")->findChild<QComboBox*>())
        , box(find<SpinBox>("parameters", "sbParameter"))
    {
        open();
    }

    QModelIndex valueOf(int number) const
    {
        int row = 0;
        while (table->model()->index(row, 0).data().toInt() != number)
            ++row;
        return table->model()->index(row, 2);
    }
    void typeOver(const QString& text)
    {
        box->setFocus();
        box->selectAll();
        User::type(box, text);
        advance(1500);
    }
};

} // namespace

class WorkbenchTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void commandLine()
    {
        const WorkbenchOptions options =
            parse({"--page", "motion", "--photo", "a.png", "--seed", "4294967295", "--lost-replies",
                   "12.5", "--delay", "30", "--silent"});
        QCOMPARE(options.action, WorkbenchOptions::Action::Show);
        QCOMPARE(options.page, QString("motion"));
        QCOMPARE(options.weather.seed, 4294967295u);
        QCOMPARE(options.weather.replyLoss, 0.125);
        QCOMPARE(options.weather.maximumDelay, 30);
        QVERIFY(options.silent && options.unattended());
        QCOMPARE(parse({"--help"}).action, WorkbenchOptions::Action::Help);
        QVERIFY(!parse({}).unattended());
        for (const char* bad :
             {"--fly", "--page kitchen", "--seed x", "--seed 1.5", "--delay 0.5", "--late 101",
              "--late nan", "tour", "--tour", "--tour ", "--theme half", "--theme ",
              "--font-size 13", "--tour a --photo b", "--gallery a --photo b"}) {
            const WorkbenchOptions refused = parse(QString(bad).split(' '));
            QVERIFY2(refused.action == WorkbenchOptions::Action::Error, bad);
            QVERIFY2(!refused.text.isEmpty() && !refused.text.contains('\n'), bad);
        }
    }

    void whatIsRemembered()
    {
        const auto lookOf = [](const QStringList& arguments) {
            Workbench bench(parse(arguments));
            bench.ensurePolished();
            return QString("%1 %2")
                .arg(QApplication::palette().color(QPalette::Text).name())
                .arg(bench.font().pixelSize());
        };
        QCOMPARE(lookOf({}), QString("#000000 12"));
        QCOMPARE(lookOf({"--theme", "on", "--font-size", "20"}), QString("#ffffff 20"));
        QCOMPARE(lookOf({}), QString("#000000 20")); // an option is for once, the size is a click
        {
            Workbench bench(parse({"--page", "motion"}));
            bench.resize(1000, 700);
            bench.show();
            User::click(User::find<QCheckBox>(&bench, "cbTheme"));
            bench.close();
        }
        QCOMPARE(lookOf({}), QString("#ffffff 20"));
        QCOMPARE(lookOf({"--theme", "off"}), QString("#000000 20"));
        Workbench again(parse({}));
        QCOMPARE(again.size(), QSize(1000, 700));
        again.show();
        QVERIFY(User::find<QWidget>(&again, "motion")->isVisible());
    }

    void theLastLinkIsConnectedAgain()
    {
        const auto connectedBy = [](const QStringList& arguments, bool byCan) {
            Workbench bench(parse(arguments));
            bench.show();
            if (byCan)
                User::click(
                    User::find<QPushButton>(bench.findChild<CANConnection*>(), "btnConnect"));
            bench.advance(300);
            return bench.linkText();
        };
        QCOMPARE(connectedBy({}, false), QString("Not connected"));
        QCOMPARE(connectedBy({"--connect"}, false), QString("Connected: SIM1"));
        QCOMPARE(connectedBy({}, true), QString("Connected: CAN, 1000 kBit/s"));
        QCOMPARE(connectedBy({"--connect"}, false), QString("Connected: CAN, 1000 kBit/s"));
    }

    void pagesThatNeedALinkSaySo()
    {
        OpenBench bench("connection");
        const auto pagesWithNotice = [&bench] {
            QStringList names;
            for (const QString& name : Workbench::pageNames()) {
                bench.showPage(name);
                if (User::find<QLabel>(&bench, "lblNeedsLink")->isVisible())
                    names << name;
            }
            return names.join(' ');
        };
        QCOMPARE(pagesWithNotice(), QString("console motion parameters polling graph capture"));
        User::click(User::find<QPushButton>(&bench, "btnConnectLast"));
        QCOMPARE(pagesWithNotice(), QString());
    }

    void pagesByKeyAndByTyping()
    {
        OpenBench bench("connection");
        const auto* list = User::find<QListWidget>(&bench, "lwPages");
        const auto pageAfter = [&](const QString& digits) { // typed while Ctrl is held
            for (QChar digit : digits) {
                for (bool isPress : {true, false})
                    QTest::simulateEvent(&bench, isPress, digit.unicode(), Qt::ControlModifier,
                                         QString(), false);
            }
            QTest::keyRelease(&bench, Qt::Key_Control);
            return list->currentRow() + 1;
        };
        for (int number = 1; number <= list->count(); ++number)
            QCOMPARE(pageAfter(QString::number(number)), number);
        QCOMPARE(pageAfter("0"), 10);
        QCOMPARE(pageAfter("99"), 9); // there is no such page
        QCOMPARE(pageAfter("21"), 1);

        auto* line = User::find<QLineEdit>(&bench, "leFindPage");
        QTest::keyClick(&bench, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(line->hasFocus());
        User::type(line, "ARA"); // parameters
        QCOMPARE(list->currentRow(), 0);
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(list->currentItem()->text(), QString("Parameters"));
        QVERIFY(line->text().isEmpty() && list->hasFocus());
        line->setFocus();
        User::type(line, "no such");
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(list->currentItem()->text(), QString("Parameters"));
        QTest::keyClick(line, Qt::Key_Escape);
        for (int row = 0; row < list->count(); ++row)
            QVERIFY(!list->item(row)->isHidden());
    }

    void aRelativeMoveWaitsForThePosition()
    {
        OpenBench bench("motion", {"--silent"});
        bench.open();
        auto* move = bench.find<QPushButton>("PositionControl1", "btnMoveRelative");
        QVERIFY(!move->isEnabled());
        bench.wire().setSilent(false);
        bench.advance(1000);
        QVERIFY(move->isEnabled());
    }

    void delaysAndScalesActWhenTheEntryEnds()
    {
        OpenBench bench("graph", {"--delay", "30"});
        bench.open();
        int boxes = 0;
        for (const char* page : {"graph", "polling"}) {
            for (auto* box : User::find<QWidget>(&bench, page)->findChildren<QSpinBox*>()) {
                const bool isDelay = box->objectName() == "sbDelay";
                QSignalSpy told(box, QOverload<int>::of(&QSpinBox::valueChanged));
                box->setEnabled(true);
                box->selectAll();
                User::type(box, "500");
                QCOMPARE(told.size(), 0);
                QTest::keyClick(box, Qt::Key_Return);
                QCOMPARE(told.size(), 1);
                QVERIFY(!isDelay || box->value() == 500);
                box->selectAll();
                User::type(box, "0");
                QTest::keyClick(box, Qt::Key_Return);
                QVERIFY(!isDelay || box->value() >= 30); // what the link answers
                ++boxes;
            }
        }
        QCOMPARE(boxes, 5); // three delays, both ends of a scale
    }

    void delaysFollowTheLinkBothWays()
    {
        OpenBench bench("polling", {"--delay", "40"});
        auto* box = User::find<QWidget>(&bench, "polling")
                        ->findChild<WTraceController*>()
                        ->findChild<QSpinBox*>("sbDelay");
        const int own = box->value();
        QVERIFY(own < 40);
        bench.open();
        QVERIFY2(box->value() >= 40, qPrintable(QString::number(box->value())));
        bench.wire().setWeather(Simulated::Weather());
        bench.advance(10000);
        QCOMPARE(box->value(), own);
    }

    void whatIsBeingEditedIsNotAskedFor()
    {
        OpenBench bench("motion");
        bench.open();
        QStringList reads;
        connect(&bench.link(), &ModuleLink::sent, this, [&reads](const Command& request) {
            if (isRead(request))
                reads << requestText(request);
        });
        auto* box = bench.find<SpinBox>("VelocityRampControl0", "sbAcceleration");
        box->setFocus();
        box->selectAll();
        User::type(box, "12");
        bench.link().command( // is read back once the entry has ended
            Command(1, toByte(Instruction::SAP), toByte(Number::Acceleration), 0, 777));
        bench.advance(500);
        QVERIFY(bench.sent.contains("SAP 11 = 777, axis 0"));
        QVERIFY(!reads.contains("GAP 11 = 0, axis 0"));
        User::type(box, "34");
        QTest::keyClick(box, Qt::Key_Return);
        bench.advance(500);
        QCOMPARE(bench.sent.count("SAP 11 = 1234, axis 0"), 1);
        QVERIFY(reads.contains("GAP 11 = 0, axis 0"));

        bench.showPage("parameters");
        auto* table = User::find<QWidget>(&bench, "parameters")->findChild<QTableView*>();
        auto* value = bench.find<SpinBox>("parameters", "sbParameter");
        bench.advance(1000);
        table->setCurrentIndex(table->model()->index(8, 2));
        bench.advance(1000);
        const QString read =
            QString("GAP %1 = 0, axis 0").arg(table->model()->index(8, 0).data().toInt());
        QVERIFY(reads.contains(read));
        value->setFocus();
        value->selectAll();
        User::type(value, "7");
        reads.clear();
        bench.advance(1000);
        QVERIFY(!reads.contains(read));
        QTest::keyClick(value, Qt::Key_Escape);
        bench.advance(1000);
        QVERIFY(reads.contains(read));
    }

    /// However the window ends, what it moves stands.
    void endings()
    {
        enum Ending { Closed, Destroyed, Disconnected };
        for (Ending ending : {Closed, Destroyed, Disconnected}) {
            auto bench = std::make_unique<OpenBench>("motion");
            bench->open();
            QStringList answered;
            connect(&bench->link(), &ModuleLink::answered, this,
                    [&answered](const Command& request) { answered << requestText(request); });
            bench->find<QSpinBox>("VelocityControl0", "sbTargetVelocity")->setValue(300);
            User::press(bench->find<QPushButton>("VelocityControl0", "btnJogLeft"));
            bench->advance(1000);
            QCOMPARE(qRound(bench->axis().velocity()), -300);
            if (ending == Disconnected) {
                bench->wire().setSilent(true);
                bench->stopAxes(); // is not heard
                bench->wire().setSilent(false);
                User::click(
                    User::find<QPushButton>(bench->findChild<Connection*>(), "btnDisconnect"));
                QVERIFY(!bench->link().isOpen());
            } else if (ending == Closed) {
                bench->close();
            } else {
                bench.reset();
            }
            QVERIFY(answered.contains("MST 0 = 0, axis 0"));
            if (bench) {
                bench->advance(1000);
                QCOMPARE(bench->axis().velocity(), 0.0);
            }
        }
    }

    void pollingLeavesASlowModuleRoom()
    {
        constexpr int RoundTrip = 31;
        OpenBench bench("polling", {"--delay", "30"});
        bench.open(10000); // everything that the pages asked for at the start
        QWidget* graphController =
            User::find<QWidget>(&bench, "graph")->findChild<WTraceController*>();
        User::click(User::find<QPushButton>(graphController, "btnStop"));
        const auto* page = User::find<QWidget>(&bench, "polling");
        QList<QWidget*> controllers = {page->findChild<TraceController*>(),
                                       page->findChild<WTraceController*>()};
        const auto tick = [&bench, &controllers](int times) {
            int most = 0;
            for (int i = 0; i < times; ++i) {
                for (QWidget* controller : qAsConst(controllers))
                    QMetaObject::invokeMethod(controller, "requestTraceValue");
                bench.advance(5);
                most = qMax(most, bench.link().pendingReads());
            }
            return most;
        };
        const auto* table = bench.find<QTableWidget>("polling", "twPolled");
        const auto expectShares = [table](int values) {
            for (int row = 0; row < table->rowCount(); ++row) {
                const double rate = table->item(row, 4)->text().toDouble();
                QVERIFY2(qAbs(rate - 1000.0 / RoundTrip / values) <= 1.5,
                         qPrintable(QString::number(rate)));
            }
        };
        QVERIFY(tick(600) <= table->rowCount() + 1);
        expectShares(table->rowCount());

        int answerAfter = 0;
        bool answered = false;
        connect(&bench.link(), &ModuleLink::answered, this, [&answered](const Command& request) {
            answered = answered || requestText(request).startsWith("SAP");
        });
        bench.link().command(
            Command(1, toByte(Instruction::SAP), toByte(Number::Acceleration), 0, 777));
        for (; !answered && answerAfter < 1000; answerAfter += 5)
            tick(1);
        QVERIFY2(answerAfter <= 2 * RoundTrip + 5, qPrintable(QString::number(answerAfter)));

        bench.showPage("console");
        bench.advance(1000);
        const int before = bench.link().answers();
        tick(200);
        QVERIFY(bench.link().answers() - before <= 5); // the link's own

        // curves are polled whatever page is shown, and take no more than their share
        bench.showPage("polling");
        controllers << graphController;
        tick(600);
        expectShares(table->rowCount() + 4);
    }

    void silenceIsToldOnEveryPage()
    {
        OpenBench bench("connection");
        bench.open(2000);
        for (const QString& page : Workbench::pageNames()) {
            bench.showPage(page);
            for (bool isSilent : {true, false}) {
                bench.wire().setSilent(isSilent);
                bench.advance(1000);
                QVERIFY2(bench.linkText().contains("not answered") == isSilent, qPrintable(page));
            }
        }
    }

    void leavingACellUnchangedWritesNothing()
    {
        ParameterSheet sheet;
        sheet.axis().rotate(500);
        sheet.advance(1500);
        const QModelIndex position = sheet.valueOf(Number::ActualPosition);
        const int shown = position.data().toInt();
        sheet.table->setCurrentIndex(position);
        sheet.table->edit(position);
        auto* editor = sheet.table->findChild<QSpinBox*>();
        QVERIFY(editor);
        editor->setValue(-77); // typed, and not overwritten by what is polled
        sheet.advance(1500);
        QCOMPARE(editor->value(), -77);
        editor->setValue(shown);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!sheet.table->isPersistentEditorOpen(position));
        sheet.advance(1500);
        QCOMPARE(sheet.sent, QStringList());
        QVERIFY(position.data().toInt() > shown); // shows what is read again
    }

    /// Neither in its cell nor in the field below.
    void whatWasNotReadCannotBeWritten()
    {
        ParameterSheet sheet({"--silent"});
        const QModelIndex maximum = sheet.valueOf(Number::MaxVelocity);
        const auto leaveUnchanged = [&] {
            sheet.table->setCurrentIndex(maximum);
            QTest::mouseDClick(sheet.table->viewport(), Qt::LeftButton, {},
                               sheet.table->visualRect(maximum).center());
            if (auto* editor = sheet.table->findChild<QSpinBox*>())
                QTest::keyClick(editor, Qt::Key_Return);
            QCoreApplication::processEvents();
            QTest::keyClick(sheet.box, Qt::Key_Return);
            sheet.advance(500);
            return bool(maximum.flags() & Qt::ItemIsEditable);
        };
        QVERIFY(!leaveUnchanged());
        QVERIFY(!sheet.box->isEnabled() && sheet.box->styleSheet().isEmpty());
        sheet.wire().setSilent(false);
        sheet.advance(1500);
        QVERIFY(leaveUnchanged());
        QVERIFY(sheet.box->isEnabled());
        QCOMPARE(sheet.box->value(), 4000.0);
        sheet.wire().setSilent(true);
        sheet.axisBox->setCurrentIndex(1);
        QVERIFY(!leaveUnchanged());
        QVERIFY(!sheet.box->isEnabled());
        QCOMPARE(sheet.sent, QStringList());
        sheet.wire().setSilent(false);
        sheet.advance(1500);
        sheet.table->setCurrentIndex(sheet.valueOf(Number::ActualVelocity));
        QVERIFY(!sheet.box->isEnabled()); // is read only
    }

    void typedDigitsStayWhileAnswersCome()
    {
        ParameterSheet sheet;
        sheet.table->setCurrentIndex(sheet.valueOf(Number::Acceleration));
        sheet.advance(1500);
        sheet.typeOver("12");
        User::type(sheet.box, "34");
        QTest::keyClick(sheet.box, Qt::Key_Return);
        sheet.advance(1500);
        QCOMPARE(sheet.axis().read(Number::Acceleration), 1234);

        sheet.typeOver("777");
        QTest::keyClick(sheet.box, Qt::Key_Escape);
        QCOMPARE(sheet.box->value(), 1234.0);
        sheet.axis().write(Number::Acceleration, 900); // by another host
        sheet.advance(1500);
        QCOMPARE(sheet.box->value(), 900.0);

        sheet.typeOver("777");
        sheet.table->setCurrentIndex(sheet.valueOf(Number::MaxVelocity));
        sheet.advance(1500);
        QCOMPARE(sheet.box->value(), 4000.0);
        QCOMPARE(sheet.sent.size(), 1);
    }

    void nothingGoesOutUnasked()
    {
        OpenBench bench("connection");
        bench.open(300);
        for (const QString& page : Workbench::pageNames()) {
            bench.showPage(page);
            bench.advance(1000);
            QCoreApplication::processEvents();
        }
        QCOMPARE(bench.sent, QStringList());
    }
};

AXR_TEST_MAIN(WorkbenchTest)
#include "WorkbenchTest.moc"
