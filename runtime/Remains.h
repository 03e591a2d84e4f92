#pragma once

#include "runtime/Ref.h"

#include <boost/python/detail/wrap_python.hpp>

#include <atomic>

class QObject;

namespace python {

/// What Python code gives up while Qt may be in the middle of it. All functions need the interpreter lock.
class Remains
{
public:
    /// Destroys an object that Qt does not use, and releases what it held before returning. On the object's thread.
    static void destroyNow(QObject& object);

    /// Destroys an object once Qt no longer is inside of it. From any thread.
    static void destroyLater(QObject& object);

    /// Lets a reference go that belonged to an object which Qt is just destroying: what this ends may run Python code,
    /// which must not meet half an object. On other threads than Qt's, at once.
    static void releaseLater(Ref reference);

    /// Whether something waits for the end of the handlers that run; call() says that they have ended.
    static bool areWaiting() { return s_areWaiting.load(std::memory_order_relaxed); }
    static void call();

private:
    class Queue;

    static inline std::atomic<bool> s_areWaiting = false;
};

} // namespace python
