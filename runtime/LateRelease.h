#pragma once

#include "runtime/GilLock.h"
#include "runtime/Ref.h"

namespace python {

/// For destructors that may run after the interpreter has gone, on any thread: lets an object go; one that died with
/// the interpreter is forgotten.
inline void releaseLate(Ref& held)
{
    if (!held)
        return;
    const LateGilLock lock;
    if (lock)
        held.reset();
    else
        static_cast<void>(held.release());
}

} // namespace python
