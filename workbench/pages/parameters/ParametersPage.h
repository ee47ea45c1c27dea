#ifndef PARAMETERSPAGE_H
#define PARAMETERSPAGE_H

#include "Page.h"

class QComboBox;
class QLabel;
class QStandardItemModel;
class QTableView;
class SpinBox;
class SpinBoxDelegate;

/// Every axis parameter of the module in one table, edited in place in device units, and the
/// selected one below in real units. A value can be edited once it was read: what is shown before
/// is nobody's value, and leaving it unchanged must not write it.
class ParametersPage : public Page
{
    Q_OBJECT
public:
    ParametersPage();

    void setAddress(char address) override { m_address = address; }
    void refresh() override;
    void poll() override;
    bool isEditing(const Command& request) const override;
    void take(const Command& reply) override;
    void tour(TourGuide& guide) override;

private:
    enum Column { NumberColumn, NameColumn, ValueColumn, RangeColumn, UnitColumn, ColumnCount };

    void fill();
    void select(int row);
    void readRow(int row);
    void write(int row, int value);
    char axis() const;
    bool isEntering() const;

    QComboBox* m_axis;
    QStandardItemModel* m_model;
    QTableView* m_table;
    QLabel* m_caption;
    SpinBox* m_value;
    SpinBoxDelegate* m_delegate = nullptr;
    char m_address = 1;
    int m_selected = -1;
    int m_nextRead = 0;
    bool m_filling = false;
};

#endif
