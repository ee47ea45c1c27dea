#include "TraceList_p.h"

#include "TraceCommand.h"
#include "ValueKey.h"

#include <algorithm>

TraceCommand* TraceList::find(const TraceCommand& wanted) const
{
    const auto found =
        std::find_if(m_commands.begin(), m_commands.end(), [&wanted](const TraceCommand* entry) {
            return entry && isSameValue(*entry, wanted);
        });
    return found == m_commands.end() ? nullptr : *found;
}

TraceCommand* TraceList::next()
{
    if (m_commands.isEmpty())
        return nullptr;
    if (m_index >= m_commands.size())
        m_index = 0;
    return m_commands.at(m_index++);
}
