#ifndef FIELDTEXT_P_H
#define FIELDTEXT_P_H

#include <QString>

/// The text of a number field taken apart: the number between prefix and suffix, which may hold
/// digits, too. Places count in the whole text.
struct FieldText {
    static constexpr QLatin1Char Point = QLatin1Char('.');

    QString text;
    QString prefix;
    QString suffix;

    int start() const;
    int end() const;
    /// What of the number stands there.
    QString between(int from, int to) const;
    bool hasPoint() const;
    /// The leftmost place with so many digits of the number right of it, so that the caret stands
    /// before a point or a comma, never behind.
    int caretBefore(int digitsRight) const;
    /// Not a number while the text is none.
    double number() const;

    static int digitsIn(const QString& text);
    static bool isDigit(QChar c);
};

#endif
