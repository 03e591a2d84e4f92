#include "module/gui/ItemData.h"

#include "runtime/Errors.h"
#include "runtime/SharedReference.h"

#include <boost/python.hpp>

#include <optional>

namespace bp = boost::python;

using KeptObject = std::optional<python::SharedReference>;
Q_DECLARE_METATYPE(KeptObject)

namespace python {

QVariant itemData(const bp::object& value, const char* message)
{
    PyObject* object = value.ptr();
    if (object == Py_None)
        return {};
    if (!PyLong_Check(object) && !PyFloat_Check(object) && !PyUnicode_Check(object))
        raise(PyExc_TypeError, "%s", message);
    return QVariant::fromValue(KeptObject(SharedReference(value)));
}

bp::object itemObject(const QVariant& data)
{
    if (data.userType() == qMetaTypeId<KeptObject>()) {
        PyObject* object = data.value<KeptObject>()->get();
        return bp::object(bp::handle<>(bp::borrowed(object)));
    }
    switch (data.userType()) {
    case QMetaType::QString:
        return unicodeText(data.toString());
    case QMetaType::Bool:
        return bp::object(data.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return bp::object(data.toLongLong());
    case QMetaType::Double:
        return bp::object(data.toDouble());
    default:
        return {};
    }
}

} // namespace python
