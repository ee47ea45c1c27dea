#ifndef TOOLTIP_H
#define TOOLTIP_H

#include "AXRGuiExport.h"

#include <QString>
#include <QStringList>

/// Builds one HTML table for a rich tool tip. Call the add operations in order, then getToolTip()
/// once.
///
/// All texts go in as HTML: of a label "velocity <rpm>" the tool tip shows "velocity", for "<rpm>"
/// is read as a tag. A text that may hold "<" or "&" takes QString::toHtmlEscaped() first.
///
/// A cell text may begin with "<td attributes</td>" to give its cell attributes, as in
/// "<td align=\"right\"</td>42"; the match reaches up to the last "</td>" of the text.
class AXRGUI_EXPORT ToolTip
{
public:
    /// \param widthPercent width of the table in percent
    /// \param border width of the border in pixels
    /// \param columns cells for each row; below 1 counts as 1
    ToolTip(const int& widthPercent, const double& border, const int& columns);

    void addCaption(const QString& text);

    /// One row of headings. A cell that begins with "<td" goes in as it stands.
    void addHeaderRow(const QStringList& cells);

    /// One body row. With one column, each entry becomes a row of its own; from 26 entries on, the
    /// list folds into rows of three, and the table keeps that number of columns (or the number of
    /// cells of the last, shorter row). Every "-" becomes a true minus sign, also in attributes. A
    /// cell that begins with "<td" without closing it goes in as it stands.
    void addToolTip(const QStringList& cells);

    /// The whole table. Closes it at each call, so it is called once, last.
    QString getToolTip();

private:
    void addRow(const QStringList& cells);
    QString cell(QString text) const;

    QString m_cellFormat;
    QString m_html;
    int m_columns;
};

#endif
