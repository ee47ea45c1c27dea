#ifndef GRAPHSELECTOR_H
#define GRAPHSELECTOR_H

#include "AXRGuiExport.h"

#include <QColor>
#include <QDialog>
#include <QList>

#include <memory>

class QTableWidget;
class TraceCommand;
class ValueOverTimeGraph;

namespace Ui
{
class GraphSelector;
}

/// Lets the user choose the curves of a ValueOverTimeGraph and their colours. A click on a value's
/// number or name moves it to the other table at once, one on its colour, address or motor asks for
/// a colour; Return and Space do as a click does on the current cell. Nothing changes in the graph:
/// the host reads the table of the chosen values after accept().
///
/// A value that is chosen already is not offered again; it is told by address, command, type and
/// motor bank. One that merely has the name of a chosen value is offered, but a click does not move
/// it: names tell the curves of a graph apart. Filling the offer anew forgets the colours that were
/// chosen in it.
class AXRGUI_EXPORT GraphSelector : public QDialog
{
    Q_OBJECT
public:
    /// \param parent gives the title its name only; the dialog has no parent
    /// \param graph whose curves are chosen at the start
    /// \param traceCommands what is offered; both may be null and must outlive the dialog
    GraphSelector(QWidget* parent, ValueOverTimeGraph* graph, QList<TraceCommand*>* traceCommands);
    ~GraphSelector() override;

    /// The chosen values in their order: command, type, name, colour as background, address, motor.
    QTableWidget* getSelectionTable() const;

    /// Whether a chosen value has this text as its command number.
    bool isParameterSelected(QString text) const;
    /// Whether this value is chosen.
    bool isParameterSelected(const TraceCommand& command) const;
    /// Offers what the group holds and is not chosen.
    void updateTableWithAvailableParameters();

private Q_SLOTS:
    void onLWSelectedClicked(int x, int y);
    void onLWAvailableClicked(int x, int y);
    void on_cbGroupSelector_currentIndexChanged(int index);

private:
    void chooseColor(QTableWidget* table, int row);
    QColor freeColor() const;

    std::unique_ptr<Ui::GraphSelector> m_ui;
    ValueOverTimeGraph* m_graph;
    QList<TraceCommand*>* m_traceCommands;
    QColor m_defaultColor = Qt::lightGray;
};

#endif
