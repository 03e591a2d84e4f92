#pragma once

#include <cstdint>
#include <memory>
#include <string>

class IProgressService;

namespace python {

/// A bar of the application's progress window while somebody works at it: closes it when the last of them is gone,
/// which is how a loop that is left early takes its bar along.
class OpenBar
{
public:
    explicit OpenBar(std::int32_t id) : m_id(id) {}
    ~OpenBar() { closeUnlessCancelled(m_id); }
    OpenBar(const OpenBar&) = delete;
    OpenBar& operator=(const OpenBar&) = delete;

    std::int32_t id() const { return m_id; }

    /// From any thread; without an application nothing.
    static void closeUnlessCancelled(std::int32_t id);

private:
    const std::int32_t m_id;
};

/// The description of a progress bar that scripts loop over. The bar itself is the application's; without one that
/// shows bars, loops run all the same.
///
/// All of this with the interpreter lock, and everything but cancel() and destruction on the GUI thread only. Functions
/// that open or step raise RuntimeError on another thread.
class ModalProgressBar : public std::enable_shared_from_this<ModalProgressBar>
{
public:
    /// `name` is UTF-8. The parent need not outlive this.
    ModalProgressBar(std::string name, std::int32_t steps, const std::shared_ptr<ModalProgressBar>& parent);
    ~ModalProgressBar();
    ModalProgressBar(const ModalProgressBar&) = delete;
    ModalProgressBar& operator=(const ModalProgressBar&) = delete;

    std::int32_t steps() const { return m_steps; }
    void cancel() { m_cancelled = true; }
    bool isCancelled() const { return m_cancelled; }

    /// Opens the bar and closes the one that an earlier loop left open. A bar that a with statement opened and nobody
    /// has stepped yet is taken as it is.
    std::shared_ptr<OpenBar> open();
    void close();
    bool isOpen() const { return !m_open.expired(); }

    /// For `with`.
    void enter();
    void exit();

    enum class Step
    {
        Done,    ///< the bar has advanced
        Ended,   ///< cancelled or at its end: the bar is closed
        Refused, ///< another thread: the exception is pending
    };
    /// One step of a loop that stands at `index`, which advances by one.
    Step step(std::int32_t& index);
    /// Advances by hand; false when the bar was cancelled.
    bool increment(std::int32_t count);

private:
    bool wasCancelled(const IProgressService* service);

    const std::string m_name;
    const std::int32_t m_steps;
    const std::weak_ptr<ModalProgressBar> m_parent;
    std::weak_ptr<OpenBar> m_open; // of the latest loop; reset once the bar is closed
    std::shared_ptr<OpenBar> m_entered;
    std::int32_t m_id = 0;
    std::uintptr_t m_thread = 0;
    bool m_isFresh = false;
    bool m_cancelled = false;
};

/// The iterator that `iter(bar)` gives and that every step of the loop hands out.
///
/// The script's loop variable outlives a loop that is left by `break`, so it must not keep the bar open: what a step
/// hands out is a second Python object with the same place in the loop, and only the one from iter() holds the bar.
class ModalProgressBarIterator
{
public:
    explicit ModalProgressBarIterator(std::shared_ptr<ModalProgressBar> progress) : bar(std::move(progress)) {}

    const std::shared_ptr<ModalProgressBar> bar;
    std::weak_ptr<OpenBar> open;
    std::int32_t index = -1;
    /// The object that steps hand out; borrowed from the one that iter() made, null once that is gone.
    void* handedOut = nullptr;
};

} // namespace python
