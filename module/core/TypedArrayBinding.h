#pragma once

#include "module/core/TypedArray.h"

#include <deque>
#include <string>

namespace python {

/// Registers one typed array in the current scope: the members in their order, each with its docstring.
template <typename T>
class TypedArrayBinding
{
    using Element = ArrayElement<T>;
    using Members = TypedArray<T>;
    using Search = TypedArraySearch<T>;

public:
    explicit TypedArrayBinding(const char* description)
        : m_class(text("{A}"), text((std::string(description) + s_common).c_str()), boost::python::init<>()),
          m_type(reinterpret_cast<PyTypeObject*>(m_class.ptr()))
    {
        ValueInstance<core::Array<T>>::adopt(m_type);
        TypedArrayIterator<T>::bind(text("strativo_python.{A}Iterator"));
    }

    void addMembers()
    {
        slot("__init__", Members::init,
             "__init__() -> None\n__init__(size: int) -> None\n\n"
             "An empty array, or one of `size` zeros. Raises ValueError for a negative size and MemoryError when the "
             "memory is not to be had.");
        slot("__len__", Members::length, "__len__() -> int\n\nThe number of elements.");
        method("size", Members::size, METH_NOARGS, "size() -> int\n\nThe number of elements, as len() gives it.");
        slot("__str__", Members::text, "__str__() -> str\n\nThe class and the number of elements.");
        slot("__repr__", Members::text, "__repr__() -> str\n\nThe class and the number of elements.");
        slot("__eq__", Search::compare,
             "__eq__(other: {A}) -> bool\n\nTrue when both have the same number of elements and every pair is exactly "
             "equal (a not-a-number equals nothing). Arrays of another class are never equal.");
        method("__neq__", Search::neq, METH_O,
               "__neq__(other: {A}) -> bool\n\nTrue when the arrays are equal, as == gives it; != is the operator for "
               "the opposite. Raises RuntimeError for None.");
        slot("__contains__", Search::contains,
             "__contains__(value: {E}) -> bool\n\nWhether an element equals `value`; searched from the start.");
        slot("__setitem__", Members::assign,
             "__setitem__(index: int, value: {E}) -> None\n\nReplaces element `index`, 0 <= index < len(). Raises "
             "IndexError for any other index, also a negative one, and TypeError for a value of another type.");
        slot("__getitem__", Members::subscript,
             "__getitem__(index: int) -> {E}\n__getitem__(index: slice) -> list\n\n"
             "Element `index`, 0 <= index < len(), or a list of the elements that a slice selects. Nothing is counted "
             "from the end: a negative index, or a slice that selects a position outside, raises IndexError.");
        method("resize", Members::resize, METH_O,
               "resize(size: int) -> None\n\nChanges the number of elements to `size`; all of them are zero "
               "afterwards. Raises ValueError for a negative size, MemoryError when the memory is not to be had and "
               "BufferError while a view (a numpy array) uses the memory.");
        method("index", Search::index, METH_O,
               "index(value: {E}) -> int\n\nThe position of the first element equal to `value`. Raises ValueError "
               "when there is none.");
        method("rindex", Search::rindex, METH_O,
               "rindex(value: {E}) -> int\n\nNot usable: raises IndexError for every array and value.");
        method("reverse", Members::reverse, METH_NOARGS, "reverse() -> None\n\nReverses the order in place.");
        method("append", Members::append, METH_O,
               "append(value: {E}) -> None\n\nAdds one element at the end. Raises MemoryError when the memory is not "
               "to be had and BufferError while a view uses the memory.");
        method("extend", Members::extend, METH_O,
               "extend(sequence: Sequence[{E}]) -> None\n\nAdds every item of a sequence at the end. Memory of "
               "numbers (numpy arrays{N}, array.array, other typed arrays) is copied at once, also from other widths "
               "and byte orders. Raises TypeError for an item of another type, MemoryError and BufferError as append; "
               "the array is unchanged then.");
        method("clear", Members::clear, METH_NOARGS,
               "clear() -> None\n\nRemoves all elements and gives their memory back. Raises BufferError while a view "
               "uses the memory.");
        method("sort", Members::sort, METH_NOARGS, "sort() -> None\n\nNot implemented: raises NotImplementedError.");
    }

    /// What the language itself asks for beside the members: iteration, memory access, pickling.
    void addProtocols()
    {
        slot("__iter__", TypedArrayIterator<T>::make, "__iter__() -> Iterator[{E}]\n\nThe elements in order.");
        method("__reduce__", TypedArrayPickle<T>::reduce, METH_NOARGS, "__reduce__() -> tuple\n\nFor pickle and copy.");
        method("__setstate__", TypedArrayPickle<T>::setState, METH_O,
               "__setstate__(state: tuple) -> None\n\nFor pickle and copy. Raises ValueError for a state of another "
               "class.");
        installConstructor(m_type, Members::construct);
        installSequence(m_type, Members::length, Members::item);
        installBuffer(m_type, getArrayBuffer<T>, releaseMemory);
        // The names of the other comparisons are those of `object`, so the interpreter would look all of them up first.
        m_type->tp_richcompare = Search::compare;
        PyType_Modified(m_type);
    }

private:
    /// A copy of the text that lives as long as the class, with {A} the class's name, {E} the element type.
    static const char* text(std::string pattern)
    {
        static std::deque<std::string> texts;
        const std::pair<const char*, std::string> words[] = {{"{A}", std::string(Element::word) + "Array"},
                                                             {"{E}", Element::typeName},
                                                             {"{N}", Element::width > 1 ? " of shape (n, 3)" : ""}};
        for (const auto& [mark, word] : words)
            for (std::size_t at = 0; (at = pattern.find(mark, at)) != std::string::npos; at += word.size())
                pattern.replace(at, 3, word);
        return texts.emplace_back(std::move(pattern)).c_str();
    }

    template <typename Function>
    void slot(const char* name, Function* function, const char* documentation)
    {
        installSlot(m_type, name, reinterpret_cast<void*>(function), text(documentation));
    }

    void method(const char* name, PyCFunction function, int flags, const char* documentation)
    {
        static std::deque<PyMethodDef> definitions;
        installMethod(m_type, definitions.emplace_back(PyMethodDef{name, function, flags, text(documentation)}));
    }

    static constexpr const char* s_common =
        "\n\nElements are indexed from 0 to len() - 1; negative indices are not counted from the end. "
        "numpy.asarray(array) is a view of the same memory, without a copy; while it exists the array can not change "
        "its size. Can be copied and pickled.";

    boost::python::class_<core::Array<T>, boost::noncopyable> m_class;
    PyTypeObject* m_type;
};

/// `description`: what the class is for, the beginning of its docstring.
template <typename T>
void bindTypedArray(const char* description)
{
    TypedArrayBinding<T> binding(description);
    binding.addMembers();
    binding.addProtocols();
}

} // namespace python
