#include "Connection.h"

#include "DeviceList_p.h"
#include "Logging.h"
#include "WheelFocus.h"
#include "ui_Connection.h"

Connection::Connection(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::Connection>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
}

Connection::Connection(QString title) : Connection(nullptr) { setTitle(title); }

Connection::~Connection() = default;

void Connection::setTitle(QString title) { m_ui->gbConnection->setTitle(title); }

void Connection::clearDeviceList() { m_ui->cmbDevices->clear(); }

void Connection::setConnected() { LinkButtons(*m_ui).showConnected(); }

void Connection::setDisconnected() { LinkButtons(*m_ui).showDisconnected(); }

void Connection::addDevice(QString port, QString description)
{
    qCDebug(axrLinks).noquote().nospace()
        << "WConnection::addDevice(" << port << ", " << description << ")";
    DeviceList(*m_ui).add(port, description);
}

void Connection::removeDevice(QString port) { DeviceList(*m_ui).remove(port); }

void Connection::on_btnConnect_clicked()
{
    if (const auto port = DeviceList(*m_ui).connectCurrent())
        emit openDevice(*port);
}

void Connection::on_btnDisconnect_clicked()
{
    setDisconnected();
    emit closeDevice();
}

void Connection::deviceClosed() { setDisconnected(); }
