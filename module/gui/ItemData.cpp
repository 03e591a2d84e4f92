#include "module/gui/ItemData.h"

#include "module/gui/Collection.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/Remains.h"

#include <boost/python.hpp>

#include <QPointer>

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
    // Between the instructions of what may run while an object is destroyed it is still too early.
    for (PyObject* object : all.objects)
        Remains::isDestroying() ? Remains::releaseLater(object) : Py_DECREF(object);
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

/// Whether an attribute of the object may lead back to the list: not for plain values and the module's enumerations.
bool mayReferToOthers(PyObject* object)
{
    return PyObject_IS_GC(object) && !(PyLong_Check(object) && Py_TYPE(object)->tp_dictoffset == 0);
}

/// Where the collector sees what the items of a model hold.
HeldReferences& referencesOf(QObject& model)
{
    for (QObject* child : model.children())
        if (auto* references = dynamic_cast<HeldReferences*>(child))
            return *references;
    return *new HeldReferences(&model);
}

/// What an item holds; the copies of its variant share it.
class Kept
{
public:
    explicit Kept(PyObject* plain) : m_plain(Py_NewRef(plain)) {}
    Kept(HeldReferences& references, const bp::object& object)
        : m_shown{&references, references.add(SharedReference(object))}
    {}
    ~Kept()
    {
        const LateGilLock lock;
        if (!lock)
            return;
        PyObject* object = m_plain;
        if (m_shown.references) {
            object = Py_XNewRef(m_shown.place->get());
            m_shown.place->clear(); // not by its destructor, which would wait for the event loop
            m_shown.references->remove(m_shown.place);
        }
        if (object)
            release(object);
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    /// Borrowed; null when the collector has taken it away.
    PyObject* get() const { return m_shown.references ? m_shown.place->get() : m_plain; }

private:
    struct Shown
    {
        QPointer<HeldReferences> references; // goes with the model
        HeldReferences::Place place;
    };
    PyObject* m_plain = nullptr; // or else:
    Shown m_shown;
};

} // namespace

} // namespace python

using KeptObject = std::shared_ptr<python::Kept>;
Q_DECLARE_METATYPE(KeptObject)

namespace python {

QVariant itemData(QObject& model, const bp::object& value, const char* message)
{
    PyObject* object = value.ptr();
    if (object == Py_None)
        return {};
    if (!PyLong_Check(object) && !PyFloat_Check(object) && !PyUnicode_Check(object))
        raise(PyExc_TypeError, "%s", message);
    if (mayReferToOthers(object))
        return QVariant::fromValue(std::make_shared<Kept>(referencesOf(model), value));
    return QVariant::fromValue(std::make_shared<Kept>(object));
}

bp::object itemObject(const QVariant& data)
{
    if (data.userType() == qMetaTypeId<KeptObject>()) {
        PyObject* object = data.value<KeptObject>()->get();
        return object ? bp::object(bp::handle<>(bp::borrowed(object))) : bp::object();
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
