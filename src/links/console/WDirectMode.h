#ifndef WDIRECTMODE_H
#define WDIRECTMODE_H

#include "AXRGuiExport.h"
#include "ValueKey.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class WDirectMode;
}

/// Console for single instructions: the user composes one by hand, sends it and sees the reply
/// beside it. Any combination of type, motor/bank and value goes out unchecked. Bytes show as
/// 0..255. All operations and slots but the click on "Send" are silent.
class AXRGUI_EXPORT WDirectMode : public QWidget
{
    Q_OBJECT
public:
    explicit WDirectMode(QWidget* parent = nullptr);
    ~WDirectMode() override;

    /// Module address of the next request, an unsigned byte, default 1. The user cannot edit it.
    void setAddress(char address);
    char getAddress() const;

Q_SIGNALS:
    /// The user's request. The host may answer inside the emission, and may delete the console.
    void doRequest(char address, char command, char type, char motorBank, int value);

public Q_SLOTS:
    /// Makes the composed instruction the pending request, in place of an older one, and emits
    /// doRequest().
    void on_btnSend_clicked();

    /// The host's direct answer: shown without any test, and the request stays pending. `type` is
    /// not shown, its field holds the status. -2147483648 shows as -2147483647 behind a sign.
    void requestResult(char address, char command, char type, char status, char motorBank,
                       int value);

    /// A reply from the stream of all replies. Ignored unless command, type and motor/bank are
    /// those of the pending request (the address is not compared), and always while none is
    /// pending, even if all three are 0: there is no instruction 0. One request shows one reply.
    void requestedCommand(char address, char command, char type, char motorBank, char status,
                          int data);

private:
    void showReply(char address, char command, char status, char motorBank, int value);

    std::unique_ptr<Ui::WDirectMode> m_ui;
    ValueKey m_pending; // without an address; command 0 while no request is
};

#endif
