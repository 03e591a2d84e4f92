#pragma once

#include <QString>

#include <string>

namespace python {

/// What running code needs of the editor that shows it. The script editor implements it; keeping it here lets the
/// runtime mark errors without knowing the editor.
class CodeEditor
{
public:
    virtual ~CodeEditor() = default;

    /// An error at `line` (1-based) of `filename`, which may be another file than the editor's. `function` is empty for
    /// a syntax error.
    virtual void errorDetected(std::string filename, std::string function, long line) = 0;
    virtual void clearErrors() = 0;
    /// The whole text, lines separated by "\n".
    virtual QString plainText() const = 0;
};

} // namespace python
