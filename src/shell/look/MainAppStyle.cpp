#include "MainAppStyle.h"

#include "AppSettings.h"
#include "BasicTools.h"
#include "CurrentLook_p.h"
#include "Logging.h"
#include "MainStyleSheet_p.h"
#include "MethodName.h"
#include "SharedConstants.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace
{

constexpr int SizeButtonDelay = 1; // ms
constexpr int DefaultSizeButton = 1;
constexpr int ActionSymbol = 200; // px, so that it is sharp at any size
constexpr int SmallSymbol = 20;   // px
const QString sizeButtonKey = QStringLiteral("SizeButtonNr");
constexpr char defaultCheckedColour[] = "#008080";

QString styleName()
{
    const QStyle* style = QApplication::style();
    if (!style->objectName().isEmpty())
        return style->objectName();
    // Under an application sheet it is a nameless wrapper round the real one.
    const auto* wrapped = style->findChild<QStyle*>();
    return wrapped ? wrapped->objectName() : QString();
}

void setBaseStyle(const QString& name)
{
    if (!QApplication::setStyle(name))
        qCDebug(axrShell) << "MainAppStyle: there is no style" << name;
}

/// The roles that the dark blue look leaves to its base style, which in this Qt do not come by
/// themselves with the style.
constexpr QPalette::ColorRole baseStyleRoles[] = {QPalette::Button, QPalette::Midlight,
                                                  QPalette::BrightText, QPalette::AlternateBase};

void setRoles(QPalette& palette, const QColor& colour,
              std::initializer_list<QPalette::ColorRole> roles)
{
    for (const QPalette::ColorRole role : roles)
        palette.setColor(QPalette::All, role, colour);
}

QPalette mainPalette(const QColor& background)
{
    QPalette palette = QApplication::palette();
    const QPalette base = QApplication::style()->standardPalette();
    for (const QPalette::ColorRole role : baseStyleRoles) {
        for (const auto group : {QPalette::Active, QPalette::Disabled, QPalette::Inactive})
            palette.setBrush(group, role, base.brush(group, role));
    }
    setRoles(palette, background.isValid() ? background : base.color(QPalette::Window),
             {QPalette::Window, QPalette::Mid});
    setRoles(palette, Qt::white,
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText});
    setRoles(palette, QColor(0x00, 0x2E, 0x6E),
             {QPalette::Base, QPalette::Highlight, QPalette::ToolTipBase});
    setRoles(palette, QColor(0x3A, 0x5B, 0x78), {QPalette::Light});
    setRoles(palette, QColor(0x9A, 0xA9, 0xB6),
             {QPalette::HighlightedText, QPalette::Dark, QPalette::LinkVisited});
    setRoles(palette, QColor(0x15, 0x25, 0x2F), {QPalette::Shadow});
    setRoles(palette, Qt::cyan, {QPalette::Link});
    setRoles(palette, QColor(255, 255, 255, 128), {QPalette::PlaceholderText}); // half a text
    return palette;
}

/// Calls `finish` for every T below the widget that is still there when its turn comes: what it
/// does may make a host delete some.
template <class T, class Finish>
void forEachBelow(const QWidget* widget, Finish finish)
{
    QVector<QPointer<T>> found;
    for (T* each : widget->findChildren<T*>())
        found << each;
    for (const QPointer<T>& each : qAsConst(found)) {
        if (each)
            finish(each.data());
    }
}

/// What was never shown does not follow the application's palette once its window has a sheet, and
/// would keep that of the other look when it is shown.
void followPalette(const QWidget* window)
{
    forEachBelow<QWidget>(window, [](QWidget* widget) {
        if (!widget->testAttribute(Qt::WA_WState_Polished))
            widget->setPalette(widget->palette());
    });
}

QString firstFamily(int fontId, const QFont& otherwise)
{
    const QStringList families = QFontDatabase::applicationFontFamilies(fontId);
    return families.isEmpty() ? otherwise.family() : families.constFirst();
}

int widest(const QFontMetrics& metrics, const QStringList& texts)
{
    int width = 0;
    for (const QString& text : texts)
        width = qMax(width, metrics.horizontalAdvance(text));
    return width;
}

QStringList iconTexts(const QToolBar* bar)
{
    QStringList texts;
    for (const QAction* action : bar->actions())
        texts << action->iconText().split(QLatin1Char('\n'));
    return texts;
}

void addToIconSize(QToolBar* bar, const QString& sizeSheet)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]+"));
    const QRegularExpressionMatch match = digits.match(sizeSheet);
    if (!match.hasMatch())
        return;
    static const QSize baseIconSize = bar->iconSize();
    const int more = match.captured().toInt();
    bar->setIconSize(baseIconSize + QSize(more, more));
}

void nameButtons(const QToolBar* bar)
{
    forEachBelow<QAbstractButton>(bar, [](QAbstractButton* button) {
        if (button->icon().isNull()) {
            if (button->objectName().isEmpty())
                button->setObjectName(QStringLiteral("noIconBtn"));
        } else if (!button->objectName().contains(QLatin1String("qt_"))) {
            button->setObjectName(QStringLiteral("iconBtn"));
        }
    });
}

/// The least sizes of the bar's buttons.
QString toolBarSizes(const QToolBar* bar, const QFontMetrics& metrics)
{
    const int text = widest(metrics, iconTexts(bar));
    const int iconHeight = bar->iconSize().height() + 5;
    if (!bar->isMovable() && !bar->isFloatable())
        return QStringLiteral("QToolButton{min-height: %1px;min-width: %2px}")
            .arg(3 * metrics.height())
            .arg(text + 9);
    if (bar->orientation() == Qt::Vertical)
        return QStringLiteral("QToolButton#noIconBtn{min-height: %1px;}"
                              "QToolButton{min-height: %2px; min-width: %3px}")
            .arg(metrics.height() + 8)
            .arg(iconHeight)
            .arg(qMax(bar->iconSize().width() + 5, text) + 10);
    return QStringLiteral("QToolButton{min-height: %1px}"
                          "QToolButton#iconBtn{min-height: %1px; min-width: %1px}")
        .arg(iconHeight);
}

void store(int sizeButton)
{
    AppSettings settings;
    settings.beginGroup(QLatin1String(MainwindowGroup));
    // Each switch of the look comes here, and a file that is written may take its time.
    if (settings.value(sizeButtonKey, QString()).toString() != QString::number(sizeButton))
        settings.setValue(sizeButtonKey, sizeButton);
}

QPixmap symbol(QPixmap pixmap, const QColor& colour)
{
    BasicTools::setSymbolColor(&pixmap, colour, true, QColor());
    return pixmap;
}

QIcon symbol(const QIcon& icon, int size, const QColor& colour)
{
    return QIcon(symbol(icon.pixmap(QSize(size, size), QIcon::Normal, QIcon::Off), colour));
}

void recolourButtons(QWidget* widget, const QPalette& palette)
{
    const QColor checked(AppSettings()
                             .value(QLatin1String(ColorMapCheckedButtonKey),
                                    QString::fromLatin1(defaultCheckedColour))
                             .toString());
    const int side = widget->fontMetrics().height() + 1;
    forEachBelow<QAbstractButton>(widget, [&](QAbstractButton* button) {
        BasicTools::setButtonIconsColor(button, palette.color(QPalette::Text),
                                        palette.color(QPalette::Button).darker(200), checked);
        if (!button->property(DpIgnIcon).toBool())
            button->setIconSize(QSize(side, side));
    });
}

void recolourTree(QTreeWidget* tree, const QColor& colour)
{
    const QSignalBlocker blocker(tree);
    // Each of them: the wildcard "*" of this Qt does not match a text with a "/".
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = tree->topLevelItem(i);
        if (!item->icon(0).isNull())
            item->setIcon(0, symbol(item->icon(0), SmallSymbol, colour));
    }
}

void recolourTabs(QTabWidget* tabs, const QColor& colour)
{
    for (int i = 0; i < tabs->count(); ++i) {
        if (!tabs->tabIcon(i).isNull())
            tabs->setTabIcon(i, symbol(tabs->tabIcon(i), SmallSymbol, colour));
    }
}

void alignRight(QComboBox* box)
{
    if (!box->isEditable()) {
        box->setEditable(true);
        box->lineEdit()->setAlignment(Qt::AlignRight);
        box->lineEdit()->setReadOnly(true);
    }
    const bool items = box->property(DpCbRight).toBool();
    for (int i = 0; i < box->count(); ++i) {
        box->setItemText(i, QStringLiteral("  ") + box->itemText(i));
        if (items)
            box->setItemData(i, static_cast<int>(Qt::AlignRight), Qt::TextAlignmentRole);
    }
}

} // namespace

MainAppStyle::MainAppStyle(QWidget* parent)
    : QWidget(parent)
    , m_target(parent)
    , m_savedStyleSheet(qApp->styleSheet())
    , m_savedStyleName(styleName())
    , m_savedPalette(QApplication::palette())
    , m_savedFont(QApplication::font())
{
    hide(); // or it would lie over the window's corner and take its clicks
    // A parent that dies first still takes part in the switch that this object's end is.
    if (parent)
        connect(parent, &QObject::destroyed, this, [this] { m_target = nullptr; });
}

MainAppStyle::~MainAppStyle()
{
    qCDebug(axrShell) << AXR_METHOD.constData();
    if (!qApp)
        return;
    m_sizeButtons.reset(); // nothing is clicked any more
    setMainStyle(false, QString(), QColor(0x00, 0x4D, 0xB9));
    setBaseStyle(m_savedStyleName);
    QFontDatabase::removeAllApplicationFonts();
    qApp->setStyleSheet(m_savedStyleSheet);
    QApplication::setPalette(m_savedPalette);
    QApplication::setFont(m_savedFont);
    emit fontSizeChanged(QStringLiteral("Style end"));
}

QWidget* MainAppStyle::target()
{
    if (!m_target)
        m_target = this;
    return m_target;
}

QString MainAppStyle::setMainStyle(bool on, const QString& extraSheet, const QColor& background)
{
    static const QPalette offPalette = QApplication::palette();
    static const QString offSheet;
    static const QString offStyle = styleName();

    const QPointer<MainAppStyle> self(this); // a host may end it in any of what follows
    const QColor before = QApplication::palette().color(QPalette::Text);
    const QString result = setMainStyleSheet(target());
    // With a sheet on the window, a new base style would polish all that is in it once for each
    // widget in it; so the sheet is off meanwhile.
    QString sheet = windowFontSheet();
    if (self) {
        if (on)
            sheet = target()->styleSheet();
        currentLook().windowBetweenLooks = target()->window();
        target()->setStyleSheet(QString());
    }
    const auto isDressed = qScopeGuard([] { currentLook().windowBetweenLooks = nullptr; });
    if (!self)
        return result; // its end gave the application its own look back
    if (on) {
        SetAppStyle(extraSheet, background);
    } else {
        qApp->setStyleSheet(QString());
        QApplication::setPalette(offPalette);
        setBaseStyle(offStyle);
        qApp->setStyleSheet(offSheet + extraSheet);
    }
    if (self)
        target()->setStyleSheet(sheet);
    currentLook().windowBetweenLooks = nullptr; // before a host hears of the end
    const QColor now = QApplication::palette().color(QPalette::Text);
    if (self)
        followPalette(target());
    if (self)
        clickSizeButtonSoon();
    if (self && now != before)
        emit textColorChanged(now, before);
    qCDebug(axrShell) << AXR_METHOD.constData() << result << now << styleName();
    return result;
}

void MainAppStyle::clickSizeButtonSoon()
{
    if (!m_sizeButtons)
        return;
    // The group ends with this object, and a button that dies leaves it.
    QButtonGroup* buttons = m_sizeButtons.get();
    QTimer::singleShot(SizeButtonDelay, buttons, [buttons] {
        if (QAbstractButton* checked = buttons->checkedButton())
            checked->click();
    });
}

QString MainAppStyle::setMainStyleSheet(QWidget* widget)
{
    qCDebug(axrShell) << AXR_METHOD.constData() << widget;
    if (widget) {
        // What is below a window that was not polished yet would not hear of its next sheet.
        widget->ensurePolished();
        widget->setStyleSheet(windowSheet());
    }
    return QStringLiteral("qml/");
}

void MainAppStyle::SetAppStyle(const QString& extraSheet, const QColor& background,
                               Qt::WindowFlags flags)
{
    Q_UNUSED(flags)
    qApp->setStyleSheet(QString()); // or all is polished once more, under the old rules
    setBaseStyle(QStringLiteral("cleanlooks"));
    const QPalette palette = mainPalette(background);
    QApplication::setPalette(palette);
    currentLook().darkBlueSheet = mainStyleSheet(scrollBarStyleSheet(palette, false));
    qApp->setStyleSheet(currentLook().darkBlueSheet + extraSheet);
}

QString MainAppStyle::scrollBarStyleSheet(const QPalette& palette, bool hideArrows)
{
    return scrollBarSheet(palette.color(QPalette::Base), palette.color(QPalette::WindowText),
                          hideArrows);
}

void MainAppStyle::additionalWidgetSetting(const QList<QWidget*>& widgets)
{
    for (QWidget* widget : widgets) {
        if (!widget)
            continue;
        if (widget->statusTip().isEmpty() &&
            !widget->toolTip().startsWith(QLatin1String("<table>")))
            widget->setStatusTip(widget->toolTip());
        auto* number = qobject_cast<QAbstractSpinBox*>(widget);
        if (number && number->objectName() != QLatin1String("resultSpinBox")) {
            number->setKeyboardTracking(false);
            number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
        auto* choice = qobject_cast<QComboBox*>(widget);
        if (choice && choice->dynamicPropertyNames().contains(DpCbRight))
            alignRight(choice);
    }
}

void MainAppStyle::installSorvanelFont(bool sorvanelFont, bool variant)
{
    static const QFont defaultFont = QApplication::font();
    constexpr const char* files[] = {":/Fonts/SorvanelFont",   ":/Fonts/SorvanelFontItalic",
                                     ":/Fonts/OpenFont",       ":/Fonts/OpenFontLight",
                                     ":/Fonts/OpenFontItalic", ":/Fonts/OpenFontBold"};
    constexpr int Sorvanel = 0;
    constexpr int OpenLight = 3;

    QFontDatabase::removeAllApplicationFonts();
    QVector<int> ids;
    for (const char* file : files) {
        ids << QFontDatabase::addApplicationFont(QString::fromLatin1(file));
        qCDebug(axrShell) << AXR_METHOD.constData() << ids.constLast()
                          << QFontDatabase::applicationFontFamilies(ids.constLast());
    }
    QFont font = defaultFont;
    if (sorvanelFont) {
        font = QFont(firstFamily(ids.at(Sorvanel), defaultFont));
        font.setStyle(variant ? QFont::StyleItalic : QFont::StyleNormal);
    } else if (variant) {
        font = QFont(firstFamily(ids.at(OpenLight), defaultFont));
    }
    font.setPointSizeF(8.0);
    font.setStyleStrategy(QFont::PreferAntialias);
    QApplication::setFont(font);
    qCDebug(axrShell) << AXR_METHOD.constData() << sorvanelFont << variant
                      << QApplication::font().family() << QApplication::font().weight()
                      << defaultFont;
}

QWidget* MainAppStyle::setFontSize(QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setStyleSheet(sizeButtonsSheet());
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);
    m_sizeButtons = std::make_unique<QButtonGroup>();
    for (const int size : {8, 12, 16, 20}) {
        auto* button = new QToolButton(frame);
        button->setStyleSheet(QStringLiteral("QWidget {font-size: %1px}").arg(size));
        button->setText(QStringLiteral("A"));
        button->setAccessibleName(tr("Font size %1").arg(size));
        button->setCheckable(true);
        button->setObjectName(QStringLiteral("sizeBtn"));
        connect(button, &QToolButton::clicked, this, &MainAppStyle::setFontSizeStyle);
        m_sizeButtons->addButton(button, m_sizeButtons->buttons().size());
        row->addWidget(button);
    }
    AppSettings settings;
    settings.beginGroup(QLatin1String(MainwindowGroup));
    const int stored = settings.value(sizeButtonKey, DefaultSizeButton).toInt();
    const QPointer<MainAppStyle> self(this);
    const QPointer<QWidget> made(frame);
    m_sizeButtons->button(qBound(0, stored, m_sizeButtons->buttons().size() - 1))->click();
    if (self)
        setObjectName(QStringLiteral("setFontSize"));
    return made;
}

void MainAppStyle::setFontSizeStyle()
{
    const QPointer<MainAppStyle> self(this); // a host may end it while its window changes
    QString sheet;
    if (const auto* button = qobject_cast<QWidget*>(sender())) {
        sheet = button->styleSheet();
        static QString lastSizeSheet = sheet;
        QString rest = target()->styleSheet();
        if (!lastSizeSheet.isEmpty())
            rest.remove(lastSizeSheet);
        lastSizeSheet = sheet;
        target()->setStyleSheet(rest + sheet);
        if (!self)
            return;
    }
    ensurePolished(); // hidden, it would not have the new font yet
    const QFontMetrics metrics = fontMetrics();
    forEachBelow<QToolBar>(target(), [&](QToolBar* bar) {
        const QPointer<QToolBar> alive(bar);
        addToIconSize(bar, sheet);
        nameButtons(bar);
        if (alive)
            bar->setStyleSheet(toolBarSheet() + toolBarSizes(bar, metrics));
    });
    if (!self)
        return;
    if (m_sizeButtons)
        store(m_sizeButtons->checkedId());
    setIconsToTextColor(target());
    if (self && !sheet.isEmpty())
        emit fontSizeChanged(sheet);
}

void MainAppStyle::setIconsToTextColor(QWidget* widget)
{
    const QPointer<QWidget> root(widget); // a host may end it when an icon changes
    const QPalette palette = QApplication::palette();
    const QColor text = palette.color(QPalette::Text);
    if (root) {
        root->ensurePolished();
        recolourButtons(root, palette);
    }
    if (root)
        forEachBelow<QAction>(root, [&](QAction* action) {
            if (!action->icon().isNull())
                action->setIcon(symbol(action->icon(), ActionSymbol, text));
        });
    if (root)
        forEachBelow<QLabel>(root, [&](QLabel* label) {
            const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
            if (!pixmap.isNull())
                label->setPixmap(symbol(pixmap, text));
        });
    if (root)
        forEachBelow<QTreeWidget>(root, [&](QTreeWidget* tree) { recolourTree(tree, text); });
    if (root)
        forEachBelow<QTabWidget>(root, [&](QTabWidget* tabs) { recolourTabs(tabs, text); });
}
