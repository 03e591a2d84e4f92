#pragma once

#include "editor/debugger/BreakpointSettings.h"

#include <QHash>
#include <QString>

#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace debugger {

/// Where a breakpoint stands: the file's name as the editor gave it, and the line, 1-based.
using Place = std::pair<QString, int>;

/// The breakpoints, ordered by file name, then line, and the one line that the user wants to run to.
///
/// Code knows its file by the name it was compiled under, which may be another spelling of the editor's name (symbolic
/// links, relative search paths); names match when they are equal or lead to the same existing file. GUI thread only.
class Breakpoints
{
public:
    using Map = std::map<Place, BreakpointSettings>;

    void add(const QString& file, int line);
    /// Does nothing when there is none.
    void remove(const QString& file, int line);
    bool contains(const QString& file, int line) const { return m_all.count({file, line}) != 0; }
    const Map& all() const { return m_all; }

    /// Does nothing when there is none.
    void setEnabled(const Place& place, bool enabled);
    void setCondition(const Place& place, const QString& condition);

    void setRunTo(std::optional<Place> place);

    /// The lines at which code compiled under this name may have to stop.
    std::set<int> linesOf(const QString& codeFile) const;
    /// The enabled breakpoint that code of this name meets at the line; null when there is none.
    const Map::value_type* find(const QString& codeFile, int line) const;
    bool isRunTo(const QString& codeFile, int line) const;

    /// Changes with every change of the above; whoever keeps results compares.
    unsigned generation() const { return m_generation; }

private:
    void changed();
    const QString& canonical(const QString& file) const;
    bool sameFile(const QString& codeFile, const QString& file) const;

    Map m_all;
    std::optional<Place> m_runTo;
    unsigned m_generation = 1;
    mutable QHash<QString, QString> m_canonical; // of this generation
};

} // namespace debugger
