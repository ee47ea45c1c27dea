#include "GalleryWidgets.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "Workbench.h"

#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>

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

bool isInput(const QWidget* widget)
{
    return !isPiece(widget) &&
           (widget->focusPolicy() & Qt::TabFocus || qobject_cast<const QAbstractButton*>(widget) ||
            qobject_cast<const QAbstractSpinBox*>(widget) ||
            qobject_cast<const QComboBox*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
            qobject_cast<const QAbstractSlider*>(widget));
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

/// Every input in it without a name, or with that of another in the same panel.
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
    }
    return lines;
}

} // namespace

class AccessibleNamesTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void theCheckSees()
    {
        QGroupBox box("Box"); // whose title Qt gives to what has no name
        new QSpinBox(&box);
        new QDoubleSpinBox(&box);
        new QComboBox(&box);
        QLabel label("Label", &box);
        label.setBuddy(new QLineEdit(&box));
        QCOMPARE(complaints(box).size(), 2);
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
        const std::unique_ptr<QWidget> widget(galleryWidgets().at(index).make());
        QCOMPARE(complaints(*widget), QStringList());
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

AXR_TEST_MAIN(AccessibleNamesTest)

#include "AccessibleNamesTest.moc"
