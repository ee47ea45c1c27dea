// The step of the tour on the page of RAM captures.

#include "CapturePage.h"
#include "Chart.h"
#include "SimpleScaledDrawer.h"
#include "Tour.h"
#include "TourInput.h"

#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QPushButton>
#include <QSpinBox>

using namespace TourInput;

void Tour::capture()
{
    struct Row {
        const char* name;
        int target;
        int measure;
        int to;
        int trigger;
        int threshold;
    };
    const Row rows[] = {
        {"torque, always", 0, 0, 300, 0, 0},
        {"velocity, velocity higher", 1, 1, 500, 4, 100},
        {"position, position higher", 2, 2, 9000, 2, 500},
        {"no target, always", 3, 0, 0, 0, 0},
    };
    constexpr int RunWithin = 20000; // ms of real time
    m_bench.showPage(QStringLiteral("capture"));
    const QWidget* page = m_bench.findChild<CapturePage*>();
    auto* drawer = find<SimpleScaledDrawer>(QStringLiteral("drawer"), page);
    auto* start = find<QPushButton>(QStringLiteral("btnStart"), page);
    const auto choose = [this, page](const char* name, int index) {
        find<QComboBox>(QString::fromLatin1(name), page)->setCurrentIndex(index);
    };
    for (const Row& row : rows) {
        choose("cmbTargetMode", row.target);
        choose("cmbMeasureMode", row.measure);
        choose("cmbTriggerType", row.trigger);
        if (row.trigger)
            type(find<QSpinBox>(QStringLiteral("sbTriggerValue"), page),
                 QString::number(row.threshold));
        if (row.target < 3)
            type(find<QSpinBox>(QStringLiteral("sbToTarget"), page), QString::number(row.to));
        click(start);
        const QDeadlineTimer deadline(RunWithin);
        while (!start->isEnabled() && !deadline.hasExpired())
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        const auto& recorded = m_bench.link().module().recorder().recorded();
        int samples = 0;
        bool same = start->isEnabled() && !recorded.empty();
        for (int chart = 0; chart < drawer->getCharts()->size(); ++chart) {
            QList<double> truth;
            for (const auto& element : recorded)
                truth << element[static_cast<std::size_t>(chart)];
            const QList<double> values = drawer->getCharts()->at(chart)->getValues();
            samples += values.size();
            same = same && values == truth;
        }
        check(QStringLiteral("capture %1").arg(QString::fromLatin1(row.name)),
              QStringLiteral("the curves are what the recorder took"),
              QStringLiteral("%1 samples %2").arg(samples).arg(same ? "alike" : "not alike"), same);
        if (row.target == 1) {
            QApplication::processEvents(QEventLoop::AllEvents, 300);
            photograph(QStringLiteral("capture"));
        }
    }
    m_bench.stopAxes();
    pass(2 * Settle);
}
