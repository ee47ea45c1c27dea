#ifndef CONNECTION_H
#define CONNECTION_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class Connection;
}

/// Offers a list of devices and asks the host to open or close the link to one of them; it opens
/// nothing itself. The buttons follow the user's click, before the link is open: a host that fails
/// to open it calls setDisconnected(). At the start the list is empty and both buttons are
/// disabled.
class AXRGUI_EXPORT Connection : public QWidget
{
    Q_OBJECT
public:
    explicit Connection(QWidget* parent = nullptr);
    /// Without parent; the title is that of the group box, default "Connection".
    explicit Connection(QString title);
    ~Connection() override;

    void setTitle(QString title);

    /// The buttons stay as they are. The first addDevice() afterwards enables "Connect", even
    /// while connected.
    void clearDeviceList();

    /// Only the buttons change, no signal goes out.
    void setConnected();
    /// As setConnected(). Enables "Connect" even with an empty list, where it does nothing.
    void setDisconnected();

    /// Adds an entry at the end; the same port may come more than once. The entry shows the port
    /// and, in brackets, the first word of the description. The first device enables "Connect".
    void addDevice(QString port, QString description);
    /// Removes the first entry of this port, case-sensitively; unknown ports are ignored. If it is
    /// the entry that the list shows, the buttons change to disconnected, be it the device in use
    /// or not; otherwise they stay, even if it is. An empty list disables "Connect". No signal goes
    /// out: a host whose link hangs on the device closes it itself.
    void removeDevice(QString port);

Q_SIGNALS:
    /// Emitted as the last step of the click: the host may answer inside it, and may delete the
    /// panel.
    void openDevice(QString port);
    /// As openDevice().
    void closeDevice();

public Q_SLOTS:
    /// Does nothing while the list is empty.
    void on_btnConnect_clicked();
    void on_btnDisconnect_clicked();

    /// The same as setDisconnected().
    void deviceClosed();

private:
    std::unique_ptr<Ui::Connection> m_ui;
};

#endif
