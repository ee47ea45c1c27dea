#ifndef COLORPICKERPOPUP_P_H
#define COLORPICKERPOPUP_P_H

#include <QColor>
#include <QDialog>
#include <QList>
#include <QMap>

class ColorPickerButton;
class ColorPickerItem;
class QEventLoop;
class QGridLayout;

/// The grid of colours under a picker, with a last cell that opens a dialog for more of them. Each
/// colour has one cell.
///
/// Custom colours are kept in the settings store: chosen in the dialog they get a cell for good,
/// and a right click on their cell changes them.
class ColorPickerPopup : public QDialog
{
    Q_OBJECT
public:
    /// \param columns below 1: a grid about as wide as high
    ColorPickerPopup(int columns, bool withColorDialog, QWidget* parent = nullptr);
    /// Ends a getColor() that still runs.
    ~ColorPickerPopup() override;

    /// Adds a cell. A colour that has one already and the palette's Base colour, which could not be
    /// told from the ground, are ignored.
    /// \param index below 0 or beyond the end: behind the others
    /// \return whether there is a new cell
    bool insertColor(const QColor& color, const QString& text, int index);

    /// Null if no cell has the colour.
    ColorPickerItem* find(const QColor& color) const;
    const QList<ColorPickerItem*>& items() const { return m_items; }
    /// Marks one cell alone; null marks none.
    void mark(ColorPickerItem* item);

    /// Shows the popup and waits until it closes.
    /// \return the colour chosen, invalid if none was
    QColor getColor(const QPoint& position);

public Q_SLOTS:
    /// Asks for a new custom colour.
    void getColorFromDialog();
    /// Asks for another colour for the custom cell that sends this.
    void cmenu(QPoint position);

Q_SIGNALS:
    void selected(const QColor&);
    void hid();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void regenerateGrid();
    void moveFocus(int key);
    QWidget* neighbour(int row, int column, int key) const;
    void select(ColorPickerItem* item);
    QColor askForColor(const QColor& initial);

    QMap<int, QMap<int, QWidget*>> m_widgetAt; // row, then column
    QList<ColorPickerItem*> m_items;
    QGridLayout* m_grid = nullptr;
    ColorPickerButton* m_moreButton = nullptr;
    QEventLoop* m_eventLoop = nullptr;
    int m_columns;
    QColor m_lastSelected;
};

#endif
