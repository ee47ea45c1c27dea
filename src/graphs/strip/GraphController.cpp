#include "GraphController.h"

#include "AppSettings.h"
#include "FocusPair_p.h"
#include "ScaleBounds_p.h"
#include "WheelFocus.h"
#include "ui_GraphController.h"

#include <QPointer>

namespace
{

const QString checkedIdKey = QStringLiteral("checkedId");

/// By way of its text, so that a number beyond int counts as none rather than as another one.
int stored(const AppSettings& settings, const QString& name, int present)
{
    bool isNumber = false;
    const int number = settings.value(name, present).toString().toInt(&isNumber);
    return isNumber ? number : present;
}

} // namespace

GraphController::GraphController(QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::GraphController>())
{
    m_ui->setupUi(this);
    m_bounds = std::make_unique<ScaleBounds>(m_ui->sbMin, m_ui->sbMax);
    WheelFocus::guard(this);
    showRunning(true);
    on_buttonGroup_buttonClicked(m_ui->btnScaleDynamic);
    connect(m_ui->cbLog, &QCheckBox::toggled, this, &GraphController::startLogging);
}

GraphController::~GraphController()
{
    if (m_appSettingsKey.isEmpty())
        return;
    AppSettings settings;
    settings.beginGroup(settingsGroup());
    settings.setValue(checkedIdKey, m_ui->buttonGroup->checkedId());
    for (const QSpinBox* box : {m_ui->sbMax, m_ui->sbMin})
        settings.setValue(box->objectName(), box->value());
    settings.endGroup();
}

void GraphController::setAppSettingsKey(const QString& key)
{
    m_appSettingsKey = key;
    if (key.isEmpty())
        return;
    AppSettings settings;
    settings.beginGroup(settingsGroup());
    const QPointer<GraphController> self(this);
    const int id = stored(settings, checkedIdKey, m_ui->buttonGroup->checkedId());
    if (QAbstractButton* button = m_ui->buttonGroup->button(id)) {
        button->setChecked(true); // a click, which a panel that is disabled now would not take
        on_buttonGroup_buttonClicked(button);
    }
    if (!self)
        return;
    const int maximum = stored(settings, m_ui->sbMax->objectName(), m_ui->sbMax->value());
    m_ui->sbMax->setValue(maximum);
    if (self)
        m_ui->sbMin->setValue(stored(settings, m_ui->sbMin->objectName(), m_ui->sbMin->value()));
    if (self)
        m_ui->sbMax->setValue(maximum); // the minimum before may have cut it off
    settings.endGroup();
}

void GraphController::setMinValue(int value) { m_ui->sbMin->setValue(value); }

void GraphController::setMaxValue(int value) { m_ui->sbMax->setValue(value); }

void GraphController::rejectLogging() { m_ui->cbLog->setChecked(false); }

void GraphController::handleScaleChanged(int minValue, int maxValue)
{
    m_bounds->show(minValue, maxValue);
}

void GraphController::on_btnStart_clicked()
{
    showRunning(true);
    emit startGraph();
}

void GraphController::on_btnStop_clicked()
{
    showRunning(false);
    emit stopGraph();
}

void GraphController::on_btnClear_clicked() { emit clearGraph(); }

void GraphController::on_btnSave_clicked() { emit saveGraph(); }

void GraphController::on_btnGraphDefault_clicked()
{
    m_ui->btnScaleDynamic->setChecked(true); // which unchecks the other one
    m_bounds->setManual(false);
    const QPointer<GraphController> self(this);
    emit scaleDynamic();
    if (self)
        emit setDefaultCharts();
}

void GraphController::on_buttonGroup_buttonClicked(QAbstractButton* btn)
{
    const bool manually = btn == m_ui->btnScaleManually;
    m_bounds->setManual(manually);
    if (manually)
        emit scaleManually();
    else
        emit scaleDynamic();
}

void GraphController::on_sbMin_valueChanged(int value) { emit minValueChanged(value); }

void GraphController::on_sbMax_valueChanged(int value) { emit maxValueChanged(value); }

void GraphController::showRunning(bool running)
{
    const FocusPair focus(m_ui->btnStart, m_ui->btnStop);
    m_ui->btnStart->setEnabled(!running);
    m_ui->btnStop->setEnabled(running);
}

QString GraphController::settingsGroup() const
{
    return m_appSettingsKey + QLatin1Char('/') + objectName();
}
