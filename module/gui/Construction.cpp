#include "module/gui/Construction.h"

#include "runtime/Errors.h"

#include <QHash>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cstring>

namespace bp = boost::python;

namespace python {

namespace {

/// In the order in which they are set, after all others: what others bound, then what makes the widget known outside,
/// so that a wrong argument leaves nothing behind.
constexpr std::array<const char*, 7> g_lastProperties = {"value",  "checked",      "currentIndex", "currentText",
                                                         "layout", "parentWidget", "visible"};

struct Setting
{
    PyObject* descriptor; // borrowed, the class keeps it
    PyObject* value;      // borrowed, the caller keeps it
    int rank;
};

using Settings = QVarLengthArray<Setting, 8>;

/// Behind those of the same rank.
void insert(Settings& settings, const Setting& setting)
{
    const auto* place =
        std::upper_bound(settings.cbegin(), settings.cend(), setting,
                         [](const Setting& one, const Setting& other) { return one.rank < other.rank; });
    settings.insert(place, setting);
}

/// The str of a name with static storage; made once.
PyObject* strOf(const char* name)
{
    static QHash<const char*, PyObject*> known;
    PyObject*& str = known[name];
    if (!str)
        str = PyUnicode_InternFromString(name);
    if (!str)
        raisePending();
    return str;
}

/// Interned, as the names of keyword arguments are.
PyObject* propertyOf(const ConstructorArguments& names, PyObject* argument)
{
    const auto* found = std::find_if(names.begin(), names.end(), [&](const ConstructorArgument& candidate) {
        return strOf(candidate.name) == argument;
    });
    return found != names.end() ? strOf(found->property) : argument;
}

int rankOf(PyObject* property)
{
    static const QHash<PyObject*, int> ranks = [] {
        QHash<PyObject*, int> numbered;
        for (const char* name : g_lastProperties)
            numbered.insert(strOf(name), numbered.size() + 1);
        return numbered;
    }();
    return ranks.value(property, 0);
}

Setting makeSetting(PyTypeObject* type, const char* argument, PyObject* property, PyObject* value)
{
    PyObject* descriptor = _PyType_Lookup(type, property);
    if (!descriptor || !PyDescr_IsData(descriptor))
        raise(PyExc_TypeError, "%s() got an unexpected keyword argument '%s'", type->tp_name, argument);
    return {descriptor, value, rankOf(property)};
}

} // namespace

PyObject* findArgument(const ConstructorArguments& names, const char* name, PyObject* arguments, PyObject* keywords)
{
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(arguments) && index < std::ssize(names); ++index)
        if (std::strcmp(names.begin()[index].name, name) == 0)
            return PyTuple_GET_ITEM(arguments, index);
    return keywords ? PyDict_GetItemWithError(keywords, strOf(name)) : nullptr;
}

void applyArguments(PyObject* self, PyTypeObject* type, const ConstructorArguments& names, PyObject* arguments,
                    PyObject* keywords, const char* taken)
{
    const Py_ssize_t count = PyTuple_GET_SIZE(arguments);
    if (count == 0 && !keywords)
        return;
    if (count > static_cast<Py_ssize_t>(names.size()))
        raise(PyExc_TypeError, "%s() takes at most %d positional arguments (%zd given)", type->tp_name,
              static_cast<int>(names.size()), count);
    Settings settings;
    for (Py_ssize_t index = 0; index < count; ++index) {
        const ConstructorArgument& name = names.begin()[index];
        if (keywords && PyDict_GetItemString(keywords, name.name))
            raise(PyExc_TypeError, "%s() got multiple values for argument '%s'", type->tp_name, name.name);
        if (taken && std::strcmp(name.name, taken) == 0)
            continue;
        insert(settings, makeSetting(type, name.name, strOf(name.property), PyTuple_GET_ITEM(arguments, index)));
    }
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    for (Py_ssize_t place = 0; keywords && PyDict_Next(keywords, &place, &key, &value);) {
        const char* argument = PyUnicode_AsUTF8(key);
        if (!argument)
            raisePending();
        if (taken && std::strcmp(argument, taken) == 0)
            continue;
        insert(settings, makeSetting(type, argument, propertyOf(names, key), value));
    }
    for (const Setting& setting : settings)
        if (Py_TYPE(setting.descriptor)->tp_descr_set(setting.descriptor, self, setting.value) < 0)
            raisePending();
}

void adopt(PyObject* self, const std::shared_ptr<OwningHandle>& handle, ObjectPeer& peer)
{
    handle->setPeer(peer); // from here on the handle destroys the object
    installHandle(self, handle);
    peer.attach(*handle, self);
}

void adoptWidget(PyObject* self, PyTypeObject* type, const std::shared_ptr<WidgetHandle>& handle, WidgetPeer& peer)
{
    adopt(self, handle, peer);
    if (Py_TYPE(self) != type)
        peer.allowOverrides();
}

} // namespace python
