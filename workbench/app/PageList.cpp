#include "PageList.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QVBoxLayout>

namespace
{

constexpr int Margin = 12; // px
constexpr int Digits = 10;

} // namespace

PageList::PageList(QWidget* parent)
    : QWidget(parent), m_filter(new QLineEdit), m_list(new QListWidget)
{
    m_list->setObjectName(QStringLiteral("lwPages"));
    m_list->setAccessibleName(tr("Pages"));
    m_list->setToolTip(tr("Ctrl+PgUp and Ctrl+PgDown turn the pages"));
    m_filter->setObjectName(QStringLiteral("leFindPage"));
    m_filter->setAccessibleName(tr("Find a page"));
    m_filter->setPlaceholderText(tr("Find"));
    m_filter->setToolTip(tr("A part of a page's title and Return (Ctrl+F)"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_list, 1);
    setFocusProxy(m_list);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);

    connect(m_list, &QListWidget::currentRowChanged, this, &PageList::turned);
    connect(m_filter, &QLineEdit::textChanged, this, &PageList::filter);
    connect(m_filter, &QLineEdit::returnPressed, this, &PageList::turnToFirstFound);
    const auto addKey = [this](const QKeySequence& key, const auto& action) {
        auto* shortcut = new QShortcut(key, this);
        connect(shortcut, &QShortcut::activated, this, action);
        return shortcut;
    };
    for (int digit = 0; digit < Digits; ++digit)
        addKey(Qt::CTRL + Qt::Key_0 + digit, [this, digit] {
            takeDigit(digit);
        })->setAutoRepeat(false);
    for (const int step : {-1, 1}) {
        addKey(Qt::CTRL + (step < 0 ? Qt::Key_PageUp : Qt::Key_PageDown),
               [this, step] { turnTo(m_list->currentRow() + step); });
    }
    addKey(Qt::CTRL + Qt::Key_F, [this] {
        m_filter->setFocus(Qt::ShortcutFocusReason);
        m_filter->selectAll();
    });
    qApp->installEventFilter(this); // where Ctrl is pressed and let go of
}

void PageList::add(const QString& title)
{
    m_list->addItem(title);
    const int number = m_list->count();
    m_list->item(number - 1)
        ->setToolTip(number == Digits ? tr("Ctrl+0") : tr("Ctrl+%1").arg(number));
}

void PageList::turnTo(int page) { m_list->setCurrentRow(qBound(0, page, m_list->count() - 1)); }

void PageList::fit()
{
    m_list->ensurePolished();
    setFixedWidth(m_list->sizeHintForColumn(0) + 2 * m_list->frameWidth() + Margin);
}

void PageList::takeDigit(int digit)
{
    const int longer = m_number * Digits + digit;
    m_number = longer <= m_list->count() ? longer : digit;
    const int number = m_number == 0 ? Digits : m_number;
    if (number <= m_list->count())
        turnTo(number - 1);
}

void PageList::filter(const QString& part)
{
    for (int row = 0; row < m_list->count(); ++row)
        m_list->item(row)->setHidden(
            !m_list->item(row)->text().contains(part, Qt::CaseInsensitive));
}

void PageList::turnToFirstFound()
{
    if (m_filter->text().isEmpty())
        return;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->isHidden())
            continue;
        m_filter->clear();
        turnTo(row);
        m_list->setFocus();
        return;
    }
}

bool PageList::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Control)
        m_number = 0; // also at the press: another window may have had the release
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape)
            m_filter->clear();
        if (key == Qt::Key_Escape || key == Qt::Key_Down)
            m_list->setFocus();
    }
    return QWidget::eventFilter(watched, event);
}
