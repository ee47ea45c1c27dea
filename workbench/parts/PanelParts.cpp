#include "PanelParts.h"

#include "PositionControl.h"
#include "SpinBox.h"
#include "ValueOverTimeGraph.h"
#include "VelocityRampControl.h"
#include "WRamDebug.h"

#include <QGridLayout>
#include <QPushButton>
#include <QSpinBox>

namespace
{

template <class T>
T* piece(const QWidget& panel, const char* name)
{
    T* found = panel.findChild<T*>(QLatin1String(name));
    Q_ASSERT_X(found, "PanelParts", name);
    return found;
}

} // namespace

namespace PanelParts
{

QPushButton* connectButton(const QWidget& panel) { return piece<QPushButton>(panel, "btnConnect"); }

QPushButton* startButton(const WRamDebug& panel) { return piece<QPushButton>(panel, "btnStart"); }

QPushButton* stopButton(const WRamDebug& panel) { return piece<QPushButton>(panel, "btnStop"); }

QGridLayout* fields(const WRamDebug& panel) { return piece<QGridLayout>(panel, "gridLayout"); }

QSpinBox* delayBox(const QWidget& controller) { return piece<QSpinBox>(controller, "sbDelay"); }

QPushButton* moveRelativeButton(const PositionControl& panel)
{
    return piece<QPushButton>(panel, "btnMoveRelative");
}

SpinBox* maxVelocityBox(const VelocityRampControl& panel)
{
    return piece<SpinBox>(panel, "sbMaxVelocity");
}

SpinBox* accelerationBox(const VelocityRampControl& panel)
{
    return piece<SpinBox>(panel, "sbAcceleration");
}

void pauseOrRun(const ValueOverTimeGraph& graph)
{
    auto* start = piece<QPushButton>(graph, "btnStart");
    (start->isEnabled() ? start : piece<QPushButton>(graph, "btnStop"))->click();
}

} // namespace PanelParts
