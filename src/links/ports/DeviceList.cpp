#include "DeviceList_p.h"

#include "Logging.h"

#include <QComboBox>

void DeviceList::add(const QString& port, const QString& description)
{
    if (m_box->count() == 0)
        m_buttons.setConnectable(true);
    QString text = port;
    if (!description.isEmpty())
        text +=
            QStringLiteral(" [") + description.section(QLatin1Char(' '), 0, 0) + QLatin1Char(']');
    m_box->addItem(text, QVariantList{port, description});
}

void DeviceList::remove(const QString& port)
{
    for (int i = 0; i < m_box->count(); ++i) {
        const QVariantList device = m_box->itemData(i).toList();
        qCDebug(axrLinks).nospace() << "item[" << i << "]: " << device;
        const QString devicePort = device.value(0).toString();
        qCDebug(axrLinks).noquote().nospace()
            << "port: " << devicePort << " description: " << device.value(1).toString();
        if (devicePort != port)
            continue;
        if (i == m_box->currentIndex())
            m_buttons.showDisconnected();
        m_box->removeItem(i);
        if (m_box->count() == 0)
            m_buttons.setConnectable(false);
        return;
    }
}

std::optional<QString> DeviceList::connectCurrent()
{
    const QVariantList device = m_box->currentData().toList();
    if (device.isEmpty())
        return std::nullopt;
    const QString port = device.constFirst().toString();
    qCDebug(axrLinks).noquote().nospace() << "connect to: " << port;
    m_buttons.showConnected();
    return port;
}
