#include "Graph.h"

#include "CurveColumns_p.h"
#include "SampleHistory_p.h"

#include <QDateTime>

Graph::Graph(char address, char motorBank, char command, char type, QString label, QColor color)
    : m_command(command)
    , m_type(type)
    , m_label(std::move(label))
    , m_values(std::make_unique<SampleHistory>())
    , m_color(std::move(color))
    , m_timeOutTime(QDateTime::currentMSecsSinceEpoch())
{
    setAddress(address);
    setMotorBank(motorBank);
}

Graph::~Graph() = default;

void Graph::setMaxValues(int maxValues)
{
    if (maxValues >= 0)
        m_maxValues = maxValues;
}

void Graph::clearValues()
{
    m_values->clear();
    m_drawn.reset();
}

QList<TValue> Graph::getValues() const
{
    QList<TValue> values;
    const std::size_t count = m_values->size();
    values.reserve(static_cast<int>(count));
    for (std::size_t i = 0; i < count; ++i)
        values.append((*m_values)[i]);
    return values;
}

int Graph::valueCount() const { return static_cast<int>(m_values->size()); }

bool Graph::valueRange(double* lowest, double* highest) const
{
    return m_values->extremes(lowest, highest);
}

void Graph::addValue(double value) { addValue(value, QDateTime::currentMSecsSinceEpoch()); }

void Graph::addValue(double value, qint64 time)
{
    store(value, time);
    if (const auto drawn = m_drawn.lock())
        drawn->append(value, time);
}

void Graph::store(double value, qint64 time)
{
    m_values->append({value, time});
    while (m_values->size() > static_cast<std::size_t>(m_maxValues))
        m_values->removeFirst();
    while (m_values->size() > 0 && m_values->first().time < m_timeOutTime)
        m_values->removeFirst();
}
