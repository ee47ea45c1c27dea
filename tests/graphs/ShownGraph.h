#ifndef SHOWNGRAPH_H
#define SHOWNGRAPH_H

#include "CommandRecorder.h"
#include "Graph.h"
#include "MarkerItem.h"
#include "User.h"
#include "ValueOverTimeGraph.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QGraphicsView>
#include <QImage>
#include <QSpinBox>

inline constexpr qint64 Start = 1600000000000; // a full second

/// A shown graph with its own clock. Nothing happens to it but by these verbs.
class ShownGraph
{
public:
    explicit ShownGraph(QSize size = {420, 260}) : graph(new ValueOverTimeGraph)
    {
        graph->setClock([this] { return time; });
        graph->setAttribute(Qt::WA_DontShowOnScreen);
        resize(size);
        graph->show();
        QCoreApplication::sendPostedEvents();
    }
    ~ShownGraph() { delete graph; }
    void remove() { delete std::exchange(graph, nullptr); }

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
    /// One after the other for each of the curves of addCurves().
    void takeAll(const QVector<int>& values, qint64 at)
    {
        for (int value : values)
            for (int i = 1; i <= graph->getGraphs().size(); ++i)
                take(i, value, at);
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
    /// From the lowest to the topmost one; the scene has them in no order.
    template <class Item>
    QList<Item*> items() const
    {
        QList<Item*> found;
        for (QGraphicsItem* item : view()->scene()->items()) {
            if (auto* one = dynamic_cast<Item*>(item))
                found << one;
        }
        std::sort(found.begin(), found.end(),
                  [](const Item* a, const Item* b) { return a->zValue() < b->zValue(); });
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

#endif
