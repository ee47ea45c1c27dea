#ifndef DEVICELIST_P_H
#define DEVICELIST_P_H

#include "LinkButtons_p.h"

#include <QString>

#include <optional>

class QComboBox;

/// The devices that a connection panel offers. The combo box is the list: each entry shows its
/// port and the first word of the description, and carries both as item data (`Qt::UserRole`, a
/// QVariantList). A view of the panel's form, like LinkButtons.
class DeviceList
{
public:
    template <class Form>
    explicit DeviceList(const Form& form) : m_box(form.cmbDevices), m_buttons(form)
    {
    }

    /// The first entry of an empty list can be connected.
    void add(const QString& port, const QString& description);

    /// Removes the first entry of this port; unknown ports change nothing. Without its current
    /// device the link shows as disconnected, without any device it cannot be connected.
    void remove(const QString& port);

    /// Shows the link as connected. Returns the port of the current entry; with none, nothing
    /// happens and nothing comes back.
    std::optional<QString> connectCurrent();

private:
    QComboBox* m_box;
    LinkButtons m_buttons;
};

#endif
