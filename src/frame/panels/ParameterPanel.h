#ifndef PARAMETERPANEL_H
#define PARAMETERPANEL_H

#include "AXRGuiExport.h"
#include "AxisParameter.h"

#include <QVector>
#include <QWidget>

#include <functional>
#include <initializer_list>

class QGroupBox;

/// What the panels of an axis share, in whatever form their values go out and come in: a form in a
/// group box, and the parameters that are read back. The form of the values is that of the base
/// above this one, which alone has signals and slots for it.
class AXRGUI_EXPORT ParameterPanel : public QWidget
{
    Q_OBJECT
public:
    ~ParameterPanel() override;

    /// Title of the panel's group box.
    void setTitle(const QString& title);

protected:
    explicit ParameterPanel(QWidget* parent);

    /// To be called once the form is built: its outer group box, and the parameters that are read
    /// back, in the order in which they are asked for.
    void setUpPanel(QGroupBox* frame, std::initializer_list<AxisParameter*> readBack);

    /// Whether updateValues() asks for a parameter just now. Default: always.
    virtual bool isAsked(const AxisParameter& parameter) const;
    /// Whether a reply to a parameter is shown just now. Default: when it is asked for.
    virtual bool isTaken(const AxisParameter& parameter) const;

    /// Has the numbers of all parameters asked for, in order; a host may delete the panel
    /// meanwhile.
    void askEach(const std::function<void(char type)>& ask);
    /// Shows a reply in every parameter with its number; a host may delete the panel meanwhile.
    void showReply(char type, int value);

private:
    QGroupBox* m_frame = nullptr;
    QVector<AxisParameter*> m_readBack;
};

#endif
