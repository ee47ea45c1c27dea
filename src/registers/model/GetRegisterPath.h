#ifndef GETREGISTERPATH_H
#define GETREGISTERPATH_H

#include "AXRGuiExport.h"

#include <QObject>

/// For hosts that look registers up in an XML text.
class AXRGUI_EXPORT GetRegisterPath : public QObject
{
    Q_OBJECT
Q_SIGNALS:
    /// A position in the text, in characters.
    void xmlCharacterOffset(qint64 offset);
};

#endif
