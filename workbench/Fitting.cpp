#include "Fitting.h"

#include <QEvent>
#include <QScrollArea>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

class Uncut : public QWidget
{
public:
    QSize minimumSizeHint() const override { return sizeHint(); }
};

class ColumnFitter : public QObject
{
public:
    ColumnFitter(QTableView* table, const QVector<int>& atLeast)
        : QObject(table), m_table(table), m_atLeast(atLeast)
    {
        table->installEventFilter(this);
        fit();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FontChange)
            QTimer::singleShot(0, this, [this] { fit(); }); // once the header has it too
        return QObject::eventFilter(watched, event);
    }

private:
    void fit()
    {
        m_table->resizeColumnsToContents();
        for (int column = 0; column < m_atLeast.size(); ++column)
            m_table->setColumnWidth(column,
                                    qMax(m_table->columnWidth(column), m_atLeast.at(column)));
    }

    QTableView* m_table;
    QVector<int> m_atLeast;
};

} // namespace

QWidget* Fitting::scrolled(QWidget* content)
{
    auto* whole = new Uncut;
    auto* layout = new QVBoxLayout(whole);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    auto* scroll = new QScrollArea;
    scroll->setAccessibleName(QScrollArea::tr("Page"));
    scroll->setWidget(whole);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    return scroll;
}

void Fitting::fitColumns(QTableView* table, const QVector<int>& atLeast)
{
    new ColumnFitter(table, atLeast);
}
