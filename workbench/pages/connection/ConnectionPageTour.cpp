#include "ConnectionPage.h"

#include "CANConnection.h"
#include "Connection.h"
#include "EthernetConnection.h"
#include "ModuleLink.h"
#include "SerialConnection.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QPushButton>
#include <QSpinBox>

using namespace TourInput;

/// Ends connected, by the first panel.
void ConnectionPage::tour(TourGuide& guide)
{
    struct Entry {
        const char* name;
        QWidget* panel;
    };
    const Entry entries[] = {
        {"USB", m_connection}, {"serial", m_serial}, {"CAN", m_can}, {"Ethernet", m_ethernet}};
    guide.showPage(QStringLiteral("connection"));
    for (const Entry& entry : entries) {
        const QString name = QString::fromLatin1(entry.name);
        const int before = guide.link().answers();
        click(guide.find<QPushButton>(entry.panel, "btnConnect"));
        guide.expectNumber(
            QStringLiteral("connect by the %1 panel: the module answers").arg(name),
            [&] { return guide.link().answers() > before ? 1 : 0; }, 1, 0, TourGuide::Settle);
        if (&entry == &entries[0])
            guide.photograph(QStringLiteral("connection"));
        click(guide.find<QPushButton>(entry.panel, "btnDisconnect"));
        guide.expectText(
            QStringLiteral("disconnect by the %1 panel").arg(name),
            [&] { return guide.linkText(); }, QStringLiteral("Not connected"), TourGuide::Settle);
    }
    auto* port = guide.find<QSpinBox>(m_ethernet, "sbPort");
    port->setValue(1501);
    click(guide.find<QPushButton>(m_ethernet, "btnConnect"));
    guide.check(QStringLiteral("connect to a port where no module is"),
                QStringLiteral("refused, Connect is offered again"), guide.linkText(),
                !guide.link().isOpen() &&
                    guide.find<QPushButton>(m_ethernet, "btnConnect")->isEnabled());
    port->setValue(1500);
    click(guide.find<QPushButton>(m_connection, "btnConnect"));
    guide.expectText(
        QStringLiteral("connect by the USB panel again"), [&] { return guide.linkText(); },
        QStringLiteral("Connected: SIM1"), TourGuide::Settle);
}
