#ifndef SERIALCONNECTION_H
#define SERIALCONNECTION_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class SerialConnection;
}

/// Offers a list of serial devices with baud rate (4800..115200 Bd, default 9600) and module
/// address (0..255, default 1), and asks the host to open or close the link; it opens nothing
/// itself. The buttons follow the user's click, before the link is open: a host that fails to open
/// it calls setDisconnected(). At the start the list is empty and both buttons are disabled.
class AXRGUI_EXPORT SerialConnection : public QWidget
{
    Q_OBJECT
public:
    explicit SerialConnection(QWidget* parent = nullptr);
    /// Without parent; the title is that of the group box, default "Serial Connection".
    explicit SerialConnection(QString title);
    ~SerialConnection() override;

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
    /// panel. `baudrate` in Bd, `address` 0..255.
    void openDevice(QString port, int baudrate, int address);
    /// As openDevice().
    void closeDevice();

public Q_SLOTS:
    /// Does nothing while the list is empty.
    void on_btnConnect_clicked();
    void on_btnDisconnect_clicked();

private:
    void init();

    std::unique_ptr<Ui::SerialConnection> m_ui;
};

#endif
