#include "ShownGraph.h"
#include "TestCase.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QWindow>

#include <climits>
#include <random>

namespace
{

/// Answers the next file dialog, when it is there, with this file; an empty one cancels.
class FileDialogUser : public QObject
{
public:
    explicit FileDialogUser(QString file) : m_file(std::move(file)) { startTimer(0); }

    QString title;
    QString proposed;
    std::function<void()> onDialog;

protected:
    void timerEvent(QTimerEvent* event) override
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->windowHandle()->isExposed()) // before, it cannot take the focus
            return;
        killTimer(event->timerId());
        auto* edit = User::find<QLineEdit>(dialog, "fileNameEdit");
        title = dialog->windowTitle();
        proposed = edit->text();
        if (onDialog)
            onDialog();
        edit->setText(m_file);
        QMetaObject::invokeMethod(dialog, m_file.isEmpty() ? "reject" : "accept");
    }

private:
    QString m_file;
};

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "cannot be opened";
}

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
private Q_SLOTS:
    void exportedFile()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        QTemporaryDir folder;
        ShownGraph chart;
        const char* labels[] = {"a/b", "\\c", "ä"};
        for (int i = 0; i < 3; ++i)
            chart.add(i + 1, QString::fromUtf8(labels[i]));
        chart.rebuild(); // or the next tick of the graph's own timer would do it
        struct Sample {
            qint64 time;
            int curve;
            int value;
        };
        std::vector<Sample> samples;
        std::mt19937 random(4);
        qint64 now = Start;
        for (int i = 0; i < 2000; ++i) {
            now += static_cast<int>(random() % 4) - (random() % 300 == 0 ? 3000 : 0);
            const Sample sample{now, static_cast<int>(random() % 3), static_cast<int>(random())};
            samples.push_back(sample);
            chart.take(sample.curve + 1, sample.value, now);
        }
        std::stable_sort(samples.begin(), samples.end(), [](const Sample& a, const Sample& b) {
            return a.time < b.time || (a.time == b.time && a.curve < b.curve);
        });
        QByteArray expected = "timestamp[ms];a/b;\\c;\xc3\xa4\n";
        for (const Sample& sample : samples) {
            QByteArray fields[3];
            fields[sample.curve] = QByteArray::number(sample.value);
            expected += QByteArray::number(sample.time - samples.front().time) + ';' + fields[0] +
                        ';' + fields[1] + ';' + fields[2] + '\n';
        }
        FileDialogUser user(folder.filePath("all.csv"));
        chart.graph->startDrawing();
        chart.update(now);
        const QImage shown = chart.frame(now);
        user.onDialog = [&] {
            QCOMPARE(chart.frame(now + 500), shown); // the picture stands still
            chart.take(1, 1, now + 500);             // and the file is of the time of asking
        };
        chart.button("btnSave")->click();
        QCOMPARE(user.title, QString("Save"));
        QCOMPARE(user.proposed, QDateTime::fromMSecsSinceEpoch(now).toString("yyyyMMdd_hh.mm.ss") +
                                    QString::fromUtf8("_a_b__c_ä.csv"));
        QCOMPARE(contentOf(folder.filePath("all.csv")), expected);
        QVERIFY(chart.frame(now + 500) != shown);

        FileDialogUser refuser("");
        chart.button("btnSave")->click();
        FileDialogUser loser(folder.filePath("none/all.csv"));
        chart.button("btnSave")->click();
        FileDialogUser remover(folder.filePath("removed.csv"));
        remover.onDialog = [&chart] {
            delete chart.graph;
            chart.graph = nullptr;
        };
        chart.graph->saveGraph();
        QVERIFY(!chart.graph);
        QCOMPARE(contentOf(folder.filePath("removed.csv")).count('\n'), expected.count('\n') + 1);
        QLocale::setDefault(QLocale::c());
    }

    void log()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        QTemporaryDir folder;
        ShownGraph chart;
        chart.addCurves(2);
        chart.add(1, "again");
        auto* log = User::find<QAbstractButton>(chart.graph, "cbLog");
        const auto start = [&](const QString& name) {
            FileDialogUser user(name.isEmpty() ? name : folder.filePath(name));
            log->setChecked(false);
            log->click();
            return user.title;
        };
        QCOMPARE(start(""), QString("Save"));
        QVERIFY(!log->isChecked());
        chart.take(1, 1, Start);

        start("none/log.csv");
        QVERIFY(log->isChecked());
        chart.take(1, 1, Start);

        QFile old(folder.filePath("first.csv"));
        chart.time = Start + 1000;
        start("first.csv");
        QVERIFY(log->isChecked());
        chart.take(1, 1234567, Start + 1000);
        chart.take(2, -1234567, Start + 1007);
        chart.take(3, 5, Start + 1008);
        chart.take(2, INT_MIN, Start + 500); // the clock was set back
        const QByteArray first = "timestamp[ms];a;b;again\n"
                                 "0;1234567;;\n0;;;1234567\n7;;-1234567;\n-500;;-2147483648;\n";
        QCOMPARE(contentOf(folder.filePath("first.csv")), first);

        FileDialogUser user(folder.filePath("second.csv")); // while the first one runs
        user.onDialog = [&chart] { chart.take(1, 9, Start + 2000); };
        chart.graph->startLogging(true);
        chart.take(2, 3, Start + 2010);
        QCOMPARE(contentOf(folder.filePath("first.csv")), first + "1000;9;;\n1000;;;9\n");
        const QByteArray second = "timestamp[ms];a;b;again\n10;;3;\n";
        QCOMPARE(contentOf(folder.filePath("second.csv")), second);
        chart.graph->removeAllGraphs(); // other columns from now on
        chart.addCurves(2);
        chart.take(2, 4, Start + 2015);
        for (const char* name : {"", "none/log.csv"}) { // refused, cannot be written
            FileDialogUser loser(*name ? folder.filePath(name) : QString());
            chart.graph->startLogging(true);
            chart.take(2, 4, Start + 2015);
        }
        log->setChecked(false);
        QCOMPARE(contentOf(folder.filePath("second.csv")), second + "15;;4\n15;;4\n15;;4\n");
        chart.take(2, 5, Start + 2020);
        QVERIFY(contentOf(folder.filePath("second.csv")).endsWith("15;;4\n"));
        FileDialogUser again(folder.filePath("third.csv"));
        chart.graph->startLogging(true); // by the host, and so the panel's box is not checked
        FileDialogUser refuser("");
        log->click();
        QVERIFY(!log->isChecked());
        chart.take(1, 6, Start + 2020);
        QCOMPARE(contentOf(folder.filePath("third.csv")), QByteArray("timestamp[ms];a;b\n0;6;\n"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 3);
        QLocale::setDefault(QLocale::c());
    }

    void killedWhileLogging()
    {
        QTemporaryDir folder;
        std::mt19937 random(5);
        const QRegularExpression row("^\\d+;(-?\\d+;;|;-?\\d+;|;;-?\\d+)$");
        for (int i = 0; i < 8; ++i) {
            const QString fileName = folder.filePath(QString("log%1.csv").arg(i));
            const auto size = static_cast<qint64>(random() % 200000);
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(), {"--log", fileName});
            QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(fileName).size() > size, 30000);
            child.kill(); // it cannot catch that
            QVERIFY(child.waitForFinished());
            QStringList lines = QString::fromUtf8(contentOf(fileName)).split('\n');
            QCOMPARE(lines.takeFirst(), QString("timestamp[ms];a;b;c"));
            QCOMPARE(lines.takeLast(), QString()); // the last row has its end
            QVERIFY(lines.size() > 0);
            for (int k = 0; k < lines.size(); ++k) {
                QVERIFY2(row.match(lines.at(k)).hasMatch(), qPrintable(lines.at(k)));
                QCOMPARE(lines.at(k).section(';', 0, 0).toInt(), k);
                QCOMPARE(lines.at(k).section(';', 1 + k % 3, 1 + k % 3).toInt(),
                         k * 7919 - 1000000);
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
