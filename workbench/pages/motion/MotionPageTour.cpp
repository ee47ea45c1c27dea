// The steps of the tour that move an axis.

#include "MotionPage.h"

#include "CurrentControl.h"
#include "ParameterCatalogue.h"
#include "PositionControl.h"
#include "ShaftView.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "SpinBox.h"
#include "TourGuide.h"
#include "TourInput.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"

#include <QComboBox>
#include <QPushButton>

using namespace TourInput;
namespace Number = AxisParameterNumber;

namespace
{

constexpr double Velocity = 500.0; // rpm

void setRamp(TourGuide& guide, const MotionPage& page)
{
    guide.pass(TourGuide::Settle);
    const auto* ramp = page.panel<VelocityRampControl>(0);
    const struct {
        const char* box;
        quint8 number;
        int value;
    } settings[] = {{"sbMaxVelocity", Number::MaxVelocity, 2000},
                    {"sbAcceleration", Number::Acceleration, 4000}};
    for (const auto& setting : settings) {
        auto* box = guide.find<SpinBox>(ramp, setting.box);
        guide.expectNumber(
            QStringLiteral("%1 shows the module's value").arg(QString::fromLatin1(setting.box)),
            [&] { return box->value(); }, guide.simulator().module.axis(0).read(setting.number), 0,
            TourGuide::Settle);
        type(box, QString::number(setting.value));
        guide.expectNumber(
            QStringLiteral("type %1 and Return: the module's parameter").arg(setting.value),
            [&] { return guide.simulator().module.axis(0).read(setting.number); }, setting.value, 0,
            TourGuide::Settle);
    }
}

void turnAndStop(TourGuide& guide, const MotionPage& page)
{
    const auto* panel = page.panel<VelocityControl>(0);
    const auto* shown = guide.find<QSpinBox>(panel, "sbActualVelocity");
    const SimulatedModule& module = guide.simulator().module;
    guide.find<QSpinBox>(panel, "sbTargetVelocity")->setValue(qRound(Velocity));
    click(guide.find<QPushButton>(panel, "btnRight"));
    guide.expectNumber(
        QStringLiteral("turn right: shown actual velocity [rpm]"), [&] { return shown->value(); },
        Velocity, 1, 2000);
    guide.expectNumber(
        QStringLiteral("turn right: the simulated axis [rpm]"),
        [&] { return module.axis(0).velocity(); }, Velocity, 1, 0);
    guide.expectMotion(page.findChild<ShaftView*>(), QStringLiteral("the shaft of axis 0 turns"));
    guide.photograph(QStringLiteral("motion"));
    click(guide.find<QPushButton>(panel, "btnStop"));
    guide.expectNumber(
        QStringLiteral("stop: shown actual velocity [rpm]"), [&] { return shown->value(); }, 0, 0,
        2000);
    guide.expectNumber(
        QStringLiteral("stop: the simulated axis [rpm]"), [&] { return module.axis(0).velocity(); },
        0, 0.01, 2000);
}

void jog(TourGuide& guide, const MotionPage& page)
{
    const auto* panel = page.panel<VelocityControl>(0);
    const auto* shown = guide.find<QSpinBox>(panel, "sbActualVelocity");
    auto* button = guide.find<QPushButton>(panel, "btnJogLeft");
    mouse(button, QEvent::MouseButtonPress);
    guide.expectNumber(
        QStringLiteral("hold jog left: shown actual velocity [rpm]"),
        [&] { return shown->value(); }, -Velocity, 1, 2000);
    mouse(button, QEvent::MouseButtonRelease);
    guide.expectNumber(
        QStringLiteral("release it: shown actual velocity [rpm]"), [&] { return shown->value(); },
        0, 0, 2000);
}

void moveTo(TourGuide& guide, const MotionPage& page)
{
    const auto* panel = page.panel<PositionControl>(0);
    const auto* shown = guide.find<QSpinBox>(panel, "sbActualPosition");
    auto* target = guide.find<QSpinBox>(panel, "sbTargetPosition");
    auto* relativeTo = guide.find<QComboBox>(panel, "cmbRelativeTo");
    const SimulatedModule& module = guide.simulator().module;
    const auto expectPosition = [&](const QString& done, int position) {
        guide.expectNumber(
            done + QStringLiteral(": shown position"), [&] { return shown->value(); }, position, 0,
            20000);
        guide.expectNumber(
            done + QStringLiteral(": simulated position"),
            [&] { return module.axis(0).read(Number::ActualPosition); }, position, 0, 0);
    };
    click(guide.find<QPushButton>(panel, "btnClear"));
    expectPosition(QStringLiteral("clear"), 0);
    target->setValue(20000);
    click(guide.find<QPushButton>(panel, "btnMoveAbsolute"));
    expectPosition(QStringLiteral("move absolute to 20000"), 20000);
    target->setValue(-5000);
    click(guide.find<QPushButton>(panel, "btnMoveRelative"));
    expectPosition(QStringLiteral("move by -5000 from the actual position"), 15000);
    relativeTo->setCurrentIndex(1);
    target->setValue(1000);
    click(guide.find<QPushButton>(panel, "btnMoveRelative"));
    click(guide.find<QPushButton>(panel, "btnMoveRelative"));
    expectPosition(QStringLiteral("twice by 1000 from the target position"), 17000);
}

void turnByCurrent(TourGuide& guide, const MotionPage& page)
{
    const auto* panel = page.panel<CurrentControl>(1);
    const auto* velocity = guide.find<QSpinBox>(page.panel<VelocityControl>(1), "sbActualVelocity");
    guide.find<QSpinBox>(panel, "sbTargetCurrent")->setValue(400);
    click(guide.find<QPushButton>(panel, "btnLeft"));
    const bool turns = guide.wait(3000, [&] { return velocity->value() < -50; });
    guide.check(QStringLiteral("axis 1, -400 mA: it turns left"),
                QStringLiteral("actual velocity below -50 rpm"), QString::number(velocity->value()),
                turns);
    guide.expectNumber(
        QStringLiteral("axis 1: shown actual current [mA]"),
        [&] { return guide.find<QSpinBox>(panel, "sbActualCurrent")->value(); }, -400, 5, 1000);
    click(guide.find<QPushButton>(page.panel<VelocityControl>(1), "btnStop"));
    guide.expectNumber(
        QStringLiteral("axis 1, stop: shown actual velocity [rpm]"),
        [&] { return velocity->value(); }, 0, 0, 5000);
}

} // namespace

void MotionPage::tour(TourGuide& guide)
{
    guide.showPage(objectName());
    setRamp(guide, *this);
    turnAndStop(guide, *this);
    jog(guide, *this);
    moveTo(guide, *this);
    turnByCurrent(guide, *this);
}
