#ifndef CANCONNECTION_H
#define CANCONNECTION_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class CANConnection;
}

/// Collects the parameters of a CAN link: bit rate in kBit/s (1000, 500, 250, 125, 100, 50, 20, 10,
/// default 1000), send ID and receive ID (0..255, default 1 and 2). It opens nothing itself. The
/// buttons follow the user's click, before the link is open: a host that fails to open it calls
/// setDisconnected(). Starts disconnected.
class AXRGUI_EXPORT CANConnection : public QWidget
{
    Q_OBJECT
public:
    explicit CANConnection(QWidget* parent = nullptr);
    ~CANConnection() override;

    /// Title of the group box, default "CAN".
    void setTitle(QString title);

    /// Empties the list of bit rates; until the next addBitrate() a click on "Connect" asks for
    /// bit rate 0.
    void clearAllBitrates();
    /// Appends to the list, kBit/s.
    void addBitrate(int bitrate);

    /// Only the buttons change, no signal goes out.
    void setConnected();
    /// As setConnected().
    void setDisconnected();

Q_SIGNALS:
    /// Emitted as the last step of the click: the host may answer inside it, and may delete the
    /// panel. `bitrate` in kBit/s, the IDs 0..255.
    void openDevice(int bitrate, int sendID, int receiveID);
    /// As openDevice().
    void closeDevice();

public Q_SLOTS:
    void on_btnConnect_clicked();
    void on_btnDisconnect_clicked();

    /// The same as setDisconnected().
    void deviceClosed();

private:
    std::unique_ptr<Ui::CANConnection> m_ui;
};

#endif
