#include "SerialConnection.h"

#include "CondensedText_p.h"
#include "DeviceList_p.h"
#include "Logging.h"
#include "RoomForText_p.h"
#include "WheelFocus.h"
#include "ui_SerialConnection.h"

SerialConnection::SerialConnection(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::SerialConnection>())
{
    init();
}

SerialConnection::SerialConnection(QString title) : m_ui(std::make_unique<Ui::SerialConnection>())
{
    init();
    setTitle(title);
}

SerialConnection::~SerialConnection() = default;

void SerialConnection::setTitle(QString title) { m_ui->gbSerialConnection->setTitle(title); }

void SerialConnection::clearDeviceList() { m_ui->cmbDevices->clear(); }

void SerialConnection::setConnected() { LinkButtons(*m_ui).showConnected(); }

void SerialConnection::setDisconnected() { LinkButtons(*m_ui).showDisconnected(); }

void SerialConnection::addDevice(QString port, QString description)
{
    qCDebug(axrLinks).noquote().nospace()
        << "WSerialConnection::addDevice(" << port << ", " << description << ")";
    DeviceList(*m_ui).add(port, description);
}

void SerialConnection::removeDevice(QString port) { DeviceList(*m_ui).remove(port); }

void SerialConnection::on_btnConnect_clicked()
{
    if (const auto port = DeviceList(*m_ui).connectCurrent())
        emit openDevice(*port, m_ui->cmbBaudrates->currentText().toInt(), m_ui->sbAddress->value());
}

void SerialConnection::on_btnDisconnect_clicked()
{
    setDisconnected();
    emit closeDevice();
}

void SerialConnection::init()
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    RoomForText::giveTo(this);
    new CondensedText(this, {m_ui->lblPort, m_ui->lblBaudrate, m_ui->lblAddress});
}
