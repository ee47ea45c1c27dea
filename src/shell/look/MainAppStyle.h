#ifndef MAINAPPSTYLE_H
#define MAINAPPSTYLE_H

#include "AXRGuiExport.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QPalette>
#include <QString>
#include <QWidget>

#include <memory>

class FontSizeButtons;

/// Switches the whole application between the desktop's own look and the dark blue one, offers four
/// font sizes for one window, and keeps the icons in the text's colour.
///
/// A host creates one, usually on its main window, which becomes the target: the window that gets
/// the font size. Without a parent, or once that parent is gone, the object styles itself. It shows
/// nothing and stays hidden. What the application had when it was made comes back when it dies; a
/// switch to "off" goes back to what was there at the first switch of the process, with an empty
/// sheet in the place of the host's. GUI thread only. It may be deleted inside any of its signals.
/// Inside the change events of widgets (style, palette, font) that a switch or a click sends, and
/// when a tool bar tells its icon size, Qt is on its way through the widgets: what is to end there
/// takes deleteLater(), and the look cannot be switched from a change of the palette.
class AXRGUI_EXPORT MainAppStyle : public QWidget
{
    Q_OBJECT
public:
    explicit MainAppStyle(QWidget* parent = nullptr);
    /// Gives the application its style, palette, sheet and font back, and removes all application
    /// fonts, the host's too.
    ~MainAppStyle() override;

    /// \param extraSheet stands behind the sheet, so that its rules win; with `on` false it is the
    /// whole application sheet
    /// \param background of windows; when it is invalid, the base style's own
    /// \return what setMainStyleSheet() returns
    QString setMainStyle(bool on, const QString& extraSheet = QString(),
                         const QColor& background = QColor(0x00, 0x4D, 0xB9));

    /// Gives the widget the sheet that a window has under the style. Null is ignored.
    /// \return "qml/"
    QString setMainStyleSheet(QWidget* widget);

    /// Sets the base style "cleanlooks", the palette and the sheet for good: nothing is remembered.
    /// Where the style plugin is missing, the present style stays as base.
    /// \param flags without effect
    static void SetAppStyle(const QString& extraSheet, const QColor& background,
                            Qt::WindowFlags flags = Qt::WindowFlags());

    /// The rules of scroll bars: tracks in the palette's Base, handles in its WindowText.
    /// \param hideArrows of vertical bars; horizontal ones always have them
    static QString scrollBarStyleSheet(const QPalette& palette, bool hideArrows);

    /// Finishes the widgets of a form: status tips from tool tips, spin boxes that tell their value
    /// when the entry is over, right-aligned combo boxes where "dpCbRight" is set. To be called
    /// once for a combo box, as each call puts two blanks in front of its items. Nulls are skipped.
    static void additionalWidgetSetting(const QList<QWidget*>& widgets);

    /// Registers the fonts of ":/Fonts", after all others were removed, and sets the application's
    /// font at 8 points. A resource that is missing is the application's first font instead.
    /// \param sorvanelFont the display font; else the light text font or the first font
    /// \param variant italic with the display font, light without; false: as it is
    static void installSorvanelFont(bool sorvanelFont, bool variant);

    /// Builds the row of four font-size buttons and applies the stored size. To be called at most
    /// once: a second row would take over from the first one.
    ///
    /// Each size change names the buttons of the target's tool bars "iconBtn", or "noIconBtn" where
    /// there is neither icon nor name, whatever an icon's button was called before; only names with
    /// "qt_" stay. Find such a button by its action, not by its name. The size last laid on and the
    /// tool bars' icon size before it are kept once for the process: use this in one window at a
    /// time.
    /// \return the row, owned by `parent`; the host places it
    QWidget* setFontSize(QWidget* parent);

    /// Replaces all icons and pixmaps below `widget` by pictures in the application palette's text
    /// colour, as it is now, and fits the icons of buttons to the height of the widget's font, but
    /// for those with "dpIgnIcon". Checked buttons take the colour of `ColorMap/CheckedButton`, an
    /// action's icon one colour for all states. Own colours of an icon are lost for good, and what
    /// is added later waits for the next call; so do the items below those of a tree's top level.
    /// Icons that scale become pictures of 128 x 128 (buttons, see
    /// BasicTools::setButtonIconsColor()), 200 x 200 (actions), 20 x 20 pixels (trees, tabs).
    /// Null is ignored.
    static void setIconsToTextColor(QWidget* widget);

Q_SIGNALS:
    /// The switch changed the colour of texts.
    void textColorChanged(const QColor& newColor, const QColor& oldColor);
    /// The size sheet that the target has got; "Style end" when this object dies.
    void fontSizeChanged(const QString& sheet);

public Q_SLOTS:
    /// Lays the style sheet of the sender, a font-size button, on the target, fits its tool bars
    /// and icons, and stores the choice. Called without sender it does all but the first.
    void setFontSizeStyle();

private:
    QWidget* target();

    QWidget* m_target;
    std::unique_ptr<FontSizeButtons> m_sizeButtons;
    QString m_savedStyleSheet;
    QString m_savedStyleName;
    QPalette m_savedPalette;
    QFont m_savedFont;
};

#endif
