#ifndef WORKBENCHOPTIONS_H
#define WORKBENCHOPTIONS_H

#include "SimulatedLink.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the command line asks for.
struct WorkbenchOptions {
    enum class Action { Show, Help, Version, Error };

    Action action = Action::Show;
    QString text; ///< The help, the version or the one line that says what is wrong.

    QString tourFolder;        ///< Not empty: run the tour and write its pictures and report there.
    QString galleryFolder;     ///< Not empty: write the gallery there and end.
    QString page;              ///< Page to open; empty: the last one.
    QString photoFile;         ///< Not empty: photograph the page into this file and end.
    std::optional<bool> theme; ///< The dark blue look; empty: the last choice.
    int fontSize = 0;          ///< 8, 12, 16 or 20 px, as by a click; 0: the last choice.
    Simulated::Weather weather;
    bool connect = false; ///< Connect the link used last at the start.
    bool silent = false;  ///< The module starts silent.

    /// True when nobody sits in front of it: no settings are kept.
    bool unattended() const
    {
        return !tourFolder.isEmpty() || !photoFile.isEmpty() || !galleryFolder.isEmpty();
    }

    /// \param arguments with the program's name first
    /// \param pages names that --page takes
    static WorkbenchOptions parse(const QStringList& arguments, const QStringList& pages);
};

#endif
