#include "SimpleScaledGraphController.h"

#include "WheelFocus.h"
#include "ui_SimpleScaledGraphController.h"

#include <QPointer>

#include <utility>

SimpleScaledGraphController::SimpleScaledGraphController(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::SimpleScaledGraphController>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    showScaling(true);
}

SimpleScaledGraphController::~SimpleScaledGraphController() = default;

void SimpleScaledGraphController::setTitle(QString title)
{
    m_ui->gbScalingYAxis->setTitle(std::move(title));
}

void SimpleScaledGraphController::setMinValue(int value) { m_ui->sbMin->setValue(value); }

void SimpleScaledGraphController::setMaxValue(int value) { m_ui->sbMax->setValue(value); }

void SimpleScaledGraphController::setSingleStep(int step)
{
    m_ui->sbMin->setSingleStep(step);
    m_ui->sbMax->setSingleStep(step);
}

void SimpleScaledGraphController::setDynamic(bool dynamic)
{
    (dynamic ? m_ui->btnScaleDynamic : m_ui->btnScaleManually)->click();
}

void SimpleScaledGraphController::setMinValueEnabled(bool enabled)
{
    m_minValueEnabled = enabled;
    m_ui->sbMin->setEnabled(enabled);
}

void SimpleScaledGraphController::handleScaleChanged(int minValue, int maxValue)
{
    const QPointer<SimpleScaledGraphController> self(this);
    m_ui->sbMin->setValue(minValue);
    if (self)
        m_ui->sbMax->setValue(maxValue);
}

void SimpleScaledGraphController::showScaling(bool dynamic)
{
    (dynamic ? m_ui->btnScaleDynamic : m_ui->btnScaleManually)->setChecked(true);
    m_ui->sbMax->setEnabled(!dynamic);
    if (m_minValueEnabled)
        m_ui->sbMin->setEnabled(!dynamic);
}

void SimpleScaledGraphController::on_btnScaleManually_clicked()
{
    showScaling(false);
    emit scaleManually();
}

void SimpleScaledGraphController::on_btnScaleDynamic_clicked()
{
    showScaling(true);
    emit scaleDynamic();
}

void SimpleScaledGraphController::on_btnClearCharts_clicked() { emit clear(); }

void SimpleScaledGraphController::on_sbMin_valueChanged(int value)
{
    const QPointer<SimpleScaledGraphController> self(this);
    emit minValueChanged(value);
    if (self)
        m_ui->sbMax->setMinimum(value);
}

void SimpleScaledGraphController::on_sbMax_valueChanged(int value)
{
    const QPointer<SimpleScaledGraphController> self(this);
    emit maxValueChanged(value);
    if (self)
        m_ui->sbMin->setMaximum(value);
}
