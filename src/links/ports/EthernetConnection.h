#ifndef ETHERNETCONNECTION_H
#define ETHERNETCONNECTION_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class EthernetConnection;
}

/// Collects the parameters of an Ethernet link: IP address (default 192.168.1.1) and port
/// (0..65536, default 1500). "." goes on to the next byte of the address, Backspace in an empty one
/// back; a whole address can be pasted into any of them. It opens nothing itself. The buttons
/// follow the user's click, before the link is open: a host that fails to open it calls
/// setDisconnected(). Starts disconnected.
class AXRGUI_EXPORT EthernetConnection : public QWidget
{
    Q_OBJECT
public:
    explicit EthernetConnection(QWidget* parent = nullptr);
    ~EthernetConnection() override;

    /// Title of the group box, default "Ethernet Connection".
    void setTitle(QString const& title);

    /// The address a.b.c.d, unsigned bytes.
    void setDefaultIPAddress(char a, char b, char c, char d);
    /// Taken as unsigned, 0..65535: a port above 32767 comes in as a negative number.
    void setDefaultPort(short port);

    /// Only the buttons change, no signal goes out.
    void setConnected();
    /// As setConnected().
    void setDisconnected();

Q_SIGNALS:
    /// Emitted as the last step of the click: the host may answer inside it, and may delete the
    /// panel. `ipAddress` is dotted, such as "192.168.1.1". Read the port as quint16: one above
    /// 32767 arrives negative, and 65536 as 0.
    void openDevice(QString const& ipAddress, qint16 port);
    /// As openDevice().
    void closeDevice();

public Q_SLOTS:
    void on_btnConnect_clicked();
    void on_btnDisconnect_clicked();

    /// The same as setDisconnected(); shows no message.
    void handleConnectionRefused();

private:
    std::unique_ptr<Ui::EthernetConnection> m_ui;
};

#endif
