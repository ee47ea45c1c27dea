#ifndef FOREACHBELOW_P_H
#define FOREACHBELOW_P_H

#include <QPointer>
#include <QVector>
#include <QWidget>

/// Calls `finish` for every T below the widget that is still there when its turn comes: what it
/// does may make a host delete some.
template <class T, class Finish>
void forEachBelow(const QWidget* widget, Finish finish)
{
    QVector<QPointer<T>> found;
    for (T* each : widget->findChildren<T*>())
        found << each;
    for (const QPointer<T>& each : qAsConst(found)) {
        if (each)
            finish(each.data());
    }
}

#endif
