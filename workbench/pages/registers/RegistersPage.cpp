#include "RegistersPage.h"

#include "AppSettings.h"
#include "Fitting.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include <algorithm>

namespace
{

using Raw = unsigned long long;

constexpr int WriteAccess = 2;
const QString fileKey = QStringLiteral("Workbench/Chip");
const QString ownChip = QStringLiteral("/chips/ramp-driver.json"); // beside the program

/// Edits the columns with values alone.
class ValueDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        const bool isValue = index.column() == RegistersPage::RawColumn ||
                             index.column() == RegistersPage::PhysicalColumn ||
                             index.column() == RegistersPage::BitsColumn;
        QWidget* editor =
            isValue ? QStyledItemDelegate::createEditor(parent, option, index) : nullptr;
        if (editor)
            editor->setAccessibleName(
                index.model()->headerData(index.column(), Qt::Horizontal).toString());
        return editor;
    }
};

QString hexText(Raw raw, int width)
{
    return QStringLiteral("0x") +
           QStringLiteral("%1").arg(raw, (width + 3) / 4, 16, QLatin1Char('0')).toUpper();
}

/// Groups of four from the right.
QString bitText(Raw raw, int width)
{
    QString text = QStringLiteral("%1").arg(raw, width, 2, QLatin1Char('0'));
    for (int place = text.size() - 4; place > 0; place -= 4)
        text.insert(place, QLatin1Char(' '));
    return text;
}

QString numberText(double value, const Register& field)
{
    return QString::number(value, 'f', qMin<int>(field.getDecimals(), 12));
}

/// "0x1F", "31" or, of bits, "1 1111".
bool readRaw(QString text, int column, Raw* raw)
{
    bool ok = false;
    text = text.remove(QLatin1Char(' '));
    if (column == RegistersPage::BitsColumn)
        *raw = text.toULongLong(&ok, 2);
    else if (text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        *raw = text.midRef(2).toULongLong(&ok, 16);
    else
        *raw = text.toULongLong(&ok, 10);
    return ok;
}

Register* fieldOf(const QTreeWidgetItem* item)
{
    return static_cast<Register*>(
        item->data(RegistersPage::TitleColumn, Qt::UserRole).value<void*>());
}

RegisterSet* setOf(const QTreeWidgetItem* item)
{
    return qobject_cast<RegisterSet*>(fieldOf(item));
}

} // namespace

RegistersPage::RegistersPage() : m_title(new QLabel), m_tree(new QTreeWidget), m_error(new QLabel)
{
    m_error->setObjectName(QStringLiteral("lblError"));
    m_error->setWordWrap(true);
    QPalette colours = m_error->palette();
    colours.setColor(QPalette::WindowText, QColor(QStringLiteral("tomato")));
    m_error->setPalette(colours);
    m_tree->setObjectName(QStringLiteral("twRegisters"));
    m_tree->setAccessibleName(tr("Registers"));
    m_tree->setHeaderLabels(
        {tr("Register"), tr("Raw"), tr("Physical"), tr("Bits"), tr("Access"), tr("Meaning")});
    m_tree->setItemDelegate(new ValueDelegate(m_tree));
    m_tree->setAlternatingRowColors(true);
    Fitting::fitColumns(m_tree);
    m_tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);

    const auto button = [this](const char* name, const QString& text, const QString& tip,
                               const auto& action) {
        auto* made = new QPushButton(text);
        made->setObjectName(QString::fromLatin1(name));
        made->setToolTip(tip);
        connect(made, &QPushButton::clicked, this, action);
        return made;
    };
    auto* row = new QHBoxLayout;
    row->addWidget(m_title);
    row->addWidget(new QLabel(tr("A double click or F2 edits a value.")));
    row->addStretch();
    row->addWidget(button("btnReset", tr("Reset"), tr("Every field takes its reset value"),
                          [this] { forEachField([](Register& field) { field.reset(); }); }));
    row->addWidget(button("btnForget", tr("Forget writes"),
                          tr("Nothing counts as written any more"),
                          [this] { forEachField([](Register& f) { f.resetWasWritten(); }); }));
    row->addWidget(button("btnOpen", tr("Open..."), tr("The description of another chip"), [this] {
        const QString file = QFileDialog::getOpenFileName(this, tr("Open a chip description"),
                                                          QString(), tr("Chips (*.json)"));
        if (!file.isEmpty() && open(file))
            AppSettings().setValue(fileKey, file);
    }));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(m_tree, 1);
    layout->addWidget(m_error);

    connect(m_tree, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (!m_isFilling)
            edit(item, column);
    });
    const QString last = AppSettings().value(fileKey, QString()).toString();
    if (last.isEmpty() || !open(last)) {
        const QString complaint = m_error->text();
        open(QCoreApplication::applicationDirPath() + ownChip);
        if (!complaint.isEmpty())
            complain(complaint); // the chip that the user chose is missing, not ours
    }
}

RegistersPage::~RegistersPage() = default;

bool RegistersPage::open(const QString& file)
{
    QFile text(file);
    if (!text.open(QIODevice::ReadOnly)) {
        complain(tr("%1: %2").arg(file, text.errorString()));
        return false;
    }
    ChipDescription::Problem problem;
    auto chip = ChipDescription::read(text.readAll(), &problem);
    if (!chip) {
        complain(tr("%1, line %2: %3").arg(file).arg(problem.line).arg(problem.reason));
        return false;
    }
    complain(QString());
    m_tree->clear(); // before the registers that it shows go
    m_chip = std::move(chip);
    m_title->setText(QStringLiteral("<b>%1</b>").arg(m_chip->chip().toHtmlEscaped()));
    fill();
    return true;
}

void RegistersPage::fill()
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    for (const auto& set : m_chip->registers()) {
        auto* item = new QTreeWidgetItem(m_tree);
        item->setText(TitleColumn,
                      QStringLiteral("%1  %2").arg(hexText(set->getOffset(), 8), set->getTitle()));
        addRow(item, set.get());
        QList<Register*> fields = set->getFractions();
        std::sort(fields.begin(), fields.end(), [](const Register* a, const Register* b) {
            return a->getOffset() > b->getOffset(); // as the bits are written
        });
        for (Register* field : qAsConst(fields)) {
            auto* row = new QTreeWidgetItem(item);
            const int last = field->getOffset() + field->getWidth() - 1;
            const QString bits = field->getWidth() == 1
                                     ? QString::number(last)
                                     : QStringLiteral("%1..%2").arg(last).arg(field->getOffset());
            row->setText(TitleColumn, QStringLiteral("%1  [%2]").arg(field->getTitle(), bits));
            addRow(row, field);
        }
    }
    m_tree->expandAll();
    showAll();
}

void RegistersPage::addRow(QTreeWidgetItem* item, Register* field)
{
    item->setData(TitleColumn, Qt::UserRole, QVariant::fromValue(static_cast<void*>(field)));
    if (field->getAccess() & WriteAccess)
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setText(AccessColumn, field->getAccessString().trimmed());
    QString note = field->getDescription();
    const QString unit = m_chip->unit(field);
    if (!unit.isEmpty())
        note = note.isEmpty() ? unit : QStringLiteral("%1 (%2)").arg(note, unit);
    item->setText(NoteColumn, note);
    item->setToolTip(PhysicalColumn, tr("%1..%2").arg(numberText(field->getMin(), *field),
                                                      numberText(field->getMax(), *field)));
    for (Column column : {RawColumn, PhysicalColumn, BitsColumn})
        item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

void RegistersPage::show(QTreeWidgetItem* item)
{
    Register* field = fieldOf(item);
    const RegisterSet* set = setOf(item);
    const Raw raw =
        (set ? static_cast<Raw>(*set) : static_cast<Raw>(*field)) & maskOf(field->getWidth());
    item->setText(RawColumn, hexText(raw, field->getWidth()));
    item->setText(BitsColumn, bitText(raw, field->getWidth()));
    item->setText(PhysicalColumn,
                  set ? QString() : numberText(static_cast<double>(*field), *field));
    QFont font; // all but the weight comes from the tree
    font.setBold(!set && field->wasWritten());
    for (Column column : {RawColumn, PhysicalColumn, BitsColumn})
        item->setFont(column, font);
}

void RegistersPage::showAll()
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it)
        show(*it);
}

void RegistersPage::edit(QTreeWidgetItem* item, int column)
{
    complain(write(item, column, item->text(column)));
    showAll(); // a field is part of its register
}

/// \return why not; empty when it was written
QString RegistersPage::write(const QTreeWidgetItem* item, int column, const QString& text)
{
    Register* field = fieldOf(item);
    RegisterSet* set = setOf(item);
    if (column == PhysicalColumn && !set) {
        bool ok = false;
        const double value = text.trimmed().toDouble(&ok);
        if (!ok)
            return tr("%1: \"%2\" is no number").arg(field->getTitle(), text);
        return field->setValue(value) ? QString() : refusal(*field, text);
    }
    Raw raw = 0;
    if (column == PhysicalColumn || !readRaw(text, column, &raw))
        return tr("%1: \"%2\" is no raw value").arg(field->getTitle(), text);
    if (raw > maskOf(field->getWidth()))
        return tr("%1: \"%2\" is wider than %3 bits")
            .arg(field->getTitle(), text)
            .arg(field->getWidth());
    if (set)
        return set->setValue(raw) ? QString() : refusal(*set, raw);
    return field->setValue(raw) ? QString() : refusal(*field, text);
}

QString RegistersPage::refusal(const Register& field, const QString& entered) const
{
    return tr("%1 does not take %2 (range %3..%4; single values may be forbidden)")
        .arg(field.getTitle(), entered, numberText(field.getMin(), field),
             numberText(field.getMax(), field));
}

/// Names the first field that does not take its bits.
QString RegistersPage::refusal(const RegisterSet& set, quint64 raw) const
{
    const QList<Register*> fields = set.getFractions();
    for (const Register* field : fields) {
        const Raw bits = raw >> field->getOffset() & maskOf(field->getWidth());
        if (field->checkValue(bits))
            continue;
        if (!(field->getAccess() & WriteAccess))
            return tr("%1 cannot be written as a whole: \"%2\" is read only")
                .arg(set.getTitle(), field->getTitle());
        return tr("%1: ").arg(set.getTitle()) + refusal(*field, hexText(bits, field->getWidth()));
    }
    return QString();
}

void RegistersPage::complain(const QString& text) { m_error->setText(text); }

void RegistersPage::forEachField(const std::function<void(Register&)>& action)
{
    if (!m_chip)
        return;
    for (const auto& set : m_chip->registers()) {
        const QList<Register*> fields = set->getFractions();
        for (Register* field : fields)
            action(*field);
    }
    complain(QString());
    showAll();
}
