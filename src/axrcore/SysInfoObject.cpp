#include "SysInfoObject.h"

#include <QCoreApplication>

SysInfoObject::SysInfoObject()
{
    if (QCoreApplication* app = QCoreApplication::instance())
        moveToThread(app->thread());
}

SysInfoObject* SysInfoObject::instance()
{
    static SysInfoObject* const object = new SysInfoObject; // outlives every user, as Global does
    return object;
}
