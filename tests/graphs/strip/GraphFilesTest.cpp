#include "Csv_p.h"
#include "ShownGraph.h"
#include "TestCase.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QWindow>

#include <climits>

namespace
{

/// Answers the next file dialog, when it is there, with this file; an empty one cancels.
class FileDialogUser : public QObject
{
public:
    explicit FileDialogUser(QString file) : m_file(std::move(file)) { startTimer(0); }

    QString proposed; // behind the dialog's title
    std::function<void()> onDialog = [] {};

protected:
    void timerEvent(QTimerEvent* event) override
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->windowHandle()->isExposed()) // before, it cannot take the focus
            return;
        killTimer(event->timerId());
        auto* edit = User::find<QLineEdit>(dialog, "fileNameEdit");
        proposed = dialog->windowTitle() + ' ' + edit->text();
        onDialog();
        edit->setText(m_file);
        QMetaObject::invokeMethod(dialog, m_file.isEmpty() ? "reject" : "accept");
    }

private:
    QString m_file;
};

/// Logs for longer than the parent waits until it kills.
int logOn(const QString& fileName)
{
    ShownGraph chart;
    chart.addCurves(3);
    FileDialogUser user(fileName);
    chart.graph->startLogging(true);
    for (int i = 0; i < 200000; ++i)
        chart.take(1 + i % 3, i * 7919 - 1000000, Start + i);
    return 0;
}

} // namespace

class GraphFilesTest : public TestCase
{
    Q_OBJECT
private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const QString& name) const
    {
        return name.isEmpty() ? name : m_folder->filePath(name);
    }
    /// The rows of a file.
    QString rows(const QString& name) const
    {
        QStringList lines;
        for (const QStringList& row : Csv::read(path(name)))
            lines << row.join(';');
        return lines.join(' ');
    }

private Q_SLOTS:
    void init()
    {
        TestCase::init();
        m_folder = std::make_unique<QTemporaryDir>();
        QLocale::setDefault(QLocale(QLocale::German));
    }
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        TestCase::cleanup();
    }

    void exportedFile()
    {
        ShownGraph chart;
        chart.add(1, "a/b");
        chart.add(2, "c");
        chart.rebuild(); // or the next tick of the graph's own timer would do it
        chart.graph->startDrawing();
        chart.take(2, -1234567, Start + 5); // in any order of time and curves
        chart.take(1, 7, Start + 1000);
        chart.take(2, 8, Start + 1000);
        chart.take(2, INT_MIN, Start);
        const QString expected = "timestamp[ms];a/b;c 0;;-2147483648 5;;-1234567 1000;7; 1000;;8";
        const QImage shown = chart.frame(Start + 1000);
        FileDialogUser user(path("all.csv"));
        user.onDialog = [&] {
            QCOMPARE(chart.frame(Start + 1500), shown); // the picture stands still
            chart.take(1, 1, Start + 1500);             // and the file is of the time of asking
        };
        chart.button("btnSave")->click();
        QCOMPARE(user.proposed,
                 QDateTime::fromMSecsSinceEpoch(Start + 1000).toString("'Save 'yyyyMMdd_hh.mm.ss") +
                     "_a_b_c.csv");
        QCOMPARE(rows("all.csv"), expected);
        QVERIFY(chart.frame(Start + 1500) != shown);
        for (const char* name : {"", "none/all.csv"}) {
            FileDialogUser loser(path(name));
            chart.button("btnSave")->click();
        }
        FileDialogUser remover(path("removed.csv"));
        remover.onDialog = [&chart] { chart.remove(); };
        chart.graph->saveGraph();
        QCOMPARE(rows("removed.csv"), expected + " 1500;1;");
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 2);
    }

    void log()
    {
        ShownGraph chart;
        chart.addCurves(2);
        chart.add(1, "again");
        auto* log = User::find<QAbstractButton>(chart.graph, "cbLog");
        const auto start = [&](const QString& name) {
            FileDialogUser user(path(name));
            log->setChecked(false);
            log->click();
        };
        start("");
        QVERIFY(!log->isChecked());
        start("none/log.csv");
        QVERIFY(log->isChecked());
        chart.take(1, 1, Start + 1000);
        start("first.csv");
        QVERIFY(log->isChecked());
        chart.take(1, 1234567, Start + 1000);
        chart.take(3, 5, Start + 1008);
        chart.take(2, INT_MIN, Start + 500); // the clock was set back
        const QString first = "timestamp[ms];a;b;again 0;1234567;; 0;;;1234567 -500;;-2147483648;";
        QCOMPARE(rows("first.csv"), first);

        FileDialogUser user(path("second.csv")); // while the first one runs
        user.onDialog = [&chart] { chart.take(1, 9, Start + 2000); };
        chart.graph->startLogging(true);
        chart.take(2, 3, Start + 2010);
        QCOMPARE(rows("first.csv"), first + " 1000;9;; 1000;;;9");
        chart.graph->removeAllGraphs(); // other columns from now on
        chart.addCurves(2);
        for (const char* name : {"", "none/log.csv"}) { // refused, cannot be written
            FileDialogUser loser(path(name));
            chart.graph->startLogging(true);
            chart.take(2, 4, Start + 2015);
        }
        log->setChecked(false);
        chart.take(2, 5, Start + 2020);
        QCOMPARE(rows("second.csv"), QString("timestamp[ms];a;b;again 10;;3; 15;;4 15;;4"));

        FileDialogUser again(path("third.csv"));
        chart.graph->startLogging(true); // by the host, and so the panel's box is not checked
        FileDialogUser refuser("");
        log->click(); // what ran before the refusal goes on
        QVERIFY(!log->isChecked());
        FileDialogUser ender(path("fourth.csv")); // ended while it asks
        ender.onDialog = [&] {
            chart.take(1, 6, Start + 2020);
            chart.graph->startLogging(false);
        };
        chart.graph->startLogging(true);
        chart.take(1, 7, Start + 2020);
        QCOMPARE(rows("third.csv"), QString("timestamp[ms];a;b 0;6;"));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 3);
        FileDialogUser remover("");
        remover.onDialog = [&chart] { chart.remove(); };
        chart.graph->startLogging(true);
        QVERIFY(!chart.graph);
    }

    void killedWhileLogging()
    {
        for (int i = 0; i < 3; ++i) {
            const QString name = path(QString("log%1.csv").arg(i));
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(), {"--log", name});
            QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(name).size() > 1000 + 51234 * i, 30000);
            child.kill(); // it cannot catch that
            QVERIFY(child.waitForFinished());
            QFile file(name);
            QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll().endsWith('\n'));
            QVector<QStringList> lines = Csv::read(name);
            QCOMPARE(lines.takeFirst(), QStringList({"timestamp[ms]", "a", "b", "c"}));
            for (int k = 0; k < lines.size(); ++k) {
                QStringList expected = {QString::number(k), "", "", ""};
                expected[1 + k % 3] = QString::number(k * 7919 - 1000000);
                QCOMPARE(lines.at(k), expected);
            }
        }
    }
};

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("AXRTest"));
    QCoreApplication::setApplicationName(QStringLiteral("GraphFilesTest"));
    if (argc == 3 && qstrcmp(argv[1], "--log") == 0)
        return logOn(argv[2]);
    GraphFilesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "GraphFilesTest.moc"
