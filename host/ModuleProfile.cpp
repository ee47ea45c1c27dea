#include "ModuleProfile.h"

#include "Instruction.h"

#include <algorithm>

bool ModuleProfile::isMotion(const Command& request) const
{
    const auto is = [&request](Instruction instruction) {
        return carries(request.getCommand(), instruction);
    };
    const bool isTarget =
        std::find(targets.begin(), targets.end(), u8(request.getType())) != targets.end();
    return is(Instruction::ROR) || is(Instruction::ROL) || is(Instruction::MVP) ||
           (is(Instruction::SAP) && isTarget);
}
