// The steps of the tour on the page of the trapezoid ramp.

#include "BasicTools.h"
#include "ParameterCatalogue.h"
#include "RampCurve.h"
#include "RampPage.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "SpinBox.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

using namespace TourInput;
namespace Number = AxisParameterNumber;

namespace
{

constexpr double Distance = 60000;   // steps
constexpr double MovesWithin = 5000; // ms

QString shown(double number) { return BasicTools::intInsertDot(number, 1); }

} // namespace

void RampPage::tour(TourGuide& guide)
{
    const struct {
        const char* box;
        double value;
    } entries[] = {{"sbVStart", 500},      {"sbA1", 2500},           {"sbV1", 40000},
                   {"sbMaxPosVel", 80000}, {"sbAcceleration", 1800}, {"sbDeceleration", 1600},
                   {"sbD1", 2400},         {"sbVStop", 600},         {"sbDistance", Distance}};
    guide.showPage(QStringLiteral("ramp"));
    guide.pass(TourGuide::Settle);
    for (const auto& entry : entries)
        type(guide.find<SpinBox>(this, entry.box), QString::number(entry.value));

    const auto steps = [](double upper, double lower, double a) {
        return (upper * upper - lower * lower) / a * TrapezialRamp::ChangeSteps;
    };
    const double onChanges = // ms
        (39500 / 2500.0 + 40000 / 1800.0 + 40000 / 1600.0 + 39400 / 2400.0) * 1000 *
        TrapezialRamp::ChangeTime;
    const double onRamps = steps(40000, 500, 2500) + steps(80000, 40000, 1800) +
                           steps(80000, 40000, 1600) + steps(40000, 600, 2400);
    guide.expectText(
        QStringLiteral("type a ramp of eight parameters: its time and length"),
        [this] { return result(); },
        QStringLiteral("<htm><b>Time from VSTART to VSTOP: <></b>  %1 + %2 ms (%3 steps)</html>")
            .arg(shown(onChanges), shown((Distance - onRamps) / 80000 * 1000), shown(Distance)),
        0);

    const SimulatedAxis& axis = guide.simulator().module.axis(0);
    const int start = axis.read(Number::ActualPosition);
    double peak = 0;
    double firstTurning = 0;
    double lastTurning = 0;
    click(guide.find<QPushButton>(this, "btnRampMove"));
    const bool isTaken = m_move.state() != RampMove::State::Idle;
    for (int time = 1; time < MovesWithin && m_move.state() != RampMove::State::Idle; ++time) {
        guide.advance(1);
        peak = qMax(peak, axis.velocity());
        if (axis.velocity() == 0)
            continue;
        lastTurning = time;
        if (firstTurning == 0)
            firstTurning = time;
    }
    guide.check(QStringLiteral("move axis 0 on it: the values that the axis took"),
                QStringLiteral("1118 rpm, 3070 rpm/s, 60000 steps"),
                QStringLiteral("%1 rpm, %2 rpm/s, %3 steps")
                    .arg(axis.read(Number::MaxVelocity))
                    .arg(axis.read(Number::Acceleration))
                    .arg(axis.read(Number::ActualPosition) - start),
                isTaken && axis.read(Number::MaxVelocity) == 1118 &&
                    axis.read(Number::Acceleration) == 3070 &&
                    axis.read(Number::ActualPosition) - start == int(Distance));
    guide.expectNumber(
        QStringLiteral("... peak of the drawn ramp, as the axis turned [rpm]"),
        [this] { return m_move.peak(); }, peak, 0.6, 0);
    guide.expectNumber(
        QStringLiteral("... its duration, as the axis turned [ms]"),
        [this] { return m_move.duration(); }, lastTurning - firstTurning + 1, 3, 0);
    guide.check(QStringLiteral("... its peak and duration beside the calculation"),
                QStringLiteral("80000 units are 1118 rpm; longer, for it starts at rest"),
                guide.find<QLabel>(this, "lblTurned")->text(),
                std::abs(m_move.peak() - 1118) < 1 &&
                    m_move.duration() > onChanges + (Distance - onRamps) / 80);

    auto* curve = guide.find<RampCurve>(this, "rampCurve");
    const QPointF top =
        curve->geometry().at({m_move.duration() / 2, 80000}); // where it is constant
    const QImage picture = curve->grab().toImage();
    QColor line;
    for (int dy : {-1, 0, 1}) { // the line's edges are antialiased
        const QColor pixel = picture.pixelColor(top.toPoint() + QPoint(0, dy));
        if (!line.isValid() || pixel.red() - pixel.blue() > line.red() - line.blue())
            line = pixel;
    }
    guide.check(QStringLiteral("... it is drawn over the calculated one"),
                QStringLiteral("red as #ff6347"), line.name(),
                line.red() > 200 && line.blue() < 160);
    guide.photograph(QStringLiteral("ramp"));
}
