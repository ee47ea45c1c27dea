#ifndef LABELTEXT_P_H
#define LABELTEXT_P_H

#include <QLabel>
#include <QRegularExpression>

/// Shows a host's text in a label that may name a field. To the label of a field (its buddy) an "&"
/// marks a key, so each is doubled, which shows one.
inline void setLabelText(QLabel* label, QString text)
{
    static const QRegularExpression ampersand(QStringLiteral("&(amp;|(?!#?\\w+;))"));
    if (label->buddy() && Qt::mightBeRichText(text))
        text.replace(ampersand, QStringLiteral("&amp;&amp;")); // but not what stands for "<"
    else if (label->buddy())
        text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    label->setText(text);
}

#endif
