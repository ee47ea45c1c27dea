#ifndef TVALUE_H
#define TVALUE_H

#include <QtGlobal>

/// One sample of a curve.
struct TValue {
    double value = 0;
    qint64 time = 0; ///< ms since the epoch, when the host got it
};

#endif
