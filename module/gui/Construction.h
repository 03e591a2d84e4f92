#pragma once

#include "module/gui/Guarded.h"
#include "module/gui/WidgetClasses.h"
#include "module/gui/Wrapper.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"

#include <initializer_list>
#include <memory>

namespace python {

/// An argument that a constructor takes by position or by name, and the property that it sets.
struct ConstructorArgument
{
    const char* name;
    const char* property;
};

/// The arguments of a constructor. Beside them every property of the class is one that goes by name.
using ConstructorArguments = std::initializer_list<ConstructorArgument>;

/// Sets the properties of a new object from its constructor's arguments; those that others bound (`value` lies between
/// `minimum` and `maximum`) and the parent come last. `type` is the public class: a subclass's own attributes are not
/// asked.
/// `taken` is the argument that was used before (null: none).
void applyArguments(PyObject* self, PyTypeObject* type, const ConstructorArguments& names, PyObject* arguments,
                    PyObject* keywords, const char* taken = nullptr);

/// An argument by its name; borrowed, null when it is not given.
PyObject* findArgument(const ConstructorArguments& names, const char* name, PyObject* arguments, PyObject* keywords);

/// How a wrapper is made. A class that is better made with an argument than given it as a property specialises this:
/// `taken` is the argument's name, and `make` gets its value or null.
template <typename Py>
struct Maker
{
    static constexpr const char* taken = nullptr;
    static Py* make(PyObject* /*value*/) { return new Py; }
};

/// Joins a new object with the Python object whose __init__ makes it.
void adopt(PyObject* self, const std::shared_ptr<OwningHandle>& handle, ObjectPeer& peer);

/// The same for a widget. `type` is the public class.
void adoptWidget(PyObject* self, PyTypeObject* type, const std::shared_ptr<WidgetHandle>& handle, WidgetPeer& peer);

/// Lets scripts create and derive from a public class: `Py` is its wrapper class, `documentation` (static storage)
/// begins with the signature.
template <typename Py, const ConstructorArguments& arguments>
void bindConstructor(const char* documentation)
{
    using PublicClass = PublicHandle<typename Py::QtClass>;
    const initproc construct = [](PyObject* self, PyObject* positional, PyObject* keywords) {
        return guarded<>(-1, [&] {
            requireGuiThread();
            requireWindows();
            if (handleOrNull(self))
                raise(PyExc_RuntimeError, "%s.__init__() has already been called", PublicClass::s_className);
            constexpr const char* taken = Maker<Py>::taken;
            auto* widget = Maker<Py>::make(taken ? findArgument(arguments, taken, positional, keywords) : nullptr);
            adoptWidget(self, classOf<PublicClass>(), std::make_shared<PublicClass>(widget), *widget);
            applyArguments(self, classOf<PublicClass>(), arguments, positional, keywords, taken);
            return 0;
        });
    };
    installSlot(classOf<PublicClass>(), "__init__", reinterpret_cast<void*>(construct), documentation);
}

} // namespace python
