#ifndef CHART_H
#define CHART_H

#include "AXRGuiExport.h"
#include "MotorController.h"

#include <QColor>
#include <QList>
#include <QString>

#include <mutex>
#include <vector>

/// The samples of one curve of a DrawerArea, one after the other without a time. Address, motor
/// bank, command and type say which value it is.
///
/// Samples may come, go and be read from any thread; all else belongs to the GUI's thread, or has
/// to be done before samples come. A chart cannot be copied.
class AXRGUI_EXPORT Chart : public MotorController
{
public:
    Chart(char address, char motorBank, char command, char type, QString label, QColor color);

    char getCommand() const { return m_command; }
    char getType() const { return m_type; }
    QString getLabel() const { return m_label; }
    QColor getColor() const { return m_color; }
    void setColor(QColor color) { m_color = color; }

    /// How many of the newest samples are kept, 100 by default; a negative number is ignored. What
    /// is too much goes with the next sample.
    void setMaxValues(int maxValues);

    void addValue(double value);
    void clearValues();

    /// Oldest first.
    QList<double> getValues() const;
    /// As getValues(), in a list of its own that belongs to the caller.
    QList<double>* copyValues() const;
    /// Copies at most `count` samples in a row, oldest first, and before them leaves out the newest
    /// `skipped` ones. Unlike getValues() it costs what it copies, and the sample that comes next
    /// does not have to copy all.
    void copyValues(qint64 skipped, qint64 count, std::vector<double>* values) const;

    /// Whether it is painted, true by default.
    void setVisible(bool visible) { m_visible = visible; }
    bool isVisible() const { return m_visible; }

private:
    char m_command;
    char m_type;
    QString m_label;
    QList<double> m_values;
    // of the samples and their number; the thread sanitizer does not see into QMutex
    mutable std::mutex m_valuesMutex;
    QColor m_color;
    int m_maxValues = 100;
    bool m_visible = true;
};

#endif
