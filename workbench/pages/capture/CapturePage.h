#ifndef CAPTUREPAGE_H
#define CAPTUREPAGE_H

#include "Page.h"

#include <QPointer>

class ModuleLink;
class QPushButton;
class WRamDebug;

/// The RAM capture tool on the module's recorder. Its requests wait for their answers, and the
/// module's clock runs on meanwhile. What became of a capture is counted from the requests that
/// pass here.
///
/// A capture that is stopped here is given up and its axis stopped, whereas the panel alone would
/// still give the end target or drive back. So is one whose panel goes.
class CapturePage : public Page
{
    Q_OBJECT
public:
    explicit CapturePage(const PageContext& context);
    ~CapturePage() override;

    void giveUp() override;
    void setAddress(char address) override;
    void refresh() override;
    void tour(TourGuide& guide) override;

    /// Samples that came of the capture that runs or ran last, and those that did not come.
    int fetched() const { return m_fetched; }
    int missing() const { return m_missing; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin();
    void end();
    void halt();
    void stopAxis();
    void answer(Command* request, Command* reply);
    void count(const Command& request, const Command& reply);

    ModuleLink& m_link;
    QPointer<WRamDebug> m_panel;
    char m_address = 1;
    QPushButton* m_start; // usable whenever no capture runs
    bool m_isRunning = false;
    int m_elements = 0;
    int m_items = 0;
    int m_fetched = 0;
    int m_missing = 0;
};

#endif
