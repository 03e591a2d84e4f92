#pragma once

#include "editor/BreakpointLines.h"
#include "editor/HVPythonLineNumberArea.h"

#include <QTextEdit>

#include <set>

class QPlainTextEdit;

namespace editor {

/// What stands out in the lines of one text view: its breakpoints, the current line, the line where execution is paused
/// and the line of the last error, pairs of brackets; and the gutter that shows some of it. Lines are counted from 1,
/// -1 is none. GUI thread only.
class Marks : public QObject, private HVPythonLineNumberArea::Content
{
    Q_OBJECT

public:
    /// `view` outlives this; the gutter is its child.
    explicit Marks(QPlainTextEdit& view);

    std::set<qint32> breakpoints() const;
    void toggleBreakpoint(int line);
    void clearBreakpoints();
    BreakpointSettings breakpointSettings(int line) const;
    /// Does nothing where there is no breakpoint.
    void setBreakpointSettings(int line, const BreakpointSettings& settings);
    /// Tell of all breakpoints, which stay: their script gets another name in between.
    void withdrawBreakpoints();
    void announceBreakpoints();

    /// Puts the cursor below the line, so that both are seen.
    void setErrorLine(int line);
    bool hasError() const { return m_errorLine != -1; }
    /// Puts the cursor into the line and the window in front.
    void setPausedLine(int line);
    QTextCursor cursorAtLine(int line) const;

    QList<QTextEdit::ExtraSelection> lineMarks() const;
    QList<QTextEdit::ExtraSelection> bracketMarks() const;

    int lineNumberAreaWidth() const override;
    void placeLineNumberArea();
    /// The view was scrolled by `dy`, or shows the rectangle anew.
    void updateLineNumberArea(const QRect& rectangle, int dy);
    void setLineNumberColour(const QColor& colour);

Q_SIGNALS:
    /// Also of one that came with its line to another place or with the script to another name.
    void breakpointAdded(int line);
    /// After breakpointAdded() of one that the user has just made.
    void breakpointMade();
    void breakpointRemoved(int line);
    /// Also after breakpointAdded() when the settings are not the usual ones.
    void breakpointChanged(int line);
    /// lineMarks() has changed, other than by the cursor.
    void lineMarksChanged();

private:
    void addBreakpoint(int line);
    void removeBreakpoint(int line);
    void announceBreakpoint(int line);
    void follow(const BreakpointLines::Map& before);
    void editCondition(int line);
    void showBreakpointMenu(int line, const QPoint& globalPosition);
    void lineNumberAreaPaintEvent(QPaintEvent* event) override;
    void lineNumberMousePressEvent(QMouseEvent* event) override;

    QPlainTextEdit& m_view;
    HVPythonLineNumberArea* m_lineNumberArea;
    BreakpointLines m_breakpoints;
    qint32 m_breakpointHitLine = -1;
    qint32 m_errorLine = -1;
};

} // namespace editor
