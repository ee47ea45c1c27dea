#include "TurnPanel.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>

namespace
{

/// Ends a press as a user does who leaves the button and then lets go of the mouse. setDown(false)
/// alone would leave the button waiting for the mouse: back on the screen, the next move over it
/// would press it again.
void letGo(QAbstractButton* button)
{
    const QPointer<QAbstractButton> guard(button);
    const QPointF outside(-1, -1);
    const QPointF global = button->mapToGlobal(outside.toPoint());
    QMouseEvent leave(QEvent::MouseMove, outside, global, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(button, &leave);
    if (guard && button->isDown()) { // was pressed by key
        button->setDown(false);
        emit button->released();
    }
    if (!guard)
        return;
    QMouseEvent release(QEvent::MouseButtonRelease, outside, global, Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(button, &release);
}

} // namespace

TurnPanel::TurnPanel(QWidget* parent) : AxisPanel(parent) {}

TurnPanel::~TurnPanel() = default;

void TurnPanel::on_btnLeft_clicked() { turn(Direction::Left); }
void TurnPanel::on_btnRight_clicked() { turn(Direction::Right); }
void TurnPanel::on_btnStop_clicked() { halt(); }
void TurnPanel::on_btnJogLeft_pressed() { turn(Direction::Left); }
void TurnPanel::on_btnJogLeft_released() { halt(); }
void TurnPanel::on_btnJogRight_pressed() { turn(Direction::Right); }
void TurnPanel::on_btnJogRight_released() { halt(); }

void TurnPanel::setUpJog(QAbstractButton* left, QAbstractButton* right)
{
    m_jogButtons = {left, right};
    for (QAbstractButton* button : qAsConst(m_jogButtons))
        button->installEventFilter(this);
}

void TurnPanel::endJog()
{
    const QPointer<TurnPanel> self(this);
    for (int i = 0; self && i < m_jogButtons.size(); ++i) {
        if (m_jogButtons.at(i)->isDown())
            letGo(m_jogButtons.at(i));
    }
}

bool TurnPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide)
        endJog();
    return AxisPanel::eventFilter(watched, event);
}
