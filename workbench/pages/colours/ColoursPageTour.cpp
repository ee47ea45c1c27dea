#include "ColoursPage.h"

#include "ColorDialog.h"
#include "ColorPicker.h"
#include "ColorTriangle.h"
#include "ScreenPicture.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QWindow>

using namespace TourInput;

void ColoursPage::tour(TourGuide& guide)
{
    guide.showPage(QStringLiteral("colours"));
    QApplication::processEvents();
    auto* picker = guide.find<ColorPicker>(this, "btnCustomColor");
    auto* grid = picker->findChild<QDialog*>();
    const auto emitted = [&] { return m_emitted->text(); };
    const auto cell = [&](const QString& name) {
        const QList<QFrame*> cells = grid->findChildren<QFrame*>();
        for (QFrame* each : cells) {
            if (each->toolTip() == name)
                return each;
        }
        qFatal("the grid has no colour %s", qPrintable(name));
    };
    // Without a window manager the display complains when a window gets the focus before it shows.
    const auto isShown = [&](const QWidget* window) {
        return guide.wait(1000, [window] { return window->windowHandle()->isExposed(); });
    };
    click(picker);
    isShown(grid);
    guide.photographWidget(grid, QStringLiteral("grid of colours"), QStringLiteral("colour-grid"));
    click(cell(QStringLiteral("Tomato")));
    guide.expectText(QStringLiteral("pick \"Tomato\" in the grid: what the picker tells"), emitted,
                     QStringLiteral("Tomato (#ff6347)"), 0);
    guide.expectText(
        QStringLiteral("the button's own picture, at its centre"),
        [&] { return ScreenPicture::of(picker).pixelColor(picker->rect().center()).name(); },
        QStringLiteral("#ff6347"), 0);

    // The custom colours are the user's; so the dialog is looked at and refused.
    const int cells = picker->colorList().size();
    guide.wait(1000, [grid] { return !grid->windowHandle()->isExposed(); });
    click(picker);
    isShown(grid);
    auto* more = cell(QString()); // the last cell alone is without a name
    QTimer::singleShot(0, guide.window(), [&, isShown] {
        auto* dialog = qobject_cast<ColorDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            qFatal("the grid's last cell opens no dialog");
        isShown(dialog);
        dialog->setColor(QColor(QStringLiteral("cornflowerblue")));
        guide.photographWidget(dialog, QStringLiteral("colour dialog"),
                               QStringLiteral("colour-dialog"));
        dialog->reject();
    });
    press(more, Qt::Key_Return);
    guide.check(QStringLiteral("refuse the colour dialog"),
                QStringLiteral("no new cell, same colour"), emitted(),
                picker->colorList().size() == cells &&
                    picker->currentColor() == QColor(0xff, 0x63, 0x47));

    auto* triangle = findChild<ColorTriangle*>();
    triangle->setColor(QColor::fromHsv(200, 255, 255));
    press(triangle, Qt::Key_Right);
    guide.check(QStringLiteral("the colour triangle, one step to the right"),
                QStringLiteral("hue 201"), QStringLiteral("hue %1").arg(triangle->color().hsvHue()),
                triangle->color().hsvHue() == 201);
    guide.photograph(QStringLiteral("colours"));
}
