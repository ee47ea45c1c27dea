#ifndef RAMPPAGE_H
#define RAMPPAGE_H

#include "Page.h"
#include "RampMove.h"
#include "TrapezialRamp.h"

class ModuleLink;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class RampCurve;
class SpinBox;

/// The trapezoid ramp of eight parameters, and over it the one that an axis really turns.
///
/// Units. A step of the calculation is taken for one increment of the axis' encoder; its steps in
/// a turn and the units of TrapezialRamp give rpm and rpm/s, rounded to the whole numbers that the
/// module takes.
///
/// The simulated axis has one acceleration, which also brakes, and starts and stops at rest: it
/// takes VMAX as its maximum velocity and AMAX as its acceleration, and no other. Nothing is sent
/// but on "Move" and "Stop", and a move only with values within the axis' ranges.
class RampPage : public Page
{
    Q_OBJECT
public:
    explicit RampPage(const PageContext& context);

    bool worksAlone() const override { return true; }
    void giveUp() override { m_move.giveUp(); }
    void setAddress(char address) override;
    void refresh() override;
    void poll() override;
    void take(const Command& reply) override;
    void tour(TourGuide& guide) override;

    /// The move that the page drives, with the record of the last one.
    const RampMove& move() const { return m_move; }
    /// The text of the calculation as it gave it.
    QString result() const { return m_ramp.str(); }

private:
    QWidget* makeParameters();
    QWidget* makeMove();
    void calculate();
    void showMeasured();
    void showPlan();
    void showEnd(const QString& reason);
    RampMove::Plan plan() const;
    QString obstacle(const RampMove::Plan& plan) const;
    double rpmPerUnit() const;
    char axis() const;
    void startMove();
    void stop();

    const ModuleLink& m_link;
    RampMove m_move;
    TrapezialRamp m_ramp;
    char m_address = 1;
    int m_encoderSteps = 0;   // of the chosen axis, 0 as long as it is not known
    double m_recordScale = 0; // rpm of a unit when the record was made
    QFormLayout* m_parameters = nullptr;
    SpinBox* m_maxVelocity = nullptr;
    SpinBox* m_acceleration = nullptr;
    SpinBox* m_distance = nullptr;
    QComboBox* m_axis = nullptr;
    QCheckBox* m_left = nullptr;
    QPushButton* m_start = nullptr;
    QLabel* m_plan;
    QLabel* m_result;
    QLabel* m_turned;
    RampCurve* m_curve;
};

#endif
