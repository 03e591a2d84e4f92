#include "module/gui/Collection.h"

#include "module/gui/HandleInstance.h"
#include "module/gui/ObjectPeer.h"
#include "runtime/GuiThread.h"

namespace python {

namespace {

using Instance = boost::python::objects::instance<>;

/// Calls `see` for every reference that is held below `root`, down to the widgets and layouts that have Python objects
/// of their own and answer for themselves.
template <typename See>
void seeReferences(const QObject& root, const See& see)
{
    for (QObject* child : root.children()) {
        // Only a plain QObject may hold references; asking takes its time.
        const bool isPlain = child->metaObject() == &QObject::staticMetaObject;
        const auto* held = isPlain ? dynamic_cast<HeldReference*>(child) : nullptr;
        if (held) {
            see(held->reference());
        } else {
            const auto* peer = dynamic_cast<ObjectPeer*>(child);
            if (peer && peer->self())
                see(*peer);
            else
                seeReferences(*child, see);
        }
    }
}

/// The Qt object whose references count as the Python object's own; null when there is none, or on another thread.
QObject* searchable(PyObject* self)
{
    if (!isGuiThread())
        return nullptr;
    const ObjectHandle* handle = handleOrNull(self);
    return handle && handle->isScriptMade() ? handle->objectOrNull() : nullptr;
}

int traverse(PyObject* self, visitproc visit, void* arg)
{
    Py_VISIT(Py_TYPE(self));
    Py_VISIT(reinterpret_cast<Instance*>(self)->dict);
    const QObject* root = searchable(self);
    if (!root)
        return 0;
    struct See
    {
        void operator()(const SharedReference& reference) const { visitOne(reference.get()); }
        void operator()(const ObjectPeer& peer) const { visitOne(peer.kept()); }
        void visitOne(PyObject* object) const
        {
            if (object && *result == 0)
                *result = visit(object, arg);
        }
        visitproc visit;
        void* arg;
        int* result;
    };
    int result = 0;
    seeReferences(*root, See{visit, arg, &result});
    return result;
}

int clear(PyObject* self)
{
    if (const QObject* root = searchable(self))
        clearReferences(*root);
    Py_CLEAR(reinterpret_cast<Instance*>(self)->dict);
    return 0;
}

} // namespace

void clearReferences(const QObject& root)
{
    // Letting go runs other objects' destructors, which may change the tree.
    std::vector<SharedReference> found;
    struct See
    {
        void operator()(const SharedReference& reference) const { found->push_back(reference); }
        void operator()(const ObjectPeer& /*peer*/) const {} // goes with its object
        std::vector<SharedReference>* found;
    };
    seeReferences(root, See{&found});
    for (const SharedReference& reference : found)
        reference.clear();
}

void showReferencesToCollector(PyTypeObject* type)
{
    type->tp_traverse = traverse;
    type->tp_clear = clear;
}

} // namespace python
