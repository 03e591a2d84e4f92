#include "runtime/ClassSlots.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

#include <deque>

namespace bp = boost::python;

namespace python {

namespace {

/// The slot wrapper of `name` that one of the built-in types has: it knows the slot behind the name.
PyWrapperDescrObject* donorWrapper(const char* name)
{
    for (PyTypeObject* donor :
         {&PyLong_Type, &PyFloat_Type, &PyTuple_Type, &PyList_Type, &PySet_Type, &PyDict_Type, &PyBaseObject_Type}) {
        PyObject* found = PyDict_GetItemString(donor->tp_dict, name);
        if (found && Py_IS_TYPE(found, &PyWrapperDescr_Type))
            return reinterpret_cast<PyWrapperDescrObject*>(found);
    }
    raise(PyExc_SystemError, "no built-in type has a slot named %s", name);
}

void setClassAttribute(PyTypeObject* type, const char* name, PyObject* newReference)
{
    const bp::object value = owned(newReference);
    if (PyObject_SetAttrString(reinterpret_cast<PyObject*>(type), name, value.ptr()) < 0)
        raisePending();
}

} // namespace

void installSlot(PyTypeObject* type, const char* name, void* function, const char* documentation)
{
    wrapperbase* base = donorWrapper(name)->d_base;
    if (documentation) {
        // The interpreter keeps the address; the class and its description last as long as the process.
        static std::deque<wrapperbase> documented;
        base = &documented.emplace_back(*base);
        base->doc = documentation;
    }
    // Setting the attribute makes the interpreter put the bare function into the type's slot.
    setClassAttribute(type, name, PyDescr_NewWrapper(type, base, function));
}

void installProperty(PyTypeObject* type, PyGetSetDef& definition)
{
    setClassAttribute(type, definition.name, PyDescr_NewGetSet(type, &definition));
}

void installMethod(PyTypeObject* type, PyMethodDef& definition)
{
    setClassAttribute(type, definition.ml_name, PyDescr_NewMethod(type, &definition));
}

void installBuffer(PyTypeObject* type, getbufferproc get, releasebufferproc release)
{
    type->tp_as_buffer->bf_getbuffer = get;
    type->tp_as_buffer->bf_releasebuffer = release;
    PyType_Modified(type);
}

void installSequence(PyTypeObject* type, lenfunc length, ssizeargfunc item)
{
    type->tp_as_sequence->sq_length = length;
    type->tp_as_sequence->sq_item = item;
    type->tp_as_mapping->mp_length = length;
    PyType_Modified(type);
}

} // namespace python
