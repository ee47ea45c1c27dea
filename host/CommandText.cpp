#include "CommandText.h"

#include "Command.h"
#include "Instruction.h"
#include "Recorder.h"

namespace
{

QString mnemonic(char command)
{
    for (const InstructionName& name : InstructionNames) {
        if (carries(command, name.instruction))
            return QString::fromLatin1(name.mnemonic);
    }
    return QStringLiteral("instruction %1").arg(u8(command));
}

QString statusText(char status)
{
    switch (static_cast<ReplyStatus>(u8(status))) {
    case ReplyStatus::Ok:
        return QStringLiteral("ok");
    case ReplyStatus::UnknownInstruction:
        return QStringLiteral("unknown instruction");
    case ReplyStatus::UnknownType:
        return QStringLiteral("unknown type");
    case ReplyStatus::UnknownBank:
        return QStringLiteral("unknown motor or bank");
    case ReplyStatus::OutOfRange:
        return QStringLiteral("value out of range");
    case ReplyStatus::ReadOnly:
        return QStringLiteral("read only");
    case ReplyStatus::NotStorable:
        return QStringLiteral("cannot be stored");
    case ReplyStatus::Fault:
        return QStringLiteral("could not be carried out");
    }
    return QStringLiteral("unknown status");
}

struct RecorderOperation {
    bool isRead;
    const char* bank; // what stands in the byte of the motor bank
};

RecorderOperation recorderOperation(char type)
{
    switch (static_cast<Recorder::Type>(u8(type))) {
    case Recorder::Type::Sample:
        return {true, "item"};
    case Recorder::Type::Arm:
        return {false, "trigger"};
    case Recorder::Type::Mode:
    case Recorder::Type::Interval:
        return {false, "axis"};
    default:
        return {true, "axis"};
    }
}

} // namespace

bool isRead(const Command& request)
{
    const auto is = [&request](Instruction instruction) {
        return carries(request.getCommand(), instruction);
    };
    return is(Instruction::GAP) || is(Instruction::GGP) || is(Instruction::GIO) ||
           (is(Instruction::RD) && recorderOperation(request.getType()).isRead);
}

QString requestText(const Command& request)
{
    const char* bank = carries(request.getCommand(), Instruction::RD)
                           ? recorderOperation(request.getType()).bank
                           : "axis";
    return QStringLiteral("%1 %2 = %3, %4 %5")
        .arg(mnemonic(request.getCommand()))
        .arg(u8(request.getType()))
        .arg(request.getValue())
        .arg(QLatin1String(bank))
        .arg(u8(request.getMotorBank()));
}

QString replyText(const Command& reply)
{
    return QStringLiteral("value %1, status %2 (%3)")
        .arg(reply.getValue())
        .arg(u8(reply.getStatus()))
        .arg(statusText(reply.getStatus()));
}
