#include "SimpleScaledDrawer.h"

#include "Chart.h"
#include "ChartSelector.h"
#include "DrawerArea.h"
#include "SelectionTable_p.h"
#include "TraceCommand.h"
#include "ui_SimpleScaledDrawer.h"

#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>

SimpleScaledDrawer::SimpleScaledDrawer(QWidget* parent)
    : DrawerPanel(parent), m_ui(std::make_unique<Ui::SimpleScaledDrawer>())
{
    m_ui->setupUi(this);
    using Controller = SimpleScaledGraphController;
    const DrawerArea* drawer = m_ui->drawer;
    const Controller* controller = m_ui->graphController;
    connect(drawer, &DrawerArea::scaleChanged, controller, &Controller::handleScaleChanged);
    connect(controller, &Controller::scaleManually, drawer, &DrawerArea::doManualScaling);
    connect(controller, &Controller::scaleDynamic, drawer, &DrawerArea::doDynamicScaling);
    connect(controller, &Controller::minValueChanged, drawer, &DrawerArea::setMinValue);
    connect(controller, &Controller::maxValueChanged, drawer, &DrawerArea::setMaxValue);
    connect(controller, &Controller::clear, drawer, &DrawerArea::clearValues);
    setUp(m_ui->drawer, m_ui->scrollBar);
    setChartSize(1000);
}

SimpleScaledDrawer::~SimpleScaledDrawer() { removeAllCharts(); }

void SimpleScaledDrawer::doManualScaling()
{
    DrawerPanel::doManualScaling();
    m_ui->graphController->showScaling(false);
}

void SimpleScaledDrawer::doDynamicScaling()
{
    DrawerPanel::doDynamicScaling();
    m_ui->graphController->showScaling(true);
}

void SimpleScaledDrawer::setMinValue(int min)
{
    DrawerPanel::setMinValue(min);
    showBounds();
}

void SimpleScaledDrawer::setMaxValue(int max)
{
    DrawerPanel::setMaxValue(max);
    showBounds();
}

void SimpleScaledDrawer::showBounds()
{
    const QSignalBlocker blocker(m_ui->graphController);
    const int min = m_ui->drawer->getMinValue();
    m_ui->graphController->handleScaleChanged(min, m_ui->drawer->getMaxValue());
    m_ui->graphController->setMinValue(min); // the maximum of before may have cut it off
}

void SimpleScaledDrawer::setChartSize(int size) { setSizes(size, qMax(1, size) - 1); }

void SimpleScaledDrawer::removeChart(char address, char motorBank, char command, char type)
{
    m_ui->drawer->removeChart(address, motorBank, command, type);
    deleteOwnChartsThatLeft();
}

void SimpleScaledDrawer::removeAllCharts()
{
    DrawerPanel::removeAllCharts();
    deleteOwnChartsThatLeft();
}

void SimpleScaledDrawer::addTraceableParameter(TraceCommand* command)
{
    if (command)
        m_traceableParameters.append(command);
}

void SimpleScaledDrawer::addTraceableParameters(QList<TraceCommand*>* commands)
{
    if (!commands)
        return;
    const QList<TraceCommand*> added = *commands;
    for (TraceCommand* command : added)
        addTraceableParameter(command);
}

void SimpleScaledDrawer::removeAllTraceableParameter() { m_traceableParameters.clear(); }

void SimpleScaledDrawer::mousePressEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::RightButton) || !m_chartSelectorEnabled) {
        DrawerPanel::mousePressEvent(event);
        return;
    }
    const QPointer<SimpleScaledDrawer> self(this);
    ChartSelector dialog(this, m_ui->drawer, &m_traceableParameters);
    connect(this, &QObject::destroyed, &dialog, &QDialog::reject); // it chooses what is ours
    const int result = dialog.exec();
    if (!self)
        return;
    if (result == QDialog::Accepted) {
        removeAllCharts();
        const QTableWidget& table = *dialog.getSelectionTable();
        for (int row = 0; row < table.rowCount(); ++row) {
            const SelectionRow chosen = SelectionTable::read(table, row);
            m_ownCharts.push_back(std::make_unique<Chart>(chosen.address, chosen.motor,
                                                          chosen.command, chosen.type, chosen.name,
                                                          chosen.color));
            addChart(m_ownCharts.back().get());
        }
    }
    emit chartSelectionChanged();
}

void SimpleScaledDrawer::deleteOwnChartsThatLeft()
{
    const QList<Chart*>& present = *getCharts();
    const auto hasLeft = [&present](const std::unique_ptr<Chart>& chart) {
        return !present.contains(chart.get());
    };
    m_ownCharts.erase(std::remove_if(m_ownCharts.begin(), m_ownCharts.end(), hasLeft),
                      m_ownCharts.end());
}
