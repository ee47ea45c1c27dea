#ifndef DELAYFLOOR_H
#define DELAYFLOOR_H

#include <QObject>

class QSpinBox;

/// Keeps a trace controller's delay at what the link can answer, and gives the user's own delay
/// back once the link is as fast again. Belongs to the controller.
class DelayFloor : public QObject
{
public:
    explicit DelayFloor(QWidget* controller);

    /// \param answerTime in ms
    void follow(int answerTime);

private:
    QSpinBox* m_box;
    int m_wanted; // ms
    int m_least = 0;
    bool m_isFollowing = false;
};

#endif
