#include "module/gui/ItemData.h"

#include "runtime/Errors.h"
#include "runtime/GilLock.h"

#include <boost/python.hpp>

#include <memory>
#include <vector>

namespace bp = boost::python;

namespace python {

namespace {

struct Waiting
{
    std::vector<PyObject*> objects;
    bool isScheduled = false; // the interpreter refuses when it has many such calls to do already
};

int letGo(void* place)
{
    Waiting all;
    std::swap(all, *static_cast<Waiting*>(place));
    for (PyObject* object : all.objects)
        Py_DECREF(object);
    return 0;
}

/// Lets an object go, but runs no code of a script: a model in the middle of a change would not survive what a
/// destructor may do to it. Such objects wait until the interpreter is between two instructions.
void release(PyObject* object)
{
    const bool runsNothing = Py_REFCNT(object) > 1 || PyUnicode_CheckExact(object) || PyLong_CheckExact(object) ||
                             PyFloat_CheckExact(object);
    if (runsNothing) {
        Py_DECREF(object);
        return;
    }
    static Waiting waiting;
    waiting.objects.push_back(object);
    if (!waiting.isScheduled)
        waiting.isScheduled = Py_AddPendingCall(letGo, &waiting) == 0;
}

/// What an item holds; the copies of its variant share it.
class Kept
{
public:
    explicit Kept(PyObject* object) : m_object(Py_NewRef(object)) {}
    ~Kept()
    {
        const LateGilLock lock;
        if (lock)
            release(m_object);
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    PyObject* get() const { return m_object; }

private:
    PyObject* m_object;
};

} // namespace

} // namespace python

using KeptObject = std::shared_ptr<python::Kept>;
Q_DECLARE_METATYPE(KeptObject)

namespace python {

QVariant itemData(const bp::object& value, const char* message)
{
    PyObject* object = value.ptr();
    if (object == Py_None)
        return {};
    if (!PyLong_Check(object) && !PyFloat_Check(object) && !PyUnicode_Check(object))
        raise(PyExc_TypeError, "%s", message);
    return QVariant::fromValue(std::make_shared<Kept>(object));
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
