#ifndef CURRENTLOOK_P_H
#define CURRENTLOOK_P_H

#include <QString>

class QWidget;

/// What widgets that fit themselves to the look know of it. The theme writes it, and nobody else.
struct CurrentLook {
    /// How the application's sheet begins in the dark blue look; empty before it was ever on.
    QString darkBlueStart;
    /// The window whose sheet is off for a moment while the look is switched, null otherwise. A
    /// font that is set now below it would be lost when the sheet comes back, for a sheet keeps
    /// what was set under it.
    const QWidget* windowBetweenLooks = nullptr;

    bool isDarkBlue() const;
};

CurrentLook& currentLook();

#endif
