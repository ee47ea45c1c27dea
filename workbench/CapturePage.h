#ifndef CAPTUREPAGE_H
#define CAPTUREPAGE_H

#include "Page.h"

class ModuleLink;
class QLabel;
class WRamDebug;

/// The RAM capture tool on the module's recorder. Its requests wait for their answers, and the
/// module's clock runs on meanwhile.
class CapturePage : public Page
{
    Q_OBJECT
public:
    explicit CapturePage(ModuleLink& link);

    void setAddress(char address) override;
    void refresh() override;

private:
    void answer(Command* request, Command* reply);

    ModuleLink& m_link;
    WRamDebug* m_panel;
    QLabel* m_progress;
    int m_fetched = 0;
};

#endif
