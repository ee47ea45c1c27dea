#include "ConnectionPage.h"

#include "AppSettings.h"
#include "Bytes.h"
#include "CANConnection.h"
#include "Connection.h"
#include "EthernetConnection.h"
#include "ModuleLink.h"
#include "PanelParts.h"
#include "SerialConnection.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "ZigBeeNode.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>

namespace
{

// Where the simulated module is found.
const QString usbPort = QStringLiteral("SIM1");
const QString serialPort = QStringLiteral("SIM-COM1");
const QString description = QStringLiteral("Simulated axis module");
constexpr int Bitrate = 1000;
constexpr int SendId = 1;
constexpr int ReceiveId = 2;
const QString ipAddress = QStringLiteral("192.168.1.1");
constexpr quint16 ipPort = 1500;

const QString lastLinkKey = QStringLiteral("Workbench/Link");

} // namespace

ConnectionPage::ConnectionPage(const PageContext& context)
    : m_link(context.link)
    , m_simulator(context.simulator)
    , m_connection(new Connection(this))
    , m_serial(new SerialConnection(this))
    , m_can(new CANConnection(this))
    , m_ethernet(new EthernetConnection)
    , m_zigBee(new ZigBeeNode)
    , m_counters(new QLabel)
{
    m_connection->setTitle(tr("USB"));
    if (m_simulator) {
        m_connection->addDevice(usbPort, description);
        m_serial->addDevice(serialPort, description);
    }
    m_panels = {{m_connection, QStringLiteral("USB"), [this] { m_connection->setDisconnected(); }},
                {m_serial, QStringLiteral("serial"), [this] { m_serial->setDisconnected(); }},
                {m_can, QStringLiteral("CAN"), [this] { m_can->setDisconnected(); }},
                {m_ethernet, QStringLiteral("Ethernet"),
                 [this] { m_ethernet->handleConnectionRefused(); }}};

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makePanels());
    if (m_simulator)
        layout->addWidget(makeWeather());
    layout->addStretch();

    const char address = m_link.profile().address;
    connect(m_connection, &Connection::openDevice, this, [this, address](const QString& port) {
        open(m_connection, port, port == usbPort, address);
    });
    connect(m_serial, &SerialConnection::openDevice, this,
            [this](const QString& port, int baudrate, int moduleAddress) {
                // A wrong address opens all the same; the module then does not answer.
                open(m_serial, tr("%1, %2 baud").arg(port).arg(baudrate), port == serialPort,
                     toByte(moduleAddress));
            });
    connect(m_can, &CANConnection::openDevice, this,
            [this, address](int bitrate, int sendID, int receiveID) {
                open(m_can, tr("CAN, %1 kBit/s").arg(bitrate),
                     bitrate == Bitrate && sendID == SendId && receiveID == ReceiveId, address);
            });
    connect(m_ethernet, &EthernetConnection::openDevice, this,
            [this, address](const QString& ip, qint16 port) {
                const auto unsignedPort = static_cast<quint16>(port);
                open(m_ethernet, QStringLiteral("%1:%2").arg(ip).arg(unsignedPort),
                     ip == ipAddress && unsignedPort == ipPort, address);
            });
    connect(m_connection, &Connection::closeDevice, this, &ConnectionPage::close);
    connect(m_serial, &SerialConnection::closeDevice, this, &ConnectionPage::close);
    connect(m_can, &CANConnection::closeDevice, this, &ConnectionPage::close);
    connect(m_ethernet, &EthernetConnection::closeDevice, this, &ConnectionPage::close);
    connect(m_zigBee, &ZigBeeNode::setZigBeeDevice, this, [this](char* bytes) {
        emit message(tr("ZigBee address set to %1.%2.%3.%4; the simulated module has no radio")
                         .arg(u8(bytes[3]))
                         .arg(u8(bytes[2]))
                         .arg(u8(bytes[1]))
                         .arg(u8(bytes[0])));
    });
}

QWidget* ConnectionPage::makePanels()
{
    auto* box = new QWidget;
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_connection, 0, 0, Qt::AlignTop);
    grid->addWidget(m_serial, 0, 1, Qt::AlignTop);
    grid->addWidget(m_can, 0, 2, Qt::AlignTop);
    grid->addWidget(m_ethernet, 1, 0, 1, 2, Qt::AlignTop | Qt::AlignLeft);
    grid->addWidget(m_zigBee, 1, 2, Qt::AlignTop);
    grid->setColumnStretch(3, 1);
    return box;
}

QWidget* ConnectionPage::makeWeather()
{
    auto* box = new QGroupBox(tr("Weather on the simulated link"));
    auto* silent = new QCheckBox(tr("The module is silent"));
    silent->setObjectName(QStringLiteral("cbSilent"));
    silent->setChecked(m_simulator->link.isSilent());
    connect(silent, &QCheckBox::toggled, this,
            [this](bool on) { m_simulator->link.setSilent(on); });

    auto* loss = new QSpinBox;
    loss->setObjectName(QStringLiteral("sbLoss"));
    loss->setRange(0, 100);
    loss->setSuffix(QStringLiteral(" %"));
    loss->setValue(qRound(m_simulator->link.weather().replyLoss * 100));
    auto* delay = new QSpinBox;
    delay->setObjectName(QStringLiteral("sbDelay"));
    delay->setRange(0, 1000);
    delay->setSuffix(QStringLiteral(" ms"));
    delay->setValue(m_simulator->link.weather().maximumDelay);
    const auto apply = [this, loss, delay] {
        Simulated::Weather weather = m_simulator->link.weather();
        weather.replyLoss = loss->value() / 100.0;
        weather.minimumDelay = delay->value();
        weather.maximumDelay = delay->value();
        m_simulator->link.setWeather(weather);
    };
    connect(loss, QOverload<int>::of(&QSpinBox::valueChanged), this, apply);
    connect(delay, QOverload<int>::of(&QSpinBox::valueChanged), this, apply);

    auto* reset = new QPushButton(tr("Reset the module"));
    reset->setObjectName(QStringLiteral("btnReset"));
    connect(reset, &QPushButton::clicked, this, [this] { m_simulator->link.resetModule(); });

    auto* form = new QFormLayout;
    form->addRow(silent);
    form->addRow(tr("Lost replies"), loss);
    form->addRow(tr("Delay"), delay);
    form->addRow(reset);
    auto* layout = new QHBoxLayout(box);
    layout->addLayout(form);
    layout->addSpacing(30);
    layout->addWidget(m_counters, 1);
    for (QSpinBox* weather : {loss, delay})
        weather->setKeyboardTracking(false); // the "1" of a 1000 is a delay of its own
    return box;
}

const ConnectionPage::LinkPanel& ConnectionPage::lastPanel() const
{
    const QString name = AppSettings().value(lastLinkKey, QString()).toString();
    const auto last = std::find_if(m_panels.begin(), m_panels.end(),
                                   [&name](const LinkPanel& each) { return each.name == name; });
    return last == m_panels.end() ? m_panels.first() : *last;
}

void ConnectionPage::linkLost()
{
    for (const LinkPanel& each : qAsConst(m_panels)) {
        if (each.widget->isEnabled()) // the one that was open
            each.disconnected();
        each.widget->setEnabled(true);
    }
}

QString ConnectionPage::lastLink() const { return lastPanel().name; }

void ConnectionPage::connectLast() { PanelParts::connectButton(*lastPanel().widget)->click(); }

void ConnectionPage::open(QWidget* panel, const QString& link, bool reachable, char address)
{
    if (!reachable) {
        for (const LinkPanel& each : qAsConst(m_panels)) {
            if (each.widget == panel)
                each.disconnected();
        }
        emit message(tr("There is no module at %1").arg(link));
        return;
    }
    for (const LinkPanel& each : qAsConst(m_panels)) {
        each.widget->setEnabled(each.widget == panel);
        if (each.widget == panel)
            AppSettings().setValue(lastLinkKey, each.name);
    }
    emit opened(link, address);
}

void ConnectionPage::close()
{
    for (const LinkPanel& each : qAsConst(m_panels))
        each.widget->setEnabled(true);
    emit closed();
}

void ConnectionPage::frame(qint64 now)
{
    if (!m_simulator || m_second.passed(now) == 0)
        return;
    const SimulatedLink::Counters& counters = m_simulator->link.counters();
    m_counters->setText(tr("%1 requests sent, %2 answered\n%3 requests and %4 replies lost\n"
                           "%5 duplicates, %6 late and %7 foreign replies")
                            .arg(counters.sent)
                            .arg(m_link.answers())
                            .arg(counters.requestsLost)
                            .arg(counters.repliesLost)
                            .arg(counters.duplicated)
                            .arg(counters.late)
                            .arg(counters.foreign));
}
