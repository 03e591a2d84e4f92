#include "module/data/VolumePieces.h"

#include "module/Bindings.h"
#include "module/core/NewFloatArray.h"
#include "module/data/CellArrays.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"

#include <algorithm>

namespace bp = boost::python;

namespace python {

namespace {

constexpr std::int64_t g_pieceBytes = 64 << 20;

bp::object lineSlice(int first, int end)
{
    return bp::object(bp::slice(first, end));
}

bp::object inner(const VolumePiece& piece)
{
    return lineSlice(piece.halo, piece.halo + piece.end - piece.first);
}

bp::object region(const VolumePiece& piece)
{
    return lineSlice(piece.first, piece.end);
}

void write(const VolumePiece& self, const bp::object& values, const bp::object& to)
{
    bp::object lines = bp::import("numpy").attr("asanyarray")(values.is_none() ? self.array : values);
    // An array of the piece's own shape has the halo, too, which is the neighbours'.
    if (lines.attr("shape") == self.array.attr("shape"))
        lines = lines[inner(self)];
    const bp::extract<const VolumeHandle&> other(to);
    if (!to.is_none() && !other.check())
        raise(PyExc_TypeError, "VolumePiece.write(), expected 'Volume' but got '%s' instead", typeName(to));
    writeCells(to.is_none() ? self.volume : other(), region(self), lines);
}

} // namespace

VolumePieces::VolumePieces(const VolumeHandle& volume, int halo, int lines)
    : m_volume(volume), m_halo(halo), m_lines(lines)
{}

std::shared_ptr<VolumePiece> VolumePieces::next()
{
    const auto file = m_volume.file();
    const int all = file->header().inlines();
    if (m_next >= all)
        raise(PyExc_StopIteration, "");
    const int first = m_next;
    const int end = m_lines < all - first ? first + m_lines : all;
    const int arrayFirst = m_halo < first ? first - m_halo : 0;
    const int arrayEnd = m_halo < all - end ? end + m_halo : all;
    const auto lineCells = static_cast<std::size_t>(file->shape(georef::ScanOrientation::Inline).cells());
    const NewFloatArray array({arrayEnd - arrayFirst, file->header().crosslines(), file->header().sampleCount()});
    const auto kept = static_cast<std::size_t>(std::max(m_keptEnd - arrayFirst, 0)) * lineCells;
    const auto read = [&]() -> hv::Result<void> {
        const GilRelease unlocked;
        std::copy(m_kept.end() - static_cast<std::ptrdiff_t>(kept), m_kept.end(), array.data());
        const hv::CellRegion rest{std::max(m_keptEnd, arrayFirst), arrayEnd, 0,
                                  file->header().crosslines(),     0,        file->header().sampleCount()};
        return rest.firstInline < rest.endInline ? file->readRegion(rest, array.data() + kept) : hv::Result<void>();
    }();
    if (!read)
        raiseVolumeFailure(read.failure());
    const int nextFirst = m_halo < end ? end - m_halo : 0;
    if (m_halo > 0 && end < all)
        m_kept.assign(array.data() + static_cast<std::size_t>(nextFirst - arrayFirst) * lineCells,
                      array.data() + static_cast<std::size_t>(arrayEnd - arrayFirst) * lineCells);
    m_keptEnd = m_halo > 0 ? arrayEnd : 0;
    m_next = end;
    return std::make_shared<VolumePiece>(VolumePiece{m_volume, first, end, first - arrayFirst, array.object()});
}

std::shared_ptr<VolumePieces> makePieces(const VolumeHandle& volume, int halo, int lines)
{
    if (halo < 0 || lines < 0)
        raise(PyExc_ValueError, "SeismicVolume.pieces(), halo and inlines must not be negative (%d, %d)", halo, lines);
    const std::int64_t lineBytes = volume.file()->shape(georef::ScanOrientation::Inline).bytes();
    return std::make_shared<VolumePieces>(
        volume, halo, lines > 0 ? lines : static_cast<int>(std::max<std::int64_t>(g_pieceBytes / lineBytes, 1)));
}

void bindVolumePiece()
{
    bp::class_<VolumePiece, std::shared_ptr<VolumePiece>, boost::noncopyable>(
        "VolumePiece",
        "Some inlines of a volume with the halo on either side; Volume.pieces() gives one after the other.",
        bp::no_init)
        .def("write", write, (bp::arg("self"), bp::arg("values") = bp::object(), bp::arg("to") = bp::object()),
             "write(values: ArrayLike | None = None, to: Volume | None = None) -> None\n\n"
             "Writes the piece without its halo into its volume, or into another one of the same shape. values are of "
             "the shape of array, whose halo is left out, or have the inlines of the piece only; None is array.\n\n"
             "Raises what assigning to a region of the volume raises.")
        .add_property(
            "array", +[](const VolumePiece& self) { return self.array; },
            "numpy.ndarray: The samples with the halo as 32-bit floats of shape (inline, crossline, sample): a copy, "
            "which may be changed. Read-only.")
        .add_property("inner", inner, "slice: The inlines of array that are no halo. Read-only.")
        .add_property("region", region, "slice: The inlines of the volume that the piece stands for. Read-only.");
    bp::class_<VolumePieces, std::shared_ptr<VolumePieces>, boost::noncopyable>(
        "_VolumePieces", "What Volume.pieces() gives: an iterator.", bp::no_init)
        .def(
            "__iter__", +[](const bp::object& self) { return self; }, bp::args("self"),
            "__iter__() -> _VolumePieces\n\nItself.")
        .def("__next__", &VolumePieces::next, bp::args("self"), "__next__() -> VolumePiece\n\nThe next piece.");
}

} // namespace python
