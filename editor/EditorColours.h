#pragma once

#include <QColor>

class QPalette;

/// The colours of a script editor: black on white with light marks, and their counterparts on a dark ground.
namespace editor {

struct EditorColours
{
    bool dark;
    QColor base, text;
    QColor gutter, lineNumber, breakpoint, paused;
    QColor currentLine, pausedLine, errorLine;
    QColor match, currentMatch, bracket, wrongBracket;

    /// Dark when the application's palette is.
    static EditorColours of(const QPalette& application);
};

} // namespace editor
