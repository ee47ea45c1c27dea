#ifndef DRAWINGLOG_H
#define DRAWINGLOG_H

#include <QFont>
#include <QPaintDevice>
#include <QStringList>

#include <memory>

class DrawingEngine;

/// Paints nothing and writes down what is drawn, in order and in device pixels: "line x y x y",
/// "ellipse x y width height", "text x y abc" with the baseline's start, "rect ..." for all else;
/// with the pen's colour behind, unless it is black.
class DrawingLog : public QPaintDevice
{
public:
    DrawingLog();
    ~DrawingLog() override;

    /// The lines since the last call.
    QStringList takeLines();
    QPaintEngine* paintEngine() const override;

    /// A font whose lines are 22 pixels high and each of whose characters is 11 wide.
    static QFont font();

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    std::unique_ptr<DrawingEngine> m_engine;
};

#endif
