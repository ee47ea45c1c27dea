#include "ConsolePage.h"

#include "Command.h"
#include "CommandText.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "WDirectMode.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace
{
constexpr int LogLines = 1000;
}

ConsolePage::ConsolePage(const PageContext& context)
    : m_console(new WDirectMode(this))
    , m_showReads(new QCheckBox(tr("Show reads too")))
    , m_log(new QPlainTextEdit)
{
    m_log->setObjectName(QStringLiteral("teTraffic"));
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(LogLines);
    m_log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_log->setPlaceholderText(tr("Nothing was sent yet."));
    auto* clear = new QPushButton(tr("Clear"));

    auto* tools = new QHBoxLayout;
    auto* caption = new QLabel(tr("Traffic"));
    caption->setBuddy(m_log);
    tools->addWidget(caption);
    tools->addStretch();
    tools->addWidget(m_showReads);
    tools->addWidget(clear);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_console);
    layout->addLayout(tools);
    layout->addWidget(m_log, 1);

    connect(&context.link, &ModuleLink::answered, this, &ConsolePage::logAnswer);
    connect(&context.link, &ModuleLink::gaveUp, this, &ConsolePage::logFailure);
    connect(clear, &QPushButton::clicked, m_log, &QPlainTextEdit::clear);
    connect(m_console, &WDirectMode::doRequest, this,
            [this](char address, char instruction, char type, char motorBank, int value) {
                emit command(Command(address, instruction, type, motorBank, value));
            });
}

void ConsolePage::setAddress(char address) { m_console->setAddress(address); }

void ConsolePage::take(const Command& reply)
{
    m_console->requestedCommand(reply.getAddress(), reply.getCommand(), reply.getType(),
                                reply.getMotorBank(), reply.getStatus(), reply.getValue());
}

void ConsolePage::logAnswer(const Command& request, const Command& reply)
{
    if (!isRead(request) || m_showReads->isChecked() || u8(reply.getStatus()) != StatusOk)
        addLine(requestText(request) + QStringLiteral("   ->   ") + replyText(reply));
}

void ConsolePage::logFailure(const Command& request, const QString& reason)
{
    addLine(requestText(request) + QStringLiteral("   ->   ") + reason);
}

void ConsolePage::addLine(const QString& line) { m_log->appendPlainText(line); }
