#include "ToolTip.h"

#include <QRegularExpression>

namespace
{
constexpr int FoldFrom = 26;
constexpr int FoldedColumns = 3;
} // namespace

ToolTip::ToolTip(const int& widthPercent, const double& border, const int& columns)
    : m_cellFormat(
          QStringLiteral("<td valign=\"middle\" %1 style=\"color:navy; white-space:pre-wrap;\">"))
    , m_html(QStringLiteral("<table align=center><tr><td valign=middle><table><table width=\"%1%\" "
                            "border=%2 cellspacing=2 cellpadding=5         style=\"border-style: "
                            "ridge; border-color: cornflowerblue\">")
                 .arg(widthPercent)
                 .arg(border))
    , m_columns(qMax(1, columns))
{
}

void ToolTip::addCaption(const QString& text)
{
    m_html += QStringLiteral("<p style=\"font-weight:bold; font-size:x-large; "
                             "color:dodgerblue\"><nobr>") +
              text + QStringLiteral("</nobr><hr></p>");
}

void ToolTip::addHeaderRow(const QStringList& cells)
{
    m_html += QStringLiteral("<tr valign=\"middle\" bgcolor=\"navy\" style=\"font-weight:bold; "
                             "color:white; white-space:pre-wrap\">");
    for (const QString& text : cells) {
        if (text.startsWith(QLatin1String("<td")))
            m_html += text;
        else
            m_html += QStringLiteral("<td>") + text + QStringLiteral("</td>");
    }
    m_html += QStringLiteral("</tr>");
}

void ToolTip::addToolTip(const QStringList& cells)
{
    if (m_columns > 1 || cells.size() <= 1) {
        addRow(cells);
        return;
    }
    if (cells.size() >= FoldFrom)
        m_columns = FoldedColumns;
    for (int first = 0; first < cells.size();) {
        const QStringList row = cells.mid(first, m_columns);
        m_columns = row.size();
        addRow(row);
        first += row.size();
    }
}

QString ToolTip::getToolTip()
{
    m_html += QStringLiteral("</table></td></tr></table>");
    return m_html;
}

void ToolTip::addRow(const QStringList& cells)
{
    m_html += QStringLiteral("<tbody><tr>");
    for (const QString& text : cells)
        m_html += cell(text);
    m_html += QStringLiteral("</tr></tbody>");
}

QString ToolTip::cell(QString text) const
{
    text.replace(QLatin1Char('-'), QLatin1String("&#x2212;"));
    QString attributes;
    if (text.startsWith(QLatin1String("<td"))) {
        static const QRegularExpression pattern(QStringLiteral("<td (.+)</td>"),
                                                QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch match = pattern.match(text);
        if (!match.hasMatch())
            return text + QStringLiteral("</td>"); // it carries its own tag
        attributes = match.captured();
        attributes.remove(QLatin1String("</td>")).remove(QLatin1String("<td"));
        text.remove(match.capturedStart(), match.capturedLength());
    }
    return m_cellFormat.arg(attributes) + text + QStringLiteral("</td>");
}
