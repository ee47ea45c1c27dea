#ifndef FONTSIZEBUTTONS_P_H
#define FONTSIZEBUTTONS_P_H

#include <QButtonGroup>

/// The buttons with which the user chooses a window's font size, and the stored choice. The style
/// sheet of each is the sheet of its size.
class FontSizeButtons : public QButtonGroup
{
public:
    /// Builds the buttons in a row, which owns them: one that dies leaves the group.
    QWidget* makeRow(QWidget* parent);

    /// Clicks the button of the stored size, which may end this object.
    void clickStored();
    /// Clicks the checked button once the event loop has run.
    void clickAgainSoon();
    /// Writes down which one is checked.
    void store() const;
};

#endif
