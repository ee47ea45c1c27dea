#include "ColorPickerPopup_p.h"

#include "AppSettings.h"
#include "BasicTools.h"
#include "ColorDialog.h"
#include "ColorPickerButton_p.h"
#include "ColorPickerItem_p.h"
#include "ColorTone_p.h"
#include "Logging.h"
#include "MethodName.h"
#include "Numbers.h"
#include "Prefix.h"
#include "SharedConstants.h"

#include <QEventLoop>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPointer>

#include <cmath>
#include <limits>

namespace
{

const QString mapName = QStringLiteral("Default");
const QString countKey = QString::fromLatin1(ColorMapCountKey);

int storedCount() { return AppSettings().value(countKey, QVariant()).toInt(); }

void storeNewColor(const QString& key, const QColor& color, int count)
{
    AppSettings settings;
    QMap<QString, QVariant> colors = settings.getColorCustomMap(mapName);
    colors.insert(key, color);
    settings.setValue(countKey, count);
    settings.saveColorCustomMap(colors, mapName);
}

/// Enters the colour in the place of the entries with this text, so that a cell never has two.
/// \param newIndex its place when there is none yet
void storeChangedColor(const QString& text, const QColor& color, int newIndex)
{
    AppSettings settings;
    QMap<QString, QVariant> colors = settings.getColorCustomMap(mapName);
    QString place;
    const QStringList keys = colors.keys();
    for (const QString& key : keys) {
        if (Prefix::x(key) != text)
            continue;
        colors.remove(key);
        if (place.isNull())
            place = key;
    }
    colors.insert(place.isNull() ? Prefix::add(text, newIndex) : place, color);
    settings.setValue(countKey, colors.size());
    settings.saveColorCustomMap(colors, mapName);
}

} // namespace

ColorPickerPopup::ColorPickerPopup(int columns, bool withColorDialog, QWidget* parent)
    : QDialog(parent, Qt::Popup), m_columns(columns)
{
    setAttribute(Qt::WA_WindowPropagation); // its picker's palette decides on the ground
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    setModal(true);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Colours"));
    if (withColorDialog) {
        m_moreButton = new ColorPickerButton(this);
        connect(m_moreButton, &ColorPickerButton::clicked, this,
                &ColorPickerPopup::getColorFromDialog);
    }
    regenerateGrid();
}

ColorPickerPopup::~ColorPickerPopup()
{
    if (m_eventLoop)
        m_eventLoop->exit();
}

bool ColorPickerPopup::insertColor(const QColor& color, const QString& text, int index)
{
    if (isSameColor(color, palette().color(QPalette::Base)) || find(color))
        return false;
    auto* item = new ColorPickerItem(color.toRgb(), text, this);
    item->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(item, &ColorPickerItem::selected, this, [this, item] { select(item); });
    connect(item, &ColorPickerItem::customContextMenuRequested, this, &ColorPickerPopup::cmenu);
    m_items.insert(index < 0 || index > m_items.size() ? m_items.size() : index, item);
    regenerateGrid();
    return true;
}

ColorPickerItem* ColorPickerPopup::find(const QColor& color) const
{
    for (ColorPickerItem* item : m_items) {
        if (isSameColor(item->color(), color))
            return item;
    }
    return nullptr;
}

void ColorPickerPopup::mark(ColorPickerItem* item)
{
    for (ColorPickerItem* each : qAsConst(m_items))
        each->setSelected(each == item);
}

void ColorPickerPopup::regenerateGrid()
{
    delete m_grid;
    m_grid = new QGridLayout(this);
    m_grid->setContentsMargins(1, 1, 1, 1);
    m_grid->setSpacing(0);
    m_widgetAt.clear();

    const int automatic = toInt(std::ceil(std::sqrt(m_items.size())));
    const int columns = qMax(1, m_columns > 0 ? m_columns : automatic);
    int cell = 0;
    const auto place = [&](QWidget* widget) {
        m_grid->addWidget(widget, cell / columns, cell % columns);
        m_widgetAt[cell / columns][cell % columns] = widget;
        ++cell;
    };
    for (ColorPickerItem* item : qAsConst(m_items))
        place(item);
    if (m_moreButton)
        place(m_moreButton);
    if (isVisible())
        adjustSize();
}

QColor ColorPickerPopup::getColor(const QPoint& position)
{
    if (m_eventLoop)
        return QColor(); // somebody waits for it already
    const QPointer<ColorPickerPopup> self(this);
    QEventLoop loop;
    m_eventLoop = &loop;
    move(position);
    show();
    loop.exec();
    if (!self)
        return QColor();
    m_eventLoop = nullptr;
    return m_lastSelected;
}

void ColorPickerPopup::select(ColorPickerItem* item)
{
    mark(item);
    m_lastSelected = item->color();
    const QPointer<ColorPickerPopup> self(this);
    emit selected(item->color());
    if (self)
        hide();
}

/// \return invalid when the user refused, or when this popup has been destroyed meanwhile
QColor ColorPickerPopup::askForColor(const QColor& initial)
{
    // Its parent may die while it is open, so it cannot stand on the stack.
    const QPointer<ColorPickerPopup> self(this);
    const QPointer<ColorDialog> dialog(new ColorDialog(initial, this));
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
    const QColor chosen = accepted ? dialog->color().toRgb() : QColor();
    delete dialog;
    // Without a window manager nobody else hands the keys back to the picker's window.
    if (self && parentWidget() && parentWidget()->isVisible())
        parentWidget()->activateWindow();
    return chosen;
}

void ColorPickerPopup::getColorFromDialog()
{
    const QColor chosen = askForColor(m_lastSelected);
    if (!chosen.isValid())
        return;
    const int count = qBound(0, storedCount(), std::numeric_limits<int>::max() - 1) + 1;
    const QString name = tr("Custom ") + BasicTools::iToInt(count, 2, QString(), '0');
    if (!insertColor(chosen, name, -1))
        return;
    m_lastSelected = chosen;
    const QString key = Prefix::add(name, m_items.size());
    emit selected(chosen); // a host may destroy this in it
    storeNewColor(key, chosen, count);
}

void ColorPickerPopup::cmenu(QPoint)
{
    auto* item = qobject_cast<ColorPickerItem*>(sender());
    if (!item) {
        qCDebug(axrInstruments) << AXR_METHOD.constData() << "not sent by a colour's cell";
        return;
    }
    // A store keeps the names of the language in which it was written.
    const QString text = item->text();
    if (!text.startsWith(QLatin1String("Custom")) && !text.startsWith(tr("Custom")))
        return;
    const QPointer<ColorPickerPopup> self(this);
    const QColor chosen = askForColor(item->color());
    // The ground's colour could not be seen, and one that has a cell would be lost at the next
    // start.
    if (!self || !chosen.isValid() || find(chosen) ||
        isSameColor(chosen, palette().color(QPalette::Base)))
        return;
    item->setColor(chosen, text);
    storeChangedColor(text, chosen, m_items.size());
}

void ColorPickerPopup::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        moveFocus(event->key());
        break;
    case Qt::Key_Escape:
        hide();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (auto* item = qobject_cast<ColorPickerItem*>(focusWidget()))
            select(item);
        else if (m_moreButton && focusWidget() == m_moreButton)
            getColorFromDialog();
        break;
    default:
        QDialog::keyPressEvent(event);
        break;
    }
}

void ColorPickerPopup::moveFocus(int key)
{
    for (auto row = m_widgetAt.cbegin(); row != m_widgetAt.cend(); ++row) {
        for (auto cell = row->cbegin(); cell != row->cend(); ++cell) {
            if (cell.value() != focusWidget())
                continue;
            if (QWidget* next = neighbour(row.key(), cell.key(), key))
                next->setFocus();
            return;
        }
    }
}

/// Where a cursor key leads to from a cell; null: nowhere.
QWidget* ColorPickerPopup::neighbour(int row, int column, int key) const
{
    const QMap<int, QWidget*> above = m_widgetAt.value(row - 1);
    const QMap<int, QWidget*> here = m_widgetAt.value(row);
    const QMap<int, QWidget*> below = m_widgetAt.value(row + 1);
    const auto lastOf = [](const QMap<int, QWidget*>& cells) {
        return cells.isEmpty() ? nullptr : cells.last();
    };
    switch (key) {
    case Qt::Key_Up:
        return row > 0 ? above.value(column) : here.first();
    case Qt::Key_Down:
        return below.value(column, lastOf(below));
    case Qt::Key_Left:
        return column > 0 ? here.value(column - 1) : lastOf(above);
    default:
        return here.value(column + 1, below.value(0));
    }
}

void ColorPickerPopup::mouseReleaseEvent(QMouseEvent* event)
{
    if (!rect().contains(event->pos()))
        hide();
}

void ColorPickerPopup::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    QWidget* first = m_items.isEmpty() ? static_cast<QWidget*>(m_moreButton) : m_items.first();
    for (ColorPickerItem* item : qAsConst(m_items)) {
        if (item->isSelected()) {
            first = item;
            break;
        }
    }
    if (first)
        first->setFocus();
}

void ColorPickerPopup::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (m_eventLoop)
        m_eventLoop->exit();
    setFocus();
    emit hid();
}
