#pragma once

#include <QString>

class QPlainTextEdit;
class QTextCursor;
class QTextDocument;

/// Editing by whole lines, as programmers know it. Each call is one step for Undo and acts on the lines that the
/// selection touches (a selection that ends before a line's first character does not touch it). GUI thread only.
namespace editor {

/// What one level of indentation is in the document: its first indented lines decide; null when there are none.
QString indentationUnit(const QTextDocument& document);

/// What a new line after the cursor begins with: the indentation of the cursor's line, one level more after a colon
/// that opens a block, one less after a statement that leaves it (return, pass, ...).
QString indentationAfter(const QTextCursor& cursor);

bool selectsSeveralLines(const QTextCursor& cursor);
void indentLines(QPlainTextEdit& view);
void unindentLines(QPlainTextEdit& view);

/// Comments the lines, or removes one level of comment when all of them (empty lines aside) have one. Twice is no
/// change.
void toggleComment(QPlainTextEdit& view);

/// Moves the lines by one line, down for +1.
void moveLines(QPlainTextEdit& view, int direction);
/// Doubles the selection, or the line when there is none.
void duplicate(QPlainTextEdit& view);

} // namespace editor
