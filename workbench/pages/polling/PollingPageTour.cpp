#include "PollingPage.h"

#include "ModuleLink.h"
#include "ParameterCatalogue.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "TourGuide.h"
#include "TourInput.h"
#include "TraceCommand.h"
#include "TraceController.h"
#include "WTraceController.h"

#include <QPushButton>
#include <QTableWidget>

#include <cmath>

using namespace TourInput;
namespace Number = AxisParameterNumber;

namespace
{

constexpr double Velocity = 500.0; // rpm
constexpr int PollDelay = 5;       // ms between two ticks

} // namespace

void PollingPage::tour(TourGuide& guide)
{
    struct Row {
        const char* name;
        quint8 number;
        double tolerance; // while the axis turns
    };
    const SimulatedModule& module = guide.simulator().module;
    const double reaction = 2.0 * 4 * PollDelay / 60000.0; // min, two rounds of four values
    const double stepsPerTurn = module.axis(0).read(Number::EncoderSteps);
    const Row rows[] = {
        {"Actual position", Number::ActualPosition, Velocity * stepsPerTurn * reaction},
        {"Actual velocity", Number::ActualVelocity, 1},
        {"Temperature", Number::Temperature, 1},
        {"Actual current", Number::ActualCurrent, 5}};
    constexpr int ReadingColumn = 2;
    constexpr int RateColumn = 4;
    const QTableWidget* table = m_table;
    const auto number = [table](int row, int column) {
        return table->item(row, column)->text().toDouble();
    };
    const QList<QWidget*> controllers = {m_firstAxis, m_secondAxis};

    guide.turn(0, qRound(Velocity));
    guide.showPage(QStringLiteral("polling"));
    for (QWidget* controller : controllers)
        click(guide.find<QPushButton>(controller, "btnStart"));
    const bool ticked = guide.passTicks(2000 / TourGuide::Step,
                                        controllers); // the last whole second of them is counted
    QStringList rates;
    bool steady = ticked;
    for (int row = 0; row < table->rowCount(); ++row) {
        rates << table->item(row, RateColumn)->text();
        steady = steady && std::abs(number(row, RateColumn) - 1000.0 / (4 * PollDelay)) <= 2;
    }
    guide.check(QStringLiteral("poll four values of each axis every 5 ms: answers per second"),
                QStringLiteral("50 +-2 each"), rates.join(QLatin1Char(' ')), steady);
    int row = 0;
    for (const Row& value : rows) {
        guide.expectNumber(
            QStringLiteral("axis 0 turns, polled: %1").arg(QString::fromLatin1(value.name)),
            [&] { return number(row, ReadingColumn); }, module.axis(0).read(value.number),
            value.tolerance, 0);
        ++row;
    }
    guide.photograph(QStringLiteral("polling"));

    guide.turn(0, 0);
    guide.showPage(QStringLiteral("polling"));
    guide.passTicks(2 * 4, controllers);
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis)
        guide.expectNumber(
            QStringLiteral("axis %1 stands, polled: Actual position").arg(axis),
            [&] { return number(4 * axis, ReadingColumn); },
            module.axis(axis).read(Number::ActualPosition), 0, 0);
    for (QWidget* controller : controllers)
        click(guide.find<QPushButton>(controller, "btnStop"));
    guide.pass(TourGuide::Settle);
    const int before = guide.link().answers();
    guide.pass(1000);
    const int answers = guide.link().answers() - before;
    guide.check(QStringLiteral("stop polling"),
                QStringLiteral("at most 5 answers in a second, to the link's own question"),
                QStringLiteral("%1 answers").arg(answers), answers <= 5);
}
