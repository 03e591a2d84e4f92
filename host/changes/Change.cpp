#include "host/changes/Change.h"

namespace hv {

Result<void> ChangeStep::undo()
{
    for (std::size_t undone = m_changes.size(); undone > 0; --undone) {
        const Result<void> done = m_changes[undone - 1]->undo();
        if (done)
            continue;
        // What stood before can be made again: nothing has come in between.
        for (std::size_t again = undone; again < m_changes.size(); ++again)
            static_cast<void>(m_changes[again]->redo());
        return done;
    }
    return {};
}

Result<void> ChangeStep::redo()
{
    for (std::size_t next = 0; next < m_changes.size(); ++next) {
        const Result<void> done = m_changes[next]->redo();
        if (done)
            continue;
        for (std::size_t back = next; back > 0; --back)
            static_cast<void>(m_changes[back - 1]->undo());
        return done;
    }
    return {};
}

} // namespace hv
