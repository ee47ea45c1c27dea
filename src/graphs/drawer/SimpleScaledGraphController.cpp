#include "SimpleScaledGraphController.h"

#include "ScaleBounds_p.h"
#include "WheelFocus.h"
#include "ui_SimpleScaledGraphController.h"

#include <utility>

SimpleScaledGraphController::SimpleScaledGraphController(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::SimpleScaledGraphController>())
{
    m_ui->setupUi(this);
    m_bounds = std::make_unique<ScaleBounds>(m_ui->sbMin, m_ui->sbMax);
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
    m_bounds->setMinimumEnabled(enabled);
}

void SimpleScaledGraphController::handleScaleChanged(int minValue, int maxValue)
{
    m_bounds->show(minValue, maxValue);
}

void SimpleScaledGraphController::showScaling(bool dynamic)
{
    (dynamic ? m_ui->btnScaleDynamic : m_ui->btnScaleManually)->setChecked(true);
    m_bounds->setManual(!dynamic);
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

void SimpleScaledGraphController::on_sbMin_valueChanged(int value) { emit minValueChanged(value); }

void SimpleScaledGraphController::on_sbMax_valueChanged(int value) { emit maxValueChanged(value); }
