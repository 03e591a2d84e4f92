#pragma once

#include "host/core/ExportCount.h"

#include <boost/python/detail/wrap_python.hpp>

#include <array>
#include <cstdint>
#include <initializer_list>

/// Large memory of the host's objects (arrays, images, frames of volumes) and Python: views of it without a copy,
/// refusals to move it while there are any, and whether there is enough. Needs the interpreter lock.
namespace python {

/// What a view shows: numbers in rows, the last extent runs fastest.
struct MemoryLayout
{
    void* data;         ///< may be null when there are no numbers
    const char* format; ///< of one number, as the struct module writes it; static storage
    Py_ssize_t itemSize;
    int dimensions;
    std::array<Py_ssize_t, 3> extents;
};

/// getbufferproc: a writable view of the owner's own memory, which keeps the owner alive and counts in `exports`, a
/// member of the object in it. -1 with BufferError "<name>, ..." for a view in columns.
int exportMemory(PyObject* owner, const char* name, core::ExportCount& exports, const MemoryLayout& layout,
                 Py_buffer* view, int flags);
/// The releasebufferproc that goes with it.
void releaseMemory(PyObject* owner, Py_buffer* view);

/// False with BufferError "<name>, ..." pending while a view uses the memory.
bool requireResizable(const core::ExportCount& exports, const char* name);

/// The product; the largest 64-bit number when it is even larger. Factors are not negative.
std::int64_t byteCount(std::initializer_list<std::int64_t> factors);

/// `freed` is what the operation gives back: counted against the available memory, as old and new exist at the same
/// time while an object is resized.
bool isMemoryAvailable(std::int64_t bytes, std::int64_t freed = 0);

/// The same where nobody has asked for so and so much, but a copy is made: asking takes the system longer than copying
/// 16 MiB, so that less is left to the allocation. More is tested, for the system gives out addresses without memory
/// behind them and ends the program that uses them.
bool isMemoryAvailableForCopy(std::int64_t bytes);

/// Unwinds with MemoryError: the sentence, and what the user can do.
[[noreturn]] void raiseNotEnoughMemory(const char* format, ...);

} // namespace python
