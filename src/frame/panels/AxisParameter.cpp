#include "AxisParameter.h"

#include "FieldFace_p.h"
#include "ParameterToolTip.h"
#include "SpinBox.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QSpinBox>

template <class Box>
void AxisParameter::bindBox(Box* box)
{
    m_widget = box;
    m_toolTip = [box](char number) { return parameterToolTip(number, *box); };
    m_setRange = [box](int minimum, int maximum) { box->setRange(minimum, maximum); };
    m_show = [box](int value) { box->setValue(value); };
}

void AxisParameter::bind(QSpinBox* field)
{
    bindBox(field);
    m_face = FieldFace::of(field);
    m_show = [field, shownBy = m_face](int value) {
        const QPointer<FieldFace> face(
            shownBy); // a host may delete the panel when the field changes
        field->setValue(value);
        if (face)
            face->tell(value);
    };
}

void AxisParameter::bind(SpinBox* field, Excess excess)
{
    field->setFlags(SpinBox::ChangedOnEnter | SpinBox::ResetOnEscape);
    bindBox(field);
    if (excess == Drop) {
        m_show = [field](int value) {
            if (value <= field->maximum())
                field->setValue(value);
        };
    }
}

void AxisParameter::bind(QAbstractButton* button)
{
    bind(button, [button](int value) { button->setChecked(value != 0); });
}

void AxisParameter::bind(QGroupBox* box)
{
    bind(box, [box](int value) { box->setChecked(value != 0); });
}

void AxisParameter::bind(QWidget* widget, std::function<void(int)> show)
{
    m_widget = widget;
    m_toolTip = [](char number) { return parameterToolTip(number); };
    m_show = std::move(show);
}

void AxisParameter::setNumber(char number)
{
    m_number = number;
    if (m_widget)
        m_widget->setToolTip(m_tipForm == ToolTip::Tuple ? tuplePanelToolTip(number)
                                                         : m_toolTip(number));
}

void AxisParameter::setNumberAndRange(char number, int minimum, int maximum)
{
    if (m_setRange && minimum != maximum)
        m_setRange(minimum, maximum);
    setNumber(number);
}

void AxisParameter::show(int value)
{
    m_reported = value;
    if (m_show)
        m_show(value);
}

bool AxisParameter::isClipped() const { return m_face && m_face->isClipped(); }
