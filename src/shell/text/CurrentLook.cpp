#include "CurrentLook_p.h"

#include <QApplication>

bool CurrentLook::isDarkBlue() const
{
    return !darkBlueSheet.isEmpty() && qApp->styleSheet().startsWith(darkBlueSheet);
}

CurrentLook& currentLook()
{
    static CurrentLook look;
    return look;
}
