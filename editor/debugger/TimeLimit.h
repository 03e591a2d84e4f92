#pragma once

#include <chrono>
#include <memory>

namespace debugger {

/// Python code that runs for longer than allowed during the object's lifetime is interrupted by an exception that no
/// `except Exception` catches; a single long call into compiled code is not. GUI thread with the interpreter lock;
/// one at a time.
///
/// Works by a signal like the ticks of a run, because only those also wake time.sleep and the like.
class TimeLimit
{
public:
    explicit TimeLimit(std::chrono::milliseconds allowed);
    ~TimeLimit();
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

    bool hasStruck() const;

private:
    class Watch;
    std::unique_ptr<Watch> m_watch;
};

} // namespace debugger
