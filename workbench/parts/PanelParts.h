#ifndef PANELPARTS_H
#define PANELPARTS_H

class PositionControl;
class QGridLayout;
class QPushButton;
class QSpinBox;
class QWidget;
class SpinBox;
class ValueOverTimeGraph;
class VelocityRampControl;
class WRamDebug;

/// The pieces inside the library's panels that this host needs and the panels do not hand out. Each
/// is found by its object name, here and nowhere else in the pages.
namespace PanelParts
{

/// "Connect" of a connection panel.
QPushButton* connectButton(const QWidget& panel);

/// Usable whenever no capture runs.
QPushButton* startButton(const WRamDebug& panel);
QPushButton* stopButton(const WRamDebug& panel);
/// The rows of fields above the drawer.
QGridLayout* fields(const WRamDebug& panel);

/// Of a trace controller.
QSpinBox* delayBox(const QWidget& controller);

QPushButton* moveRelativeButton(const PositionControl& panel);

SpinBox* maxVelocityBox(const VelocityRampControl& panel);
SpinBox* accelerationBox(const VelocityRampControl& panel);

/// Presses the one of "Start" and "Stop" that is enabled.
void pauseOrRun(const ValueOverTimeGraph& graph);

} // namespace PanelParts

#endif
