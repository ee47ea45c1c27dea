#include "DrawerPanel.h"

#include "DrawerArea.h"

#include <QScrollBar>

namespace
{
constexpr int RepaintInterval = 100; // ms
constexpr int ScrollStep = 100;      // samples
} // namespace

DrawerPanel::DrawerPanel(QWidget* parent) : QWidget(parent) {}

void DrawerPanel::setUp(DrawerArea* area, QScrollBar* bar)
{
    m_area = area;
    m_bar = bar;
    connect(m_area, &DrawerArea::changedChartWidth, this, &DrawerPanel::handleChangedChartWidth);
    connect(m_bar, &QScrollBar::valueChanged, this, &DrawerPanel::scrollBarValueChanged);
    m_area->setRepaintInterval(RepaintInterval);
    m_bar->setSingleStep(ScrollStep);
}

void DrawerPanel::setSizes(int chartSize, int end)
{
    m_end = end;
    m_area->setChartSize(chartSize);
    m_bar->setMinimum(0);
    m_bar->setMaximum(end);
    m_bar->setValue(end);
    // the bar tells nothing when only its range has changed
    m_area->setDrawingInterval(m_bar->minimum(), m_bar->maximum(), m_bar->value());
}

void DrawerPanel::setYAxisCaption(QString caption)
{
    m_area->setYAxisCaption(caption);
    setWindowTitle(caption);
}

QString DrawerPanel::getYAxisCaption() const { return m_area->getYAxisCaption(); }

void DrawerPanel::doManualScaling() { m_area->doManualScaling(); }

void DrawerPanel::doDynamicScaling() { m_area->doDynamicScaling(); }

void DrawerPanel::setMinValue(int min) { m_area->setMinValue(min); }

void DrawerPanel::setMaxValue(int max) { m_area->setMaxValue(max); }

void DrawerPanel::addChart(Chart* chart) { m_area->addChart(chart); }

void DrawerPanel::removeAllCharts() { m_area->removeAllCharts(); }

QList<Chart*>* DrawerPanel::getCharts() { return m_area->getCharts(); }

void DrawerPanel::clearChartValues() { m_area->clearValues(); }

void DrawerPanel::startDrawing() { m_area->startDrawer(); }

void DrawerPanel::stopDrawing() { m_area->stopDrawer(); }

void DrawerPanel::requestedTraceValue(char address, char command, char type, char motorBank,
                                      int value)
{
    m_area->addTraceValue(address, motorBank, command, type, value);
}

void DrawerPanel::handleChangedChartWidth(int width)
{
    const bool wasAtEnd = m_bar->value() == m_bar->maximum();
    m_bar->setRange(width, qMax(width, m_end));
    if (wasAtEnd)
        m_bar->setValue(m_bar->maximum());
    m_area->setDrawingInterval(m_bar->minimum(), m_bar->maximum(), m_bar->value());
}

void DrawerPanel::scrollBarValueChanged(int value)
{
    m_area->setDrawingInterval(m_bar->minimum(), m_bar->maximum(), value);
    if (m_area->testAttribute(Qt::WA_WState_InPaintEvent))
        m_area->update(); // a paint gave the bar another range
    else
        m_area->repaint();
}
