#ifndef COLOURSPAGE_H
#define COLOURSPAGE_H

#include "Page.h"

class ColorPicker;
class QLabel;

/// The colour picker with and without its dialog, and the colour triangle by itself. Needs no
/// module.
class ColoursPage : public Page
{
    Q_OBJECT
public:
    ColoursPage();

    bool worksAlone() const override { return true; }
    void tour(TourGuide& guide) override;

private:
    QWidget* makePickers();
    QWidget* makeTriangle();
    ColorPicker* makePicker(const QString& name, bool withDialog);

    QLabel* m_emitted;
};

#endif
