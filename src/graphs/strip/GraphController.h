#ifndef GRAPHCONTROLLER_H
#define GRAPHCONTROLLER_H

#include "AXRGuiExport.h"

#include <QGroupBox>

#include <memory>

class QAbstractButton;
class ScaleBounds;

namespace Ui
{
class GraphController;
}

/// The controls beside the plot of a live graph: start, stop, clear, default, scale, save and log.
/// It holds no data and only asks; the graph does. With a settings key it keeps the kind of scaling
/// and the range from one run to the next.
///
/// It starts as if running, with dynamic scaling and the range 0..4000, which a graph replaces by
/// its own. The bounds of the range are -2147483647..2147483647 in steps of 100, in the unit of the
/// values shown. They never cross: from its first change on a bound limits the other one; before,
/// it does not, and is taken along when the other one passes it.
///
/// A host may delete the panel inside its signals, except startLogging() and those of the range,
/// which come from within the boxes that the user edits: use deleteLater() there.
class AXRGUI_EXPORT GraphController : public QGroupBox
{
    Q_OBJECT
public:
    explicit GraphController(QWidget* parent = nullptr);
    /// Stores the settings, unless the key is empty.
    ~GraphController() override;

    /// Loads what is stored in the group of this key and, below, of this panel's object name, and
    /// has the destructor store there. First the radio button, whose signal comes in any case, also
    /// from a disabled panel; then maximum and minimum, each with its signals. What is not stored,
    /// or is no number, stays as it is. Empty, the default: nothing is loaded or stored.
    void setAppSettingsKey(const QString& key);

    /// Limited as the user's entries are, and shown while scaling is dynamic, too.
    void setMinValue(int value);
    void setMaxValue(int value);

    /// Takes the check back from "Log data", which emits startLogging(false).
    void rejectLogging();

public Q_SLOTS:
    /// Shows the range that the graph has now: first the minimum, then the maximum. A minimum above
    /// the old maximum is cut off there; it gets through if the pair comes again, as it does from a
    /// graph whose data do not fill its range exactly.
    void handleScaleChanged(int minValue, int maxValue);

Q_SIGNALS:
    void startGraph();
    void stopGraph();
    void clearGraph();
    void saveGraph();
    /// "Log data" was checked or unchecked, by the user or by rejectLogging().
    void startLogging(bool);
    /// For hosts that connect to it; the end of logging comes as startLogging(false).
    void stopLogging();
    /// Comes again when the radio button that is checked already is clicked.
    void scaleManually();
    void scaleDynamic();
    /// The default charts are wanted; comes after scaleDynamic().
    void setDefaultCharts();
    /// Comes before the new bound limits the other one.
    void minValueChanged(int min);
    void maxValueChanged(int max);

private Q_SLOTS:
    void on_btnStart_clicked();
    void on_btnStop_clicked();
    void on_btnClear_clicked();
    void on_btnSave_clicked();
    void on_btnGraphDefault_clicked();
    void on_buttonGroup_buttonClicked(QAbstractButton* btn);
    void on_sbMin_valueChanged(int value);
    void on_sbMax_valueChanged(int value);

private:
    void showRunning(bool running);
    QString settingsGroup() const;

    std::unique_ptr<Ui::GraphController> m_ui;
    std::unique_ptr<ScaleBounds> m_bounds;
    QString m_appSettingsKey;
};

#endif
