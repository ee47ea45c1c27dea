#ifndef POSITIONCONTROL_H
#define POSITIONCONTROL_H

#include "AxisPanel.h"

#include <memory>

namespace Ui
{
class PositionControl;
}

/// Moves one axis to a position, absolute or relative, and clears its position counter. Positions
/// are in the device's own unit.
///
/// The panel remembers the position it aimed at last: an absolute move sets it, each relative move
/// adds to it (clamped to the range of int), and moves that come from elsewhere do not touch it.
class AXRGUI_EXPORT PositionControl : public AxisPanel
{
    Q_OBJECT
public:
    explicit PositionControl(QWidget* parent = nullptr);
    ~PositionControl() override;

    /// Axis parameter that holds the actual position, 0..255, default 0; "Clear" writes 0 to it.
    void setActualPositionCommand(char type);
    /// Equal bounds leave the range as it is. Default range -2147483647..2147483647. A reply
    /// outside shows as the bound, with a sign in front of it.
    void setActualPositionCommandAndRange(char type, int minimum, int maximum);
    char getActualPositionCommand() const { return m_actualPosition.number(); }

    /// Axis parameter of the target position, 0..255, default 0; for the tool tip alone.
    void setTargetPositionCommand(char type);
    /// Equal bounds leave the range as it is. Default range -2147483647..2147483647.
    void setTargetPositionCommandAndRange(char type, int minimum, int maximum);
    char getTargetPositionCommand() const { return m_targetPosition.number(); }

    /// Axis parameters that "Clear on NULL" sets to 1, that of clear once first. Default 0.
    void setClearOnNullCommand(char type);
    void setClearOnceCommand(char type);

    /// Whether stop sends MST rather than a relative move by 0. Default false.
    void setUseMSTForStop(bool use);
    /// Whether a move relative to the actual position goes out as an absolute one, to the actual
    /// position plus the target, saturated to the range of int. Default false. The actual position
    /// is the field's; where the field shows less than the last reply, it is that reply. Before any
    /// reply it is 0, wherever the axis stands: a host keeps btnMoveRelative disabled until
    /// isActualPositionKnown().
    void setUseMVPAbsForRel(bool use);
    /// Whether a reply with the actual position came since the panel was made. It may be old.
    bool isActualPositionKnown() const { return m_actualPosition.reported().has_value(); }
    /// Default 1000.
    void setTargetPositionSingleStep(int step);

public Q_SLOTS:
    void on_btnClear_clicked();
    void on_btnClearOnNull_clicked();
    void on_btnMoveAbsolute_clicked();
    void on_btnMoveRelative_clicked();
    void on_btnStop_clicked();

private:
    int actualPosition() const;
    void sendMove(MoveType moveType, int value);

    std::unique_ptr<Ui::PositionControl> m_ui;
    AxisParameter m_actualPosition;
    AxisParameter m_targetPosition;
    AxisParameter m_clearOnNull;
    char m_clearOnceCommand = 0;
    bool m_useMSTForStop = false;
    bool m_useMVPAbsForRel = false;
    int m_lastTargetPosition = 0;
    QString m_actualPositionText;
    QString m_targetPositionText;
};

#endif
