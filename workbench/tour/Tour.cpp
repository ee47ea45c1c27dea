#include "Tour.h"

#include "ModuleLink.h"
#include "Page.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "TourInput.h"
#include "Workbench.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QSaveFile>
#include <QSpinBox>
#include <QTextStream>

#include <algorithm>
#include <cmath>

using namespace TourInput;

namespace
{

constexpr int Velocity = 500; // rpm

const QWidget* velocityPanel(const TourGuide& guide, int axis)
{
    const QByteArray name = "VelocityControl" + QByteArray::number(axis);
    return TourGuide::find<QWidget>(guide.page(QStringLiteral("motion")), name);
}

} // namespace

Tour::Tour(Workbench& bench, const QString& folder)
    : m_bench(bench)
    , m_folder(folder)
    , m_guide({&bench, bench.context(), [&bench](int milliseconds) { bench.advance(milliseconds); },
               [&bench](const QString& name) { return bench.showPage(name); }},
              folder)
{
}

bool Tour::run()
{
    QTextStream out(stdout);
    if (!QDir().mkpath(m_folder)) {
        QTextStream(stderr) << "axrworkbench: cannot make the folder \"" << m_folder << "\""
                            << Qt::endl;
        return false;
    }
    m_bench.show();
    QStringList names = Workbench::pageNames();
    const auto lead = [this](const QString& name) {
        qobject_cast<Page*>(m_guide.page(name))->tour(m_guide);
    };
    lead(names.takeFirst()); // connects
    // Whatever page is shown, curves ask for their values; counts of answers shall not hold them.
    click(TourGuide::find<QPushButton>(
        TourGuide::find<QWidget>(m_guide.page(QStringLiteral("graph")), "WTraceController"),
        "btnStop"));
    std::for_each(names.cbegin(), names.cend(), lead);
    stopByKey();
    changeLook();
    surviveSilence();
    disconnect();

    const bool written = writeReport();
    const QStringList& lines = m_guide.lines();
    out << lines.join(QLatin1Char('\n')) << '\n'
        << lines.size() - m_guide.failures() << " passed, " << m_guide.failures() << " failed"
        << Qt::endl;
    return written && m_guide.failures() == 0;
}

void Tour::settle(Workbench& bench)
{
    bench.connectLast();
    for (int i = 0; i < 1000 / TourGuide::Step; ++i) {
        bench.advance(TourGuide::Step);
        QApplication::processEvents();
    }
}

void Tour::stopByKey()
{
    m_guide.showPage(QStringLiteral("motion"));
    const SimulatedModule& module = m_guide.simulator().module;
    for (int axis = 0; axis < SimulatedModule::Axes; ++axis) {
        const auto* panel = velocityPanel(m_guide, axis);
        TourGuide::find<QSpinBox>(panel, "sbTargetVelocity")->setValue(Velocity);
        click(TourGuide::find<QPushButton>(panel, "btnRight"));
    }
    const bool turning = m_guide.wait(
        3000, [&] { return module.axis(0).velocity() > 400 && module.axis(1).velocity() > 400; });
    m_guide.check(QStringLiteral("turn both axes right"), QStringLiteral("above 400 rpm"),
                  QStringLiteral("%1 and %2 rpm")
                      .arg(module.axis(0).velocity())
                      .arg(module.axis(1).velocity()),
                  turning);
    m_guide.showPage(QStringLiteral("parameters"));
    press(m_guide.page(QStringLiteral("parameters"))->findChild<QAbstractItemView*>(), Qt::Key_F12);
    const bool stopped = m_guide.wait(5000, [&] {
        return std::abs(module.axis(0).velocity()) + std::abs(module.axis(1).velocity()) < 0.01;
    });
    m_guide.check(QStringLiteral("F12 on another page"), QStringLiteral("both axes stand"),
                  QStringLiteral("%1 and %2 rpm")
                      .arg(module.axis(0).velocity())
                      .arg(module.axis(1).velocity()),
                  stopped && !m_guide.link().isStopping());
}

void Tour::surviveSilence()
{
    m_guide.showPage(QStringLiteral("motion"));
    m_guide.simulator().link.setSilent(true);
    const bool told = m_guide.wait(
        3000, [&] { return m_guide.linkText().contains(QStringLiteral("has not answered")); });
    m_guide.check(QStringLiteral("the module falls silent"), QStringLiteral("a sign says so"),
                  m_guide.linkText(), told);
    click(TourGuide::find<QPushButton>(velocityPanel(m_guide, 0), "btnRight"));
    m_guide.pass(2000);
    m_guide.photograph(QStringLiteral("motion"), QStringLiteral("silent"));
    m_guide.simulator().link.setSilent(false);
    m_guide.expectText(
        QStringLiteral("it comes back"), [&] { return m_guide.linkText(); },
        QStringLiteral("Connected: SIM1"), 3000);
    m_guide.pass(2000);
    m_guide.expectNumber(
        QStringLiteral("a turn asked for meanwhile is not made up for [rpm]"),
        [&] { return m_guide.simulator().module.axis(0).velocity(); }, 0, 0.01, 0);
}

void Tour::disconnect()
{
    m_guide.showPage(QStringLiteral("connection"));
    const auto buttons = m_guide.page(QStringLiteral("connection"))
                             ->findChildren<QPushButton*>(QStringLiteral("btnDisconnect"));
    for (QPushButton* button : buttons) {
        if (button->isEnabled())
            click(button);
    }
    m_guide.pass(TourGuide::Settle);
    m_guide.expectText(
        QStringLiteral("disconnect"), [&] { return m_guide.linkText(); },
        QStringLiteral("Not connected"), TourGuide::Settle);
}

bool Tour::writeReport() const
{
    QSaveFile file(m_guide.file(QStringLiteral("report.txt")));
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        file.write(m_guide.lines().join(QLatin1Char('\n')).toUtf8());
        file.write("\n");
        if (file.commit())
            return true;
    }
    QTextStream(stderr) << "axrworkbench: cannot write the report: " << file.errorString()
                        << Qt::endl;
    return false;
}
