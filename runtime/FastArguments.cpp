#include "runtime/FastArguments.h"

#include "runtime/Errors.h"

#include <algorithm>

namespace python {

bool bindArguments(const char* function, const char* const* names, Py_ssize_t count, PyObject* const* arguments,
                   Py_ssize_t positional, PyObject* keywordNames, PyObject** bound)
{
    const Py_ssize_t keywords = keywordNames ? PyTuple_GET_SIZE(keywordNames) : 0;
    if (positional + keywords != count) {
        PyErr_Format(PyExc_TypeError, "%s, expected %zd arguments but got %zd", function, count, positional + keywords);
        return false;
    }
    std::copy_n(arguments, positional, bound);
    std::fill(bound + positional, bound + count, nullptr);
    for (Py_ssize_t i = 0; i < keywords; ++i) {
        PyObject* keyword = PyTuple_GET_ITEM(keywordNames, i);
        const char* const* name = std::find_if(names, names + count, [keyword](const char* candidate) {
            return PyUnicode_CompareWithASCIIString(keyword, candidate) == 0;
        });
        if (name == names + count || bound[name - names]) {
            PyErr_Format(PyExc_TypeError, "%s, unexpected keyword argument '%U'", function, keyword);
            return false;
        }
        bound[name - names] = arguments[positional + i];
    }
    return true;
}

} // namespace python
