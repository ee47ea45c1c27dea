#include "TurnPanel.h"

TurnPanel::TurnPanel(QWidget* parent) : AxisPanel(parent) {}

TurnPanel::~TurnPanel() = default;

void TurnPanel::on_btnLeft_clicked() { turn(Direction::Left); }
void TurnPanel::on_btnRight_clicked() { turn(Direction::Right); }
void TurnPanel::on_btnStop_clicked() { stop()(); }

void TurnPanel::on_btnJogLeft_pressed()
{
    m_jogLeft->press(stop());
    turn(Direction::Left);
}

void TurnPanel::on_btnJogLeft_released() { m_jogLeft->release(stop()); }

void TurnPanel::on_btnJogRight_pressed()
{
    m_jogRight->press(stop());
    turn(Direction::Right);
}

void TurnPanel::on_btnJogRight_released() { m_jogRight->release(stop()); }

void TurnPanel::setUpJog(HeldButton& left, HeldButton& right)
{
    m_jogLeft = &left;
    m_jogRight = &right;
}
