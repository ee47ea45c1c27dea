#include "CANConnection.h"

#include "LinkButtons_p.h"
#include "RoomForText_p.h"
#include "WheelFocus.h"
#include "ui_CANConnection.h"

CANConnection::CANConnection(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::CANConnection>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    RoomForText::giveTo(this);
}

CANConnection::~CANConnection() = default;

void CANConnection::setTitle(QString title) { m_ui->gbConnection->setTitle(title); }

void CANConnection::clearAllBitrates() { m_ui->cmbBitrate->clear(); }

void CANConnection::addBitrate(int bitrate) { m_ui->cmbBitrate->addItem(QString::number(bitrate)); }

void CANConnection::setConnected() { LinkButtons(*m_ui).showConnected(); }

void CANConnection::setDisconnected() { LinkButtons(*m_ui).showDisconnected(); }

void CANConnection::on_btnConnect_clicked()
{
    setConnected();
    emit openDevice(m_ui->cmbBitrate->currentText().toInt(), m_ui->sbSendId->value(),
                    m_ui->sbReceiveId->value());
}

void CANConnection::on_btnDisconnect_clicked()
{
    setDisconnected();
    emit closeDevice();
}

void CANConnection::deviceClosed() { setDisconnected(); }
