#include "EthernetConnection.h"

#include "AddressByte_p.h"
#include "Bytes.h"
#include "CondensedText_p.h"
#include "LinkButtons_p.h"
#include "Logging.h"
#include "RoomForText_p.h"
#include "WheelFocus.h"
#include "ui_EthernetConnection.h"

EthernetConnection::EthernetConnection(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::EthernetConnection>())
{
    m_ui->setupUi(this);
    AddressByte::join({m_ui->sbIPByte3, m_ui->sbIPByte2, m_ui->sbIPByte1, m_ui->sbIPByte0});
    WheelFocus::guard(this);
    RoomForText::giveTo(this);
    new CondensedText(this, {m_ui->btnConnect, m_ui->btnDisconnect});
}

EthernetConnection::~EthernetConnection() = default;

void EthernetConnection::setTitle(QString const& title)
{
    m_ui->gbEthernetConnection->setTitle(title);
}

void EthernetConnection::setDefaultIPAddress(char a, char b, char c, char d)
{
    m_ui->sbIPByte3->setValue(u8(a));
    m_ui->sbIPByte2->setValue(u8(b));
    m_ui->sbIPByte1->setValue(u8(c));
    m_ui->sbIPByte0->setValue(u8(d));
}

void EthernetConnection::setDefaultPort(short port)
{
    m_ui->sbPort->setValue(static_cast<quint16>(port));
}

void EthernetConnection::setConnected() { LinkButtons(*m_ui).showConnected(); }

void EthernetConnection::setDisconnected() { LinkButtons(*m_ui).showDisconnected(); }

void EthernetConnection::on_btnConnect_clicked()
{
    setConnected();
    const QString ipAddress = QStringLiteral("%1.%2.%3.%4")
                                  .arg(m_ui->sbIPByte3->value())
                                  .arg(m_ui->sbIPByte2->value())
                                  .arg(m_ui->sbIPByte1->value())
                                  .arg(m_ui->sbIPByte0->value());
    const int port = m_ui->sbPort->value();
    qCDebug(axrLinks).noquote().nospace() << "connect to ip: " << ipAddress << " port: " << port;
    emit openDevice(ipAddress, static_cast<qint16>(port));
}

void EthernetConnection::on_btnDisconnect_clicked()
{
    setDisconnected();
    emit closeDevice();
}

void EthernetConnection::handleConnectionRefused() { setDisconnected(); }
