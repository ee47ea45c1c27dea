#ifndef VELOCITYRAMPCONTROL_H
#define VELOCITYRAMPCONTROL_H

#include "AxisPanel.h"

#include <memory>

namespace Ui
{
class VelocityRampControl;
}

/// Sets the ramp of one axis: its maximum velocity and acceleration, sent on Return, and whether it
/// is used at all. A reply above a field's maximum is dropped without a sign, one below its minimum
/// shows as the minimum, with a sign. Units are the device's own.
class AXRGUI_EXPORT VelocityRampControl : public AxisPanel
{
    Q_OBJECT
public:
    explicit VelocityRampControl(QWidget* parent = nullptr);
    ~VelocityRampControl() override;

    /// Axis parameter of the maximum velocity, 0..255, default 0.
    void setMaxVelocityCommand(char type);
    /// Equal bounds leave the range as it is. Default range -2147483647..2147483647.
    void setMaxVelocityCommandAndRange(char type, int minimum, int maximum);

    /// Axis parameter of the acceleration, 0..255, default 0.
    void setAccelerationCommand(char type);
    /// Equal bounds leave the range as it is. Default range -2147483647..2147483647.
    void setAccelerationCommandAndRange(char type, int minimum, int maximum);

    /// Axis parameter that switches the ramp, 0..255, default 0.
    void setEnableRampCommand(char type);

    void setMaxVelocityCaption(const QString& caption);
    void setAccelerationCaption(const QString& caption);
    /// Default 100.
    void setMaxVelocitySingleStep(int step);
    /// Default 100.
    void setAccelerationSingleStep(int step);

public Q_SLOTS:
    void on_sbMaxVelocity_valueChanged(int value);
    void on_sbAcceleration_valueChanged(int value);
    void on_gbRampEnabler_toggled(bool enabled);

private:
    std::unique_ptr<Ui::VelocityRampControl> m_ui;
    AxisParameter m_maxVelocity;
    AxisParameter m_acceleration;
    AxisParameter m_enableRamp;
};

#endif
