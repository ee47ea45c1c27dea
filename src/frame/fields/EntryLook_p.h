#ifndef ENTRYLOOK_P_H
#define ENTRYLOOK_P_H

#include <QPoint>

class QAbstractSpinBox;
class QString;

enum class Entry { Clean, Pending, Invalid };

/// The colours of a number field by what is entered, and the tool tip with its range.
class EntryLook
{
public:
    explicit EntryLook(QAbstractSpinBox* box) : m_box(box) {}

    void show(Entry entry);
    Entry shown() const { return m_entry; }

    void showRange(QPoint place, const QString& minimum, const QString& maximum);
    /// Any other tool tip of the program stays.
    void hideRange();

private:
    QAbstractSpinBox* m_box;
    Entry m_entry = Entry::Clean;
    bool m_isRangeShown = false;
};

#endif
