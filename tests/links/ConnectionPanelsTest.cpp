#include "Bytes.h"
#include "CANConnection.h"
#include "Connection.h"
#include "EthernetConnection.h"
#include "SerialConnection.h"
#include "TestCase.h"
#include "User.h"
#include "ZigBeeNode.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace
{

QPushButton* button(const QWidget& panel, const char* name)
{
    return User::find<QPushButton>(&panel, name);
}

QComboBox* devices(const QWidget& panel) { return User::find<QComboBox>(&panel, "cmbDevices"); }

/// The state of the link that the two buttons show.
QString shown(const QWidget& panel)
{
    const bool connect = button(panel, "btnConnect")->isEnabled();
    const bool disconnect = button(panel, "btnDisconnect")->isEnabled();
    if (connect && disconnect)
        return "both";
    return connect ? "disconnected" : disconnect ? "connected" : "no device";
}

/// Notes each signal of a panel with the state that its buttons show during the emission.
class LinkHost : public QObject
{
    Q_OBJECT
public:
    explicit LinkHost(QWidget* panel, const char* openSignal, const char* openSlot) : m_panel(panel)
    {
        m_wired = connect(panel, openSignal, this, openSlot) &&
                  connect(panel, SIGNAL(closeDevice()), this, SLOT(close()));
    }

    bool isWired() const { return m_wired; }

    QStringList takeLines() { return std::exchange(m_lines, {}); }

public Q_SLOTS:
    void open(QString port) { note("open " + port); }
    void open(QString port, int baudrate, int address)
    {
        note(QString("open %1 %2 %3").arg(port).arg(baudrate).arg(address));
    }
    void open(int bitrate, int sendID, int receiveID)
    {
        note(QString("open %1 %2 %3").arg(bitrate).arg(sendID).arg(receiveID));
    }
    void open(const QString& ipAddress, qint16 port)
    {
        note(QString("open %1 %2").arg(ipAddress).arg(port));
    }
    void close() { note("close"); }

private:
    void note(const QString& text) { m_lines << text + ", " + shown(*m_panel); }

    QWidget* m_panel;
    QStringList m_lines;
    bool m_wired;
};

void click(const QWidget& panel, const char* name) { User::click(button(panel, name)); }

/// One list for the two panels with devices: what differs is the answer to a click on "Connect".
template <class Panel>
void checkDeviceList(Panel& panel, LinkHost& host, const QString& opened)
{
    QVERIFY(host.isWired());
    QCOMPARE(shown(panel), QString("no device"));
    QMetaObject::invokeMethod(&panel, "on_btnConnect_clicked");
    QCOMPARE(host.takeLines(), QStringList());
    QCOMPARE(shown(panel), QString("no device"));

    panel.addDevice("COM1", "");
    QCOMPARE(shown(panel), QString("disconnected"));
    panel.addDevice("COM2", "USB adapter");
    panel.addDevice("com1", " padded");
    QStringList texts;
    for (int i = 0; i < devices(panel)->count(); ++i)
        texts << devices(panel)->itemText(i);
    QCOMPARE(texts, (QStringList{"COM1", "COM2 [USB]", "com1 []"}));
    QCOMPARE(devices(panel)->itemData(1, Qt::UserRole),
             QVariant(QVariantList{QString("COM2"), QString("USB adapter")}));

    devices(panel)->setCurrentIndex(1);
    click(panel, "btnConnect");
    QCOMPARE(host.takeLines(), QStringList(opened + ", connected"));

    panel.removeDevice("Com1");
    QCOMPARE(devices(panel)->count(), 3);
    panel.removeDevice("com1");
    QCOMPARE(devices(panel)->count(), 2);
    QCOMPARE(shown(panel), QString("connected"));
    panel.addDevice("COM3", "");
    QCOMPARE(shown(panel), QString("connected"));
    panel.removeDevice("COM2");
    QCOMPARE(shown(panel), QString("disconnected"));

    click(panel, "btnConnect");
    host.takeLines();
    click(panel, "btnDisconnect");
    QCOMPARE(host.takeLines(), QStringList("close, disconnected"));

    panel.removeDevice("COM3");
    panel.removeDevice("COM1");
    QCOMPARE(shown(panel), QString("no device"));

    panel.setConnected();
    panel.addDevice("COM4", "");
    QCOMPARE(shown(panel), QString("both"));
    panel.setConnected();
    panel.clearDeviceList();
    QCOMPARE(devices(panel)->count(), 0);
    QCOMPARE(shown(panel), QString("connected"));
    QCOMPARE(host.takeLines(), QStringList());
}

/// A host may close the whole page inside its handler.
template <class Panel>
void checkDeletionInSignal(const char* slot, const std::function<void(Panel&)>& prepare = {})
{
    QPointer<Panel> panel = new Panel;
    if (prepare)
        prepare(*panel);
    const auto remove = [&] { delete panel; };
    QObject::connect(panel, &Panel::openDevice, panel, remove);
    QObject::connect(panel, &Panel::closeDevice, panel, remove);
    QMetaObject::invokeMethod(panel, slot);
    QVERIFY(!panel);
}

} // namespace

class ConnectionPanelsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void connectionList()
    {
        Connection panel;
        LinkHost host(&panel, SIGNAL(openDevice(QString)), SLOT(open(QString)));
        checkDeviceList(panel, host, "open COM2");
        panel.deviceClosed();
        QCOMPARE(shown(panel), QString("disconnected"));
    }

    void serialList()
    {
        SerialConnection panel;
        LinkHost host(&panel, SIGNAL(openDevice(QString, int, int)), SLOT(open(QString, int, int)));
        checkDeviceList(panel, host, "open COM2 9600 1");
    }

    void serialParameters()
    {
        SerialConnection panel;
        LinkHost host(&panel, SIGNAL(openDevice(QString, int, int)), SLOT(open(QString, int, int)));
        auto* rates = User::find<QComboBox>(&panel, "cmbBaudrates");
        QCOMPARE(rates->count(), 7);
        panel.addDevice("tty", "");
        rates->setCurrentIndex(6);
        User::find<QSpinBox>(&panel, "sbAddress")->setValue(300);
        click(panel, "btnConnect");
        QCOMPARE(host.takeLines(), QStringList("open tty 115200 255, connected"));
    }

    void listIsLogged()
    {
        Connection panel;
        panel.addDevice("COM1", "text");
        panel.addDevice("COM2", "");
        panel.removeDevice("COM2");
        click(panel, "btnConnect");
        const QStringList lines = debugLines();
        QCOMPARE(lines.size(), 7);
        QCOMPARE(lines.at(0), QString("WConnection::addDevice(COM1, text)"));
        QVERIFY(lines.at(2).startsWith("item[0]: "));
        QVERIFY(lines.at(2).contains("COM1"));
        QCOMPARE(lines.at(3), QString("port: COM1 description: text"));
        QVERIFY(lines.at(4).startsWith("item[1]: "));
        QCOMPARE(lines.at(5), QString("port: COM2 description: "));
        QCOMPARE(lines.at(6), QString("connect to: COM1"));
        SerialConnection().addDevice("tty", "");
        QVERIFY(debugLines().last().startsWith("WSerialConnection::addDevice("));
    }

    void canLink()
    {
        CANConnection panel;
        LinkHost host(&panel, SIGNAL(openDevice(int, int, int)), SLOT(open(int, int, int)));
        QVERIFY(host.isWired());
        QCOMPARE(shown(panel), QString("disconnected"));
        auto* rates = User::find<QComboBox>(&panel, "cmbBitrate");
        QStringList texts;
        for (int i = 0; i < rates->count(); ++i)
            texts << rates->itemText(i);
        QCOMPARE(texts, QString("1000 500 250 125 100 50 20 10").split(' '));
        click(panel, "btnConnect");
        QCOMPARE(host.takeLines(), QStringList("open 1000 1 2, connected"));
        click(panel, "btnDisconnect");
        QCOMPARE(host.takeLines(), QStringList("close, disconnected"));

        panel.clearAllBitrates();
        panel.addBitrate(800);
        User::find<QSpinBox>(&panel, "sbSendId")->setValue(200);
        click(panel, "btnConnect");
        QCOMPARE(host.takeLines(), QStringList("open 800 200 2, connected"));
        panel.deviceClosed();
        QCOMPARE(shown(panel), QString("disconnected"));
        QCOMPARE(host.takeLines(), QStringList());
    }

    void ethernetLink()
    {
        EthernetConnection panel;
        LinkHost host(&panel, SIGNAL(openDevice(QString const&, qint16)),
                      SLOT(open(QString, qint16)));
        QVERIFY(host.isWired());
        QCOMPARE(shown(panel), QString("disconnected"));
        click(panel, "btnConnect");
        QCOMPARE(host.takeLines(), QStringList("open 192.168.1.1 1500, connected"));
        QCOMPARE(debugLines(), QStringList("connect to ip: 192.168.1.1 port: 1500"));
        panel.handleConnectionRefused();
        QCOMPARE(shown(panel), QString("disconnected"));
        QCOMPARE(host.takeLines(), QStringList());

        panel.setDefaultIPAddress(toByte(200), toByte(0), toByte(128), toByte(255));
        click(panel, "btnConnect");
        click(panel, "btnDisconnect");
        QCOMPARE(host.takeLines(),
                 (QStringList{"open 200.0.128.255 1500, connected", "close, disconnected"}));
    }

    void ethernetPortNarrows_data()
    {
        QTest::addColumn<int>("entered");
        QTest::addColumn<int>("emitted");
        QTest::newRow("zero") << 0 << 0;
        QTest::newRow("largest positive") << 32767 << 32767;
        QTest::newRow("smallest negative") << 32768 << -32768;
        QTest::newRow("last port") << 65535 << -1;
        QTest::newRow("past the last") << 65536 << 0;
        QTest::newRow("clamped") << 65537 << 0;
    }
    void ethernetPortNarrows()
    {
        QFETCH(int, entered);
        EthernetConnection panel;
        QSignalSpy opened(&panel, &EthernetConnection::openDevice);
        auto* port = User::find<QSpinBox>(&panel, "sbPort");
        port->setValue(entered);
        click(panel, "btnConnect");
        QTEST(int(opened.first().at(1).value<qint16>()), "emitted");
        panel.setDefaultPort(static_cast<short>(entered));
        QCOMPARE(port->value(), entered % 65536);
    }

    void titles()
    {
        Connection connection(QString("A"));
        SerialConnection serial(QString("B"));
        CANConnection can;
        EthernetConnection ethernet;
        ZigBeeNode node;
        can.setTitle("C");
        ethernet.setTitle("D");
        node.setTitle("E");
        QStringList titles;
        for (QWidget* panel :
             std::initializer_list<QWidget*>{&connection, &serial, &can, &ethernet, &node})
            titles << panel->findChild<QGroupBox*>()->title();
        QCOMPARE(titles.join(""), QString("ABCDE"));
    }

    void windowsKeepTheirSize()
    {
        Connection connection;
        SerialConnection serial;
        CANConnection can;
        EthernetConnection ethernet;
        ZigBeeNode node;
        const QString longName = QString("/dev/serial/by-id/").repeated(4);
        connection.addDevice(longName, "");
        serial.addDevice(longName, "");
        QStringList sizes;
        for (QWidget* panel :
             std::initializer_list<QWidget*>{&connection, &serial, &can, &ethernet, &node}) {
            panel->show();
            sizes << QString("%1x%2").arg(panel->width()).arg(panel->height());
        }
        QCOMPARE(sizes.join(" "), QString("198x106 198x173 198x160 285x106 256x106"));
    }

    void captionsFitTheirFixedWidth()
    {
        const SerialConnection panel;
        for (const char* name : {"lblPort", "lblBaudrate", "lblAddress"}) {
            const auto* label = User::find<QLabel>(&panel, name);
            QCOMPARE(label->minimumWidth(), 50);
            QVERIFY(label->sizeHint().width() <= label->maximumWidth());
        }
    }

    void hostDeletesThePanelInsideASignal()
    {
        checkDeletionInSignal<Connection>("on_btnConnect_clicked",
                                          [](Connection& panel) { panel.addDevice("COM1", ""); });
        checkDeletionInSignal<SerialConnection>(
            "on_btnConnect_clicked", [](SerialConnection& panel) { panel.addDevice("COM1", ""); });
        checkDeletionInSignal<CANConnection>("on_btnConnect_clicked");
        checkDeletionInSignal<EthernetConnection>("on_btnConnect_clicked");
        checkDeletionInSignal<EthernetConnection>("on_btnDisconnect_clicked");
    }

    void zigBeeAddress()
    {
        const char bytes[] = {1, 2, 3, toByte(0xAB)};
        ZigBeeNode node(bytes);
        const auto* text = User::find<QLabel>(&node, "lblMACinHEX");
        QCOMPARE(text->text(), QString("0x:ab:3:2:1"));
        User::find<QSpinBox>(&node, "sbMACByte3")->setValue(4);
        QCOMPARE(text->text(), QString("0x:4:3:2:1"));
        User::find<QSpinBox>(&node, "sbMACByte1")->setValue(255);

        QByteArray sent;
        connect(&node, &ZigBeeNode::setZigBeeDevice, this,
                [&](char* address) { sent += QByteArray(address, 4); });
        click(node, "btnSetAddress");
        QCOMPARE(sent, QByteArray("\x01\xff\x03\x04", 4));
    }

    void zigBeeStartsEmpty()
    {
        for (ZigBeeNode* node : {new ZigBeeNode, new ZigBeeNode(nullptr)}) {
            const QScopedPointer<ZigBeeNode> owner(node);
            QCOMPARE(User::find<QLabel>(node, "lblMACinHEX")->text(), QString("0x0:0:0:0:0:0"));
            for (int index : {-1, 4, 2})
                node->setMACByteEnabled(index, false);
            QString enabled;
            for (char digit : {'0', '1', '2', '3'}) {
                const QString name = QString("sbMACByte") + digit;
                enabled += User::find<QSpinBox>(node, name)->isEnabled() ? '+' : '-';
            }
            QCOMPARE(enabled, QString("++-+"));
        }
    }
};

AXR_TEST_MAIN(ConnectionPanelsTest)
#include "ConnectionPanelsTest.moc"
