#ifndef OPENBENCH_H
#define OPENBENCH_H

#include "CommandText.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "User.h"
#include "Workbench.h"

/// A shown workbench that nobody sits in front of, with a record of all that it sends but
/// reads.
class OpenBench : public Workbench
{
public:
    explicit OpenBench(const QString& page, const QStringList& arguments = {})
        : Workbench(WorkbenchOptions::parse(
              QStringList{"axrworkbench", "--photo", "x", "--page", page} + arguments, pageNames()))
    {
        connect(&link(), &ModuleLink::sent, this, [this](const Command& request) {
            if (!isRead(request))
                sent << requestText(request);
        });
        show();
        QApplication::setActiveWindow(this);
    }

    /// Connects and lets the first answers come.
    void open(int milliseconds = 1000)
    {
        connectLast();
        advance(milliseconds);
    }

    SimulatedAxis& axis(int number = 0) const { return simulator().module.axis(number); }
    SimulatedLink& wire() const { return simulator().link; }
    template <class T>
    T* find(const QString& page, const QString& name) const
    {
        return User::find<T>(User::find<QWidget>(this, page), name);
    }

    QStringList sent;
};

#endif
