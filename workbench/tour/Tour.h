#ifndef TOUR_H
#define TOUR_H

#include "TourGuide.h"

class Workbench;

/// One scripted commissioning session: drives the workbench's widgets as a user would, on the
/// module's virtual clock, and compares what they show with what the simulated axes did. Each page
/// has its own steps; what concerns all of them is here. Writes pictures and report.txt with one
/// line per step.
class Tour
{
public:
    /// \param folder made when it is missing; files in it are overwritten
    Tour(Workbench& bench, const QString& folder);

    /// True only if every step held and every file could be written.
    bool run();

    /// Connects by the link used last and lets the shown values come in.
    static void settle(Workbench& bench);

private:
    void stopByKey();
    void changeLook();
    void surviveSilence();
    void disconnect();
    bool writeReport() const;

    Workbench& m_bench;
    QString m_folder;
    TourGuide m_guide;
};

#endif
