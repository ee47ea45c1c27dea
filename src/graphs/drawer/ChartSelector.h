#ifndef CHARTSELECTOR_H
#define CHARTSELECTOR_H

#include "AXRGuiExport.h"

#include <QColor>
#include <QDialog>
#include <QList>

#include <memory>

class DrawerArea;
class QTableWidget;
class TraceCommand;

namespace Ui
{
class ChartSelector;
}

/// Lets the user choose the charts of a drawer and their colours. A click on a value's number or
/// name moves it to the other table, one on its colour, address or motor asks for a colour; Return
/// and Space do as a click does on the current cell. Nothing changes in the drawer: the host reads
/// the table of the chosen values after accept().
///
/// A value that is chosen at the start, told by address, command, type and motor bank, is not
/// offered again.
class AXRGUI_EXPORT ChartSelector : public QDialog
{
    Q_OBJECT
public:
    /// \param parent gives the title its name only; the dialog has no parent
    /// \param area whose charts are chosen at the start
    /// \param traceCommands what is offered; all three may be null, and are read here only
    ChartSelector(QWidget* parent, DrawerArea* area, QList<TraceCommand*>* traceCommands);
    ~ChartSelector() override;

    /// The chosen values in their order: command, type, name, colour as background, address, motor.
    QTableWidget* getSelectionTable() const;

    /// Whether a chosen value has this text as its command number.
    bool isParameterSelected(QString text) const;

private Q_SLOTS:
    void onLWSelectedClicked(int x, int y);
    void onLWAvailableClicked(int x, int y);

private:
    void click(QTableWidget* table, int row, int column, QTableWidget* other);

    std::unique_ptr<Ui::ChartSelector> m_ui;
    QColor m_defaultColor = Qt::lightGray;
};

#endif
