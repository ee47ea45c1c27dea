#include "FontSizeButtons_p.h"

#include "AppSettings.h"
#include "MainStyleSheet_p.h"
#include "SharedConstants.h"

#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QTimer>
#include <QToolButton>

namespace
{

constexpr int AgainDelay = 1; // ms
constexpr int DefaultButton = 1;
const QString storeKey = QLatin1String(MainwindowGroup) + QStringLiteral("/SizeButtonNr");

} // namespace

QWidget* FontSizeButtons::makeRow(QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setStyleSheet(sizeButtonsSheet());
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);
    for (const int size : {8, 12, 16, 20}) {
        auto* button = new QToolButton(frame);
        button->setStyleSheet(QStringLiteral("QWidget {font-size: %1px}").arg(size));
        button->setText(QStringLiteral("A"));
        button->setAccessibleName(
            QCoreApplication::translate("MainAppStyle", "Font size %1").arg(size));
        button->setCheckable(true);
        button->setObjectName(QStringLiteral("sizeBtn"));
        addButton(button, buttons().size());
        row->addWidget(button);
    }
    return frame;
}

void FontSizeButtons::clickStored()
{
    const int stored = AppSettings().value(storeKey, DefaultButton).toInt();
    button(qBound(0, stored, buttons().size() - 1))->click();
}

void FontSizeButtons::clickAgainSoon()
{
    QTimer::singleShot(AgainDelay, this, [this] {
        if (QAbstractButton* checked = checkedButton())
            checked->click();
    });
}

void FontSizeButtons::store() const
{
    AppSettings settings;
    // Each switch of the look comes here, and a file that is written may take its time.
    if (settings.value(storeKey, QString()).toString() != QString::number(checkedId()))
        settings.setValue(storeKey, checkedId());
}
