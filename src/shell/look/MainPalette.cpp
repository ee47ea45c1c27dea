#include "MainPalette_p.h"

#include <QApplication>
#include <QStyle>

namespace
{

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

} // namespace

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
