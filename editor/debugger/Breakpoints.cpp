#include "editor/debugger/Breakpoints.h"

#include <QFileInfo>

namespace debugger {

void Breakpoints::changed()
{
    ++m_generation;
    m_canonical.clear();
}

void Breakpoints::add(const QString& file, int line)
{
    if (m_all.try_emplace({file, line}).second)
        changed();
}

void Breakpoints::remove(const QString& file, int line)
{
    if (m_all.erase({file, line}) != 0)
        changed();
}

void Breakpoints::setEnabled(const Place& place, bool enabled)
{
    const auto found = m_all.find(place);
    if (found == m_all.end() || found->second.enabled == enabled)
        return;
    found->second.enabled = enabled;
    changed();
}

void Breakpoints::setCondition(const Place& place, const QString& condition)
{
    const auto found = m_all.find(place);
    if (found != m_all.end())
        found->second.condition = condition.trimmed();
}

void Breakpoints::setRunTo(std::optional<Place> place)
{
    if (m_runTo == place)
        return;
    m_runTo = std::move(place);
    changed();
}

const QString& Breakpoints::canonical(const QString& file) const
{
    auto known = m_canonical.find(file);
    if (known == m_canonical.end())
        known = m_canonical.insert(file, file.isEmpty() ? QString() : QFileInfo(file).canonicalFilePath());
    return *known;
}

bool Breakpoints::sameFile(const QString& codeFile, const QString& file) const
{
    if (codeFile == file)
        return true;
    // A copy: looking up the second name may move the first one.
    const QString left = canonical(codeFile);
    return !left.isEmpty() && left == canonical(file);
}

std::set<int> Breakpoints::linesOf(const QString& codeFile) const
{
    std::set<int> lines;
    for (const auto& [place, settings] : m_all)
        if (settings.enabled && sameFile(codeFile, place.first))
            lines.insert(place.second);
    if (m_runTo && sameFile(codeFile, m_runTo->first))
        lines.insert(m_runTo->second);
    return lines;
}

const Breakpoints::Map::value_type* Breakpoints::find(const QString& codeFile, int line) const
{
    for (const auto& breakpoint : m_all)
        if (breakpoint.first.second == line && breakpoint.second.enabled && sameFile(codeFile, breakpoint.first.first))
            return &breakpoint;
    return nullptr;
}

bool Breakpoints::isRunTo(const QString& codeFile, int line) const
{
    return m_runTo && m_runTo->second == line && sameFile(codeFile, m_runTo->first);
}

} // namespace debugger
