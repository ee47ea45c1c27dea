#include "TurnPanel.h"

#include <QPushButton>

TurnPanel::TurnPanel(QWidget* parent) : AxisPanel(parent) {}

TurnPanel::~TurnPanel() = default;

void TurnPanel::on_btnLeft_clicked() { turn(Direction::Left); }
void TurnPanel::on_btnRight_clicked() { turn(Direction::Right); }
void TurnPanel::on_btnStop_clicked() { halt(); }
void TurnPanel::on_btnJogLeft_pressed() { turn(Direction::Left); }
void TurnPanel::on_btnJogLeft_released() { halt(); }
void TurnPanel::on_btnJogRight_pressed() { turn(Direction::Right); }
void TurnPanel::on_btnJogRight_released() { halt(); }

void TurnPanel::endJog()
{
    bool held = false;
    for (const QString& name : {QStringLiteral("btnJogLeft"), QStringLiteral("btnJogRight")}) {
        auto* button = findChild<QPushButton*>(name);
        if (button && button->isDown()) {
            button->setDown(false);
            held = true;
        }
    }
    if (held)
        halt();
}

void TurnPanel::hideEvent(QHideEvent* event)
{
    AxisPanel::hideEvent(event);
    endJog();
}
