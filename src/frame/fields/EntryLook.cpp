#include "EntryLook_p.h"

#include "ToolTip.h"

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QToolTip>

void EntryLook::show(Entry entry)
{
    // Setting a sheet repolishes the box and ends the auto-repeat of its step buttons: only when
    // it changes. The line edit goes first: it keeps the box's colour for good when it is polished
    // under the box's new sheet.
    const auto apply = [](QWidget* widget, const QString& sheet) {
        if (widget->styleSheet() != sheet)
            widget->setStyleSheet(sheet);
    };
    m_entry = entry;
    auto* edit = m_box->findChild<QLineEdit*>(); // a subclass may have put in another one
    switch (entry) {
    case Entry::Clean:
        apply(edit, QString());
        apply(m_box, QString());
        break;
    case Entry::Pending:
        apply(edit, QStringLiteral("QLineEdit{color:navy; selection-color: gold}"));
        apply(m_box, QStringLiteral("QAbstractSpinBox{color:navy; background-color: gold}"));
        break;
    case Entry::Invalid:
        apply(edit, QStringLiteral("QLineEdit{color:white; selection-color: white}"));
        apply(m_box, QStringLiteral("QAbstractSpinBox{color:white; background-color: crimson}"));
        break;
    }
}

void EntryLook::showRange(QPoint place, const QString& minimum, const QString& maximum)
{
    const QString cell = QStringLiteral("<td align=\"right\"</td>");
    ToolTip tip(100, 0.0, 3);
    tip.addHeaderRow(
        {QStringLiteral("<td colspan=\"3\"; align=\"center\">Value out of range</td>")});
    tip.addToolTip({QStringLiteral("Ctrl-Home"), QStringLiteral("Maximum"), cell + maximum});
    tip.addToolTip({QStringLiteral("Ctrl-End "), QStringLiteral("Minimum"), cell + minimum});
    QToolTip::showText(place, tip.getToolTip());
    m_isRangeShown = true;
}

void EntryLook::hideRange()
{
    if (m_isRangeShown)
        QToolTip::hideText();
    m_isRangeShown = false;
}
