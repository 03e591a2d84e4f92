#pragma once

#include "editor/debugger/BreakpointSettings.h"

#include <QObject>

#include <map>
#include <vector>

class QTextDocument;

namespace editor {

using debugger::BreakpointSettings;

/// The lines of one document, counted from 1, that hold breakpoints. They stay with their text, and what an edit takes
/// away comes back when the edit is undone (or, when it was an Undo itself, done again). They stay where they are when
/// the text is set anew. GUI thread only.
class BreakpointLines : public QObject
{
    Q_OBJECT

public:
    using Map = std::map<qint32, BreakpointSettings>;

    /// Follows the edits of `document` from now on.
    BreakpointLines(QTextDocument& document, QObject* parent);

    const Map& all() const { return m_all; }
    bool contains(qint32 line) const { return m_all.count(line) > 0; }
    void set(qint32 line, const BreakpointSettings& settings) { m_all[line] = settings; }
    void erase(qint32 line) { m_all.erase(line); }
    /// For good: nothing comes back.
    void clear();

    /// Where a line has gone by the edit that moved() tells of; -1 when it is no more.
    qint32 newLine(qint32 line) const;

Q_SIGNALS:
    /// An edit has changed the number of lines. `before` is what all() was.
    void moved(const editor::BreakpointLines::Map& before);

private:
    /// What an edit took away. A place in the undo history is the number of commands that lead to it.
    struct Lost
    {
        int history; ///< where it still stood
        qint32 line;
        BreakpointSettings settings;
    };

    void follow(int position);
    void bringBack(int from, int to);

    QTextDocument& m_document;
    Map m_all;
    std::vector<Lost> m_lost;
    int m_lineCount;
    int m_history;
    bool m_isNewCommand = false;
    qint32 m_firstMoved = 1; // of the last edit, as it was before
    qint32 m_movedBy = 0;
};

} // namespace editor
