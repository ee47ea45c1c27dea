#ifndef SCALEBOUNDS_P_H
#define SCALEBOUNDS_P_H

class QSpinBox;

/// The boxes of the bounds of a scale, whose minimum never crosses the maximum: from its first
/// change on a bound limits the other one, after those who were connected before have heard of it.
/// The boxes are open while scaling is manual. They belong to the panel, as this does.
class ScaleBounds
{
public:
    ScaleBounds(QSpinBox* minimum, QSpinBox* maximum);

    void setManual(bool manual);
    /// Opens or closes the box of the minimum; a closed one manual scaling does not open.
    void setMinimumEnabled(bool enabled);
    /// First the minimum, which is cut off at the maximum that stands. A host that hears of it may
    /// delete the panel.
    void show(int minimum, int maximum);

private:
    QSpinBox* m_minimum;
    QSpinBox* m_maximum;
    bool m_hasMinimum = true;
};

#endif
