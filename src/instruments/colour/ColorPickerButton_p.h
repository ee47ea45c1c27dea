#ifndef COLORPICKERBUTTON_P_H
#define COLORPICKERBUTTON_P_H

#include <QFrame>

/// The grid's last cell, with three dots: asks for more colours.
class ColorPickerButton : public QFrame
{
    Q_OBJECT
public:
    explicit ColorPickerButton(QWidget* parent = nullptr);

Q_SIGNALS:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// All keys but Return, Enter and Space go on to the parent, cursor keys to the grid.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void sink();
    void raiseAndClick();
};

#endif
