#ifndef ENTRYRULES_P_H
#define ENTRYRULES_P_H

#include <QString>
#include <QValidator>

#include <limits>

/// What a text in a number field is, and how it is to be written.
struct EntryVerdict {
    enum Look { Unchanged, Invalid, Valid };

    QValidator::State state;
    QString text;
    int pos;
    Look look = Unchanged;
    double number = std::numeric_limits<double>::quiet_NaN(); ///< where the look changes
};

/// The rules by which a number is typed: digits, among which the decimal point keeps its place from
/// the end and the groups are marked. A text that is out of range stays as it is.
struct EntryRules {
    QString prefix;
    QString suffix;
    QString special; ///< Stands for the minimum.
    int decimals = 0;
    double minimum = 0.0;
    double maximum = 0.0;
    bool asTyped = false; ///< No groups and no point of our own.

    EntryVerdict judge(QString input, int pos) const;

private:
    QString withPoint(QString digits, bool negative) const;
};

#endif
