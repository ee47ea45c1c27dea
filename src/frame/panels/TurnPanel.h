#ifndef TURNPANEL_H
#define TURNPANEL_H

#include "AxisPanel.h"
#include "HeldButton.h"

/// Base of the panels with the five turn buttons: left and right run on, the jog buttons run while
/// they are held. The press starts and the release stops, without a timer.
///
/// A jog ends at the release or when its press can no longer be trusted (HeldButton), at the latest
/// when the panel is destroyed: OUT_requestValue() then goes out from the destructor. Its stop goes
/// to the axis that was started: address, motor bank and numbers are those of the press, the kind
/// of stop is the one set when it goes out. A slot of released() without a press before stops the
/// axis that is set.
class AXRGUI_EXPORT TurnPanel : public AxisPanel
{
    Q_OBJECT
public:
    ~TurnPanel() override;

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

    /// To be called once the form is built, with the panel's own members.
    void setUpJog(HeldButton& left, HeldButton& right);

    virtual void turn(Direction direction) = 0;
    /// What stops the axis that is set now.
    virtual HeldButton::Stop stop() = 0;

private:
    HeldButton* m_jogLeft = nullptr;
    HeldButton* m_jogRight = nullptr;
};

#endif
