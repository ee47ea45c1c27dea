#ifndef INSTRUCTION_H
#define INSTRUCTION_H

#include "Bytes.h"

/// Instruction numbers of the AXRL device language. The numbers have gaps: they are no indices.
enum class Instruction : quint8 {
    ROR = 1,
    ROL = 2,
    MST = 3,
    MVP = 4,
    SAP = 5,
    GAP = 6,
    STAP = 7,
    RSAP = 8,
    SGP = 9,
    GGP = 10,
    STGP = 11,
    RSGP = 12,
    RFS = 13,
    SIO = 14,
    GIO = 15,
    CALC = 19,
    COMP = 20,
    JC = 21,
    JA = 22,
    CSUB = 23,
    RSUB = 24,
    EI = 25,
    DI = 26,
    WAIT = 27,
    STOP = 28,
    SAC = 29,
    SCO = 30,
    GCO = 31,
    CCO = 32,
    CALCX = 33,
    AAP = 34,
    AGP = 35,
    CLE = 36,
    VECT = 37,
    RETI = 38,
    ACO = 39,
    UF0 = 64,
    UF1 = 65,
    UF2 = 66,
    UF3 = 67,
    UF4 = 68,
    UF5 = 69,
    UF6 = 70,
    UF7 = 71,
    RD = 142
};

/// Sub-types of MVP.
enum class MoveType : quint8 { Absolute = 0, Relative = 1 };

/// Status byte of a reply. Everything but Ok is a failure, and a request that failed has changed
/// nothing.
enum class ReplyStatus : quint8 {
    UnknownInstruction = 10,
    UnknownType = 11, ///< No such parameter, channel or move type.
    UnknownBank = 12, ///< No such axis or bank.
    OutOfRange = 13,  ///< The value lies outside the parameter's range.
    ReadOnly = 14,    ///< The parameter cannot be written.
    NotStorable = 15, ///< The parameter cannot be stored or restored.
    Fault = 16,       ///< The module could not carry it out; only bad weather says so.
    Ok = 100
};

/// Reply status of success; everything else is a failure.
constexpr auto StatusOk = static_cast<quint8>(ReplyStatus::Ok);

constexpr char toByte(Instruction instruction) { return static_cast<char>(instruction); }

constexpr char toByte(MoveType moveType) { return static_cast<char>(moveType); }

/// True when a byte that travelled as `char` carries this instruction.
constexpr bool carries(char byte, Instruction instruction)
{
    return u8(byte) == static_cast<quint8>(instruction);
}

/// An instruction with its name in the device language.
struct InstructionName {
    Instruction instruction;
    const char* mnemonic;
};

/// All 45 instructions, by number.
constexpr InstructionName InstructionNames[] = {
#define AXR_INSTRUCTION(name)                                                                      \
    {                                                                                              \
        Instruction::name, #name                                                                   \
    }
    AXR_INSTRUCTION(ROR),  AXR_INSTRUCTION(ROL),   AXR_INSTRUCTION(MST),  AXR_INSTRUCTION(MVP),
    AXR_INSTRUCTION(SAP),  AXR_INSTRUCTION(GAP),   AXR_INSTRUCTION(STAP), AXR_INSTRUCTION(RSAP),
    AXR_INSTRUCTION(SGP),  AXR_INSTRUCTION(GGP),   AXR_INSTRUCTION(STGP), AXR_INSTRUCTION(RSGP),
    AXR_INSTRUCTION(RFS),  AXR_INSTRUCTION(SIO),   AXR_INSTRUCTION(GIO),  AXR_INSTRUCTION(CALC),
    AXR_INSTRUCTION(COMP), AXR_INSTRUCTION(JC),    AXR_INSTRUCTION(JA),   AXR_INSTRUCTION(CSUB),
    AXR_INSTRUCTION(RSUB), AXR_INSTRUCTION(EI),    AXR_INSTRUCTION(DI),   AXR_INSTRUCTION(WAIT),
    AXR_INSTRUCTION(STOP), AXR_INSTRUCTION(SAC),   AXR_INSTRUCTION(SCO),  AXR_INSTRUCTION(GCO),
    AXR_INSTRUCTION(CCO),  AXR_INSTRUCTION(CALCX), AXR_INSTRUCTION(AAP),  AXR_INSTRUCTION(AGP),
    AXR_INSTRUCTION(CLE),  AXR_INSTRUCTION(VECT),  AXR_INSTRUCTION(RETI), AXR_INSTRUCTION(ACO),
    AXR_INSTRUCTION(UF0),  AXR_INSTRUCTION(UF1),   AXR_INSTRUCTION(UF2),  AXR_INSTRUCTION(UF3),
    AXR_INSTRUCTION(UF4),  AXR_INSTRUCTION(UF5),   AXR_INSTRUCTION(UF6),  AXR_INSTRUCTION(UF7),
    AXR_INSTRUCTION(RD),
#undef AXR_INSTRUCTION
};

#endif
