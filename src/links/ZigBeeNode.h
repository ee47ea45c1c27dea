#ifndef ZIGBEENODE_H
#define ZIGBEENODE_H

#include "AXRGuiExport.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class ZigBeeNode;
}

/// The address of a radio node as four bytes, 0..255 each, byte 3 in front. Hosts create it
/// themselves: no other class of this library does.
class AXRGUI_EXPORT ZigBeeNode : public QWidget
{
    Q_OBJECT
public:
    /// All bytes 0. The text below them is "0x0:0:0:0:0:0" until the first change.
    ZigBeeNode();
    /// Four bytes, byte 0 first, which are copied. A null pointer stands for four zeros.
    explicit ZigBeeNode(const char* bytes);
    ~ZigBeeNode() override;

    /// Title of the group box, default "ZigBeeNode".
    void setTitle(QString title);

    /// Whether the user can edit byte `index`, 0..3; default true. Other indices are ignored.
    void setMACByteEnabled(int index, bool enabled);

Q_SIGNALS:
    /// The four bytes, byte 0 first. They are valid during the emission only: copy them.
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
