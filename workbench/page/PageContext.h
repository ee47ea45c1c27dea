#ifndef PAGECONTEXT_H
#define PAGECONTEXT_H

#include <QtGlobal>

#include <functional>

class ModuleLink;
struct Simulator;

/// What a page is made with. All of it outlives the page.
struct PageContext {
    ModuleLink& link;
    const Simulator* simulator = nullptr; ///< Null when the module is a real one.
    std::function<qint64()> clock;        ///< The host's time, in ms since the epoch.
};

#endif
