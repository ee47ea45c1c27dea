#ifndef TURNPANEL_H
#define TURNPANEL_H

#include "AxisPanel.h"

class QAbstractButton;

/// Base of the panels with the five turn buttons: left and right run on, the jog buttons run while
/// they are held. The press starts and the release stops, without a timer.
///
/// A jog button that is hidden while it is down is let go, whatever hides it, and so is one that is
/// down when the panel is destroyed: OUT_requestValue() then goes out from the destructor. A host
/// whose slot belongs to a parent of the panel destroys the panel before itself.
class AXRGUI_EXPORT TurnPanel : public AxisPanel
{
    Q_OBJECT
public:
    ~TurnPanel() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    void on_btnLeft_clicked();
    void on_btnRight_clicked();
    void on_btnStop_clicked();
    void on_btnJogLeft_pressed();
    void on_btnJogLeft_released();
    void on_btnJogRight_pressed();
    void on_btnJogRight_released();

protected:
    enum class Direction { Left, Right };

    explicit TurnPanel(QWidget* parent);

    /// To be called once the form is built.
    void setUpJog(QAbstractButton* left, QAbstractButton* right);

    virtual void turn(Direction direction) = 0;
    virtual void halt() = 0;

    /// Lets go a jog button that is down. A panel calls this in its destructor, while it can still
    /// send.
    void endJog();

private:
    QVector<QAbstractButton*> m_jogButtons;
};

#endif
