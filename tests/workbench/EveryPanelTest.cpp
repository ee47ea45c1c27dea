#include "GalleryWidgets.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "Workbench.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QDirIterator>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>
#include <QVBoxLayout>

namespace
{

/// A piece of a Qt widget, which speaks for it.
bool isPiece(const QWidget* widget)
{
    const QWidget* parent = widget->parentWidget();
    const auto* area = qobject_cast<const QAbstractScrollArea*>(parent);
    return !parent || widget->objectName().startsWith("qt_") ||
           qobject_cast<const QScrollBar*>(widget) || qobject_cast<const QHeaderView*>(widget) ||
           widget->inherits("QTableCornerButton") || (area && area->viewport() == widget) ||
           qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
           parent->inherits("QComboBoxPrivateContainer");
}

/// What takes the wheel.
bool isField(const QWidget* widget)
{
    return qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSlider*>(widget);
}

bool isInput(const QWidget* widget)
{
    return !isPiece(widget) &&
           (widget->focusPolicy() & Qt::TabFocus || isField(widget) ||
            qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget));
}

/// As a screen reader is told it. X11 tells a combo box by its entry, with its label beside.
QString nameOf(QWidget* widget)
{
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
    if (!qobject_cast<QComboBox*>(widget))
        return told->text(QAccessible::Name).trimmed();
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    for (const auto& relation : told->relations(QAccessible::Label)) {
        if (qobject_cast<QLabel*>(relation.first->object()))
            return relation.first->text(QAccessible::Name).trimmed();
    }
    return QString();
}

/// The innermost widget round it that is no class of Qt: a panel of the library, a page.
const QWidget* panelOf(const QWidget* widget)
{
    const QWidget* panel = widget->parentWidget();
    while (panel->parentWidget() && panel->metaObject()->className()[0] == 'Q')
        panel = panel->parentWidget();
    return panel;
}

/// Every input in it without a name, or with that of another in the same panel, or that takes the
/// focus by the wheel.
QStringList complaints(const QWidget& root, int* inputs = nullptr)
{
    QStringList lines;
    QMap<QPair<const QWidget*, QString>, QString> named;
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (!isInput(widget))
            continue;
        if (inputs)
            ++*inputs;
        const QWidget* panel = panelOf(widget);
        const QString who =
            QString("%1 %2").arg(panel->metaObject()->className(), widget->objectName());
        const QString name = nameOf(widget);
        QString& first = named[{panel, name}];
        if (name.isEmpty())
            lines << who + " has no name";
        else if (!first.isEmpty())
            lines << who + " and " + first + ": " + name;
        first = who;
        if (isField(widget) && widget->focusPolicy() == Qt::WheelFocus)
            lines << who + " takes the focus by the wheel";
    }
    return lines;
}

/// Types Return into every widget of the panel, in a dialog that shows it, and tells which buttons
/// that presses; of a button that has the focus, only the others. A dialog presses its first
/// automatic default button when Return is typed into any field: no panel may lend it one.
QStringList pressedByReturn(QWidget* panel)
{
    QDialog dialog;
    QStringList pressed;
    (new QVBoxLayout(&dialog))->addWidget(panel);
    dialog.layout()->addWidget(new QLineEdit);
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

/// What holds for every widget of the library and for the whole workbench.
class EveryPanelTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void theChecksSee()
    {
        QGroupBox box("Box"); // whose title Qt gives to what has no name
        new QSpinBox(&box);
        new QDoubleSpinBox(&box);
        new QComboBox(&box);
        QLabel label("Label", &box);
        label.setBuddy(new QLineEdit(&box));
        QCOMPARE(complaints(box).size(), 5); // three of them by the wheel
        auto* button = new QPushButton;
        button->setObjectName("btnTurn");
        QVERIFY(pressedByReturn(button).contains("btnTurn"));
    }

    void everyFormIsShown()
    {
        QStringList shown;
        for (const GalleryWidget& widget : galleryWidgets())
            shown << widget.name;
        QDirIterator forms(AXR_FORMS, {"*.ui"}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(forms.hasNext());
        while (forms.hasNext()) {
            const QString name = QFileInfo(forms.next()).baseName();
            QVERIFY2(shown.contains(name), qPrintable(name));
        }
    }

    void panels_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < galleryWidgets().size(); ++i)
            QTest::newRow(galleryWidgets().at(i).name) << i;
    }
    void panels()
    {
        QFETCH(int, index);
        std::unique_ptr<QWidget> widget(galleryWidgets().at(index).make());
        QCOMPARE(complaints(*widget), QStringList());
        if (!qobject_cast<QDialog*>(widget.get())) // which has its own buttons
            QCOMPARE(pressedByReturn(widget.release()), QStringList());
    }

    void workbench()
    {
        const Workbench bench(
            WorkbenchOptions::parse({"axrworkbench", "--photo", "x"}, Workbench::pageNames()));
        int inputs = 0;
        QCOMPARE(complaints(bench, &inputs), QStringList());
        QVERIFY2(inputs > 100, qPrintable(QString::number(inputs)));
    }

    /// A field's label shows a host's text as it is.
    void hostTexts()
    {
        VelocityControl panel;
        const auto* label = User::find<QLabel>(&panel, "lblActualVelocity");
        for (const char* text : {"Speed & load", "<i>Speed &amp; load</i>", "&lt; <i>2</i>"}) {
            panel.setActualText(text);
            QCOMPARE(label->sizeHint(), QLabel(text).sizeHint());
        }
        panel.setActualText("Speed & load");
        QCOMPARE(nameOf(User::find<QSpinBox>(&panel, "sbActualVelocity")), QString("Speed & load"));
    }
};

AXR_TEST_MAIN(EveryPanelTest)
#include "EveryPanelTest.moc"
