#pragma once

#include <QStringList>

#include <atomic>
#include <memory>

struct _object;

/// Completion of Python text by the jedi package inside the embedded interpreter.
///
/// The function that computes lies in the resource ":/resources/JediAutoComplete.py". Without an interpreter, without
/// jedi or after a failure inside it the engine is unavailable and answers nothing; nothing here raises. jedi keeps
/// caches for the whole process, so one engine computes at a time.
namespace editor {

class CompletionEngine
{
public:
    /// Loads the function at once; takes the interpreter lock.
    CompletionEngine();
    /// Not while complete() runs. After the interpreter's end nothing is released.
    ~CompletionEngine();
    CompletionEngine(const CompletionEngine&) = delete;
    CompletionEngine& operator=(const CompletionEngine&) = delete;

    bool isAvailable() const { return m_function.load() != nullptr; }
    /// Why it is not, in one line.
    QString error() const { return m_error; }

    /// The names that may follow at the end of `text`. Takes as long as jedi takes; any thread but one at a time. An
    /// exception makes the engine unavailable for good.
    QStringList complete(const QString& text);

    /// Ends a complete() that runs on another thread as soon as it executes Python code again. Does not wait and does
    /// not need the interpreter lock.
    void interrupt();

    /// Reads jedi and its tables on a thread of its own, so that a user's first completion is no slower than the
    /// others. Once per process.
    static void warmUp();

private:
    /// Outlives the engine for the sake of a late interruption. `thread` changes with the interpreter lock held only.
    struct Running
    {
        unsigned long thread = 0; ///< as Python counts threads; 0 while nothing is computed
    };

    void load();
    void release();
    void keepError();

    _object* m_module = nullptr;
    std::atomic<_object*> m_function = nullptr;
    QString m_error;
    std::shared_ptr<Running> m_running = std::make_shared<Running>();
};

} // namespace editor
