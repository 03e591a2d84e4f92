#include "module/data/VolumeHandle.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"

#include <new>

namespace bp = boost::python;

namespace python {

namespace {

/// Lives as long as the view, and the file with it: what the volume reads later is another one.
struct ViewedFile
{
    std::shared_ptr<const hv::VolumeFile> file;
    Py_ssize_t shape[3];
    Py_ssize_t strides[3];
};

int getBuffer(PyObject* self, Py_buffer* view, int flags)
{
    view->obj = nullptr;
    const auto wants = [flags](int flag) { return (flags & flag) == flag; };
    try {
        const VolumeHandle& volume = bp::extract<const VolumeHandle&>(self);
        const auto file = volume.file();
        if (wants(PyBUF_WRITABLE))
            raise(PyExc_BufferError, "SeismicVolume, the view is read-only: assign to volume[...] to write");
        if (!wants(PyBUF_STRIDES) || wants(PyBUF_C_CONTIGUOUS) || wants(PyBUF_F_CONTIGUOUS) ||
            wants(PyBUF_ANY_CONTIGUOUS))
            raise(PyExc_BufferError, "SeismicVolume, the samples of a trace do not lie one beside the other");
        const hv::VolumeHeader& header = file->header();
        const Py_ssize_t inlines = header.inlines(), crosslines = header.crosslines(), samples = header.sampleCount();
        constexpr Py_ssize_t size = sizeof(float);
        auto viewed = std::make_unique<ViewedFile>(
            ViewedFile{file, {inlines, crosslines, samples}, {samples * crosslines * size, size, crosslines * size}});
        view->buf = const_cast<float*>(file->order(georef::ScanOrientation::Inline));
        view->len = inlines * crosslines * samples * size;
        view->itemsize = size;
        view->readonly = 1;
        view->format = wants(PyBUF_FORMAT) ? const_cast<char*>("f") : nullptr;
        view->ndim = 3;
        view->shape = viewed->shape;
        view->strides = viewed->strides;
        view->suboffsets = nullptr;
        view->internal = viewed.release();
        view->obj = Py_NewRef(self);
        return 0;
    } catch (const bp::error_already_set&) {
        return -1;
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
        return -1;
    }
}

void releaseBuffer(PyObject* /*self*/, Py_buffer* view)
{
    delete static_cast<ViewedFile*>(view->internal);
}

} // namespace

void installVolumeBuffer(PyTypeObject* type)
{
    installBuffer(type, getBuffer, releaseBuffer);
}

bool isVolumeView(const bp::object& array)
{
    bp::object each = array;
    while (PyObject_HasAttrString(each.ptr(), "base"))
        each = each.attr("base");
    if (!PyMemoryView_Check(each.ptr()))
        return false;
    PyObject* owner = PyMemoryView_GET_BUFFER(each.ptr())->obj;
    return owner && bp::extract<const VolumeHandle&>(owner).check();
}

} // namespace python
