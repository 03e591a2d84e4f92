#include "module/data/ProjectChanges.h"

#include "runtime/Callback.h"
#include "runtime/Errors.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <memory>
#include <utility>

namespace bp = boost::python;

namespace python {

namespace {

PluginPartNote g_notePluginPart = nullptr; // NOLINT: set once, when the module is made

/// The block of a `with project.change(name):`.
class ChangeBlock
{
public:
    ChangeBlock(const ProjectHandle& project, QString name) : m_project(project), m_name(std::move(name)) {}

    void enter()
    {
        HVProject& project = m_project.get();
        if (m_scope)
            raise(PyExc_RuntimeError, "Project.change(), the block has begun already");
        m_scope = std::make_unique<hv::ChangeScope>(&project.changes(), m_name, hv::ChangeScope::Kind::Step);
    }
    void exit() { m_scope.reset(); }

private:
    ProjectHandle m_project;
    QString m_name;
    std::unique_ptr<hv::ChangeScope> m_scope;
};

using Block = std::shared_ptr<ChangeBlock>;

Block change(const ProjectHandle& self, const bp::object& name)
{
    self.get();
    const QString text = requireStr(name, "Project.change(), expected 'str' but got '%s'");
    if (text.trimmed().isEmpty())
        raise(PyExc_ValueError, "Project.change(), the name must not be empty");
    return std::make_shared<ChangeBlock>(self, text);
}

bp::object enter(const bp::object& self)
{
    ChangeBlock& block = bp::extract<ChangeBlock&>(self);
    block.enter();
    return self;
}

bool leave(ChangeBlock& self, const bp::object&, const bp::object&, const bp::object&)
{
    self.exit();
    return false;
}

/// Calls a script when an object changes, until it is destroyed: with the project, or with the plug-in whose it is.
class ChangeListener : public QObject
{
public:
    ChangeListener(std::shared_ptr<hv::DataObject> object, const bp::object& callable, QObject* parent)
        : QObject(parent), m_object(std::move(object)), m_callback(callable, "Project.onChanged")
    {
        connect(m_object.get(), &hv::DataObject::changed, this, [this] { m_hasChanged = true; });
    }

    void tell()
    {
        if (!std::exchange(m_hasChanged, false))
            return;
        // Copies: the callable may end the listener.
        const QString path = m_object->path();
        const Callback callback = m_callback;
        callback.with([path] { return textToPython(path); });
    }

private:
    std::shared_ptr<hv::DataObject> m_object;
    Callback m_callback;
    bool m_hasChanged = false;
};

/// Null when there is none.
std::shared_ptr<hv::DataObject> objectOf(HVProject& project, const QString& filename)
{
    if (const auto key = project.keyOf(filename))
        if (const auto opened = project.store().open(*key))
            return *opened;
    return nullptr;
}

bp::object onChanged(const ProjectHandle& self, const bp::object& object, const bp::object& callable)
{
    HVProject& project = self.get();
    const QString filename = requireStr(object, "Project.onChanged(), expected 'str' but got '%s'");
    if (!PyCallable_Check(callable.ptr()))
        raise(PyExc_TypeError, "Project.onChanged(), expected callable object, but got '%s' instead",
              typeName(callable));
    const auto found = objectOf(project, filename);
    if (!found)
        raise(PyExc_RuntimeError, "Project, object '%s' does not exist", filename.toLocal8Bit().constData());
    auto* made = new ChangeListener(found, callable, &project);
    QObject::connect(&project.store(), &hv::ObjectStore::told, made, &ChangeListener::tell);
    const QPointer<QObject> listener(made);
    if (g_notePluginPart)
        g_notePluginPart(made);
    const auto stop = [listener] {
        if (listener)
            listener->deleteLater();
    };
    return bp::make_function(stop, bp::default_call_policies(), boost::mpl::vector<void>());
}

} // namespace

void setPluginPartNote(PluginPartNote note)
{
    g_notePluginPart = note;
}

void defineChangeMethods(bp::class_<ProjectHandle>& project)
{
    bp::class_<ChangeBlock, Block, boost::noncopyable>(
        "_ProjectChange", "A block of changes that Undo takes back together; Project.change() gives it.", bp::no_init)
        .def("__enter__", enter, "__enter__() -> _ProjectChange\n\nBegins the block.")
        .def("__exit__", leave,
             "__exit__(type: object, value: object, traceback: object, /) -> bool\n\n"
             "Ends it; what was changed until an exception stays changed and can be taken back.");
    project
        .def("change", change,
             "change(name: str, /) -> _ProjectChange\n\n"
             "Makes one step of the changes in a with block: Edit > Undo shows name and takes all of them back. "
             "Blocks within it join it.\n\n"
             "Without it all that one run of a script changes, or one call of a callback, is one step.\n\n"
             "Raises ValueError when name is empty.")
        .def("onChanged", onChanged,
             "onChanged(object: str, callable: Callable[[str], object], /) -> Callable[[], None]\n\n"
             "Calls callable when the object that is given by its file name is changed, renamed, removed or there "
             "again, whoever does it. It is called on the main thread, once the script has returned to the "
             "application, and gets the object's file name at that time. Several changes until then are one call. An "
             "exception in it is printed.\n\n"
             "The function that is returned ends this; so does closing the project.\n\n"
             "Raises RuntimeError when there is no such object, TypeError when callable can not be called.");
}

} // namespace python
