#ifndef SIMPLESCALEDGRAPHCONTROLLER_H
#define SIMPLESCALEDGRAPHCONTROLLER_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

class ScaleBounds;

namespace Ui
{
class SimpleScaledGraphController;
}

/// The scaling of a drawer: dynamic at the start, or by the user's bounds. It holds no data and
/// only asks.
///
/// The bounds are -2147483647..2147483647, 0..4000 at the start whatever the drawer's are, in the
/// unit of the values shown. They never cross: the present maximum limits the minimum, and the
/// other way round, for entries and for what code sets. Each change of a bound is emitted, whoever
/// made it, also in dynamic scaling.
///
/// A host may delete the panel inside its signals, except those of the bounds, which come from
/// within the boxes that the user edits: use deleteLater() there.
class AXRGUI_EXPORT SimpleScaledGraphController : public QWidget
{
    Q_OBJECT
public:
    explicit SimpleScaledGraphController(QWidget* parent = nullptr);
    ~SimpleScaledGraphController() override;

    void setTitle(QString title);
    /// Limited and emitted as the user's entries are, and shown while scaling is dynamic, too.
    void setMinValue(int value);
    void setMaxValue(int value);
    /// Of both boxes, 100 by default.
    void setSingleStep(int step);
    /// As a click on the radio button, with its signal; a disabled panel takes none.
    void setDynamic(bool dynamic);
    /// Shows the scaling that the drawer has now, without a signal, also in a disabled panel.
    void showScaling(bool dynamic);
    /// Opens the box of the minimum at once, whatever the scaling, or closes it; when it is closed,
    /// manual scaling does not open it. True by default.
    void setMinValueEnabled(bool enabled);

public Q_SLOTS:
    /// Shows the range that the drawer has now: first the minimum, then the maximum, each emitted
    /// if it changes. A minimum above the old maximum is cut off there, and goes out like that; a
    /// drawer that takes it over finds its range changed in its next paint and sends the pair
    /// again, which then gets through.
    void handleScaleChanged(int minValue, int maxValue);

Q_SIGNALS:
    void clear();
    /// Comes again when the radio button that is checked already is clicked.
    void scaleManually();
    void scaleDynamic();
    /// Comes before the new bound limits the other one.
    void minValueChanged(int min);
    void maxValueChanged(int max);
    /// For hosts that connect to it; the panel never emits it.
    void changeResolution(int resolution);

private Q_SLOTS:
    void on_btnScaleManually_clicked();
    void on_btnScaleDynamic_clicked();
    void on_btnClearCharts_clicked();
    void on_sbMin_valueChanged(int value);
    void on_sbMax_valueChanged(int value);

private:
    std::unique_ptr<Ui::SimpleScaledGraphController> m_ui;
    std::unique_ptr<ScaleBounds> m_bounds;
};

#endif
