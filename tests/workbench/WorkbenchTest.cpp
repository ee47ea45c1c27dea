#include "Workbench.h"
#include "CANConnection.h"
#include "CommandText.h"
#include "Connection.h"
#include "GalleryWidgets.h"
#include "ParameterTable.h"
#include "PositionControl.h"
#include "SpinBox.h"
#include "TestCase.h"
#include "TraceController.h"
#include "User.h"
#include "VelocityControl.h"
#include "WTraceController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>

namespace
{

WorkbenchOptions parse(const QStringList& arguments)
{
    return WorkbenchOptions::parse(QStringList("axrworkbench") + arguments, Workbench::pageNames());
}

void open(Workbench& bench)
{
    User::click(User::find<QPushButton>(bench.findChild<Connection*>(), "btnConnect"));
    bench.advance(300);
}

/// A connected workbench at its parameters page, with every write that goes out.
struct ParameterSheet {
    Workbench bench;
    QTableView* table;
    QComboBox* axis;
    SpinBox* box;
    QStringList writes;

    explicit ParameterSheet(const QStringList& arguments)
        : bench(parse(QStringList{"--photo", "x", "--page", "parameters"} + arguments))
        , table(User::find<QWidget>(&bench, "parameters")->findChild<QTableView*>())
        , axis(User::find<QWidget>(&bench, "parameters")->findChild<QComboBox*>())
        , box(User::find<SpinBox>(&bench, "sbParameter"))
    {
        QObject::connect(&bench.link(), &ModuleLink::sent, [this](const Command& request) {
            const QString text = requestText(request);
            if (text.startsWith("SAP"))
                writes << text;
        });
        bench.show();
        open(bench);
    }

    QModelIndex valueOf(int number) const
    {
        int row = 0;
        while (table->model()->index(row, 0).data().toInt() != number)
            ++row;
        return table->model()->index(row, 2);
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
    }

    void badCommandLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("unknown option") << QStringList{"--fly"};
        QTest::newRow("unknown page") << QStringList{"--page", "kitchen"};
        QTest::newRow("no number") << QStringList{"--seed", "x"};
        QTest::newRow("half a seed") << QStringList{"--seed", "1.5"};
        QTest::newRow("half a millisecond") << QStringList{"--delay", "0.5"};
        QTest::newRow("out of range") << QStringList{"--late", "101"};
        QTest::newRow("not a number") << QStringList{"--late", "nan"};
        QTest::newRow("stray word") << QStringList{"tour"};
        QTest::newRow("missing value") << QStringList{"--tour"};
        QTest::newRow("empty value") << QStringList{"--tour", ""};
        QTest::newRow("half a theme") << QStringList{"--theme", "half"};
        QTest::newRow("no theme") << QStringList{"--theme", ""};
        QTest::newRow("odd font size") << QStringList{"--font-size", "13"};
        QTest::newRow("two jobs") << QStringList{"--tour", "a", "--photo", "b"};
        QTest::newRow("two others") << QStringList{"--gallery", "a", "--photo", "b"};
    }
    void badCommandLine()
    {
        QFETCH(QStringList, arguments);
        const WorkbenchOptions options = parse(arguments);
        QCOMPARE(options.action, WorkbenchOptions::Action::Error);
        QVERIFY(!options.text.isEmpty() && !options.text.contains('\n'));
    }

    void lookIsRemembered()
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
            Workbench bench(parse({}));
            bench.show();
            User::click(User::find<QCheckBox>(&bench, "cbTheme"));
        }
        QCOMPARE(lookOf({}), QString("#ffffff 20"));
        QCOMPARE(lookOf({"--theme", "off"}), QString("#000000 20"));
    }

    void noFieldTakesTheFocusByWheel()
    {
        Workbench bench(parse({"--photo", "x"}));
        QList<QWidget*> roots{&bench};
        for (const GalleryWidget& entry : galleryWidgets())
            roots << entry.make();
        int fields = 0;
        for (QWidget* root : qAsConst(roots)) {
            QList<QWidget*> widgets = root->findChildren<QWidget*>();
            widgets << root;
            for (const QWidget* field : qAsConst(widgets)) {
                if (!qobject_cast<const QAbstractSpinBox*>(field) &&
                    !qobject_cast<const QComboBox*>(field) &&
                    (!qobject_cast<const QAbstractSlider*>(field) ||
                     qobject_cast<const QScrollBar*>(field)))
                    continue;
                ++fields;
                QVERIFY2(field->focusPolicy() != Qt::WheelFocus, qPrintable(field->objectName()));
            }
        }
        QVERIFY(fields > 50);
        qDeleteAll(roots.cbegin() + 1, roots.cend());
    }

    void theLastLinkIsConnectedAgain()
    {
        const auto connectedBy = [](const QStringList& arguments, const char* panel) {
            Workbench bench(parse(arguments));
            bench.show();
            if (panel)
                User::click(
                    User::find<QPushButton>(bench.findChild<CANConnection*>(), "btnConnect"));
            bench.advance(300);
            return bench.linkText();
        };
        QCOMPARE(connectedBy({}, nullptr), QString("Not connected"));
        QCOMPARE(connectedBy({"--connect"}, nullptr), QString("Connected: SIM1"));
        QCOMPARE(connectedBy({}, "CAN"), QString("Connected: CAN, 1000 kBit/s"));
        QCOMPARE(connectedBy({"--connect"}, nullptr), QString("Connected: CAN, 1000 kBit/s"));
    }

    void pagesThatNeedALinkSaySo()
    {
        Workbench bench(parse({"--photo", "x"}));
        bench.show();
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

    void aRelativeMoveWaitsForThePosition()
    {
        Workbench bench(parse({"--photo", "x", "--page", "motion", "--silent", "--connect"}));
        bench.show();
        bench.advance(1000);
        auto* move = User::find<QPushButton>(
            User::find<PositionControl>(&bench, "PositionControl1"), "btnMoveRelative");
        QVERIFY(!move->isEnabled());
        bench.simulator().link.setSilent(false);
        bench.advance(1000);
        QVERIFY(move->isEnabled());
    }

    void delaysAndScalesActWhenTheEntryEnds()
    {
        Workbench bench(parse({"--photo", "x", "--page", "graph", "--connect", "--delay", "30"}));
        bench.show();
        bench.advance(1000);
        int boxes = 0;
        for (const QWidget* page :
             {User::find<QWidget>(&bench, "graph"), User::find<QWidget>(&bench, "polling")}) {
            for (QSpinBox* box : page->findChildren<QSpinBox*>()) {
                const bool isDelay = box->objectName() == "sbDelay";
                const int first = box->value();
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
                QVERIFY(!isDelay || (box->value() >= 30 && first >= 30));
                ++boxes;
            }
        }
        QCOMPARE(boxes, 5); // three delays, both ends of a scale
    }

    void whatIsBeingEditedIsNotAskedFor()
    {
        Workbench bench(parse({"--photo", "x", "--page", "motion", "--connect"}));
        bench.show();
        QApplication::setActiveWindow(&bench);
        bench.advance(1000);
        QStringList sent;
        connect(&bench.link(), &ModuleLink::sent, this,
                [&sent](const Command& request) { sent << requestText(request); });
        const Command other(1, 5, toByte(AxisParameterNumber::Acceleration), 0, 777);
        auto* box = User::find<SpinBox>(User::find<QWidget>(&bench, "VelocityRampControl0"),
                                        "sbAcceleration");
        box->setFocus();
        box->selectAll();
        User::type(box, "12");
        bench.link().command(other); // is read back once the entry has ended
        bench.advance(500);
        QVERIFY(sent.contains("SAP 11 = 777, axis 0") && !sent.contains("GAP 11 = 0, axis 0"));
        User::type(box, "34");
        QTest::keyClick(box, Qt::Key_Return);
        bench.advance(500);
        QCOMPARE(sent.count("SAP 11 = 1234, axis 0"), 1);
        QVERIFY(sent.contains("GAP 11 = 0, axis 0"));

        bench.showPage("parameters");
        auto* table = User::find<QWidget>(&bench, "parameters")->findChild<QTableView*>();
        auto* value = User::find<SpinBox>(&bench, "sbParameter");
        bench.advance(1000);
        table->setCurrentIndex(table->model()->index(8, 2));
        bench.advance(1000);
        const QString read =
            QString("GAP %1 = 0, axis 0").arg(table->model()->index(8, 0).data().toInt());
        QVERIFY(sent.contains(read));
        value->setFocus();
        value->selectAll();
        User::type(value, "7");
        sent.clear();
        bench.advance(1000);
        QVERIFY(!sent.contains(read));
        QTest::keyClick(value, Qt::Key_Escape);
        bench.advance(1000);
        QVERIFY(sent.contains(read));
    }

    void stopKeyWorksFromAnyFocus()
    {
        Workbench bench(parse({"--photo", "x"}));
        bench.show();
        open(bench);
        auto* panel = User::find<VelocityControl>(&bench, "VelocityControl0");
        User::find<QSpinBox>(panel, "sbTargetVelocity")->setValue(300);
        User::click(User::find<QPushButton>(panel, "btnRight"));
        bench.advance(1000);
        QCOMPARE(qRound(bench.simulator().module.axis(0).velocity()), 300);
        for (const QString& page : Workbench::pageNames())
            QVERIFY(bench.showPage(page));
        QTest::keyClick(User::find<SpinBox>(&bench, "sbParameter"), Qt::Key_F12);
        bench.advance(1000);
        QCOMPARE(bench.simulator().module.axis(0).velocity(), 0.0);
    }

    void closingTheWindowEndsAJog()
    {
        Workbench bench(parse({"--photo", "x", "--page", "motion"}));
        bench.show();
        open(bench);
        auto* panel = User::find<VelocityControl>(&bench, "VelocityControl0");
        User::find<QSpinBox>(panel, "sbTargetVelocity")->setValue(300);
        User::press(User::find<QPushButton>(panel, "btnJogLeft"));
        bench.advance(1000);
        QCOMPARE(qRound(bench.simulator().module.axis(0).velocity()), -300);
        bench.close();
        bench.clock().advance(1000);
        QCOMPARE(bench.simulator().module.axis(0).velocity(), 0.0);
    }

    void disconnectingFinishesTheStop()
    {
        Workbench bench(parse({"--photo", "x"}));
        bench.show();
        open(bench);
        SimulatedAxis& axis = bench.simulator().module.axis(0);
        axis.rotate(300);
        bench.advance(1000);
        bench.simulator().link.setSilent(true);
        bench.stopAxes(); // is not heard
        bench.simulator().link.setSilent(false);
        User::click(User::find<QPushButton>(bench.findChild<Connection*>(), "btnDisconnect"));
        QVERIFY(!bench.link().isOpen());
        bench.advance(1000);
        QCOMPARE(axis.velocity(), 0.0);
    }

    void destroyingTheWindowEndsAJog()
    {
        QStringList answered;
        {
            Workbench bench(parse({"--photo", "x", "--page", "motion"}));
            bench.show();
            open(bench);
            auto* panel = User::find<VelocityControl>(&bench, "VelocityControl0");
            User::press(User::find<QPushButton>(panel, "btnJogLeft"));
            bench.advance(100);
            connect(&bench.link(), &ModuleLink::answered, this,
                    [&answered](const Command& request) {
                        answered << requestText(request).section(' ', 0, 0);
                    });
        }
        QVERIFY2(answered.contains("MST"), qPrintable(answered.join(' ')));
    }

    void pollingLeavesASlowModuleRoom()
    {
        constexpr int RoundTrip = 31;
        Workbench bench(parse({"--photo", "x", "--delay", "30", "--page", "polling"}));
        bench.show();
        open(bench);
        bench.advance(10000); // everything that the pages asked for at the start
        const QList<QWidget*> graphControllers = {
            User::find<QWidget>(&bench, "graph")->findChild<WTraceController*>()};
        User::click(User::find<QPushButton>(graphControllers.first(), "btnStop"));
        const auto* page = User::find<QWidget>(&bench, "polling");
        QList<QWidget*> controllers = {page->findChild<TraceController*>(),
                                       page->findChild<WTraceController*>()};
        const auto tick = [&bench, &controllers] {
            for (QWidget* controller : qAsConst(controllers))
                QMetaObject::invokeMethod(controller, "requestTraceValue");
            bench.advance(5);
            return bench.link().pendingReads();
        };
        const auto* table = User::find<QTableWidget>(&bench, "twPolled");
        int most = 0;
        for (int i = 0; i < 600; ++i)
            most = qMax(most, tick());
        QVERIFY2(most <= table->rowCount() + 1, qPrintable(QString::number(most)));
        const double fair = 1000.0 / RoundTrip / table->rowCount();
        for (int row = 0; row < table->rowCount(); ++row) {
            const double rate = table->item(row, 4)->text().toDouble();
            QVERIFY2(qAbs(rate - fair) <= 1.5, qPrintable(QString::number(rate)));
        }

        int answerAfter = 0;
        bool answered = false;
        connect(&bench.link(), &ModuleLink::answered, this, [&answered](const Command& request) {
            answered = answered || requestText(request).startsWith("SAP");
        });
        bench.link().command(Command(1, 5, toByte(AxisParameterNumber::Acceleration), 0, 777));
        for (; !answered && answerAfter < 1000; answerAfter += 5)
            tick();
        QVERIFY2(answerAfter <= 2 * RoundTrip + 5, qPrintable(QString::number(answerAfter)));

        bench.showPage("console");
        bench.advance(1000);
        int reads = 0; // the link's own
        connect(&bench.link(), &ModuleLink::sent, this, [&reads] { ++reads; });
        for (int i = 0; i < 200; ++i)
            tick();
        QVERIFY2(reads <= 5, qPrintable(QString::number(reads)));

        // curves are polled whatever page is shown, and take no more than their share
        bench.showPage("polling");
        controllers += graphControllers;
        for (int i = 0; i < 600; ++i)
            tick();
        const double shared = 1000.0 / RoundTrip / (table->rowCount() + 4);
        for (int row = 0; row < table->rowCount(); ++row) {
            const double rate = table->item(row, 4)->text().toDouble();
            QVERIFY2(qAbs(rate - shared) <= 1.5, qPrintable(QString::number(rate)));
        }
    }

    void silenceIsToldOnEveryPage()
    {
        Workbench bench(parse({"--photo", "x"}));
        bench.show();
        open(bench);
        bench.advance(2000);
        for (const QString& page : Workbench::pageNames()) {
            bench.showPage(page);
            bench.simulator().link.setSilent(true);
            bench.advance(1000);
            QVERIFY2(bench.linkText().contains("not answered"), qPrintable(page));
            bench.simulator().link.setSilent(false);
            bench.advance(1000);
            QVERIFY2(!bench.linkText().contains("not answered"), qPrintable(page));
        }
    }

    void windowStateIsRemembered()
    {
        {
            Workbench bench(parse({"--page", "motion"}));
            bench.resize(1000, 600);
            bench.show();
            bench.close();
        }
        Workbench again(parse({}));
        QCOMPARE(again.size(), QSize(1000, 600));
        again.show();
        QVERIFY(User::find<VelocityControl>(&again, "VelocityControl0")->isVisible());
    }

    void leavingACellUnchangedWritesNothing()
    {
        Workbench bench(parse({"--photo", "x", "--page", "parameters"}));
        bench.show();
        open(bench);
        auto* table = User::find<QWidget>(&bench, "parameters")->findChild<QTableView*>();
        bench.simulator().module.axis(0).rotate(500);
        bench.advance(1500);
        const QModelIndex position = table->model()->index(1, 2);
        const int shown = position.data().toInt();
        table->setCurrentIndex(position);
        table->edit(position);
        auto* editor = table->findChild<QSpinBox*>();
        QVERIFY(editor);
        bench.advance(1500);
        int writes = 0;
        connect(&bench.link(), &ModuleLink::sent, this, [&writes](const Command& request) {
            writes += requestText(request).startsWith("SAP");
        });
        editor->setValue(-77); // typed, and not overwritten by what is polled
        bench.advance(1500);
        QCOMPARE(editor->value(), -77);
        editor->setValue(shown);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!table->isPersistentEditorOpen(position));
        bench.advance(1500);
        QCOMPARE(writes, 0);
        QVERIFY(position.data().toInt() > shown); // shows what is read again
    }

    void valueThatWasNotReadCannotBeWritten()
    {
        ParameterSheet sheet({"--silent"});
        const QModelIndex maximum = sheet.valueOf(AxisParameterNumber::MaxVelocity);
        const auto leaveUnchanged = [&] {
            sheet.table->setCurrentIndex(maximum);
            QTest::mouseDClick(sheet.table->viewport(), Qt::LeftButton, {},
                               sheet.table->visualRect(maximum).center());
            if (auto* editor = sheet.table->findChild<QSpinBox*>())
                QTest::keyClick(editor, Qt::Key_Return);
            QCoreApplication::processEvents();
            sheet.bench.advance(500);
        };
        leaveUnchanged();
        QVERIFY(!(maximum.flags() & Qt::ItemIsEditable));
        sheet.bench.simulator().link.setSilent(false);
        sheet.bench.advance(1500);
        QVERIFY(maximum.flags() & Qt::ItemIsEditable);
        leaveUnchanged();
        sheet.bench.simulator().link.setSilent(true);
        sheet.axis->setCurrentIndex(1);
        leaveUnchanged();
        QCOMPARE(sheet.writes, QStringList());
        QVERIFY(!(maximum.flags() & Qt::ItemIsEditable));
    }

    void fieldOfAParameterWaitsForItsValue()
    {
        ParameterSheet sheet({"--silent"});
        sheet.table->setCurrentIndex(sheet.valueOf(AxisParameterNumber::Acceleration));
        QTest::keyClick(sheet.box, Qt::Key_Return);
        QVERIFY(!sheet.box->isEnabled());
        QCOMPARE(sheet.box->styleSheet(), QString());
        sheet.bench.simulator().link.setSilent(false);
        sheet.bench.advance(1500);
        QVERIFY(sheet.box->isEnabled());
        QCOMPARE(sheet.box->value(), 5000.0);
        QTest::keyClick(sheet.box, Qt::Key_Return);
        sheet.bench.advance(500);
        QCOMPARE(sheet.writes, QStringList());
        sheet.bench.simulator().link.setSilent(true);
        sheet.axis->setCurrentIndex(1);
        QVERIFY(!sheet.box->isEnabled());
        sheet.bench.simulator().link.setSilent(false);
        sheet.bench.advance(1500);
        QVERIFY(sheet.box->isEnabled());
        sheet.table->setCurrentIndex(sheet.valueOf(AxisParameterNumber::ActualVelocity));
        QVERIFY(!sheet.box->isEnabled());
    }

    void typedDigitsStayWhileAnswersCome()
    {
        ParameterSheet sheet({});
        SimulatedAxis& axis = sheet.bench.simulator().module.axis(0);
        sheet.table->setCurrentIndex(sheet.valueOf(AxisParameterNumber::Acceleration));
        sheet.bench.advance(1500);
        const auto typeOver = [&sheet](const QString& text) {
            sheet.box->setFocus();
            sheet.box->selectAll();
            User::type(sheet.box, text);
            sheet.bench.advance(1500);
        };
        typeOver("12");
        User::type(sheet.box, "34");
        QTest::keyClick(sheet.box, Qt::Key_Return);
        sheet.bench.advance(1500);
        QCOMPARE(axis.read(AxisParameterNumber::Acceleration), 1234);

        typeOver("777");
        QTest::keyClick(sheet.box, Qt::Key_Escape);
        QCOMPARE(sheet.box->value(), 1234.0);
        axis.write(AxisParameterNumber::Acceleration, 900); // by another host
        sheet.bench.advance(1500);
        QCOMPARE(sheet.box->value(), 900.0);

        typeOver("777");
        sheet.table->setCurrentIndex(sheet.valueOf(AxisParameterNumber::MaxVelocity));
        sheet.bench.advance(1500);
        QCOMPARE(sheet.box->value(), 4000.0);
        QCOMPARE(sheet.writes.size(), 1);
    }

    void nothingGoesOutUnasked()
    {
        Workbench bench(parse({"--photo", "x"}));
        bench.show();
        QStringList sent;
        connect(&bench.link(), &ModuleLink::sent, this, [&sent](const Command& request) {
            const QString text = requestText(request);
            if (!text.startsWith("GAP") && !text.startsWith("RD 1 ")) // reads
                sent << text;
        });
        open(bench);
        for (const QString& page : Workbench::pageNames()) {
            bench.showPage(page);
            bench.advance(1000);
            QCoreApplication::processEvents();
        }
        QCOMPARE(sent, QStringList());
    }
};

AXR_TEST_MAIN(WorkbenchTest)
#include "WorkbenchTest.moc"
