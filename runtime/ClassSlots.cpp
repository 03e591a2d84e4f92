#include "runtime/ClassSlots.h"

#include "runtime/Errors.h"
#include "runtime/Ref.h"

#include <boost/python.hpp>

#include <deque>
#include <vector>

namespace bp = boost::python;

namespace python {

namespace {

/// Fills the donor's slots; never called, the donor has no instances.
PyObject* unused()
{
    PyErr_SetString(PyExc_SystemError, "slot of the donor type");
    return nullptr;
}

constexpr int g_slots[] = {Py_nb_add,
                           Py_nb_subtract,
                           Py_nb_multiply,
                           Py_nb_true_divide,
                           Py_nb_floor_divide,
                           Py_nb_remainder,
                           Py_nb_power,
                           Py_nb_and,
                           Py_nb_or,
                           Py_nb_xor,
                           Py_nb_lshift,
                           Py_nb_rshift,
                           Py_nb_matrix_multiply,
                           Py_nb_negative,
                           Py_nb_positive,
                           Py_nb_absolute,
                           Py_nb_invert,
                           Py_nb_bool,
                           Py_nb_int,
                           Py_nb_float,
                           Py_nb_index,
                           Py_nb_inplace_add,
                           Py_nb_inplace_subtract,
                           Py_nb_inplace_multiply,
                           Py_nb_inplace_true_divide,
                           Py_mp_length,
                           Py_mp_subscript,
                           Py_mp_ass_subscript,
                           Py_sq_contains,
                           Py_tp_iter,
                           Py_tp_iternext,
                           Py_tp_repr,
                           Py_tp_str,
                           Py_tp_hash,
                           Py_tp_richcompare,
                           Py_tp_setattro,
                           Py_tp_init};

/// A type that has every slot. When it is made, the interpreter gives it a wrapper for each special method, and a
/// wrapper knows the slot behind its name; the built-in types together lack in-place arithmetic.
PyTypeObject* donorType()
{
    static PyTypeObject* const type = [] {
        std::vector<PyType_Slot> slots;
        for (const int slot : g_slots)
            slots.push_back({slot, reinterpret_cast<void*>(&unused)});
        slots.push_back({0, nullptr});
        PyType_Spec spec{"strativo.SlotDonor", sizeof(PyObject), 0, Py_TPFLAGS_DEFAULT, slots.data()};
        return reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
    }();
    if (!type)
        raisePending();
    return type;
}

PyWrapperDescrObject* donorWrapper(const char* name)
{
    PyObject* found = PyDict_GetItemString(donorType()->tp_dict, name);
    if (!found || !Py_IS_TYPE(found, &PyWrapperDescr_Type))
        raise(PyExc_SystemError, "there is no slot named %s", name);
    return reinterpret_cast<PyWrapperDescrObject*>(found);
}

void setClassAttribute(PyTypeObject* type, const char* name, PyObject* newReference)
{
    const bp::object value = owned(newReference);
    if (PyObject_SetAttrString(reinterpret_cast<PyObject*>(type), name, value.ptr()) < 0)
        raisePending();
}

PyObject* allocateWithDictionary(PyTypeObject* type, Py_ssize_t extraBytes)
{
    Ref object = Ref::steal(PyType_GenericAlloc(type, extraBytes));
    if (!object)
        return nullptr;
    PyObject*& dictionary = *reinterpret_cast<PyObject**>(reinterpret_cast<char*>(object.get()) + type->tp_dictoffset);
    dictionary = PyDict_New();
    return dictionary ? object.release() : nullptr;
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

void installConstructor(PyTypeObject* type, vectorcallfunc construct)
{
    type->tp_vectorcall = construct;
    PyType_Modified(type);
}

void installAttributeDictionary(PyTypeObject* type)
{
    type->tp_alloc = allocateWithDictionary;
    PyType_Modified(type);
}

PyObject* constructOrdinarily(PyObject* type, PyObject* const* arguments, std::size_t count, PyObject* keywordNames)
{
    const Py_ssize_t positional = PyVectorcall_NARGS(count);
    const Ref tuple = Ref::steal(PyTuple_New(positional));
    const Ref keywords = Ref::steal(keywordNames ? PyDict_New() : nullptr);
    bool complete = tuple && (keywords || !keywordNames);
    for (Py_ssize_t i = 0; complete && i < positional; ++i)
        PyTuple_SET_ITEM(tuple.get(), i, Ref::borrow(arguments[i]).release());
    for (Py_ssize_t i = 0; complete && keywordNames && i < PyTuple_GET_SIZE(keywordNames); ++i)
        complete = PyDict_SetItem(keywords.get(), PyTuple_GET_ITEM(keywordNames, i), arguments[positional + i]) == 0;
    return complete ? Py_TYPE(type)->tp_call(type, tuple.get(), keywords.get()) : nullptr;
}

} // namespace python
