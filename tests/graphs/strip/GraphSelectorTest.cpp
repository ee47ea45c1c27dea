#include "GraphSelector.h"
#include "Bytes.h"
#include "ColorPicker.h"
#include "Graph.h"
#include "TestCase.h"
#include "TraceCommand.h"
#include "User.h"
#include "ValueOverTimeGraph.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QTableWidget>

namespace
{

enum Column { Cmd, Type, Name, Color, Address, Motor };

/// The cells of each row.
QString rows(const QTableWidget* table)
{
    QStringList lines;
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells << (column == Color ? table->item(row, column)->background().color().name()
                                      : table->item(row, column)->text());
        lines << cells.join(' ');
    }
    return lines.join(", ");
}

QString names(const QTableWidget* table)
{
    QStringList texts;
    for (int row = 0; row < table->rowCount(); ++row)
        texts << table->item(row, Name)->text();
    return texts.join(", ");
}

} // namespace

/// A graph with one curve, and values of all groups to choose from.
class GraphSelectorTest : public TestCase
{
    Q_OBJECT
private:
    std::unique_ptr<ValueOverTimeGraph> m_graph;
    QList<TraceCommand*> m_offered;
    QPointer<GraphSelector> m_dialog;
    QTableWidget* m_available = nullptr;
    QTableWidget* m_selected = nullptr;
    QComboBox* m_group = nullptr;

private Q_SLOTS:
    void init()
    {
        TestCase::init();
        m_graph = std::make_unique<ValueOverTimeGraph>();
        m_graph->setWindowTitle("axis");
        m_graph->addGraph(new Graph(1, 0, 6, 3, "velocity", Qt::red));
        m_offered = {new TraceCommand(1, 6, 3, 0, "velocity of old"),
                     new TraceCommand(1, 6, 1, 0, "position"),
                     new TraceCommand(toByte(200), 6, 3, 0, "velocity"),
                     nullptr,
                     new TraceCommand(1, 10, toByte(255), 2, "variable"),
                     new TraceCommand(1, 15, 3, 1, "input"),
                     new TraceCommand(1, 9, 3, 1, "other")};
        m_dialog = new GraphSelector(m_graph.get(), m_graph.get(), &m_offered);
        m_available = User::find<QTableWidget>(m_dialog, "twAvailable");
        m_selected = m_dialog->getSelectionTable();
        m_group = User::find<QComboBox>(m_dialog, "cbGroupSelector");
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog));
    }

    void cleanup()
    {
        delete m_dialog;
        qDeleteAll(m_offered);
        TestCase::cleanup();
    }

    void start()
    {
        QCOMPARE(m_dialog->windowTitle(), QString("Select values for \"axis\" graph"));
        QVERIFY(!m_dialog->parent());
        QCOMPARE(rows(m_selected), QString("6 3 velocity #ff0000 1 0"));
        QCOMPARE(rows(m_available),
                 QString("6 1 position #c0c0c0 1 0, 6 3 velocity #c0c0c0 200 0"));
        QVERIFY(m_available->showGrid() && !m_selected->showGrid());
        const QStringList offered = {"axis parameter: position, velocity",
                                     "user variables: variable", "IOs: input",
                                     "all: position, velocity, variable, input, other"};
        QCOMPARE(m_group->count(), offered.size());
        for (int i = 3; i >= 0; --i) {
            m_group->setCurrentIndex(i);
            QCOMPARE(m_group->currentText() + ": " + names(m_available), offered.at(i));
            QCOMPARE(m_selected->rowCount(), 1);
        }
        GraphSelector bare(nullptr, nullptr, nullptr);
        QCOMPARE(bare.windowTitle(), QString("Select values for \"\" graph"));
    }

    void addressAndMotorOfARow()
    {
        const auto* line = User::find<QLabel>(m_dialog, "lblRow");
        emit m_available->cellEntered(1, Type); // by the pointer
        QCOMPARE(line->text(), QString("velocity, address 200, motor 0"));
        m_available->setCurrentCell(0, Cmd);
        QCOMPARE(line->text(), QString("position, address 1, motor 0"));
        QTest::keyClick(m_available, Qt::Key_Space); // moves it; the cursor is on the next one
        QCOMPARE(line->text(), QString("velocity, address 200, motor 0"));
        QCOMPARE(m_available->item(0, Motor)->toolTip(), line->text());
        QVERIFY(m_available->hasMouseTracking());
    }

    void movingRows()
    {
        m_group->setCurrentText("all");
        emit m_available->cellClicked(1, Type); // its name is chosen already: it stays
        emit m_available->cellClicked(0, Name);
        QTest::keyClick(m_available, Qt::Key_Return); // no current cell: nothing
        m_available->setCurrentCell(1, Cmd);
        QTest::keyClick(m_available, Qt::Key_Space);
        for (int row : {-1, 3}) { // there is none
            emit m_available->cellClicked(row, Cmd);
            emit m_selected->cellClicked(row, Cmd);
        }
        // the first standard colours that are not in use
        QCOMPARE(rows(m_selected), QString("6 3 velocity #ff0000 1 0, 6 1 position #00ff00 1 0, "
                                           "10 255 variable #0000ff 1 2"));
        QVERIFY(m_dialog->isParameterSelected("10") && !m_dialog->isParameterSelected("255"));
        QVERIFY(m_dialog->isParameterSelected(*m_offered.at(0)));
        QVERIFY(!m_dialog->isParameterSelected(*m_offered.at(2)));

        emit m_selected->cellClicked(0, Name); // is offered again, by the caption of the offer
        QCOMPARE(names(m_selected), QString("position, variable"));
        QCOMPARE(names(m_available), QString("velocity of old, velocity, input, other"));
        QCOMPARE(m_graph->getGraphs().size(), 1); // the graph is the host's to change
    }

    void standardColoursRunOut()
    {
        QList<TraceCommand*> many;
        for (int i = 0; i < 40; ++i)
            many << new TraceCommand(1, 6, toByte(i), 0, QString::number(i));
        GraphSelector dialog(nullptr, nullptr, &many);
        auto* available = User::find<QTableWidget>(&dialog, "twAvailable");
        while (available->rowCount() > 0)
            emit available->cellClicked(0, 0);
        QStringList colours;
        for (int i = 0; i < 40; ++i)
            colours << dialog.getSelectionTable()->item(i, Color)->background().color().name();
        QCOMPARE(colours.mid(20).count(QColor(Qt::lightGray).name()), 20);
        QStringList first = colours.mid(0, 18);
        QCOMPARE(first.removeDuplicates(), 0);
        QVERIFY(!colours.contains(QApplication::palette().color(QPalette::Base).name()));
        qDeleteAll(many);
    }

    void choosingColours()
    {
        const auto choose = [this](QTableWidget* table, Column column, const char* colour) {
            QTimer::singleShot(0, m_dialog, [this, colour] {
                auto* picker = m_dialog->findChild<ColorPicker*>();
                QVERIFY(picker->currentColor().isValid());
                auto* grid = picker->findChild<QDialog*>();
                QVERIFY(QTest::qWaitForWindowExposed(grid));
                for (QFrame* cell : grid->findChildren<QFrame*>()) {
                    if (cell->toolTip() == QLatin1String(colour))
                        User::click(cell);
                }
                grid->hide();
            });
            emit table->cellClicked(0, column);
            QCOMPARE(table->selectedItems().size(), 0);
            QVERIFY(!table->cellWidget(0, Color));
            QCOMPARE(m_dialog->focusWidget(), table);
        };
        choose(m_available, Color, "Tomato");
        choose(m_available, Motor, "nothing"); // closed without a choice
        QCOMPARE(rows(m_available),
                 QString("6 1 position #ff6347 1 0, 6 3 velocity #c0c0c0 200 0"));
        choose(m_selected, Address, "Cyan");
        emit m_available->cellClicked(0, Name); // keeps its colour, though lime would be free
        QCOMPARE(rows(m_selected), QString("6 3 velocity #00ffff 1 0, 6 1 position #ff6347 1 0"));
        emit m_selected->cellClicked(1, Name); // forgets it
        QCOMPARE(m_available->item(0, Color)->background().color(), QColor(Qt::lightGray));
        QTimer::singleShot(0, this, [this] { delete m_dialog; });
        emit m_available->cellClicked(0, Color);
        QVERIFY(!m_dialog);
    }
};

AXR_TEST_MAIN(GraphSelectorTest)
#include "GraphSelectorTest.moc"
