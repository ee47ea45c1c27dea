#ifndef LINKBUTTONS_P_H
#define LINKBUTTONS_P_H

#include "FocusPair_p.h"

#include <QPushButton>

/// The two buttons by which every connection panel shows the state of its link. A view of the
/// panel's form: made where it is needed, and never kept.
class LinkButtons
{
public:
    template <class Form>
    explicit LinkButtons(const Form& form)
        : m_connect(form.btnConnect), m_disconnect(form.btnDisconnect)
    {
    }

    void showConnected() { show(true); }
    void showDisconnected() { show(false); }
    void setConnectable(bool connectable) { m_connect->setEnabled(connectable); }

private:
    void show(bool connected)
    {
        const FocusPair focus(m_connect, m_disconnect);
        m_connect->setEnabled(!connected);
        m_disconnect->setEnabled(connected);
    }

    QPushButton* m_connect;
    QPushButton* m_disconnect;
};

#endif
