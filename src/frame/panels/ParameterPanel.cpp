#include "ParameterPanel.h"

#include "Bytes.h"
#include "FieldFace_p.h"
#include "WheelFocus.h"

#include <QGroupBox>
#include <QPointer>
#include <QSpinBox>

ParameterPanel::ParameterPanel(QWidget* parent) : QWidget(parent) {}

ParameterPanel::~ParameterPanel() = default;

void ParameterPanel::setUpPanel(QGroupBox* frame, std::initializer_list<AxisParameter*> readBack)
{
    m_frame = frame;
    m_readBack = readBack;
    for (QSpinBox* field : frame->findChildren<QSpinBox*>())
        FieldFace::of(field);
    WheelFocus::guard(this);
}

void ParameterPanel::setTitle(const QString& title) { m_frame->setTitle(title); }

bool ParameterPanel::isAsked(const AxisParameter& parameter) const
{
    Q_UNUSED(parameter)
    return true;
}

bool ParameterPanel::isTaken(const AxisParameter& parameter) const { return isAsked(parameter); }

void ParameterPanel::askEach(const std::function<void(char type)>& ask)
{
    const QPointer<ParameterPanel> self(this);
    for (int i = 0; self && i < m_readBack.size(); ++i) {
        if (isAsked(*m_readBack.at(i)))
            ask(m_readBack.at(i)->number());
    }
}

void ParameterPanel::showReply(char type, int value)
{
    const QPointer<ParameterPanel> self(this);
    for (int i = 0; self && i < m_readBack.size(); ++i) {
        AxisParameter& parameter = *m_readBack.at(i);
        if (u8(parameter.number()) == u8(type) && isTaken(parameter))
            parameter.show(value);
    }
}
