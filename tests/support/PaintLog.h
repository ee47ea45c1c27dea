#ifndef PAINTLOG_H
#define PAINTLOG_H

#include <QPaintDevice>
#include <QPaintEngine>
#include <QStringList>

/// Writes down what is painted on it, as "colour line x,y x,y", "colour rect x,y w,h" and "colour
/// text x,y ..." with the colour of the pen, or of the brush where there is no pen. Numbers are
/// whole logical pixels; paths and pictures are left out.
class PaintLog : public QPaintDevice
{
public:
    explicit PaintLog(const QSize& size);
    ~PaintLog() override;

    /// The lines since the last call.
    QStringList takeLines();

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;
    QSize m_size;
    std::unique_ptr<Engine> m_engine;
};

#endif
