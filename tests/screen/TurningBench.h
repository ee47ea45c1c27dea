#ifndef TURNINGBENCH_H
#define TURNINGBENCH_H

#include "CommandText.h"
#include "Instruction.h"
#include "Screen.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "User.h"
#include "Workbench.h"

/// The connected workbench on the screen, in real time, and the axis that it turns.
struct TurningBench {
    Workbench bench;
    SimulatedAxis& axis;
    QStringList sent; ///< What has left for the module, but for reads of values.

    explicit TurningBench(const QString& page = QStringLiteral("motion"))
        : bench(
              WorkbenchOptions::parse({"axrworkbench", "--photo", "x", "--connect", "--page", page},
                                      Workbench::pageNames()))
        , axis(bench.simulator().module.axis(0))
    {
        QObject::connect(&bench.link(), &ModuleLink::sent, &bench, [this](const Command& request) {
            if (!isRead(request) || carries(request.getCommand(), Instruction::RD))
                sent << requestText(request);
        });
        bench.startClock();
        Screen::show(&bench);
        if (!Screen::waitFor([this] { return bench.link().answers() > 10; }))
            qFatal("the module does not answer");
    }
    ~TurningBench() { Screen::letGo(); }

    QWidget* showPage(const QString& name)
    {
        bench.showPage(name);
        Screen::pass(50);
        return User::find<QWidget>(&bench, name);
    }
    bool reaches(int rpm)
    {
        return Screen::waitFor([&] { return qAbs(axis.velocity()) >= rpm; });
    }
    void turn()
    {
        bench.link().command(Command(1, toByte(Instruction::ROR), 0, 0, 300));
        if (!reaches(100))
            qFatal("the axis does not turn");
    }
    /// Comes to rest, and stays there for five seconds of the module's clock.
    bool stands()
    {
        bool isStanding = Screen::waitFor([this] { return axis.velocity() == 0; });
        for (int i = 0; i < 100 && isStanding; ++i) {
            if (i % 5 == 0)
                Screen::pass(5);
            bench.advance(50);
            isStanding = axis.velocity() == 0;
        }
        return isStanding;
    }
};

#endif
