#include "ValueOverTimeGraph.h"
#include "AppSettings.h"
#include "CommandRecorder.h"
#include "Graph.h"
#include "GraphCaptionItem.h"
#include "GraphController.h"
#include "MarkerItem.h"
#include "TestCase.h"
#include "User.h"
#include "XTimeAxisItem.h"

#include <QFileDialog>
#include <QGraphicsView>
#include <QMenu>
#include <QProcess>
#include <QSpinBox>

#include <climits>
#include <random>

namespace
{

constexpr qint64 Start = 1600000000000; // a full second

/// A shown graph with its own clock. Nothing happens to it but by these verbs.
class Chart
{
public:
    explicit Chart(QSize size = {420, 260}) : graph(new ValueOverTimeGraph)
    {
        graph->setClock([this] { return time; });
        graph->setAttribute(Qt::WA_DontShowOnScreen);
        resize(size);
        graph->show();
        QCoreApplication::sendPostedEvents();
    }
    ~Chart() { delete graph; }

    void resize(QSize size)
    {
        graph->resize(size);
        QCoreApplication::sendPostedEvents();
    }
    void rebuild() { QMetaObject::invokeMethod(graph, "initializeScene"); }

    Graph* add(int command, const QString& label, QColor color = Qt::blue)
    {
        auto* curve = new Graph(1, 0, static_cast<char>(command), 0, label, color);
        graph->addGraph(curve);
        return curve;
    }
    /// Curves with the commands 1, 2 ...
    void addCurves(int count)
    {
        for (int i = 0; i < count; ++i)
            add(i + 1, QString(QChar('a' + i)), QColor::fromHsv(i * 60, 255, 200));
        rebuild();
    }
    void take(int command, int value, qint64 at)
    {
        time = at;
        Command answer = reply(1, command, 0, 0, value);
        graph->IN_replyValue(&answer);
    }
    void update(qint64 at)
    {
        time = at;
        graph->updateScene(at);
    }
    QImage paint() { return view()->viewport()->grab().toImage(); }
    /// Until the axis has its final layout.
    QImage frame(qint64 at)
    {
        QImage image;
        for (int i = 0; i < 4; ++i) {
            update(at);
            image = paint();
        }
        return image;
    }

    QGraphicsView* view() const { return User::find<QGraphicsView>(graph, "graphicsView"); }
    template <class Item>
    QList<Item*> items() const
    {
        QList<Item*> found;
        for (QGraphicsItem* item : view()->scene()->items(Qt::AscendingOrder)) {
            if (auto* one = dynamic_cast<Item*>(item))
                found << one;
        }
        return found;
    }
    /// Those that are visible, as "z@y".
    QString markers() const
    {
        QStringList list;
        for (const MarkerItem* marker : items<MarkerItem>()) {
            if (marker->isVisible())
                list << QString("%1@%2").arg(marker->zValue()).arg(qRound(marker->y()));
        }
        return list.join(' ');
    }
    QString range() const
    {
        return QString("%1..%2").arg(box("sbMin")->value()).arg(box("sbMax")->value());
    }
    QSpinBox* box(const char* name) const { return User::find<QSpinBox>(graph, name); }
    QAbstractButton* button(const char* name) const
    {
        return User::find<QAbstractButton>(graph, name);
    }
    int valueCount(int curve = 0) const { return graph->getGraphs().at(curve)->valueCount(); }

    ValueOverTimeGraph* graph;
    qint64 time = Start;
};

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
        if (!dialog)
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

[[maybe_unused]] QStringList linesOf(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {"cannot be opened"};
    return QString::fromUtf8(file.readAll()).split('\n');
}

/// Logs without an end, for the parent to kill.
int logForever(const QString& fileName)
{
    Chart chart;
    chart.addCurves(3);
    FileDialogUser user(fileName);
    chart.graph->startLogging(true);
    for (int i = 0;; ++i)
        chart.take(1 + i % 3, i * 7919 - 1000000, Start + i);
}

} // namespace

class ValueOverTimeGraphTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void samplesBeforeTheFirstFrame()
    {
        for (bool isShown : {false, true}) {
            Chart chart;
            chart.graph->setVisible(isShown);
            chart.addCurves(2);
            chart.graph->startDrawing();
            for (int i = 0; i < 10; ++i) {
                chart.take(1, i, Start + 13 * i);
                chart.update(chart.time + 5); // the other curve has no samples: nothing is laid out
            }
            QCOMPARE(chart.valueCount(), 10);
        }
    }

    void deletedInASignal()
    {
        {
            Chart chart;
            chart.addCurves(1);
            chart.take(1, 0, Start);
            chart.take(1, 1000, Start + 1);
            QObject::connect(chart.graph, &ValueOverTimeGraph::scaleChanged, [&chart] {
                delete chart.graph;
                chart.graph = nullptr;
            });
            QMetaObject::invokeMethod(chart.graph, "updateItemClock");
            QVERIFY(!chart.graph);
        }
    }
};

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("AXRTest"));
    QCoreApplication::setApplicationName(QStringLiteral("ValueOverTimeGraphTest"));
    if (argc == 3 && qstrcmp(argv[1], "--log") == 0)
        return logForever(argv[2]);
    ValueOverTimeGraphTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ValueOverTimeGraphTest.moc"
