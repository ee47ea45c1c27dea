#include "ParametersPage.h"

#include "ParameterCatalogue.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "SpinBox.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QTableView>

using namespace TourInput;
namespace Number = AxisParameterNumber;

void ParametersPage::tour(TourGuide& guide)
{
    guide.showPage(QStringLiteral("parameters"));
    int row = 0;
    for (const ParameterInfo& parameter : AxisParameters) {
        if (parameter.number == Number::Acceleration)
            break;
        ++row;
    }
    m_table->selectRow(row);
    guide.pass(TourGuide::Settle);
    type(m_value, QStringLiteral("3500"));
    guide.expectNumber(
        QStringLiteral("parameters page, acceleration 3500 and Return: the module's value"),
        [&] { return guide.simulator().module.axis(0).read(Number::Acceleration); }, 3500, 0,
        TourGuide::Settle);
    guide.pass(1000);
    guide.photograph(QStringLiteral("parameters"));
}
