#ifndef GRAPHCLOCK_P_H
#define GRAPHCLOCK_P_H

#include <QtGlobal>

#include <functional>

/// The time of a live graph, in ms since the epoch: where it comes from, whether it runs, what
/// stands at the right edge of the picture, and which frame is under way.
class GraphClock
{
public:
    /// \param source empty, the default: the system's clock
    void setSource(std::function<qint64()> source) { m_source = std::move(source); }
    qint64 now() const;

    /// While time is stopped, as it is at first, the edge stands still.
    void setRunning(bool running) { m_isRunning = running; }
    bool isRunning() const { return m_isRunning; }
    qint64 edge() const { return m_edge; }

    /// A frame of this time begins, perhaps within another one.
    void beginFrame(qint64 time);
    void endFrame() { --m_depth; }
    /// Whether a frame runs within another one.
    bool isNested() const { return m_depth > 1; }
    /// Of the frame under way; without one that of the clock.
    qint64 frameTime() const { return m_depth > 0 ? m_frameTime : now(); }

private:
    std::function<qint64()> m_source;
    bool m_isRunning = false;
    qint64 m_edge = now();
    int m_depth = 0;
    qint64 m_frameTime = 0;
};

#endif
