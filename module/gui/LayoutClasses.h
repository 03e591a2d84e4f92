#pragma once

#include "module/gui/Construction.h"
#include "module/gui/LayoutHandle.h"
#include "module/gui/WidgetClasses.h"

#include <QFormLayout>
#include <QGridLayout>

/// The classes of layouts: Handle<QBoxLayout> of `BoxLayout` and so on. They have no second level, for scripts can
/// derive from them but override nothing.
namespace python {

template <>
struct HandleOf<QLayout>
{
    using type = LayoutHandle;
};
template <>
struct BaseWidget<QBoxLayout>
{
    using type = QLayout;
};
template <>
struct BaseWidget<QHBoxLayout>
{
    using type = QBoxLayout;
};
template <>
struct BaseWidget<QVBoxLayout>
{
    using type = QBoxLayout;
};
template <>
struct BaseWidget<QGridLayout>
{
    using type = QLayout;
};
template <>
struct BaseWidget<QFormLayout>
{
    using type = QLayout;
};

/// Layout.addWidget() and Layout.addLayout() of any class.
void addToEnd(const LayoutHandle& handle, const boost::python::object& widget, const boost::python::object& stretch,
              const boost::python::object& align);
void addLayoutToEnd(const LayoutHandle& handle, const boost::python::object& inner, const boost::python::object& align);

inline constexpr ConstructorArguments g_layoutArguments = {{"parent", "parentWidget"}};

/// Lets scripts create and derive from the class of Q. `documentation` has static storage and begins with the
/// signature.
template <typename Q>
void bindLayoutConstructor(const char* documentation)
{
    const initproc construct = [](PyObject* self, PyObject* positional, PyObject* keywords) {
        return guarded<>(-1, [&] {
            requireGuiThread();
            requireWindows();
            PyTypeObject* type = classOf<Handle<Q>>();
            if (handleOrNull(self))
                raise(PyExc_RuntimeError, "%s.__init__() has already been called", type->tp_name);
            auto* layout = new ScriptLayout<Q>;
            adopt(self, std::make_shared<Handle<Q>>(layout, type->tp_name), *layout);
            applyArguments(self, type, g_layoutArguments, positional, keywords);
            return 0;
        });
    };
    installSlot(classOf<Handle<Q>>(), "__init__", reinterpret_cast<void*>(construct), documentation);
}

} // namespace python
