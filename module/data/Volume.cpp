#include "host/services/HVEventBus.h"
#include "module/Bindings.h"
#include "module/PathArgument.h"
#include "module/core/ImageClasses.h"
#include "module/data/VolumeHandle.h"

#include <QFileInfo>

#include <cerrno>

namespace bp = boost::python;

namespace python {

namespace {

using ImagePointer = std::shared_ptr<img::Image2d>;

int requireFrame(const HVBloc& bloc, const bp::object& index, const char* format)
{
    const long long frame = requirePosition(index, "SeismicVolume, expected 'int' but got '%s' instead");
    if (frame < bloc.minFrameIndex() || frame > bloc.maxFrameIndex())
        raise(PyExc_IndexError, format, saturated(frame), bloc.minFrameIndex(), bloc.maxFrameIndex());
    return static_cast<int>(frame);
}

void requireFrameSize(const HVBloc& bloc, const img::Image2d& image)
{
    const hv::FrameShape frame = bloc.shape();
    if (image.width() != frame.width || image.height() != frame.height)
        raise(PyExc_RuntimeError, "SeismicVolume, image size mismatch: (%d,%d) -> (%d,%d)", image.width(),
              image.height(), frame.width, frame.height);
}

ImagePointer imageOf(hv::Result<std::unique_ptr<img::Image2d>> frame)
{
    if (!frame)
        raiseVolumeFailure(frame.failure());
    return std::move(*frame);
}

ImagePointer getFrame(const VolumeHandle& self, const bp::object& index)
{
    const HVBloc& bloc = self.get();
    return imageOf(bloc.frame(requireFrame(bloc, index, "SeismicVolume, frame index %d out of range: (%d -> %d)")));
}

ImagePointer currentFrame(const VolumeHandle& self)
{
    return imageOf(self.get().currentFrame());
}

void setFrame(const VolumeHandle& self, const bp::object& index, const img::Image2d& image)
{
    HVBloc& bloc = self.get();
    const int frame = requireFrame(bloc, index, "SeismicVolume, frame index %d out of range: (%d -> %d)");
    requireFrameSize(bloc, image);
    if (auto set = bloc.setFrame(frame, image); !set)
        raiseVolumeFailure(set.failure());
}

void writeFrame(const VolumeHandle& self, const bp::object& index, const img::Image2d& image)
{
    HVBloc& bloc = self.get();
    const int frame = requireFrame(bloc, index, "SeismicVolume, frame number %d out of range (%d -> %d)");
    requireFrameSize(bloc, image);
    const auto written = bloc.writeFrame(frame, image);
    if (written)
        return;
    const hv::Failure& failure = written.failure();
    if (!failure.systemError)
        raiseVolumeFailure(failure);
    const bp::object filename = unicodeText(bloc.filename());
    errno = failure.systemError;
    PyErr_SetFromErrnoWithFilenameObject(PyExc_IOError, filename.ptr());
    raisePending();
}

bool createFile(const VolumeHandle& self, const bp::object& filename)
{
    HVBloc& bloc = self.get();
    const QString path =
        filename.is_none() ? bloc.filename() : Argument<PathText>::from(filename.ptr(), "SeismicVolume").text;
    if (!path.isEmpty() && QFileInfo::exists(path))
        raise(PyExc_FileExistsError, "SeismicVolume, file '%s' exists already", path.toUtf8().constData());
    if (!filename.is_none())
        bloc.setFilename(path);
    const auto created = bloc.createFile(nullptr);
    if (!created)
        HVEventBus::instance().sendMessage(MessageLevel::Error, created.failure().sentence);
    return bool(created);
}

bool isTransposed(const VolumeHandle& self)
{
    const HVBloc& bloc = self.get();
    return bloc.isTransposed() && bloc.transposedCount() >= 1;
}

bp::object fromFile(const PathText& path)
{
    if (!QFileInfo::exists(path.text))
        raise(PyExc_FileNotFoundError, "SeismicVolume, file '%s' does not exist", path.text.toUtf8().constData());
    return volumeObject(loadBloc(path.text, PyExc_IOError));
}

void flush(const VolumeHandle& self)
{
    HVBloc& bloc = self.get();
    const auto settled = [&] {
        const GilRelease unlocked;
        return bloc.settle();
    }();
    if (!settled)
        raiseVolumeFailure(settled.failure());
}

void defineFrames(VolumeClass& volume)
{
    volume
        .def("getFrame", getFrame, bp::args("self", "index"),
             "getFrame(index: int) -> Image2d\n\n"
             "A copy of one frame of the scan orientation, as it was set in memory or else as the file has it. An "
             "inline has crosslines to the right and samples down, a crossline inlines to the right and samples down, "
             "a time slice crosslines to the right and inlines down.\n\n"
             "Raises IndexError outside of minFrameIndex to maxFrameIndex, IOError when the file can not be read, "
             "MemoryError when memory is short.")
        .def("setFrame", setFrame, bp::args("self", "index", "image"),
             "setFrame(index: int, image: Image2d) -> None\n\n"
             "Replaces a frame in memory; the file stays as it is. Where frames of different orientations cross, the "
             "one that was set last counts.\n\n"
             "Raises IndexError outside of minFrameIndex to maxFrameIndex, RuntimeError when the image has another "
             "size, MemoryError when memory is short.")
        .def("currentFrame", currentFrame, bp::args("self"),
             "currentFrame() -> Image2d\n\nThe frame frameIndex, as getFrame() gives it.")
        .def("writeFrame", writeFrame, bp::args("self", "index", "image"),
             "writeFrame(index: int, image: Image2d) -> None\n\n"
             "Writes a frame into the file. Undo takes it back in a project.\n\n"
             "Raises IndexError outside of minFrameIndex to maxFrameIndex, RuntimeError when the image has another "
             "size, IOError with the system's error number when the file can not be written.")
        .add_property(
            "minFrameIndex", +[](const VolumeHandle& self) { return self.get().minFrameIndex(); },
            "int: The first frame of the scan orientation, 0. Read-only.")
        .add_property(
            "maxFrameIndex", +[](const VolumeHandle& self) { return self.get().maxFrameIndex(); },
            "int: The last frame of the scan orientation. Read-only.")
        .add_property(
            "scanOrientation", +[](const VolumeHandle& self) { return self.get().scanOrientation(); },
            +[](const VolumeHandle& self, georef::ScanOrientation orientation) {
                self.get().setScanOrientation(orientation);
            },
            "ScanOrientation: The axis that frames are cut across; Inline at first.")
        .add_property(
            "frameIndex", +[](const VolumeHandle& self) { return self.get().frameIndex(); },
            +[](const VolumeHandle& self, const bp::object& index) {
                HVBloc& bloc = self.get();
                bloc.setFrameIndex(requireFrame(bloc, index, "SeismicVolume, frame index %d out of range: (%d -> %d)"));
            },
            "int: The current frame. Raises IndexError outside of minFrameIndex to maxFrameIndex.");
}

void defineFile(VolumeClass& volume)
{
    volume
        .def("createFile", createFile, (bp::arg("self"), bp::arg("filename") = bp::object()),
             "createFile(filename: str | os.PathLike | None = None) -> bool\n\n"
             "Makes the volume's file, with the samples as they are in memory or else in the file that was read; what "
             "is in neither has no value. From then on it is what the volume reads and writes. In the project's folder "
             "of volumes, getNewFilename() gives such a path, it becomes an object of the project. None takes filename."
             "\n\n"
             "False when it could not be made; the reason is told as a message of the application. Raises "
             "FileExistsError when there is a file already, TypeError when filename is no text.")
        .def("flush", flush, bp::args("self"),
             "flush() -> None\n\n"
             "Brings to the disk what was written, renews the further orders of the file and tells the project. That "
             "is done by itself once the script has returned to the application, or the volume is dropped.\n\n"
             "Raises IOError when the file can not be written.")
        .def("fromFile", fromFile, bp::args("filename"),
             "fromFile(filename: str | os.PathLike) -> Volume\n\n"
             "Opens a volume file by its path, in the project or elsewhere: a SeismicVolume, or a Volume when its "
             "samples are a property of the rock.\n\n"
             "Raises FileNotFoundError, or IOError that tells what is wrong with it.")
        .staticmethod("fromFile")
        .add_property(
            "filename", +[](const VolumeHandle& self) { return self.get().filename(); },
            +[](const VolumeHandle& self, const PathText& path) { self.get().setFilename(path.text); },
            "str: The full path of the file; empty when there is none. Setting it moves nothing on the disk: it is "
            "where the next frame is written to.")
        .add_property(
            "name", +[](const VolumeHandle& self) { return self.get().name(); },
            +[](const VolumeHandle& self, const QString& name) { self.get().setName(name); },
            "str: The file's name without folder and suffix. Setting it makes filename that of the same folder and "
            "suffix; nothing is moved on the disk.")
        .add_property(
            "transposed", isTransposed,
            +[](const VolumeHandle& self, bool transposed) { self.get().setTransposed(transposed); },
            "bool: Whether the file has further orders of its samples, which read crosslines and time slices as fast "
            "as inlines. Setting it decides what createFile() makes; it then reads as True once the file has them.")
        .add_property(
            "datasize", +[](const VolumeHandle& self) { return self.get().datasize(); },
            "int: Bytes of the samples, once: 4 for each. Read-only.");
}

} // namespace

void bindVolume()
{
    VolumeClass volume(
        "Volume",
        "Samples on a grid of inlines, crosslines and vertical samples, in a file. Frames are read, changed in memory "
        "and written one by one; volume[i0:i1, j0:j1, k0:k1] reads and writes regions as arrays of 32-bit floats, and "
        "numpy.asarray(volume) is a read-only view of the whole file without a copy.\n\n"
        "Indices count from 0 along inlines, crosslines and samples; blockSpace converts them to line numbers and map "
        "coordinates. A volume stands for its file also when the project is closed. It is used on the main thread; "
        "arrays and views may be used on any.",
        bp::no_init);
    defineFrames(volume);
    defineFile(volume);
    defineHeaderMembers(volume);
    defineSampleMembers(volume);
    installVolumeBuffer(reinterpret_cast<PyTypeObject*>(volume.ptr()));
}

} // namespace python
