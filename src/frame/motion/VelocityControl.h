#ifndef VELOCITYCONTROL_H
#define VELOCITYCONTROL_H

#include "TurnPanel.h"

#include <memory>

namespace Ui
{
class VelocityControl;
}

/// Turns one axis at a velocity. Both directions carry the target as it stands when the button is
/// clicked or pressed; the direction lies in the instruction.
/// A new target reaches a turning axis with the next click only. Stops by MST.
/// Velocities are in the device's own unit (rpm by caption).
class AXRGUI_EXPORT VelocityControl : public TurnPanel
{
    Q_OBJECT
public:
    explicit VelocityControl(QWidget* parent = nullptr);
    ~VelocityControl() override;

    /// Axis parameter that holds the actual velocity, 0..255, default 0.
    void setActualVelocityCommand(char type);
    /// Equal bounds leave the range as it is. Default range -2147483647..2147483647.
    void setActualVelocityCommandAndRange(char type, int minimum, int maximum);
    char getActualVelocityCommand() const { return m_actualVelocity.number(); }

    /// Equal bounds leave the range as it is; the tool tip shows the range that then holds. Default
    /// range 0..100000.
    void setTargetVelocityRange(int minimum, int maximum);
    /// Default 100.
    void setTargetVelocitySingleStep(int step);

    void setActualText(const QString& text);
    void setTargetText(const QString& text);

private:
    void turn(Direction direction) override;
    HeldButton::Stop stop() override;

    std::unique_ptr<Ui::VelocityControl> m_ui;
    AxisParameter m_actualVelocity;
    HeldButton m_jogLeft;
    HeldButton m_jogRight;
};

#endif
