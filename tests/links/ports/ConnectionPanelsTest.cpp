#include "Bytes.h"
#include "CANConnection.h"
#include "Connection.h"
#include "EthernetConnection.h"
#include "PanelTable.h"
#include "SerialConnection.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "User.h"
#include "ZigBeeNode.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace
{

/// Whether the user can connect and disconnect: "+-" without a link.
QString shown(const QWidget& panel)
{
    QString signs;
    for (const char* name : {"btnConnect", "btnDisconnect"})
        signs += User::find<QPushButton>(&panel, name)->isEnabled() ? '+' : '-';
    return signs;
}

/// One list for the two panels with devices.
template <class Panel>
void checkDeviceList()
{
    Panel panel;
    auto* devices = User::find<QComboBox>(&panel, "cmbDevices");
    SignalLog signalled(&panel);
    panel.on_btnConnect_clicked();
    QStringList lines(shown(panel));
    panel.addDevice("COM1", "");
    panel.addDevice("COM2", "USB adapter");
    panel.addDevice("com1", " padded");
    QCOMPARE(devices->itemText(2), QString("com1 []"));
    QCOMPARE(devices->itemData(1), QVariant(QVariantList{"COM2", "USB adapter"}));
    devices->setCurrentIndex(1);
    panel.setConnected();
    for (const char* port : {"Com1", "com1", "COM2", "COM1"}) {
        panel.removeDevice(port);
        lines << shown(panel);
    }
    panel.setConnected();
    panel.addDevice("COM4", "");
    panel.clearDeviceList();
    lines << shown(panel);
    QCOMPARE(devices->count(), 0);
    QCOMPARE(lines, (QStringList{"--", "-+", "-+", "+-", "--", "++"}));
    QCOMPARE(signalled.takeLines(), QStringList());
}

} // namespace

class ConnectionPanelsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void panels_data()
    {
        QTest::addColumn<PanelRow>("row");
        QTest::newRow("Connection") << panelRow<Connection>(
            "openDevice(QString port) closeDevice() deviceClosed()",
            [](Connection& panel) {
                panel.setTitle("Link");
                panel.addDevice("COM1", "");
                panel.addDevice("COM2", "USB adapter");
            },
            R"(
            set up: gbConnection title Link; cmbDevices=COM1; btnConnect on
            cmbDevices choose COM2 [USB]: cmbDevices=COM2 [USB]
            btnConnect click: openDevice COM2; btnConnect off; btnDisconnect on
            btnDisconnect click: closeDevice; btnConnect on; btnDisconnect off
            btnConnect click: openDevice COM2; btnConnect off; btnDisconnect on
            deviceClosed: btnConnect on; btnDisconnect off)");
        QTest::newRow("SerialConnection") << panelRow<SerialConnection>(
            "openDevice(QString port, int baudrate, int address) closeDevice()",
            [](SerialConnection& panel) {
                panel.setTitle("Link");
                panel.addDevice("tty", "");
            },
            R"(
            set up: gbSerialConnection title Link; cmbDevices=tty; btnConnect on
            btnConnect click: openDevice tty 9600 1; btnConnect off; btnDisconnect on
            btnDisconnect click: closeDevice; btnConnect on; btnDisconnect off
            cmbBaudrates choose 115200: cmbBaudrates=115200
            sbAddress type 255: sbAddress=255
            btnConnect click: openDevice tty 115200 255; btnConnect off; btnDisconnect on)");
        QTest::newRow("CANConnection") << panelRow<CANConnection>(
            "openDevice(int bitrate, int sendID, int receiveID) closeDevice() deviceClosed()",
            [](CANConnection& panel) {
                panel.setTitle("Bus");
                panel.clearAllBitrates();
                panel.addBitrate(800);
            },
            R"(
            set up: gbConnection title Bus; cmbBitrate=800
            btnConnect click: openDevice 800 1 2; btnConnect off; btnDisconnect on
            btnDisconnect click: closeDevice; btnConnect on; btnDisconnect off
            sbSendId type 200: sbSendId=200
            sbReceiveId type 255: sbReceiveId=255
            btnConnect click: openDevice 800 200 255; btnConnect off; btnDisconnect on
            deviceClosed: btnConnect on; btnDisconnect off)");
        QTest::newRow("EthernetConnection") << panelRow<EthernetConnection>(
            "openDevice(QString ipAddress, short port) closeDevice() handleConnectionRefused()",
            [](EthernetConnection& panel) {
                panel.setTitle("Net");
                panel.setDefaultIPAddress(toByte(200), toByte(0), toByte(128), toByte(255));
                panel.setDefaultPort(static_cast<short>(65535));
            },
            R"(
            set up: gbEthernetConnection title Net; sbIPByte3=200; sbIPByte2=0; sbIPByte1=128;
                sbIPByte0=255; sbPort=65535
            btnConnect click: openDevice 200.0.128.255 -1; btnConnect off; btnDisconnect on
            btnDisconnect click: closeDevice; btnConnect on; btnDisconnect off
            sbPort type 32767: sbPort=32767
            btnConnect click: openDevice 200.0.128.255 32767; btnConnect off; btnDisconnect on
            handleConnectionRefused: btnConnect on; btnDisconnect off
            sbPort type 65536: sbPort=65536
            btnConnect click: openDevice 200.0.128.255 0; btnConnect off; btnDisconnect on)");
    }
    void panels()
    {
        QFETCH(PanelRow, row);
        checkPanel(row);
    }

    void deviceLists()
    {
        checkDeviceList<Connection>();
        QCOMPARE(debugLines().first(), QString("WConnection::addDevice(COM1, )"));
        checkDeviceList<SerialConnection>();
    }

    void ethernetAddressByKeys()
    {
        EthernetConnection panel;
        panel.show();
        panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QVector<QLineEdit*> edits;
        for (const char* name : {"sbIPByte3", "sbIPByte2", "sbIPByte1", "sbIPByte0"})
            edits << User::find<QSpinBox>(&panel, name)->findChild<QLineEdit*>();
        const auto shownAddress = [&edits] {
            QStringList bytes;
            for (const QLineEdit* edit : edits)
                bytes << edit->text();
            return bytes.join('.');
        };
        edits[0]->setFocus();
        edits[0]->selectAll();
        for (const char key : {'1', '0', '.', '0', '.', '0', '.', '5', '.', '\b', '\b', '7'})
            QTest::keyClick(QApplication::focusWidget(),
                            key == '\b' ? Qt::Key_Backspace : Qt::Key(key));
        QCOMPARE(shownAddress(), QString("10.0.07.5"));
        QCOMPARE(QApplication::focusWidget(), edits[2]->parentWidget());

        const QVector<QPair<const char*, const char*>> pastes = {
            {" 192.168.2.30\n", "192.168.2.30"},
            {"1.2.3.256", "192.168.2.30"},
            {"1.2.3", "192.168.2.30"},
            {"1.-2.3.4", "192.168.2.30"},
            {"8", "192.168.82.30"}};
        for (const auto& [pasted, expected] : pastes) {
            QApplication::clipboard()->setText(pasted);
            edits[2]->setCursorPosition(0);
            edits[2]->paste();
            QCOMPARE(shownAddress(), QString(expected));
        }
        QCOMPARE(User::find<QSpinBox>(&panel, "sbIPByte1")->value(), 82);
    }

    /// Also when the host looks at the panel inside its signal.
    void focusGoesFromButtonToButton()
    {
        CANConnection panel;
        auto* connects = User::find<QPushButton>(&panel, "btnConnect");
        auto* disconnects = User::find<QPushButton>(&panel, "btnDisconnect");
        auto* field = User::find<QSpinBox>(&panel, "sbSendId");
        QStringList lines;
        SignalLog log(&panel);
        log.onSignal([&](const QString& line) { lines << line + ' ' + shown(panel); });
        panel.show();
        connects->setFocus();
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
        QCOMPARE(lines, (QStringList{"openDevice 1000 1 2 -+", "closeDevice +-",
                                     "openDevice 1000 1 2 -+"}));
        QCOMPARE(panel.focusWidget(), disconnects);
        panel.deviceClosed();
        panel.deviceClosed();
        QCOMPARE(panel.focusWidget(), connects);
        field->setFocus();
        panel.setConnected();
        QCOMPARE(panel.focusWidget(), field);
    }

    void largeFontsAreNotCutOff()
    {
        QWidget window;
        auto* panel = new EthernetConnection(&window);
        auto* button = User::find<QPushButton>(panel, "btnDisconnect");
        window.show();
        for (const bool large : {false, true, false}) {
            window.setStyleSheet(large ? "QWidget {font-size: 24px}" : "QWidget {font-size: 12px}");
            QTRY_COMPARE(panel->maximumWidth() > 285 && panel->maximumHeight() > 106, large);
            QTRY_COMPARE(button->maximumWidth() > 65, large);
            QVERIFY(!large || button->maximumWidth() >= button->sizeHint().width());
        }
        QCOMPARE(panel->maximumSize(), QSize(285, 106));
    }

    void zigBeeAddress()
    {
        const ZigBeeNode empty(nullptr);
        QCOMPARE(User::find<QLabel>(&empty, "lblMACinHEX")->text(), QString("0x0:0:0:0:0:0"));
        const char bytes[] = {1, 2, 3, toByte(0xAB)};
        ZigBeeNode node(bytes);
        const auto* text = User::find<QLabel>(&node, "lblMACinHEX");
        QCOMPARE(text->text(), QString("0x:ab:3:2:1"));
        const auto field = [&node](int index) {
            return User::find<QSpinBox>(&node, QString("sbMACByte%1").arg(index));
        };
        field(3)->setValue(4);
        field(1)->setValue(255);
        QCOMPARE(text->text(), QString("0x:4:3:ff:1"));
        QByteArray sent;
        connect(&node, &ZigBeeNode::setZigBeeDevice, this,
                [&sent](char* address) { sent += QByteArray(address, 4); });
        User::click(User::find<QPushButton>(&node, "btnSetAddress"));
        QCOMPARE(sent, QByteArray("\x01\xff\x03\x04", 4));
        for (int index : {-1, 4, 2})
            node.setMACByteEnabled(index, false);
        for (int index = 0; index < 4; ++index)
            QCOMPARE(field(index)->isEnabled(), index != 2);
    }
};

AXR_TEST_MAIN(ConnectionPanelsTest)
#include "ConnectionPanelsTest.moc"
