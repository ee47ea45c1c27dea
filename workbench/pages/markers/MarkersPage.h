#ifndef MARKERSPAGE_H
#define MARKERSPAGE_H

#include "Page.h"

#include "RampProfile.h"

#include <QGraphicsScene>

class FunctionData;
class MarkerItem;
class QGraphicsRectItem;
class QLabel;

/// Movable markers and notes on the plot of a velocity ramp. Needs no module.
class MarkersPage : public Page
{
    Q_OBJECT
public:
    MarkersPage();
    ~MarkersPage() override;

    bool worksAlone() const override { return true; }
    void tour(TourGuide& guide) override;

private:
    void plotRamp();
    void addMarkers();
    void addNote(double time, const QString& letter, const QString& name);
    MarkerItem* onPlot(MarkerItem* marker, const QString& name);
    QPointF placeOf(double time) const;
    void showTime();
    void showVelocity();
    void showNote();

    Simulated::RampProfile m_ramp;
    QGraphicsScene m_scene;
    FunctionData* m_data;
    QRectF m_shown;
    QGraphicsRectItem* m_plot = nullptr; // what the markers stay within
    MarkerItem* m_time = nullptr;
    MarkerItem* m_velocity = nullptr;
    QLabel* m_timeText;
    QLabel* m_velocityText;
    QLabel* m_noteText;
};

#endif
