#ifndef CONSOLEPAGE_H
#define CONSOLEPAGE_H

#include "Page.h"

class QCheckBox;
class QPlainTextEdit;
class WDirectMode;

/// The instruction console, with a log of what went to the module and what it answered.
class ConsolePage : public Page
{
    Q_OBJECT
public:
    explicit ConsolePage(const PageContext& context);

    void setAddress(char address) override;
    void take(const Command& reply) override;
    void tour(TourGuide& guide) override;

private:
    void logAnswer(const Command& request, const Command& reply);
    void logFailure(const Command& request, const QString& reason);
    void addLine(const QString& line);

    WDirectMode* m_console;
    QCheckBox* m_showReads;
    QPlainTextEdit* m_log;
};

#endif
