#ifndef CURRENTCONTROL_H
#define CURRENTCONTROL_H

#include "TurnPanel.h"

#include <memory>

namespace Ui
{
class CurrentControl;
}

/// Turns one axis at a current, by setting the target current with a sign: left is negative. A new
/// target reaches the axis with the next click only. Currents are in the device's own unit (mA by
/// caption).
class AXRGUI_EXPORT CurrentControl : public TurnPanel
{
    Q_OBJECT
public:
    explicit CurrentControl(QWidget* parent = nullptr);
    ~CurrentControl() override;

    /// Axis parameter that the buttons write, 0..255, default 0.
    void setTargetCurrentCommand(char type);
    /// Equal bounds leave the range as it is. Default range 0..99999.
    void setTargetCurrentCommandAndRange(char type, int minimum, int maximum);

    /// Axis parameter that holds the actual current, 0..255, default 0.
    void setActualCurrentCommand(char type);
    /// Equal bounds leave the range as it is. Default range -99999..99999.
    void setActualCurrentCommandAndRange(char type, int minimum, int maximum);
    char getActualCurrentCommand() const { return m_actualCurrent.number(); }

    void setActualText(const QString& text);
    void setTargetText(const QString& text);

    /// Whether stop sends MST rather than a target current of 0; also the stop of a jog that is
    /// held meanwhile. Default false.
    void setUseMSTForStop(bool use);

private:
    void turn(Direction direction) override;
    HeldButton::Stop stop() override;

    std::unique_ptr<Ui::CurrentControl> m_ui;
    AxisParameter m_targetCurrent;
    AxisParameter m_actualCurrent;
    bool m_useMSTForStop = false;
    HeldButton m_jogLeft;
    HeldButton m_jogRight;
};

#endif
