// The step of the tour on the page of registers.

#include "RegistersPage.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

using namespace TourInput;

/// Edits one field of the ramp driver by each of its views.
void RegistersPage::tour(TourGuide& guide)
{
    const struct {
        int column;
        const char* typed;
        const char* raw; // of the whole register, after it
        bool taken;
    } steps[] = {{RegistersPage::PhysicalColumn, "0.75", "0x61804", true},
                 {RegistersPage::RawColumn, "0x0A", "0x60A04", true},
                 {RegistersPage::BitsColumn, "1 0101", "0x61504", true},
                 {RegistersPage::PhysicalColumn, "1.5", "0x61504", false}};
    guide.showPage(QStringLiteral("registers"));
    QTreeWidget* tree = m_tree;
    const QLabel* error = m_error;
    QTreeWidgetItem* field =
        tree->findItems(QStringLiteral("run"), Qt::MatchStartsWith | Qt::MatchRecursive).value(0);
    if (!field)
        qFatal("the chip of the workbench has no field \"run\"");
    for (const auto& step : steps) {
        tree->setCurrentItem(field, step.column);
        tree->editItem(field, step.column);
        auto* editor = tree->viewport()->findChild<QLineEdit*>();
        if (!editor)
            qFatal("no editor opens in the registers");
        editor->selectAll();
        enter(editor, QString::fromLatin1(step.typed));
        QApplication::sendPostedEvents(); // the entry is taken, and the editor goes
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString raw = field->parent()->text(RegistersPage::RawColumn);
        const bool told = !error->text().isEmpty();
        guide.check(
            QStringLiteral("enter %1 as \"%2\"")
                .arg(QString::fromLatin1(step.typed), tree->headerItem()->text(step.column)),
            QStringLiteral("the register is %1").arg(QString::fromLatin1(step.raw)),
            told ? raw + QStringLiteral(", ") + error->text() : raw,
            raw == QLatin1String(step.raw) && told != step.taken);
    }
    guide.photograph(QStringLiteral("registers"));
}
