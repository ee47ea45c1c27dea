#include "MainAppStyle.h"

#include "CurrentLook_p.h"
#include "FontSizeButtons_p.h"
#include "ForEachBelow_p.h"
#include "IconColours_p.h"
#include "Logging.h"
#include "MainPalette_p.h"
#include "MainStyleSheet_p.h"
#include "MethodName.h"
#include "SharedConstants.h"
#include "ToolBarFit_p.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QPointer>
#include <QScopeGuard>
#include <QStyle>
#include <QToolBar>

namespace
{

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
    setMainStyle(false);
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
    if (self && m_sizeButtons)
        m_sizeButtons->clickAgainSoon();
    if (self && now != before)
        emit textColorChanged(now, before);
    qCDebug(axrShell) << AXR_METHOD.constData() << result << now << styleName();
    return result;
}

QString MainAppStyle::setMainStyleSheet(QWidget* widget)
{
    qCDebug(axrShell) << AXR_METHOD.constData() << widget;
    if (widget) {
        // What was not polished yet would not hear of the next sheet, and would keep the palette of
        // this one. A window that was polished does not pass it on to what came later.
        widget->ensurePolished();
        forEachBelow<QWidget>(widget, [](QWidget* each) { each->ensurePolished(); });
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
    currentLook().darkBlueStart = mainStyleSheetStart();
    qApp->setStyleSheet(mainStyleSheet(scrollBarStyleSheet(palette, false)) + extraSheet);
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
    m_sizeButtons = std::make_unique<FontSizeButtons>();
    const QPointer<QWidget> row(m_sizeButtons->makeRow(parent));
    for (QAbstractButton* button : m_sizeButtons->buttons())
        connect(button, &QAbstractButton::clicked, this, &MainAppStyle::setFontSizeStyle);
    const QPointer<MainAppStyle> self(this);
    m_sizeButtons->clickStored();
    if (self)
        setObjectName(QStringLiteral("setFontSize"));
    return row;
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
    forEachBelow<QToolBar>(target(), [&](QToolBar* bar) { fitToolBar(bar, sheet, metrics); });
    if (!self)
        return;
    if (m_sizeButtons)
        m_sizeButtons->store();
    setIconsToTextColor(target());
    if (self && !sheet.isEmpty())
        emit fontSizeChanged(sheet);
}

void MainAppStyle::setIconsToTextColor(QWidget* widget) { setIconColours(widget); }
