#ifndef SHAFTVIEW_H
#define SHAFTVIEW_H

#include <QWidget>

/// A motor seen from its shaft: a pointer at the angle and an arc for the velocity.
class ShaftView : public QWidget
{
    Q_OBJECT
public:
    explicit ShaftView(QWidget* parent = nullptr);

    /// \param turns position in revolutions, clockwise
    /// \param share velocity as a share of the largest one, -1..1
    void showState(double turns, double share, const QString& text);

    QSize sizeHint() const override { return QSize(150, 150); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_turns = 0.0;
    double m_share = 0.0;
    QString m_text;
};

#endif
