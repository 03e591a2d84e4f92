#pragma once

class QString;

namespace python {

/// The few windows that running code needs by itself. Whoever has windows implements and sets it; without it questions
/// go to standard input, as in plain Python. GUI thread only.
class IUserWindows
{
public:
    virtual ~IUserWindows() = default;

    /// A line of text from the user; empty when he gave none.
    virtual QString askForLine(const QString& label) = 0;
    /// Waits until the user has seen it.
    virtual void warn(const QString& title, const QString& text) = 0;
    /// Asks the window that keeps the user from all others to close.
    virtual void closeModalWindow() = 0;
};

/// Process-wide, null at first, not owned. Set before the execution context is made.
IUserWindows* userWindows();
void setUserWindows(IUserWindows* windows);

} // namespace python
