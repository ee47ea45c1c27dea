#include "IconColours_p.h"

#include "AppSettings.h"
#include "BasicTools.h"
#include "ForEachBelow_p.h"
#include "SharedConstants.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTreeWidget>

namespace
{

constexpr int ActionSymbol = 200; // px, so that it is sharp at any size
constexpr int SmallSymbol = 20;   // px
constexpr char defaultCheckedColour[] = "#008080";

QPixmap symbol(QPixmap pixmap, const QColor& colour)
{
    BasicTools::setSymbolColor(&pixmap, colour, true, QColor());
    return pixmap;
}

QIcon symbol(const QIcon& icon, int size, const QColor& colour)
{
    return QIcon(symbol(icon.pixmap(QSize(size, size), QIcon::Normal, QIcon::Off), colour));
}

void recolourButtons(QWidget* widget, const QPalette& palette)
{
    const QColor checked(AppSettings()
                             .value(QLatin1String(ColorMapCheckedButtonKey),
                                    QString::fromLatin1(defaultCheckedColour))
                             .toString());
    const int side = widget->fontMetrics().height() + 1;
    forEachBelow<QAbstractButton>(widget, [&](QAbstractButton* button) {
        BasicTools::setButtonIconsColor(button, palette.color(QPalette::Text),
                                        palette.color(QPalette::Button).darker(200), checked);
        if (!button->property(DpIgnIcon).toBool())
            button->setIconSize(QSize(side, side));
    });
}

void recolourTree(QTreeWidget* tree, const QColor& colour)
{
    const QSignalBlocker blocker(tree);
    // Each of them: the wildcard "*" of this Qt does not match a text with a "/".
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = tree->topLevelItem(i);
        if (!item->icon(0).isNull())
            item->setIcon(0, symbol(item->icon(0), SmallSymbol, colour));
    }
}

void recolourTabs(QTabWidget* tabs, const QColor& colour)
{
    for (int i = 0; i < tabs->count(); ++i) {
        if (!tabs->tabIcon(i).isNull())
            tabs->setTabIcon(i, symbol(tabs->tabIcon(i), SmallSymbol, colour));
    }
}

} // namespace

void setIconColours(QWidget* widget)
{
    const QPointer<QWidget> root(widget);
    const QPalette palette = QApplication::palette();
    const QColor text = palette.color(QPalette::Text);
    if (root) {
        root->ensurePolished();
        recolourButtons(root, palette);
    }
    if (root)
        forEachBelow<QAction>(root, [&](QAction* action) {
            if (!action->icon().isNull())
                action->setIcon(symbol(action->icon(), ActionSymbol, text));
        });
    if (root)
        forEachBelow<QLabel>(root, [&](QLabel* label) {
            const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
            if (!pixmap.isNull())
                label->setPixmap(symbol(pixmap, text));
        });
    if (root)
        forEachBelow<QTreeWidget>(root, [&](QTreeWidget* tree) { recolourTree(tree, text); });
    if (root)
        forEachBelow<QTabWidget>(root, [&](QTabWidget* tabs) { recolourTabs(tabs, text); });
}
