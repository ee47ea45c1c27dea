#ifndef AXISPARAMETER_H
#define AXISPARAMETER_H

#include "AXRGuiExport.h"

#include <QString>

#include <functional>
#include <optional>

class FieldFace;
class QAbstractButton;
class QGroupBox;
class QSpinBox;
class QWidget;
class SpinBox;

/// One axis parameter of a panel: its number, the widget that shows it, and the way of a reply into
/// that widget. The number starts as 0. The widget belongs to the panel's form and outlives this.
class AXRGUI_EXPORT AxisParameter
{
public:
    /// What a reply above the field's maximum does: it shows as the maximum, with a sign, or leaves
    /// the field as it is, without one. A reply below the minimum is always clipped.
    enum Excess { Clip, Drop };

    AxisParameter() = default;
    AxisParameter(const AxisParameter&) = delete;
    AxisParameter& operator=(const AxisParameter&) = delete;

    void bind(QSpinBox* field);
    /// Also makes the field wait for Return.
    void bind(SpinBox* field, Excess excess = Clip);
    /// Checked when the value is not 0.
    void bind(QAbstractButton* button);
    void bind(QGroupBox* box);
    /// Any other display: the widget takes the tool tip "AP n", the function a reply's value.
    void bind(QWidget* widget, std::function<void(int)> show);

    /// Stores the number and rebuilds the widget's tool tip.
    void setNumber(char number);
    /// Applies the range only when the bounds differ, then sets the number.
    void setNumberAndRange(char number, int minimum, int maximum);
    char number() const { return m_number; }

    QWidget* widget() const { return m_widget; }

    /// Shows a value that the module reported. A field shows what its range lets it show, and a
    /// sign in front of the number when that is less.
    void show(int value);
    /// The value reported last, also one that was clipped or dropped; none before the first.
    std::optional<int> reported() const { return m_reported; }
    /// Whether a QSpinBox shows less than was reported, by its range or by one that came later.
    bool isClipped() const;

protected:
    enum class ToolTip { WithRange, Tuple };

    explicit AxisParameter(ToolTip toolTip) : m_tipForm(toolTip) {}

private:
    template <class Box>
    void bindBox(Box* box);

    ToolTip m_tipForm = ToolTip::WithRange;
    char m_number = 0;
    QWidget* m_widget = nullptr;
    FieldFace* m_face = nullptr; // of a QSpinBox
    std::optional<int> m_reported;
    std::function<QString(char)> m_toolTip;
    std::function<void(int, int)> m_setRange;
    std::function<void(int)> m_show;
};

/// A parameter of the panels with tuple signals: its tool tip is "AP: n", whatever the widget.
class AXRGUI_EXPORT TupleParameter : public AxisParameter
{
public:
    TupleParameter() : AxisParameter(ToolTip::Tuple) {}
};

#endif
