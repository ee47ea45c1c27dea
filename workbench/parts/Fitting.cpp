#include "Fitting.h"

#include "HTMLDelegate.h"

#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QScrollArea>
#include <QTableView>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int CellMargin = 2; // px; size hints are cut to whole pixels

constexpr int Unbroken = 10000; // px

class Uncut : public QWidget
{
public:
    QSize minimumSizeHint() const override { return sizeHint(); }
};

class ColumnFitter : public QObject
{
public:
    ColumnFitter(QAbstractItemView* view, QHeaderView* header, const QVector<int>& atLeast)
        : QObject(view), m_view(view), m_header(header), m_atLeast(atLeast)
    {
        m_later.setSingleShot(true);
        connect(&m_later, &QTimer::timeout, this, [this] { fit(); });
        const QAbstractItemModel* model = view->model();
        connect(model, &QAbstractItemModel::rowsInserted, &m_later, [this] { m_later.start(); });
        connect(model, &QAbstractItemModel::dataChanged, this,
                [this](const QModelIndex& first, const QModelIndex& last) { grow(first, last); });
        header->setStretchLastSection(false);
        view->installEventFilter(this);
        fit();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Once the header has the font too, and the view its size.
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange ||
            event->type() == QEvent::Resize || event->type() == QEvent::Show)
            m_later.start();
        return QObject::eventFilter(watched, event);
    }

private:
    int widthOf(int column) const
    {
        return std::max({m_view->sizeHintForColumn(column) + CellMargin,
                         richTextWidth(column) + CellMargin, m_header->sectionSizeHint(column),
                         m_atLeast.value(column)});
    }

    /// Of the column's rich texts, which the view would break at each word to measure them.
    int richTextWidth(int column) const
    {
        const auto* delegate = qobject_cast<HTMLDelegate*>(m_view->itemDelegateForColumn(column));
        if (!delegate)
            return 0;
        QStyleOptionViewItem option;
        option.initFrom(m_view);
        option.font = m_view->font();
        option.rect.setWidth(Unbroken);
        int width = 0;
        for (int row = 0; row < m_view->model()->rowCount(); ++row)
            width = qMax(width,
                         delegate->sizeHint(option, m_view->model()->index(row, column)).width());
        return width;
    }

    void fit()
    {
        const int last = m_header->count() - 1;
        int left = m_view->viewport()->width();
        for (int column = 0; column <= last; ++column) {
            const int width = widthOf(column);
            m_header->resizeSection(column, column == last ? qMax(width, left) : width);
            left -= width;
        }
    }

    /// New numbers come many times a second, so only they are measured, and no column shrinks.
    void grow(const QModelIndex& first, const QModelIndex& last)
    {
        if (!m_view->isVisible() || m_later.isActive())
            return; // all are measured then
        for (int column = first.column(); column <= last.column(); ++column) {
            for (int row = first.row(); row <= last.row(); ++row) {
                const QModelIndex cell = first.sibling(row, column);
                if (m_view->sizeHintForIndex(cell).width() >= m_header->sectionSize(column))
                    m_later.start();
            }
        }
    }

    QAbstractItemView* m_view;
    QHeaderView* m_header;
    QVector<int> m_atLeast;
    QTimer m_later;
};

/// Two rows of a grid, which become four while they are too wide.
class RowFolder : public QObject
{
public:
    RowFolder(QWidget* panel, QGridLayout* grid, int half)
        : QObject(panel), m_panel(panel), m_grid(grid), m_half(half), m_columns(grid->columnCount())
    {
        for (int column = 0; column < m_columns; ++column)
            m_stretches << grid->columnStretch(column);
        panel->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show || event->type() == QEvent::StyleChange)
            QTimer::singleShot(0, m_panel, [this] { foldIfTooWide(); }); // once all in it has heard
        if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
            foldIfTooWide();
        return QObject::eventFilter(watched, event);
    }

private:
    /// Where the column stands.
    int rowOf(int column) const { return m_isFolded && column >= m_half ? 2 : 0; }
    int placeOf(int column) const { return rowOf(column) ? column - m_half : column; }

    int widthOfOneRow() const
    {
        int width = 0;
        for (int column = 0; column < m_columns; ++column) {
            int widest = 0;
            for (int row = 0; row < 2; ++row) {
                if (const auto* item = m_grid->itemAtPosition(rowOf(column) + row, placeOf(column)))
                    widest = qMax(widest, item->minimumSize().width());
            }
            width += widest + (column ? m_grid->horizontalSpacing() : 0);
        }
        int left = 0;
        int right = 0;
        m_panel->layout()->getContentsMargins(&left, nullptr, &right, nullptr);
        return width + left + right;
    }

    void foldIfTooWide() { fold(widthOfOneRow() > m_panel->contentsRect().width()); }

    void fold(bool on)
    {
        if (on == m_isFolded)
            return;
        QVector<QLayoutItem*> items;
        for (int column = m_half; column < m_columns; ++column) {
            for (int row = 0; row < 2; ++row) {
                QLayoutItem* item = m_grid->itemAtPosition(rowOf(column) + row, placeOf(column));
                items << item;
                if (item)
                    m_grid->removeItem(item);
            }
        }
        m_isFolded = on;
        int at = 0;
        for (int column = m_half; column < m_columns; ++column) {
            for (int row = 0; row < 2; ++row) {
                QLayoutItem* item = items.at(at++);
                if (item && item->layout())
                    m_grid->addLayout(item->layout(), rowOf(column) + row, placeOf(column));
                else if (item)
                    m_grid->addItem(item, rowOf(column) + row, placeOf(column));
            }
        }
        for (int column = 0; column < m_columns; ++column)
            m_grid->setColumnStretch(column, on && column >= m_half ? 0 : m_stretches.at(column));
    }

    QWidget* m_panel;
    QGridLayout* m_grid;
    int m_half;
    int m_columns;
    QVector<int> m_stretches;
    bool m_isFolded = false;
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
    scroll->setFocusPolicy(Qt::NoFocus); // what it holds comes into view with the focus
    return scroll;
}

void Fitting::fitColumns(QAbstractItemView* view, const QVector<int>& atLeast)
{
    auto* tree = qobject_cast<QTreeView*>(view);
    auto* table = qobject_cast<QTableView*>(view);
    if (tree || table)
        new ColumnFitter(view, tree ? tree->header() : table->horizontalHeader(), atLeast);
}

void Fitting::foldRow(QWidget* panel, QGridLayout* row, int half)
{
    new RowFolder(panel, row, half);
}
