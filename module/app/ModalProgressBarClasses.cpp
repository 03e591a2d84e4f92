#include "module/Bindings.h"
#include "module/app/ModalProgressBar.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/HeldInstance.h"
#include "runtime/NumberArguments.h"

#include <boost/python.hpp>

#include <limits>

namespace bp = boost::python;

namespace python {

namespace {

using Bar = HeldInstance<ModalProgressBar>;
using Iterator = HeldInstance<ModalProgressBarIterator>;
using IteratorPointer = std::shared_ptr<ModalProgressBarIterator>;

/// What the object from iter() holds beside the place in the loop.
struct Loop
{
    IteratorPointer iterator;
    std::shared_ptr<OpenBar> open;

    Loop(IteratorPointer place, std::shared_ptr<OpenBar> bar) : iterator(std::move(place)), open(std::move(bar))
    {
        iterator->open = open;
        iterator->handedOut = bp::incref(bp::object(iterator).ptr());
    }
    ~Loop() { Py_DECREF(static_cast<PyObject*>(std::exchange(iterator->handedOut, nullptr))); }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;
};

bp::object beginLoop(const IteratorPointer& place, const std::shared_ptr<OpenBar>& open)
{
    const auto loop = std::make_shared<Loop>(place, open);
    return bp::object(IteratorPointer(loop, place.get()));
}

bp::object iterate(ModalProgressBar& self)
{
    const std::shared_ptr<OpenBar> open = self.open();
    return beginLoop(std::make_shared<ModalProgressBarIterator>(self.shared_from_this()), open);
}

bp::object copyIterator(const ModalProgressBarIterator& self)
{
    auto copy = std::make_shared<ModalProgressBarIterator>(self.bar);
    copy->index = self.index;
    return beginLoop(copy, self.open.lock());
}

std::int32_t requireCount(const bp::object& number, const char* name)
{
    const std::string type =
        std::string("ModalProgressBar, type 'int' expected for argument '") + name + "', instead got '%s'";
    long long value = 0;
    const bool fits = toIndex(number.ptr(), value, type.c_str());
    if (!fits && !PyErr_ExceptionMatches(PyExc_OverflowError))
        raisePending();
    PyErr_Clear();
    if (!fits || value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        raise(PyExc_OverflowError, "ModalProgressBar, '%s' must fit into 32 bits, instead got %S", name, number.ptr());
    return static_cast<std::int32_t>(value);
}

std::shared_ptr<ModalProgressBar> make(const bp::object& name, const bp::object& steps, const bp::object& parent)
{
    const QString text =
        requireStr(name, "ModalProgressBar, type 'str' expected for argument 'name', instead got '%s'");
    const std::int32_t count = requireCount(steps, "steps");
    std::shared_ptr<ModalProgressBar> above;
    if (!parent.is_none()) {
        ModalProgressBar* bar = Bar::check(parent.ptr()) ? Bar::get(parent.ptr()) : nullptr;
        if (!bar)
            raise(PyExc_TypeError,
                  "ModalProgressBar, type 'ModalProgressBar' expected for optional argument 'parent', instead got '%s'",
                  typeName(parent));
        above = bar->shared_from_this();
    }
    return std::make_shared<ModalProgressBar>(text.toStdString(), count, above);
}

bp::object enter(bp::back_reference<ModalProgressBar&> self)
{
    self.get().enter();
    return self.source();
}

void exit(ModalProgressBar& self, const bp::object& /*type*/, const bp::object& /*value*/, const bp::object& /*trace*/)
{
    self.exit();
}

/// Stands in innermost loops, so it does without the binding layer's calls.
PyObject* increment(PyObject* self, PyObject* const* arguments, Py_ssize_t count, PyObject* names)
{
    ModalProgressBar* bar = Bar::get(self);
    const Py_ssize_t given = count + (names ? PyTuple_GET_SIZE(names) : 0);
    const bool known = given == count || PyUnicode_CompareWithASCIIString(PyTuple_GET_ITEM(names, 0), "n") == 0;
    if (!bar || given > 1 || !known) {
        PyErr_SetString(PyExc_TypeError, "ModalProgressBar.increment() takes one argument at most, 'n'");
        return nullptr;
    }
    PyObject* result = nullptr;
    bp::handle_exception([&] {
        const std::int32_t n = given == 0 ? 1 : requireCount(bp::object(bp::handle<>(bp::borrowed(*arguments))), "n");
        result = PyBool_FromLong(bar->increment(n));
    });
    return result;
}

/// Null with the exception pending for an object of a subclass that never called __init__.
ModalProgressBarIterator* iteratorOf(PyObject* self)
{
    ModalProgressBarIterator* iterator = Iterator::get(self);
    if (!iterator) [[unlikely]]
        PyErr_SetString(PyExc_TypeError, "ModalProgressBarIterator, the iterator belongs to no ModalProgressBar");
    return iterator;
}

/// At the end of the loop null with nothing pending, as the interpreter's for statement wants it.
PyObject* step(PyObject* self)
{
    ModalProgressBarIterator* iterator = iteratorOf(self);
    if (!iterator || iterator->bar->step(iterator->index) != ModalProgressBar::Step::Done) [[unlikely]]
        return nullptr;
    return Py_NewRef(iterator->handedOut ? static_cast<PyObject*>(iterator->handedOut) : self);
}

PyObject* next(PyObject* self, PyObject* /*none*/)
{
    PyObject* result = step(self);
    if (!result && !PyErr_Occurred())
        PyErr_SetNone(PyExc_StopIteration);
    return result;
}

PyObject* index(PyObject* self)
{
    const ModalProgressBarIterator* iterator = iteratorOf(self);
    return iterator ? PyLong_FromLong(iterator->index) : nullptr;
}

PyObject* value(PyObject* self, PyObject* /*none*/)
{
    return index(self);
}

PyObject* text(PyObject* self)
{
    const ModalProgressBarIterator* iterator = iteratorOf(self);
    return iterator ? PyUnicode_FromFormat("%d", static_cast<int>(iterator->index)) : nullptr;
}

PyMethodDef g_next = {"next", next, METH_NOARGS,
                      "next() -> ModalProgressBarIterator\n\nOne step; StopIteration at the end of the loop."};
PyMethodDef g_value = {"value", value, METH_NOARGS, "value() -> int\n\nThe current index, -1 before the first step."};

PyMethodDef g_increment = {"increment", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(&increment)),
                           METH_FASTCALL | METH_KEYWORDS,
                           "increment(n: int = 1) -> bool\n\nAdvances the open bar by n steps. False when it was "
                           "cancelled: it is time to leave. "
                           "Raises RuntimeError when the bar is not open, ValueError for a negative n."};

void bindIterator()
{
    const bp::class_<ModalProgressBarIterator, IteratorPointer, boost::noncopyable> iterator(
        "ModalProgressBarIterator",
        "The state of a loop over a ModalProgressBar. Every step of the loop hands out the same object: take its "
        "number with int() or value() when the number is to be kept.",
        bp::no_init);
    auto* type = reinterpret_cast<PyTypeObject*>(iterator.ptr());
    Iterator::adopt(type);
    bp::object(iterator).attr("__iter__") = bp::make_function(copyIterator);
    installSlot(type, "__next__", reinterpret_cast<void*>(&step),
                "__next__() -> ModalProgressBarIterator\n\nOne step: the bar advances by 1. The loop ends when the "
                "steps are used up or the bar was cancelled.");
    installSlot(type, "__int__", reinterpret_cast<void*>(&index), "__int__() -> int\n\nThe current index.");
    installSlot(type, "__index__", reinterpret_cast<void*>(&index),
                "__index__() -> int\n\nThe current index, so that a step can be used to index a list.");
    installSlot(type, "__str__", reinterpret_cast<void*>(&text), "__str__() -> str\n\nThe current index as text.");
    installMethod(type, g_next);
    installMethod(type, g_value);
}

} // namespace

void bindModalProgressBar()
{
    bindIterator();
    const bp::class_<ModalProgressBar, std::shared_ptr<ModalProgressBar>, boost::noncopyable> bar =
        bp::class_<ModalProgressBar, std::shared_ptr<ModalProgressBar>, boost::noncopyable>(
            "ModalProgressBar",
            "A bar in the application's progress window, for a loop that takes its time:\n\n"
            "    for step in ModalProgressBar('Reading lines', 1000):\n        read(int(step))\n\n"
            "The loop ends early when the user presses Cancel. In a with statement the bar is open for as long as the "
            "statement lasts and increment() advances it. Bars are used on the main thread only; RuntimeError "
            "elsewhere.",
            bp::no_init)
            .def("__init__",
                 bp::make_constructor(make, bp::default_call_policies(),
                                      (bp::arg("name"), bp::arg("steps") = 100, bp::arg("parent") = bp::object())),
                 "ModalProgressBar(name: str, steps: int = 100, parent: Optional[ModalProgressBar] = None) -> None\n\n"
                 "Describes a bar; nothing is shown before the loop begins. A loop over n steps runs n + 1 times, with "
                 "the numbers 0 to n. The bar of a parent that is open when the loop begins contains this one.")
            .def("__iter__", iterate, bp::args("self"),
                 "__iter__() -> ModalProgressBarIterator\n\nOpens a new bar. It closes at the end of the loop, however "
                 "the loop is left.")
            .def("__enter__", enter, bp::args("self"), "__enter__() -> ModalProgressBar\n\nOpens the bar.")
            .def("__exit__", exit, bp::args("self", "type", "value", "traceback"),
                 "__exit__(type: Any, value: Any, traceback: Any) -> None\n\nCloses the bar.")
            .def("cancel", &ModalProgressBar::cancel, bp::args("self"),
                 "cancel() -> None\n\nThe next step ends the loop.")
            .def("cancelled", &ModalProgressBar::isCancelled, bp::args("self"),
                 "cancelled() -> bool\n\nWhether the user or cancel() ended the loop.");
    auto* type = reinterpret_cast<PyTypeObject*>(bar.ptr());
    Bar::adopt(type);
    installMethod(type, g_increment);
}

} // namespace python
