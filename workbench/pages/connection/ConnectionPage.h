#ifndef CONNECTIONPAGE_H
#define CONNECTIONPAGE_H

#include "Every.h"
#include "Page.h"

#include <functional>

class CANConnection;
class Connection;
class EthernetConnection;
class ModuleLink;
class QLabel;
class SerialConnection;
class ZigBeeNode;

/// The four connection panels, in each of which the simulated module appears as a device, and the
/// weather on its link. One link is open at a time; the other panels wait meanwhile.
class ConnectionPage : public Page
{
    Q_OBJECT
public:
    explicit ConnectionPage(const PageContext& context);

    bool worksAlone() const override { return true; }

    /// Presses "Connect" of the panel whose link was open last, also in an earlier run; at first
    /// of the first panel.
    void connectLast() override;
    QString lastLink() const override;
    void linkLost() override;

    /// Brings the counters up to date, once in a second.
    void frame(qint64 now) override;
    void tour(TourGuide& guide) override;

private:
    /// A panel with what the host does to it when its link could not be opened.
    struct LinkPanel {
        QWidget* widget;
        QString name;
        std::function<void()> disconnected;
    };

    const LinkPanel& lastPanel() const;
    QWidget* makePanels();
    QWidget* makeWeather();
    void open(QWidget* panel, const QString& link, bool reachable, char address);
    void close();

    ModuleLink& m_link;
    const Simulator* m_simulator;
    Every m_second{1000};
    Connection* m_connection;
    SerialConnection* m_serial;
    CANConnection* m_can;
    EthernetConnection* m_ethernet;
    ZigBeeNode* m_zigBee;
    QLabel* m_counters;
    QList<LinkPanel> m_panels;
};

#endif
