#ifndef COLORPICKER_H
#define COLORPICKER_H

#include "AXRGuiExport.h"

#include <QColor>
#include <QList>
#include <QPushButton>

class ColorPickerPopup;

/// A push button that shows a colour and opens a grid of colours to choose from. Black and with an
/// empty grid at the start. The button's text is the colour's name; it is not drawn.
///
/// With the dialog, the grid's last cell asks for any other colour, which is opaque. One that is
/// new becomes current and stays in the grid for good: such custom colours live in AppSettings,
/// under numbered names ("Custom 01"), and are brought back by setStandardColors(). One that has a
/// cell already, or is the Base colour, changes nothing.
///
/// A right click on a cell whose name begins with "Custom" asks for another colour for it, which is
/// stored under the cell's name, with and without the dialog's cell; the current colour stays and
/// nothing is emitted. So a cell that setCurrentColor() added is stored once it is changed, and of
/// several with its one name, "Custom", only the last.
///
/// Colours that differ in alpha alone are different, and are shown blended with the ground.
///
/// Inside toggled() it must not be deleted, as no checkable button may; use deleteLater() there.
class AXRGUI_EXPORT ColorPicker : public QPushButton
{
    Q_OBJECT
public:
    /// \param columns of the grid; -1: its width follows the number of colours
    explicit ColorPicker(QWidget* parent = nullptr, int columns = -1,
                         bool enableColorDialog = true);
    ~ColorPicker() override;

    QColor currentColor() const { return m_color; }

    /// Invalid if the grid has no such cell.
    QColor color(int index) const;
    /// The grid's colours row by row.
    QList<QColor> colorList() const;

    /// Adds a cell to the grid. A colour that has a cell already adds none. The Base colour of the
    /// palette at that moment is ignored, since it could not be told from the ground; cells stay
    /// when the palette changes. An invalid colour gets an empty cell. Without the dialog a valid
    /// colour that has a cell then also becomes the current one, with `text` as the caption;
    /// colorChanged() is not emitted.
    /// \param text name and tool tip of the cell
    /// \param index -1 or beyond the end: behind the others
    void insertColor(const QColor& color, const QString& text = QString(), int index = -1);

    /// Adds the 20 standard colours, then the custom ones of the settings store in their order.
    /// With a white Base colour there are 19, for then white is ignored.
    void setStandardColors();

    /// Whether new colours come from a dialog, so that insertColor() leaves the current one. The
    /// grid's last cell is there or not as the constructor was told.
    void setColorDialogEnabled(bool enabled) { m_withColorDialog = enabled; }
    bool colorDialogEnabled() const { return m_withColorDialog; }

    /// Opens the grid below the button and waits until it closes. While it waits, another call
    /// returns at once with the present colour.
    /// \return the current colour then; invalid when the picker was destroyed meanwhile
    QColor exec();

    /// Lets the user choose without a button: shows a popup with two greys at `position` on the
    /// screen and waits until it closes.
    /// \param allowCustomColors adds the cell that opens the dialog
    /// \return invalid if nothing was chosen
    static QColor getColor(const QPoint& position, bool allowCustomColors = true);

public Q_SLOTS:
    /// Also adds a cell "Custom" for a colour that has none, which is not stored, closes the grid
    /// and emits colorChanged(). The Base colour gets no cell, but becomes current. The present
    /// colour and an invalid one are ignored.
    void setCurrentColor(const QColor& color);

    /// Opens the grid below the button. Connected to toggled(); false does nothing.
    void buttonPressed(bool checked);
    /// Unchecks the button. Connected to the grid's closing.
    void popupClosed();

Q_SIGNALS:
    /// In RGB.
    void colorChanged(const QColor&);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint popupPosition();
    void setCaption(const QString& text);

    ColorPickerPopup* m_popup;
    QColor m_color;
    bool m_withColorDialog;
};

#endif
