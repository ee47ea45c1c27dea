#include "ColorPicker.h"

#include "AppSettings.h"
#include "ColorPickerItem_p.h"
#include "ColorPickerPopup_p.h"
#include "ColorRim_p.h"
#include "ColorTone_p.h"
#include "Prefix.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QScreen>

namespace
{

constexpr int Border = 2;

const struct {
    const char* name;
    QColor color;
} standardColors[] = {
    {QT_TRANSLATE_NOOP("ColorPicker", "Red"), Qt::red},
    {QT_TRANSLATE_NOOP("ColorPicker", "Green"), Qt::green},
    {QT_TRANSLATE_NOOP("ColorPicker", "Blue"), Qt::blue},
    {QT_TRANSLATE_NOOP("ColorPicker", "Cyan"), Qt::cyan},
    {QT_TRANSLATE_NOOP("ColorPicker", "Magenta"), Qt::magenta},
    {QT_TRANSLATE_NOOP("ColorPicker", "Yellow"), Qt::yellow},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark red"), Qt::darkRed},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark green"), Qt::darkGreen},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark blue"), Qt::darkBlue},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark cyan"), Qt::darkCyan},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark magenta"), Qt::darkMagenta},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark yellow"), Qt::darkYellow},
    {QT_TRANSLATE_NOOP("ColorPicker", "Tomato"), QStringLiteral("tomato")},
    {QT_TRANSLATE_NOOP("ColorPicker", "Light green"), QStringLiteral("lightgreen")},
    {QT_TRANSLATE_NOOP("ColorPicker", "Light skyblue"), QStringLiteral("lightskyblue")},
    {QT_TRANSLATE_NOOP("ColorPicker", "Black"), Qt::black},
    {QT_TRANSLATE_NOOP("ColorPicker", "White"), Qt::white},
    {QT_TRANSLATE_NOOP("ColorPicker", "Gray"), Qt::gray},
    {QT_TRANSLATE_NOOP("ColorPicker", "Dark gray"), Qt::darkGray},
    {QT_TRANSLATE_NOOP("ColorPicker", "Light gray"), Qt::lightGray},
};

QPoint movedInside(const QRect& desktop, QPoint position, QSize size)
{
    const QPoint last = desktop.bottomRight() - QPoint(size.width() - 1, size.height() - 1);
    return QPoint(qMax(desktop.left(), qMin(position.x(), last.x())),
                  qMax(desktop.top(), qMin(position.y(), last.y())));
}

} // namespace

ColorPicker::ColorPicker(QWidget* parent, int columns, bool enableColorDialog)
    : QPushButton(parent)
    , m_popup(new ColorPickerPopup(columns, enableColorDialog, this))
    , m_color(Qt::black)
    , m_withColorDialog(enableColorDialog)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    setAutoDefault(false);
    setAutoFillBackground(true);
    setCheckable(true);
    setCaption(tr("Black"));
    connect(m_popup, &ColorPickerPopup::selected, this, &ColorPicker::setCurrentColor);
    connect(m_popup, &ColorPickerPopup::hid, this, &ColorPicker::popupClosed);
    connect(this, &ColorPicker::toggled, this, &ColorPicker::buttonPressed);
}

ColorPicker::~ColorPicker() = default;

QColor ColorPicker::color(int index) const
{
    const ColorPickerItem* item = m_popup->items().value(index);
    return item ? item->color() : QColor();
}

QList<QColor> ColorPicker::colorList() const
{
    QList<QColor> colors;
    for (const ColorPickerItem* item : m_popup->items())
        colors << item->color();
    return colors;
}

void ColorPicker::insertColor(const QColor& color, const QString& text, int index)
{
    m_popup->insertColor(color, text, index);
    if (m_withColorDialog || !color.isValid() || !m_popup->find(color))
        return;
    m_color = color.toRgb();
    setCaption(text);
    update();
}

void ColorPicker::setStandardColors()
{
    QMap<QString, QVariant> colors;
    int index = 0;
    for (const auto& standard : standardColors)
        colors.insert(Prefix::add(tr(standard.name), index++), standard.color);
    // Whatever places the store gives them, custom colours follow the standard ones.
    const QMap<QString, QVariant> stored =
        AppSettings().getColorCustomMap(QStringLiteral("Default"));
    for (auto custom = stored.begin(); custom != stored.end(); ++custom)
        colors.insert(Prefix::add(Prefix::x(custom.key()), index++), custom.value());
    for (auto entry = colors.begin(); entry != colors.end(); ++entry)
        insertColor(entry.value().value<QColor>(), Prefix::x(entry.key()), -1);
}

QColor ColorPicker::getColor(const QPoint& position, bool allowCustomColors)
{
    const QPointer<ColorPickerPopup> popup(new ColorPickerPopup(-1, allowCustomColors));
    popup->insertColor(Qt::darkGray, tr("Dark gray"), 15);
    popup->insertColor(Qt::lightGray, tr("Light gray"), 16);
    const QColor chosen = popup->getColor(position);
    delete popup;
    return chosen;
}

void ColorPicker::setCurrentColor(const QColor& color)
{
    if (!color.isValid() || isSameColor(color, m_color))
        return;
    const QColor chosen = color.toRgb();
    if (!m_popup->find(chosen))
        insertColor(chosen, tr("Custom"), -1);
    m_color = chosen;
    const ColorPickerItem* item = m_popup->find(chosen);
    setCaption(item ? item->text() : tr("Custom")); // the Base colour has no cell
    const QPointer<ColorPicker> self(this);
    m_popup->hide();
    if (!self || m_color != chosen)
        return; // a host that hears the button rise chose something else
    repaint();
    emit colorChanged(chosen);
}

void ColorPicker::buttonPressed(bool checked)
{
    if (!checked)
        return;
    m_popup->move(popupPosition());
    m_popup->mark(m_popup->find(m_color));
    m_popup->setFocus();
    m_popup->show();
}

void ColorPicker::setCaption(const QString& text)
{
    setText(text);
    setAccessibleDescription(text); // also where the host gives the button a name of its own
}

QColor ColorPicker::exec()
{
    const QPointer<ColorPicker> self(this);
    m_popup->mark(m_popup->find(m_color));
    m_popup->getColor(popupPosition());
    return self ? m_color : QColor();
}

/// Below the button, but on its screen.
QPoint ColorPicker::popupPosition()
{
    const QScreen* screen = QGuiApplication::screenAt(mapToGlobal(rect().center()));
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    m_popup->adjustSize();
    return movedInside(screen->availableGeometry(), mapToGlobal(rect().bottomLeft()),
                       m_popup->size());
}

void ColorPicker::popupClosed()
{
    const QPointer<ColorPicker> self(this);
    setChecked(false);
    if (self)
        setFocus();
}

void ColorPicker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().button());
    painter.setPen(palette().color(QPalette::Base));
    painter.setBrush(m_color);
    painter.drawRect(QRect(QPoint(Border, Border), size() - 2 * QSize(Border, Border)));
    drawRim(painter, *this, palette().color(QPalette::Button));
}
