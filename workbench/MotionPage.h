#ifndef MOTIONPAGE_H
#define MOTIONPAGE_H

#include "Page.h"

class AxisPanel;
class ShaftView;
class SimulatedModule;

/// The motion panels of both axes, with a view of what each simulated shaft really does.
class MotionPage : public Page
{
    Q_OBJECT
public:
    explicit MotionPage(SimulatedModule& module);
    ~MotionPage() override;

    void setAddress(char address) override;
    void refresh() override;
    void poll() override;
    void take(const Command& reply) override;

    /// Draws what the simulated axes do now.
    void showShafts(const SimulatedModule& module);

    /// The panel of one axis, null when there is none of that class.
    template <class Panel>
    Panel* panel(int axis) const
    {
        return findChild<Panel*>(panelName(Panel::staticMetaObject.className(), axis));
    }

private:
    static QString panelName(const char* className, int axis);
    QWidget* makeAxis(SimulatedModule& module, int axis);

    QList<AxisPanel*> m_panels;
    QList<AxisPanel*> m_polled;
    QList<ShaftView*> m_shafts;
};

#endif
