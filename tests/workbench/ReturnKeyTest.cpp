#include "GalleryWidgets.h"
#include "TestCase.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{

/// Types Return into every widget of the panel, in a dialog that shows it, and tells which buttons
/// that presses; of a button that has the focus, only the others.
QStringList pressedByReturn(QWidget* panel)
{
    QDialog dialog;
    QStringList pressed;
    (new QVBoxLayout(&dialog))->addWidget(panel);
    auto* neighbour = new QLineEdit;
    dialog.layout()->addWidget(neighbour);
    dialog.show();
    dialog.activateWindow();
    if (!QTest::qWaitForWindowActive(&dialog))
        return {"no window"};
    QWidget* current = nullptr;
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        QObject::connect(button, &QAbstractButton::pressed, &dialog, [&pressed, &current, button] {
            if (button != current)
                pressed << button->objectName();
        });
    }
    for (QWidget* widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&dialog) || !widget->isEnabled() ||
            !(widget->focusPolicy() & Qt::TabFocus))
            continue;
        current = widget;
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);
    }
    return pressed;
}

} // namespace

/// A dialog presses its first automatic default button when Return is typed into any field: no
/// panel may lend it one that sends a command.
class ReturnKeyTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void theCheckFinds()
    {
        auto* button = new QPushButton;
        button->setObjectName("btnTurn");
        QVERIFY(pressedByReturn(button).contains("btnTurn"));
    }

    void pressesNothing_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < galleryWidgets().size(); ++i)
            QTest::newRow(galleryWidgets().at(i).name) << i;
    }
    void pressesNothing()
    {
        QFETCH(int, index);
        QWidget* widget = galleryWidgets().at(index).make();
        if (qobject_cast<QDialog*>(widget)) { // has its own buttons
            delete widget;
            return;
        }
        QCOMPARE(pressedByReturn(widget), QStringList());
    }
};

AXR_TEST_MAIN(ReturnKeyTest)
#include "ReturnKeyTest.moc"
