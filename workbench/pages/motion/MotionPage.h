#ifndef MOTIONPAGE_H
#define MOTIONPAGE_H

#include "Page.h"

#include <vector>

class AxisPanel;
class QPushButton;
class ShaftView;
class SpinBox;

/// The motion panels of both axes, with a view of what each simulated shaft really does. A relative
/// move waits until the actual position was read once.
class MotionPage : public Page
{
    Q_OBJECT
public:
    explicit MotionPage(const PageContext& context);
    ~MotionPage() override;

    void setAddress(char address) override;
    void refresh() override;
    void poll() override;
    bool isEditing(const Command& request) const override;
    /// Draws what the simulated axes do now.
    void frame(qint64 now) override;
    void take(const Command& reply) override;
    void tour(TourGuide& guide) override;

    /// The panel of one axis, null when there is none of that class.
    template <class Panel>
    Panel* panel(int axis) const
    {
        return findChild<Panel*>(panelName(Panel::staticMetaObject.className(), axis));
    }

private:
    struct Field {
        SpinBox* box; ///< Shows a parameter and changes it.
        quint8 number;
    };
    struct Axis {
        QPushButton* moveRelative;
        std::vector<Field> fields;
    };

    static QString panelName(const char* className, int axis);
    QWidget* makeAxis(int axis);
    QWidget* makeShaft(int axis);

    const Simulator* m_simulator;
    QList<AxisPanel*> m_panels;
    QList<AxisPanel*> m_polled;
    std::vector<Axis> m_axes;
    char m_address = 1;
    QList<ShaftView*> m_shafts;
};

#endif
