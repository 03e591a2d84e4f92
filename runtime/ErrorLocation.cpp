#include "runtime/ErrorLocation.h"

#include "runtime/Ref.h"

#include <frameobject.h>

namespace python {

std::string utf8Of(PyObject* object)
{
    const char* utf8 = object && PyUnicode_Check(object) ? PyUnicode_AsUTF8(object) : nullptr;
    PyErr_Clear();
    return utf8 ? utf8 : std::string();
}

ErrorLocation innermostLocation(PyObject* traceback)
{
    auto* entry = reinterpret_cast<PyTracebackObject*>(traceback);
    if (!entry)
        return {};
    while (entry->tb_next)
        entry = entry->tb_next;
    const auto code = BasicRef<PyCodeObject>::steal(PyFrame_GetCode(entry->tb_frame));
    ErrorLocation location{utf8Of(code.get()->co_filename), utf8Of(code.get()->co_name), -1};
    // The field is filled lazily, so it is read as an attribute; the frame itself may have run on since.
    if (const Ref line = Ref::steal(PyObject_GetAttrString(reinterpret_cast<PyObject*>(entry), "tb_lineno")))
        location.line = PyLong_AsLong(line.get());
    PyErr_Clear();
    return location;
}

} // namespace python
