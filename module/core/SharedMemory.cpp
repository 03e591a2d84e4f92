#include "module/core/SharedMemory.h"

#include "host/services/HVMemory.h"
#include "runtime/Errors.h"
#include "runtime/Ref.h"

#include <cstdarg>
#include <limits>

namespace python {

namespace {

/// Lives as long as the view.
struct Exported
{
    core::ExportCount* exports;
    Py_ssize_t shape[3];
    Py_ssize_t strides[3];
};

constexpr std::int64_t g_untested = 16 << 20;

} // namespace

int exportMemory(PyObject* owner, const char* name, core::ExportCount& exports, const MemoryLayout& layout,
                 Py_buffer* view, int flags)
{
    view->obj = nullptr;
    const auto wants = [flags](int flag) { return (flags & flag) == flag; };
    if (layout.dimensions > 1 && wants(PyBUF_F_CONTIGUOUS) && !wants(PyBUF_C_CONTIGUOUS)) {
        PyErr_Format(PyExc_BufferError, "%s, the memory is in C order, not in Fortran order", name);
        return -1;
    }
    auto* exported = static_cast<Exported*>(PyMem_Malloc(sizeof(Exported)));
    if (!exported) {
        PyErr_NoMemory();
        return -1;
    }
    exported->exports = &exports;
    Py_ssize_t bytes = layout.itemSize;
    for (int axis = layout.dimensions - 1; axis >= 0; --axis) {
        exported->shape[axis] = layout.extents[static_cast<std::size_t>(axis)];
        exported->strides[axis] = bytes;
        bytes *= exported->shape[axis];
    }
    // What has no numbers may have no memory; a view of it must still have an address.
    static double nothing = 0;
    view->buf = layout.data ? layout.data : &nothing;
    view->len = bytes;
    view->itemsize = layout.itemSize;
    view->readonly = 0;
    view->format = wants(PyBUF_FORMAT) ? const_cast<char*>(layout.format) : nullptr;
    view->ndim = wants(PyBUF_ND) ? layout.dimensions : 1;
    view->shape = wants(PyBUF_ND) ? exported->shape : nullptr;
    view->strides = wants(PyBUF_STRIDES) ? exported->strides : nullptr;
    view->suboffsets = nullptr;
    view->internal = exported;
    exports.add();
    view->obj = Py_NewRef(owner);
    return 0;
}

void releaseMemory(PyObject* /*owner*/, Py_buffer* view)
{
    auto* exported = static_cast<Exported*>(view->internal);
    exported->exports->release();
    PyMem_Free(exported);
}

bool requireResizable(const core::ExportCount& exports, const char* name)
{
    if (exports.isNone()) [[likely]]
        return true;
    PyErr_Format(PyExc_BufferError, "%s, the size can not change while a view uses the memory", name);
    return false;
}

std::int64_t byteCount(std::initializer_list<std::int64_t> factors)
{
    std::int64_t bytes = 1;
    for (const std::int64_t factor : factors)
        if (__builtin_mul_overflow(bytes, factor, &bytes))
            return std::numeric_limits<std::int64_t>::max();
    return bytes;
}

bool isMemoryAvailable(std::int64_t bytes, std::int64_t freed)
{
    return bytes <= hv::availableMemory() - freed;
}

bool isMemoryAvailableForCopy(std::int64_t bytes)
{
    return bytes <= g_untested || isMemoryAvailable(bytes);
}

void raiseNotEnoughMemory(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Ref sentence = Ref::steal(PyUnicode_FromFormatV(format, arguments));
    va_end(arguments);
    if (!sentence)
        raisePending();
    raise(PyExc_MemoryError, "%U Increase the physical memory dedicated to Strativo in Settings/Optimizations.",
          sentence.get());
}

} // namespace python
