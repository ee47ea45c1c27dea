// The steps of the tour that change the look of the workbench.

#include "ScreenPicture.h"
#include "Tour.h"
#include "TourInput.h"
#include "Workbench.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

#include <cmath>

using namespace TourInput;

namespace
{

constexpr double ReadableContrast = 4.5;
constexpr int LookWithin = 10000; // ms of real time

QString styleName()
{
    const QStyle* style = QApplication::style();
    const auto* wrapped = style->findChild<QStyle*>(); // under a sheet
    return (wrapped ? wrapped : style)->objectName();
}

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The largest contrast of a widget's picture to its ground, 1 to 21.
double contrast(QWidget* widget)
{
    const QImage picture = ScreenPicture::of(widget);
    if (picture.isNull())
        return 0;
    const double ground = luminance(picture.pixelColor(picture.width() / 20, picture.height() / 2));
    double largest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double other = luminance(picture.pixelColor(x, y));
            largest = qMax(largest, (qMax(ground, other) + 0.05) / (qMin(ground, other) + 0.05));
        }
    }
    return largest;
}

} // namespace

void Tour::changeLook()
{
    m_guide.showPage(QStringLiteral("motion"));
    auto* theme = m_guide.find<QCheckBox>(&m_bench, "cbTheme");
    const auto sizes = m_bench.findChildren<QToolButton*>(QStringLiteral("sizeBtn"));
    const auto expectLook = [&](const QString& done, const QString& text, const QString& style) {
        const auto seen = [] {
            return QApplication::palette().color(QPalette::Text).name() + QLatin1Char(' ') +
                   styleName();
        };
        const QString expected = text + QLatin1Char(' ') + style;
        const bool ok = processUntil([&] { return seen() == expected; }, LookWithin);
        m_guide.check(done, expected, seen(), ok);
        auto* strip = m_guide.find<QLabel>(&m_bench, "lblLinkState");
        const double ratio = contrast(strip);
        m_guide.check(done + QStringLiteral(": contrast of the strip that tells of the link"),
                      QStringLiteral("at least %1").arg(ReadableContrast),
                      QString::number(ratio, 'f', 1), ratio >= ReadableContrast);
    };
    if (theme->isChecked())
        click(theme);
    const QString style = styleName();
    const QPalette palette = QApplication::palette();
    const QString sheet = qApp->styleSheet();

    click(theme);
    expectLook(QStringLiteral("dark blue look on"), QStringLiteral("#ffffff"),
               QStringLiteral("cleanlooks"));
    for (QToolButton* size : sizes) {
        click(size);
        const QString pixels = size->styleSheet().section(QLatin1Char(' '), -1).chopped(1);
        const bool ok = processUntil(
            [&] { return QStringLiteral("%1px").arg(m_bench.font().pixelSize()) == pixels; },
            LookWithin);
        m_guide.check(QStringLiteral("font size of the window"), pixels,
                      QStringLiteral("%1px").arg(m_bench.font().pixelSize()), ok);
        m_guide.photograph(QStringLiteral("motion"), QStringLiteral("theme-") + pixels);
    }
    click(sizes.at(1));
    click(theme);
    expectLook(QStringLiteral("dark blue look off"), palette.color(QPalette::Text).name(), style);
    m_guide.check(QStringLiteral("palette and sheet of the application"),
                  QStringLiteral("as before"),
                  QStringLiteral("palette %1, sheet \"%2\"")
                      .arg(QApplication::palette() == palette ? QStringLiteral("as before")
                                                              : QStringLiteral("another"),
                           qApp->styleSheet()),
                  QApplication::palette() == palette && qApp->styleSheet() == sheet);
    m_guide.photograph(QStringLiteral("motion"), QStringLiteral("theme-off"));
}
