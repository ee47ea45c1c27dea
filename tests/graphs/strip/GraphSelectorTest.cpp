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

QStringList row(const QTableWidget* table, int index)
{
    QStringList cells;
    for (int column = 0; column < table->columnCount(); ++column)
        cells << (column == Color ? table->item(index, column)->background().color().name()
                                  : table->item(index, column)->text());
    return cells;
}

QStringList names(const QTableWidget* table)
{
    QStringList texts;
    for (int index = 0; index < table->rowCount(); ++index)
        texts << table->item(index, Name)->text();
    return texts;
}

} // namespace

/// A graph with one curve, and values of all groups to choose from.
class GraphSelectorTest : public TestCase
{
    Q_OBJECT
private:
    ValueOverTimeGraph* m_graph = nullptr;
    QList<TraceCommand*> m_offered;
    GraphSelector* m_dialog = nullptr;
    QTableWidget* m_available = nullptr;
    QTableWidget* m_selected = nullptr;

private Q_SLOTS:
    void init()
    {
        TestCase::init();
        m_graph = new ValueOverTimeGraph(nullptr);
        m_graph->setWindowTitle("axis");
        m_graph->addGraph(new Graph(1, 0, 6, 3, "velocity", Qt::red));
        m_offered = {new TraceCommand(1, 6, 3, 0, "velocity of old"),
                     new TraceCommand(1, 6, 1, 0, "position"),
                     new TraceCommand(toByte(200), 6, 3, 0, "velocity"),
                     nullptr,
                     new TraceCommand(1, 10, toByte(255), 2, "variable"),
                     new TraceCommand(1, 15, 3, 1, "input"),
                     new TraceCommand(1, 9, 3, 1, "other")};
        m_dialog = new GraphSelector(m_graph, m_graph, &m_offered);
        m_available = User::find<QTableWidget>(m_dialog, "twAvailable");
        m_selected = m_dialog->getSelectionTable();
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog));
    }

    void cleanup()
    {
        delete m_dialog;
        delete m_graph;
        qDeleteAll(m_offered);
        TestCase::cleanup();
    }

    void start()
    {
        QCOMPARE(m_dialog->windowTitle(), QString("Select values for \"axis\" graph"));
        QVERIFY(!m_dialog->parent());
        QCOMPARE(m_selected->objectName(), QString("twSelected"));
        QCOMPARE(m_selected->rowCount(), 1);
        QCOMPARE(row(m_selected, 0), QStringList({"6", "3", "velocity", "#ff0000", "1", "0"}));
        QCOMPARE(names(m_available), QStringList({"position", "velocity"}));
        QCOMPARE(row(m_available, 1), QStringList({"6", "3", "velocity", "#c0c0c0", "200", "0"}));
        for (const QTableWidget* table : {m_available, m_selected}) {
            QCOMPARE(table->columnWidth(Name), 484 - 269);
            QCOMPARE(table->rowHeight(0), 20);
            QCOMPARE(table->showGrid(), table == m_available);
        }
    }

    void groups()
    {
        auto* group = User::find<QComboBox>(m_dialog, "cbGroupSelector");
        const struct {
            const char* name;
            QStringList offered;
        } rows[] = {{"axis parameter", {"position", "velocity"}},
                    {"user variables", {"variable"}},
                    {"IOs", {"input"}},
                    {"all", {"position", "velocity", "variable", "input", "other"}}};
        QCOMPARE(group->count(), 4);
        for (int i = 3; i >= 0; --i) {
            group->setCurrentIndex(i);
            QCOMPARE(group->currentText(), QString(rows[i].name));
            QCOMPARE(names(m_available), rows[i].offered);
            QCOMPARE(m_selected->rowCount(), 1);
        }
    }

    void movingRows()
    {
        User::find<QComboBox>(m_dialog, "cbGroupSelector")->setCurrentText("all");
        // a name that is chosen already stays, though it is another value
        emit m_available->cellClicked(1, Type);
        QCOMPARE(m_selected->rowCount(), 1);

        emit m_available->cellClicked(0, Name);
        QTest::keyClick(m_available, Qt::Key_Return); // no current cell: nothing
        m_available->setCurrentCell(1, Cmd);
        QTest::keyClick(m_available, Qt::Key_Space);
        QCOMPARE(names(m_selected), QStringList({"velocity", "position", "variable"}));
        // the first standard colours that are not in use
        QCOMPARE(row(m_selected, 1), QStringList({"6", "1", "position", "#00ff00", "1", "0"}));
        QCOMPARE(row(m_selected, 2), QStringList({"10", "255", "variable", "#0000ff", "1", "2"}));
        QCOMPARE(m_selected->rowHeight(2), 20);
        QVERIFY(m_dialog->isParameterSelected("10"));
        QVERIFY(!m_dialog->isParameterSelected("255"));
        QVERIFY(m_dialog->isParameterSelected(*m_offered.at(0)));
        QVERIFY(!m_dialog->isParameterSelected(*m_offered.at(2)));

        emit m_selected->cellClicked(0, Cmd); // is offered again, by the caption of the offer
        QCOMPARE(names(m_selected), QStringList({"position", "variable"}));
        QCOMPARE(names(m_available),
                 QStringList({"velocity of old", "velocity", "input", "other"}));
        QCOMPARE(m_graph->getGraphs().size(), 1); // the graph is the host's to change
    }

    void addressAndMotorOfARow()
    {
        auto* line = User::find<QLabel>(m_dialog, "lblRow");
        const QSize before = m_dialog->size();
        QCOMPARE(before, QSize(800, 232));
        QCOMPARE(line->text(), QString());
        emit m_available->cellEntered(1, Type); // by the pointer
        QCOMPARE(line->text(), QString("velocity, address 200, motor 0"));
        m_selected->setCurrentCell(0, Cmd);
        QCOMPARE(line->text(), QString("velocity, address 1, motor 0"));
        m_available->setCurrentCell(0, Cmd);
        QCOMPARE(line->text(), QString("position, address 1, motor 0"));
        QTest::keyClick(m_available, Qt::Key_Space); // moves it; the cursor is on the next one
        QCOMPARE(line->text(), QString("velocity, address 200, motor 0"));
        for (int column = Cmd; column <= Motor; ++column)
            QCOMPARE(m_available->item(0, column)->toolTip(), line->text());
        QVERIFY(m_available->hasMouseTracking());
        QCOMPARE(m_dialog->size(), before);
    }

    void standardColoursRunOut()
    {
        QList<TraceCommand*> many;
        for (int i = 0; i < 40; ++i)
            many << new TraceCommand(1, 6, toByte(i), 0, QString::number(i));
        ValueOverTimeGraph empty(nullptr);
        GraphSelector dialog(nullptr, &empty, &many);
        QCOMPARE(dialog.windowTitle(), QString("Select values for \"\" graph"));
        auto* available = User::find<QTableWidget>(&dialog, "twAvailable");
        while (available->rowCount() > 0)
            emit available->cellClicked(0, 0);
        QStringList colours;
        for (int i = 0; i < dialog.getSelectionTable()->rowCount(); ++i)
            colours << row(dialog.getSelectionTable(), i).at(Color);
        const QString none = QColor(Qt::lightGray).name();
        QCOMPARE(colours.size(), 40);
        QCOMPARE(colours.mid(20).count(none), 20);
        QStringList first = colours.mid(0, 18);
        QCOMPARE(first.removeDuplicates(), 0);
        QVERIFY(!colours.contains(palette().color(QPalette::Base).name()));
        qDeleteAll(many);
    }

    void choosingColours()
    {
        const auto choose = [this](QTableWidget* table, Column column, const char* colour) {
            QTimer::singleShot(0, m_dialog, [this, colour] {
                auto* grid = m_dialog->findChild<ColorPicker*>()->findChild<QDialog*>();
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
        };
        choose(m_available, Color, "Tomato");
        QCOMPARE(row(m_available, 0).at(Color), QColor("tomato").name());
        choose(m_available, Motor, "nothing"); // closed without a choice
        QCOMPARE(row(m_available, 0).at(Color), QColor("tomato").name());
        choose(m_selected, Address, "Cyan");
        QCOMPARE(row(m_selected, 0).at(Color), QColor(Qt::cyan).name());
        QCOMPARE(m_available->rowCount(), 2);

        emit m_available->cellClicked(0, Name); // keeps its colour, though cyan would be free
        QCOMPARE(row(m_selected, 1).at(Color), QColor("tomato").name());
        emit m_selected->cellClicked(1, Name); // forgets it
        QCOMPARE(row(m_available, 0).at(Color), QColor(Qt::lightGray).name());
    }

    void deletedWhileItsGridIsOpen()
    {
        QTimer::singleShot(0, this, [this] { delete std::exchange(m_dialog, nullptr); });
        emit m_available->cellClicked(0, Color);
        QVERIFY(!m_dialog);
    }

private:
    static QPalette palette() { return QApplication::palette(); }
};

AXR_TEST_MAIN(GraphSelectorTest)
#include "GraphSelectorTest.moc"
