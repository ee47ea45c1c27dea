#include "VelocityRampControl.h"

#include "LabelText_p.h"
#include "ui_VelocityRampControl.h"

VelocityRampControl::VelocityRampControl(QWidget* parent)
    : AxisPanel(parent), m_ui(std::make_unique<Ui::VelocityRampControl>())
{
    m_ui->setupUi(this);
    m_maxVelocity.bind(m_ui->sbMaxVelocity, AxisParameter::Drop);
    m_acceleration.bind(m_ui->sbAcceleration, AxisParameter::Drop);
    m_enableRamp.bind(m_ui->gbRampEnabler);
    setUpPanel(m_ui->gbVelocityRampControl, {&m_maxVelocity, &m_acceleration, &m_enableRamp});
}

VelocityRampControl::~VelocityRampControl() = default;

void VelocityRampControl::setMaxVelocityCommand(char type) { m_maxVelocity.setNumber(type); }

void VelocityRampControl::setMaxVelocityCommandAndRange(char type, int minimum, int maximum)
{
    m_maxVelocity.setNumberAndRange(type, minimum, maximum);
}

void VelocityRampControl::setAccelerationCommand(char type) { m_acceleration.setNumber(type); }

void VelocityRampControl::setAccelerationCommandAndRange(char type, int minimum, int maximum)
{
    m_acceleration.setNumberAndRange(type, minimum, maximum);
}

void VelocityRampControl::setEnableRampCommand(char type) { m_enableRamp.setNumber(type); }

void VelocityRampControl::setMaxVelocityCaption(const QString& caption)
{
    setLabelText(m_ui->lblMaxVelocity, caption);
}

void VelocityRampControl::setAccelerationCaption(const QString& caption)
{
    setLabelText(m_ui->lblAcceleration, caption);
}

void VelocityRampControl::setMaxVelocitySingleStep(int step)
{
    m_ui->sbMaxVelocity->setSingleStep(step);
}

void VelocityRampControl::setAccelerationSingleStep(int step)
{
    m_ui->sbAcceleration->setSingleStep(step);
}

void VelocityRampControl::on_sbMaxVelocity_valueChanged(int value) { change(m_maxVelocity, value); }

void VelocityRampControl::on_sbAcceleration_valueChanged(int value)
{
    change(m_acceleration, value);
}

void VelocityRampControl::on_gbRampEnabler_toggled(bool enabled)
{
    change(m_enableRamp, enabled ? 1 : 0);
}
