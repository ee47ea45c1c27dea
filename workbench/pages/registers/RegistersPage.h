#ifndef REGISTERSPAGE_H
#define REGISTERSPAGE_H

#include "ChipDescription.h"
#include "Page.h"

#include <functional>
#include <memory>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

/// The registers of a chip that a file describes, as a tree of registers and fields with raw,
/// physical and bit views, each of which is edited in place. What was written stands in bold. A
/// value that a register refuses is told on the page, and the old one stays.
///
/// The file opened last is opened again at the next start; without one it is the ramp driver that
/// lies beside the program.
class RegistersPage : public Page
{
    Q_OBJECT
public:
    RegistersPage();
    ~RegistersPage() override;

    bool worksAlone() const override { return true; }
    void tour(TourGuide& guide) override;

    /// Shows another chip. A file that is refused is told on the page, and the old chip stays.
    bool open(const QString& file);

    enum Column { TitleColumn, RawColumn, PhysicalColumn, BitsColumn, AccessColumn, NoteColumn };

private:
    void fill();
    void addRow(QTreeWidgetItem* item, Register* field);
    void show(QTreeWidgetItem* item);
    void showAll();
    void edit(QTreeWidgetItem* item, int column);
    QString write(const QTreeWidgetItem* item, int column, const QString& text);
    QString refusal(const Register& field, const QString& entered) const;
    QString refusal(const RegisterSet& set, quint64 raw) const;
    void complain(const QString& text);
    void forEachField(const std::function<void(Register&)>& action);

    std::unique_ptr<ChipDescription> m_chip;
    QLabel* m_title;
    QTreeWidget* m_tree;
    QLabel* m_error;
    bool m_isFilling = false;
};

#endif
