// The steps of the tour on the page of live curves.

#include "Bytes.h"
#include "Command.h"
#include "Graph.h"
#include "GraphItem.h"
#include "GraphPage.h"
#include "GraphSelector.h"
#include "MarkerItem.h"
#include "ModuleLink.h"
#include "ScreenPicture.h"
#include "TourGuide.h"
#include "TourInput.h"
#include "ValueKey.h"
#include "ValueOverTimeGraph.h"
#include "WTraceController.h"
#include "XTimeAxisItem.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>

using namespace TourInput;

namespace
{

constexpr int LiveTime = 1500; // ms of real time
constexpr int Velocity = 500;  // rpm

/// What the module said, beside what the graph made of it.
struct Answer {
    qint64 time;
    Command reply;
};

/// The last `samples` of the graph against those of the answers that belong to it.
bool isAsAnswered(const Graph& graph, const QVector<Answer>& answers, int* samples)
{
    const QList<TValue> values = graph.getValues();
    QVector<Answer> own;
    std::copy_if(answers.begin(), answers.end(), std::back_inserter(own),
                 [&graph](const Answer& answer) { return isSameValue(graph, answer.reply); });
    *samples += own.size();
    return own.size() <= values.size() && !own.isEmpty() &&
           std::equal(own.begin(), own.end(), values.end() - own.size(),
                      [](const Answer& answer, const TValue& value) {
                          return answer.reply.getValue() == value.value &&
                                 answer.time == value.time;
                      });
}

/// Each curve has its colour where its samples of the last second belong.
void expectCurvesAt(TourGuide& guide, ValueOverTimeGraph* graph)
{
    constexpr int AgeStep = 50;      // ms
    constexpr int OldestAge = 1000;  // ms
    constexpr double PixelTime = 10; // ms
    constexpr int Reach = 4;         // px, for what came between picture and probe
    auto* view = graph->findChild<QGraphicsView*>();
    double bottomValue = 0;
    double topValue = 0;
    QRectF area;
    const QObject context;
    for (QGraphicsItem* item : view->scene()->items()) {
        if (auto* axis = dynamic_cast<XTimeAxisItem*>(item))
            QObject::connect(axis, &XTimeAxisItem::updateMinMaxValue, &context,
                             [&](qreal least, qreal greatest) {
                                 bottomValue = least;
                                 topValue = greatest;
                             });
    }
    guide.runLive(LiveTime / 5);
    const QImage picture = ScreenPicture::of(view->viewport());
    const qint64 now = guide.time();
    for (QGraphicsItem* item : view->scene()->items()) {
        if (dynamic_cast<GraphItem*>(item))
            area = item->mapRectToScene(item->boundingRect());
    }
    QStringList seen;
    bool isFine = !area.isEmpty() && topValue > bottomValue && !picture.isNull();
    for (const Graph* curve : graph->getGraphs()) {
        int probes = 0;
        int hits = 0;
        for (int age = AgeStep; isFine && age <= OldestAge; age += AgeStep) {
            QRectF place; // of the samples about that age
            for (const TValue& sample : curve->getValues()) {
                if (qAbs(now - age - sample.time) <= AgeStep)
                    place |= QRectF(area.right() - (now - sample.time) / PixelTime,
                                    area.bottom() - (sample.value - bottomValue) /
                                                        (topValue - bottomValue) * area.height(),
                                    1, 1);
            }
            if (place.isEmpty())
                continue;
            ++probes;
            hits += ScreenPicture::has(
                picture,
                view->mapFromScene(place.adjusted(-Reach, -Reach, Reach, Reach)).boundingRect(),
                curve->getColor());
        }
        seen << QStringLiteral("%1 of %2").arg(hits).arg(probes);
        isFine = isFine && probes > 0 && 2 * hits >= probes; // another curve may cover it
    }
    guide.check(QStringLiteral("each curve on the screen, where its samples belong"),
                QStringLiteral("its colour"), seen.join(QStringLiteral(", ")), isFine);
}

void exportCurves(TourGuide& guide, ValueOverTimeGraph* graph)
{
    const QString name = guide.file(QStringLiteral("graph.csv"));
    QFile::remove(name);
    answerFileDialog(guide.window(), name);
    click(guide.find<QPushButton>(graph, "btnSave"));

    const QList<QByteArrayList> rows = readCsv(name);
    const QList<Graph*> curves = graph->getGraphs();
    QVector<QList<TValue>> left; // not found in the file yet
    qint64 begin = std::numeric_limits<qint64>::max();
    for (const Graph* curve : curves) {
        left << curve->getValues();
        begin = qMin(begin, left.last().first().time);
    }
    bool same = rows.size() > 1 && rows.first().size() == curves.size() + 1;
    for (int i = 1; same && i < rows.size(); ++i) {
        const QByteArrayList& row = rows.at(i);
        int column = 1;
        while (column < row.size() && row.at(column).isEmpty())
            ++column;
        same = column < row.size() && !left[column - 1].isEmpty();
        if (!same)
            break;
        const TValue sample = left[column - 1].takeFirst();
        same = row.at(0).toLongLong() == sample.time - begin &&
               row.at(column) == QByteArray::number(static_cast<int>(sample.value));
    }
    for (const QList<TValue>& rest : left)
        same = same && rest.isEmpty();
    guide.check(QStringLiteral("save the curves, read graph.csv back"),
                QStringLiteral("all samples, and no other"),
                QStringLiteral("%1 rows %2").arg(rows.size() - 1).arg(same ? "alike" : "not alike"),
                same);
}

void logCurves(TourGuide& guide, ValueOverTimeGraph* graph, WTraceController* controller)
{
    const QString name = guide.file(QStringLiteral("graph-log.csv"));
    QFile::remove(name);
    answerFileDialog(guide.window(), name);
    auto* box = guide.find<QCheckBox>(graph, "cbLog");
    click(box);
    QVector<Answer> answers;
    {
        const QObject recorder;
        QObject::connect(&guide.link(), &ModuleLink::answered, &recorder,
                         [&](const Command&, const Command& reply) {
                             answers.append({guide.time(), reply});
                         });
        guide.passTicks(500 / TourGuide::Step, {controller});
    }
    click(box);
    guide.passTicks(8, {controller});

    const QList<QByteArrayList> rows = readCsv(name);
    const QList<Graph*> curves = graph->getGraphs();
    bool same = rows.size() == answers.size() + 1;
    for (int i = 1; same && i < rows.size(); ++i) {
        const Command& reply = answers.at(i - 1).reply;
        const QByteArrayList& row = rows.at(i);
        same = row.size() == curves.size() + 1 &&
               row.at(0).toLongLong() - rows.at(1).at(0).toLongLong() ==
                   answers.at(i - 1).time - answers.first().time;
        for (int column = 1; same && column < row.size(); ++column)
            same = row.at(column) == (isSameValue(*curves.at(column - 1), reply)
                                          ? QByteArray::number(reply.getValue())
                                          : QByteArray());
    }
    guide.check(QStringLiteral("log for half a second, read graph-log.csv back"),
                QStringLiteral("a row for each answer, and none after the end"),
                QStringLiteral("%1 answers, %2 rows %3")
                    .arg(answers.size())
                    .arg(rows.size() - 1)
                    .arg(same ? "alike" : "not alike"),
                same);
}

void selectCurves(TourGuide& guide, ValueOverTimeGraph* graph)
{
    const QString added = QStringLiteral("0 Temperature [°C]");
    QTimer::singleShot(0, guide.window(), [&, graph, added] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            qFatal("no context menu came");
        guide.photographWidget(menu, QStringLiteral("menu of the graph"),
                               QStringLiteral("graph-menu"));
        QTimer::singleShot(0, graph, [&, added] {
            auto* dialog = qobject_cast<GraphSelector*>(QApplication::activeModalWidget());
            if (!dialog)
                qFatal("no selection dialog came");
            const auto clickName = [](QTableWidget* table, const QString& name) {
                constexpr int NameColumn = 2;
                for (int row = 0; row < table->rowCount(); ++row) {
                    QTableWidgetItem* cell = table->item(row, NameColumn);
                    if (cell->text() != name)
                        continue;
                    table->scrollToItem(cell);
                    const QPoint at = table->visualItemRect(cell).center();
                    mouse(table->viewport(), QEvent::MouseButtonPress, at);
                    mouse(table->viewport(), QEvent::MouseButtonRelease, at);
                    return;
                }
                qFatal("the table has no row %s", qPrintable(name));
            };
            auto* selected = guide.find<QTableWidget>(dialog, "twSelected");
            clickName(guide.find<QTableWidget>(dialog, "twAvailable"), added);
            clickName(selected, selected->item(0, 2)->text());
            guide.photographWidget(dialog, QStringLiteral("selection of curves"),
                                   QStringLiteral("graph-selection"));
            click(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok));
        });
        menu->setActiveAction(menu->actions().last());
        press(menu, Qt::Key_Return);
    });
    const QString first = graph->getGraphs().first()->getLabel();
    graph->contextMenuRequest(graph->rect().center());
    QStringList labels;
    for (const Graph* curve : graph->getGraphs())
        labels << curve->getLabel();
    guide.check(QStringLiteral("drop the first curve and add %1 in the dialog").arg(added),
                QStringLiteral("4 curves, those"), labels.join(QStringLiteral(", ")),
                labels.size() == 4 && labels.contains(added) && !labels.contains(first));
}

} // namespace

void GraphPage::tour(TourGuide& guide)
{
    ValueOverTimeGraph* graph = m_graph;
    WTraceController* controller = m_controller;
    guide.turn(0, Velocity);
    guide.showPage(QStringLiteral("graph"));

    QVector<Answer> answers;
    const QObject recorder;
    QObject::connect(&guide.link(), &ModuleLink::answered, &recorder,
                     [&](const Command&, const Command& reply) {
                         answers.append({guide.time(), reply});
                     });
    click(guide.find<QPushButton>(controller, "btnStart"));
    const bool ticked = guide.passTicks(3000 / TourGuide::Step, {controller});
    int samples = 0;
    bool same = ticked;
    for (const Graph* curve : graph->getGraphs())
        same = isAsAnswered(*curve, answers, &samples) && same;
    guide.check(
        QStringLiteral("curves of %1 values while axis 0 turns").arg(graph->getGraphs().size()),
        QStringLiteral("each sample as the module answered, value and time"),
        QStringLiteral("%1 samples %2").arg(samples).arg(same ? "alike" : "not alike"), same);
    guide.expectText(
        QStringLiteral("refresh rate of the curves"), [&] { return m_rate->text(); },
        QStringLiteral("4 values, each 50.0 times a second"), 0);
    guide.runLive(LiveTime);
    guide.expectMotion(graph->findChild<QGraphicsView*>()->viewport(),
                       QStringLiteral("the curves move"));
    expectCurvesAt(guide, graph);
    guide.photograph(QStringLiteral("graph"));

    const auto* panel = guide.find<QWidget>(graph, "graphController");
    click(guide.find<QPushButton>(graph, "btnHideController"));
    QApplication::processEvents();
    click(guide.find<QRadioButton>(panel, "btnScaleManually"));
    type(guide.find<QSpinBox>(panel, "sbMax"), QStringLiteral("1000"));
    type(guide.find<QSpinBox>(panel, "sbMin"), QStringLiteral("-200"));
    guide.passTicks(200 / TourGuide::Step, {controller});
    guide.photograph(QStringLiteral("graph"), QStringLiteral("graph-manual"));
    const auto visibleMarkers = [graph] {
        const auto items = graph->findChild<QGraphicsScene*>()->items();
        return std::count_if(items.begin(), items.end(), [](const QGraphicsItem* item) {
            return item->type() == MarkerItem::Type && item->isVisible();
        });
    };
    guide.check(QStringLiteral("scale -200..1000 by hand"),
                QStringLiteral("no marker of the extremes"),
                QStringLiteral("%1 markers").arg(visibleMarkers()), visibleMarkers() == 0);
    click(guide.find<QRadioButton>(panel, "btnScaleDynamic"));
    guide.passTicks(200 / TourGuide::Step, {controller});
    double lowest = 0;
    double highest = 0;
    for (const Graph* curve : graph->getGraphs())
        curve->valueRange(&lowest, &highest);
    const int shownMin = guide.find<QSpinBox>(panel, "sbMin")->value();
    const int shownMax = guide.find<QSpinBox>(panel, "sbMax")->value();
    guide.check(QStringLiteral("scale by the data again"),
                QStringLiteral("a range that covers them"),
                QStringLiteral("%1..%2").arg(shownMin).arg(shownMax),
                shownMin <= lowest && shownMax >= highest && shownMin != -200);

    exportCurves(guide, graph);
    logCurves(guide, graph, controller);
    selectCurves(guide, graph);
    guide.passTicks(1000 / TourGuide::Step, {controller});
    guide.photograph(QStringLiteral("graph"), QStringLiteral("graph-selected"));
    click(guide.find<QPushButton>(controller, "btnStop"));
    guide.turn(0, 0);
}
