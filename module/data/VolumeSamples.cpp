#include "host/img/Image3d.h"
#include "module/core/SharedMemory.h"
#include "module/data/CellArrays.h"
#include "module/data/VolumePieces.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"

namespace bp = boost::python;

namespace python {

namespace {

bp::object all()
{
    return bp::slice();
}

bp::object getItem(const VolumeHandle& self, const bp::object& index)
{
    const auto file = self.file();
    const CellChoice choice = chosenCells(index, file->header());
    return readArray(*file, choice);
}

bp::tuple shape(const VolumeHandle& self)
{
    const hv::VolumeHeader& header = self.get().header();
    return bp::make_tuple(header.inlines(), header.crosslines(), header.sampleCount());
}

bp::object numpyType(const VolumeHandle& /*self*/)
{
    return bp::import("numpy").attr("dtype")("float32");
}

int length(const VolumeHandle& self)
{
    return self.get().header().inlines();
}

/// Asked by NumPy only when there is no view to be had: a volume is no sequence of numbers then, but an error.
bp::object toArray(const VolumeHandle& self, const bp::object& /*type*/, const bp::object& /*copy*/)
{
    self.file();
    raise(PyExc_BufferError, "SeismicVolume, there is no view of the volume's samples");
}

/// From the block of the cells that are chosen to that of the volume.
core::mat4 fromChosen(const CellChoice& choice)
{
    const auto& [inlines, crosslines, samples] = choice.axes;
    core::mat4 matrix;
    matrix[0] = {double(crosslines.step), 0, 0, double(crosslines.first)};
    matrix[1] = {0, double(inlines.step), 0, double(inlines.first)};
    matrix[2] = {0, 0, double(samples.step), double(samples.first)};
    matrix[3] = {0, 0, 0, 1};
    return matrix;
}

std::shared_ptr<img::Image3d> toImage3d(const VolumeHandle& self, const bp::object& inlines,
                                        const bp::object& crosslines, const bp::object& samples)
{
    const auto file = self.file();
    const auto orAll = [](const bp::object& axis) { return axis.is_none() ? all() : axis; };
    const CellChoice choice =
        chosenCells(bp::make_tuple(orAll(inlines), orAll(crosslines), orAll(samples)), file->header());
    const int width = choice.axes[1].count;
    const int height = choice.axes[0].count;
    const int length = choice.axes[2].count;
    if (choice.count() == 0)
        raise(PyExc_IndexError, "SeismicVolume.toImage3d(), there is nothing in a region of %d x %d x %d", height,
              width, length);
    std::shared_ptr<img::Image3d> image;
    if (isMemoryAvailable(byteCount({width, height, length, sizeof(float)})))
        image = img::Image3d::create(width, height, length, self.get().name());
    if (!image)
        raiseNotEnoughMemory("SeismicVolume.toImage3d(), not enough free memory for %d x %d x %d samples.", height,
                             width, length);
    const georef::BlocSpace& whole = file->header().space;
    georef::BlocSpace space(width, height, length);
    const core::mat4 chosen = fromChosen(choice);
    const auto refusal = space.setFromBlockToSurvey(whole.fromBlockToSurvey() * chosen);
    if (!refusal.empty() || !space.setFromBlockToWorld(whole.fromBlockToWorld() * chosen).empty() ||
        !image->setBlocSpace(space))
        raise(PyExc_RuntimeError, "SeismicVolume.toImage3d(), the region has no place in the survey");
    const auto read = [&] {
        const GilRelease unlocked;
        return readCube(*file, choice, image->data());
    }();
    if (!read)
        raiseVolumeFailure(read.failure());
    return image;
}

} // namespace

void defineSampleMembers(VolumeClass& volume)
{
    volume
        .def("__getitem__", getItem, bp::args("self", "index"),
             "__getitem__(index: int | slice | tuple) -> numpy.ndarray | float\n\n"
             "Samples of the file as a new array of 32-bit floats, by NumPy's rules for ints, slices with steps, "
             "indices from the end and '...'; one sample as a float. Other Python threads run meanwhile. Frames that "
             "were set in memory are not in it until they are written.\n\n"
             "Raises IndexError outside the volume, TypeError for another kind of index, RuntimeError without a file, "
             "IOError when it can not be read, MemoryError when memory is short.")
        .def("__setitem__", writeCells, bp::args("self", "index", "value"),
             "__setitem__(index: int | slice | tuple, value: ArrayLike) -> None\n\n"
             "Writes samples into the file; value is spread to the shape of the region by NumPy's rules. Other Python "
             "threads run meanwhile. Undo takes it back in a project, unless it is too large to be kept, which a "
             "warning tells.\n\n"
             "Raises ValueError for another shape, IndexError outside the volume, RuntimeError without a file, IOError "
             "when it can not be written: inlines before the one that failed are written then.")
        .def("__array__", toArray, (bp::arg("self"), bp::arg("dtype") = bp::object(), bp::arg("copy") = bp::object()),
             "__array__(dtype: object = None, copy: object = None) -> numpy.ndarray\n\n"
             "For numpy.asarray() of a volume without a file: raises RuntimeError.")
        .def("__len__", length, bp::args("self"), "__len__() -> int\n\nThe number of inlines.")
        .add_property("shape", shape,
                      "tuple[int, int, int]: Numbers of inlines, crosslines and samples: the shape of the volume as an "
                      "array. Read-only.")
        .add_property(
            "ndim", +[](const VolumeHandle&) { return 3; }, "int: 3. Read-only.")
        .add_property("dtype", numpyType, "numpy.dtype: That of 32-bit floats. Read-only.")
        .def("toImage3d", toImage3d,
             (bp::arg("self"), bp::arg("inlines") = bp::object(), bp::arg("crosslines") = bp::object(),
              bp::arg("samples") = bp::object()),
             "toImage3d(inlines: slice | int | None = None, crosslines: slice | int | None = None, samples: slice | "
             "int | None = None) -> Image3d\n\n"
             "A copy of a region of the file as an image, with the block space that places it in the survey and in the "
             "world. None is a whole axis; x of the image counts crosslines, y inlines and z samples.\n\n"
             "Raises IndexError for an empty region, RuntimeError without a file, IOError when it can not be read, "
             "MemoryError when memory is short.")
        .def("pieces", makePieces, (bp::arg("self"), bp::arg("halo") = 0, bp::arg("inlines") = 0),
             "pieces(halo: int = 0, inlines: int = 0) -> Iterator[VolumePiece]\n\n"
             "Walks the file in pieces of whole inlines, for work on volumes that are larger than memory: for piece in "
             "volume.pieces(halo=2). Each has so many inlines, 0 takes as many as make about 64 MB, and halo more on "
             "either side, fewer at the ends of the volume. The halo has the samples as they were before the piece "
             "beside it was written.\n\n"
             "Raises ValueError when a number is negative, RuntimeError without a file.");
}

} // namespace python
