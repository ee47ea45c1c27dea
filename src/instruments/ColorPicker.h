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
/// With the dialog, the grid's last cell asks for any other colour, which then stays in the grid
/// for good: such custom colours live in AppSettings, are brought back by setStandardColors(), and
/// can be changed by a right click on their cell.
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

    /// Adds a cell to the grid. A colour that has a cell already adds none. The palette's Base
    /// colour is ignored, since it could not be told from the ground. Without the dialog a valid
    /// colour also becomes the current one, with `text` as the caption; colorChanged() is not
    /// emitted.
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
    /// Also adds a cell "Custom" for a colour that has none, closes the grid and emits
    /// colorChanged(). The present colour and an invalid one are ignored.
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
