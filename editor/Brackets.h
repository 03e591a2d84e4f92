#pragma once

#include <optional>

class QTextCursor;

/// Pairs of brackets around a cursor, for marking. Brackets in strings and comments are passed over as the
/// highlighting sees them. GUI thread only.
namespace editor {

struct BracketPair
{
    int position; ///< the bracket beside the cursor
    int partner;  ///< -1 when it has none, or a bracket of another kind stands there
};

/// The pair of the bracket after the cursor, else of the one before it; nothing when neither is a bracket, or when the
/// partner is too far away to look for at each movement of the cursor.
std::optional<BracketPair> bracketsAt(const QTextCursor& cursor);

} // namespace editor
