#ifndef GRAPH_H
#define GRAPH_H

#include "AXRGuiExport.h"
#include "MotorController.h"
#include "TValue.h"

#include <QColor>
#include <QList>
#include <QString>

#include <memory>

class CurveColumns;
class SampleHistory;

/// The stored samples of one curve of a ValueOverTimeGraph, which is told by its address, motor
/// bank, command and type. It is the truth: what is drawn is made from it.
class AXRGUI_EXPORT Graph : public MotorController
{
public:
    /// \param label name in the caption, in the selection and in files
    Graph(char address, char motorBank, char command, char type, QString label, QColor color);
    ~Graph();

    char getCommand() const { return m_command; }
    char getType() const { return m_type; }
    QString getLabel() const { return m_label; }
    QColor getColor() const { return m_color; }
    /// Drawn in it from the next rebuild of the graph's scene on.
    void setColor(const QColor& color) { m_color = color; }

    /// Most samples kept, default 10000; negative is ignored. Holds from the next sample on.
    void setMaxValues(int maxValues);
    /// Samples older than this (ms since the epoch, default the time of construction) are dropped
    /// when the next one arrives.
    void setTimeOutTime(const qint64& timeOutTime) { m_timeOutTime = timeOutTime; }

    /// Whether a scene that is built for this curve starts with lines between the samples.
    void setUseConnectedPointsEnabled(bool enabled) { m_useConnectedPoints = enabled; }
    bool isUseConnectPointsEnabled() const { return m_useConnectedPoints; }

    /// The curve that is drawn stays as it is until its scene is rebuilt.
    void clearValues();
    /// In the order of their arrival. A copy, which takes its time.
    QList<TValue> getValues() const;
    int valueCount() const;
    /// Least and greatest value stored, known without a walk. False without samples.
    bool valueRange(double* lowest, double* highest) const;

    /// A sample of now.
    void addValue(double value);
    /// A sample of `time`, in ms since the epoch, stored here and shown by the item that draws this
    /// curve. Times may repeat, and go back when the clock was set back: nothing is lost by it.
    void addValue(double value, qint64 time);

private:
    Q_DISABLE_COPY(Graph)
    friend class GraphItem;
    friend class GraphScene;
    friend class ValueOverTimeGraph;

    void store(double value, qint64 time);

    char m_command;
    char m_type;
    QString m_label;
    std::unique_ptr<SampleHistory> m_values;
    QColor m_color;
    int m_maxValues = 10000;
    qint64 m_timeOutTime;
    bool m_useConnectedPoints = true;
    std::weak_ptr<CurveColumns> m_drawn;
};

#endif
