#ifndef TURNPANEL_H
#define TURNPANEL_H

#include "AxisPanel.h"

/// Base of the panels with the five turn buttons: left and right run on, the jog buttons run while
/// they are held. The press starts and the release stops, without a timer. A panel that is hidden
/// or destroyed while a jog button is down stops the axis as its release would.
class AXRGUI_EXPORT TurnPanel : public AxisPanel
{
    Q_OBJECT
public:
    ~TurnPanel() override;

protected:
    enum class Direction { Left, Right };

    explicit TurnPanel(QWidget* parent);

    virtual void turn(Direction direction) = 0;
    virtual void halt() = 0;

    /// Lets go a jog button that is down. A panel calls this in its destructor, while it can still
    /// send.
    void endJog();

    void hideEvent(QHideEvent* event) override;

public Q_SLOTS:
    void on_btnLeft_clicked();
    void on_btnRight_clicked();
    void on_btnStop_clicked();
    void on_btnJogLeft_pressed();
    void on_btnJogLeft_released();
    void on_btnJogRight_pressed();
    void on_btnJogRight_released();
};

#endif
