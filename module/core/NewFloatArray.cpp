#include "module/core/NewFloatArray.h"

#include "module/core/SharedMemory.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

NewFloatArray::NewFloatArray(const std::vector<Py_ssize_t>& extents)
{
    bp::list shape;
    std::int64_t bytes = sizeof(float);
    for (const Py_ssize_t extent : extents) {
        shape.append(extent);
        bytes = byteCount({bytes, extent});
    }
    if (!isMemoryAvailableForCopy(bytes))
        raiseNotEnoughMemory("There is not enough free memory for an array of %lld bytes.",
                             static_cast<long long>(bytes));
    m_array = bp::import("numpy").attr("empty")(bp::tuple(shape), "f4");
    if (PyObject_GetBuffer(m_array.ptr(), &m_view, PyBUF_C_CONTIGUOUS | PyBUF_WRITABLE) != 0)
        raisePending();
}

NewFloatArray::~NewFloatArray()
{
    PyBuffer_Release(&m_view);
}

} // namespace python
