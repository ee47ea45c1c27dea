#include "ToolBarFit_p.h"

#include "ForEachBelow_p.h"
#include "MainStyleSheet_p.h"

#include <QAbstractButton>
#include <QAction>
#include <QRegularExpression>
#include <QToolBar>

namespace
{

int widest(const QFontMetrics& metrics, const QStringList& texts)
{
    int width = 0;
    for (const QString& text : texts)
        width = qMax(width, metrics.horizontalAdvance(text));
    return width;
}

QStringList iconTexts(const QToolBar* bar)
{
    QStringList texts;
    for (const QAction* action : bar->actions())
        texts << action->iconText().split(QLatin1Char('\n'));
    return texts;
}

void addToIconSize(QToolBar* bar, const QString& sizeSheet)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]+"));
    const QRegularExpressionMatch match = digits.match(sizeSheet);
    if (!match.hasMatch())
        return;
    static const QSize baseIconSize = bar->iconSize();
    const int more = match.captured().toInt();
    bar->setIconSize(baseIconSize + QSize(more, more));
}

void nameButtons(const QToolBar* bar)
{
    forEachBelow<QAbstractButton>(bar, [](QAbstractButton* button) {
        if (button->icon().isNull()) {
            if (button->objectName().isEmpty())
                button->setObjectName(QStringLiteral("noIconBtn"));
        } else if (!button->objectName().contains(QLatin1String("qt_"))) {
            button->setObjectName(QStringLiteral("iconBtn"));
        }
    });
}

/// The least sizes of the bar's buttons.
QString toolBarSizes(const QToolBar* bar, const QFontMetrics& metrics)
{
    const int text = widest(metrics, iconTexts(bar));
    const int iconHeight = bar->iconSize().height() + 5;
    if (!bar->isMovable() && !bar->isFloatable())
        return QStringLiteral("QToolButton{min-height: %1px;min-width: %2px}")
            .arg(3 * metrics.height())
            .arg(text + 9);
    if (bar->orientation() == Qt::Vertical)
        return QStringLiteral("QToolButton#noIconBtn{min-height: %1px;}"
                              "QToolButton{min-height: %2px; min-width: %3px}")
            .arg(metrics.height() + 8)
            .arg(iconHeight)
            .arg(qMax(bar->iconSize().width() + 5, text) + 10);
    return QStringLiteral("QToolButton{min-height: %1px}"
                          "QToolButton#iconBtn{min-height: %1px; min-width: %1px}")
        .arg(iconHeight);
}

} // namespace

void fitToolBar(QToolBar* bar, const QString& sizeSheet, const QFontMetrics& metrics)
{
    const QPointer<QToolBar> alive(bar);
    addToIconSize(bar, sizeSheet);
    nameButtons(bar);
    if (alive)
        bar->setStyleSheet(toolBarSheet() + toolBarSizes(bar, metrics));
}
