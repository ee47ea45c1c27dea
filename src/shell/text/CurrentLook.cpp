#include "CurrentLook_p.h"

#include <QApplication>

bool CurrentLook::isDarkBlue() const
{
    return !darkBlueStart.isEmpty() && qApp->styleSheet().startsWith(darkBlueStart);
}

CurrentLook& currentLook()
{
    static CurrentLook look;
    return look;
}
