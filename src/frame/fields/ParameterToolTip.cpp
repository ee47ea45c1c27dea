#include "ParameterToolTip.h"

#include "Bytes.h"
#include "SpinBox.h"

#include <QSpinBox>

namespace
{

QString withRange(const QString& caption, const QString& minimum, const QString& maximum)
{
    return caption + QStringLiteral(" (") + minimum + QStringLiteral("..") + maximum +
           QLatin1Char(')');
}

} // namespace

QString parameterToolTip(char number) { return QStringLiteral("AP %1").arg(u8(number)); }

QString parameterToolTip(char number, const QSpinBox& box)
{
    return rangeToolTip(parameterToolTip(number), box);
}

QString parameterToolTip(char number, const SpinBox& box)
{
    return withRange(parameterToolTip(number), QString::number(box.minimum()),
                     QString::number(box.maximum()));
}

QString tuplePanelToolTip(char number) { return QStringLiteral("AP: %1").arg(u8(number)); }

QString rangeToolTip(const QString& caption, const QSpinBox& box)
{
    return withRange(caption, QString::number(box.minimum()), QString::number(box.maximum()));
}
