#pragma once

class QKeyEvent;
class QPlainTextEdit;

namespace editor {

/// The keys that change lines (indent, comment, double, move): does what the key means and says whether it means
/// anything. GUI thread only.
bool pressEditingKey(QPlainTextEdit& view, const QKeyEvent& event);

} // namespace editor
