#ifndef ZIGBEENODE_H
#define ZIGBEENODE_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class ZigBeeNode;
}

/// The address of a radio node as four bytes, 0..255 each, byte 3 in front, and below them in
/// hexadecimal digits. That text is "0x0:0:0:0:0:0" until a byte changes for the first time, also
/// by the constructor; then it is that of the four bytes, such as "0x:4:3:ff:1". Without parent:
/// the host that creates it owns it.
class AXRGUI_EXPORT ZigBeeNode : public QWidget
{
    Q_OBJECT
public:
    /// All bytes 0.
    ZigBeeNode();
    /// Four bytes, byte 0 first, which are copied. A null pointer stands for four zeros.
    explicit ZigBeeNode(const char* bytes);
    ~ZigBeeNode() override;

    /// Title of the group box, default "ZigBeeNode".
    void setTitle(QString title);

    /// Whether the user can edit byte `index`, 0..3; default true. Other indices are ignored.
    void setMACByteEnabled(int index, bool enabled);

Q_SIGNALS:
    /// "Set address" was clicked. The four bytes as they are shown, byte 0 first, also those that
    /// the user cannot edit. They are valid during the emission only: connect directly and copy
    /// them.
    void setZigBeeDevice(char* bytes);

public Q_SLOTS:
    void on_sbMACByte3_valueChanged(int value);
    void on_sbMACByte2_valueChanged(int value);
    void on_sbMACByte1_valueChanged(int value);
    void on_sbMACByte0_valueChanged(int value);
    void on_btnSetAddress_clicked();

private:
    void showAddress();

    std::unique_ptr<Ui::ZigBeeNode> m_ui;
};

#endif
