#pragma once

class QTextCursor;

namespace editor {

/// Whether what is typed at the cursor is code: not a comment, and not part of a text in quotes. Unlike the colouring
/// this knows texts in triple quotes and continued lines; it reads from the document's start. GUI thread only.
bool isCode(const QTextCursor& cursor);

} // namespace editor
