#include "Bytes.h"
#include "CANConnection.h"
#include "Connection.h"
#include "EthernetConnection.h"
#include "SerialConnection.h"
#include "TestCase.h"
#include "User.h"
#include "ZigBeeNode.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
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

void click(const QWidget& panel, const QString& button)
{
    User::click(User::find<QPushButton>(&panel, button));
}

/// Notes each signal of a panel with what its buttons show during the emission.
template <class Panel>
void record(Panel& panel, QStringList& lines)
{
    const auto note = [&panel, &lines](const auto&... values) {
        lines << QStringList{QVariant(values).toString()..., shown(panel)}.join(' ');
    };
    QObject::connect(&panel, &Panel::openDevice, note);
    QObject::connect(&panel, &Panel::closeDevice, [note] { note("close"); });
}

/// One list for the two panels with devices: what differs is what a click on "Connect" opens.
template <class Panel>
void checkDeviceList(const QString& opened)
{
    Panel panel;
    QStringList lines;
    record(panel, lines);
    auto* devices = User::find<QComboBox>(&panel, "cmbDevices");
    panel.on_btnConnect_clicked();
    lines << shown(panel);
    panel.addDevice("COM1", "");
    panel.addDevice("COM2", "USB adapter");
    panel.addDevice("com1", " padded");
    QCOMPARE(devices->itemText(2), QString("com1 []"));
    QCOMPARE(devices->itemText(1), QString("COM2 [USB]"));
    QCOMPARE(devices->itemData(1), QVariant(QVariantList{"COM2", "USB adapter"}));

    devices->setCurrentIndex(1);
    click(panel, "btnConnect");
    click(panel, "btnDisconnect");
    click(panel, "btnConnect");
    for (const char* port : {"Com1", "com1", "COM2", "COM1"}) {
        panel.removeDevice(port);
        lines << shown(panel);
    }
    const QString open = opened + " -+";
    QCOMPARE(lines, (QStringList{"--", open, "close +-", open, "-+", "-+", "+-", "--"}));

    panel.setConnected();
    panel.addDevice("COM4", "");
    panel.clearDeviceList();
    QCOMPARE(devices->count(), 0);
    QCOMPARE(shown(panel), QString("++"));
}

} // namespace

class ConnectionPanelsTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void deviceLists()
    {
        checkDeviceList<Connection>("COM2");
        QCOMPARE(debugLines().first(), QString("WConnection::addDevice(COM1, )"));
        checkDeviceList<SerialConnection>("COM2 9600 1");
    }

    void serialAndCanParameters()
    {
        SerialConnection serial;
        CANConnection can;
        QStringList signalled;
        record(serial, signalled);
        record(can, signalled);
        serial.addDevice("tty", "");
        User::find<QComboBox>(&serial, "cmbBaudrates")->setCurrentIndex(6);
        User::find<QSpinBox>(&serial, "sbAddress")->setValue(300);
        click(serial, "btnConnect");
        click(can, "btnConnect");
        can.deviceClosed();
        can.clearAllBitrates();
        can.addBitrate(800);
        User::find<QSpinBox>(&can, "sbSendId")->setValue(200);
        click(can, "btnConnect");
        click(can, "btnDisconnect");
        QCOMPARE(signalled.join(", ").remove(" -+"),
                 QString("tty 115200 255, 1000 1 2, 800 200 2, close +-"));
    }

    void ethernetLink()
    {
        EthernetConnection panel;
        QStringList signalled;
        record(panel, signalled);
        click(panel, "btnConnect");
        panel.setDefaultIPAddress(toByte(200), toByte(0), toByte(128), toByte(255));
        auto* field = User::find<QSpinBox>(&panel, "sbPort");
        for (int port : {0, 32767, 32768, 65535, 65536}) {
            field->setValue(port);
            panel.on_btnConnect_clicked();
            panel.setDefaultPort(static_cast<short>(port));
            QCOMPARE(field->value(), port % 65536);
        }
        panel.handleConnectionRefused();
        QCOMPARE(signalled.join(", ").remove(" -+").remove("200.0.128.255 "),
                 QString("192.168.1.1 1500, 0, 32767, -32768, -1, 0"));
        QCOMPARE(shown(panel), QString("+-"));
    }

    void ethernetAddressByKeys()
    {
        EthernetConnection panel;
        panel.show();
        panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        const auto field = [&panel](int byte) {
            return User::find<QSpinBox>(&panel, QString("sbIPByte%1").arg(byte));
        };
        const auto type = [](const QString& keys) {
            for (QChar key : keys)
                QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
        };
        const auto shownAddress = [&] {
            QStringList bytes;
            for (int byte : {3, 2, 1, 0})
                bytes << field(byte)->text();
            return bytes.join('.');
        };
        field(3)->setFocus();
        field(3)->selectAll();
        type("10.0.0.5.");
        QCOMPARE(shownAddress(), QString("10.0.0.5"));
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
        type("7");
        QCOMPARE(shownAddress(), QString("10.0.07.5"));
        QCOMPARE(QApplication::focusWidget(), field(1));

        const struct {
            const char* pasted;
            const char* shown;
        } pastes[] = {{" 192.168.2.30\n", "192.168.2.30"},
                      {"1.2.3.256", "192.168.2.30"},
                      {"1.2.3", "192.168.2.30"},
                      {"1.-2.3.4", "192.168.2.30"},
                      {"8", "192.168.82.30"}};
        for (const auto& [pasted, expected] : pastes) {
            QApplication::clipboard()->setText(pasted);
            auto* edit = field(1)->findChild<QLineEdit*>();
            edit->setCursorPosition(0);
            edit->paste();
            QCOMPARE(shownAddress(), QString(expected));
        }
        QCOMPARE(field(1)->value(), 82);
    }

    void focusGoesFromButtonToButton()
    {
        CANConnection panel;
        QStringList lines;
        record(panel, lines);
        auto* connects = User::find<QPushButton>(&panel, "btnConnect");
        auto* disconnects = User::find<QPushButton>(&panel, "btnDisconnect");
        auto* field = User::find<QSpinBox>(&panel, "sbSendId");
        connect(field, &QSpinBox::editingFinished, [&lines] { lines << "edited"; });
        panel.show();
        connects->setFocus();
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
        QCOMPARE(lines, (QStringList{"1000 1 2 -+", "close +-", "1000 1 2 -+"}));
        QCOMPARE(panel.focusWidget(), disconnects);
        panel.deviceClosed();
        panel.deviceClosed();
        QCOMPARE(panel.focusWidget(), connects);
        field->setFocus();
        panel.setConnected();
        QCOMPARE(panel.focusWidget(), field);
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
        for (QWidget* panel : QWidgetList{&connection, &serial, &can, &ethernet, &node}) {
            panel->show();
            sizes << QString("%1x%2").arg(panel->width()).arg(panel->height());
        }
        QCOMPARE(sizes.join(" "), QString("198x106 198x173 198x160 285x106 256x106"));
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

    void hostMayDeleteThePanelInsideItsSignals()
    {
        QPointer<QWidget> connection = new Connection;
        auto* devices = static_cast<Connection*>(connection.data());
        devices->addDevice("COM1", "");
        connect(devices, &Connection::openDevice, [devices] { delete devices; });
        User::find<QPushButton>(devices, "btnConnect")->click();
        QPointer<QWidget> can = new CANConnection;
        auto* canPanel = static_cast<CANConnection*>(can.data());
        connect(canPanel, &CANConnection::closeDevice, [canPanel] { delete canPanel; });
        canPanel->setConnected();
        User::find<QPushButton>(canPanel, "btnDisconnect")->click();
        QVERIFY(!connection && !can);
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
        click(node, "btnSetAddress");
        QCOMPARE(sent, QByteArray("\x01\xff\x03\x04", 4));
        for (int index : {-1, 4, 2})
            node.setMACByteEnabled(index, false);
        for (int index = 0; index < 4; ++index)
            QCOMPARE(field(index)->isEnabled(), index != 2);
    }
};

AXR_TEST_MAIN(ConnectionPanelsTest)
#include "ConnectionPanelsTest.moc"
