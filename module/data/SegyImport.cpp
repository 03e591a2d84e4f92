#include "host/data/HVProject.h"
#include "host/segy/Import.h"
#include "host/volume/VolumeSettings.h"
#include "module/PathArgument.h"
#include "module/core/CrsArgument.h"
#include "module/data/DataHandle.h"
#include "module/data/SegyParts.h"
#include "module/data/VolumeHandle.h"
#include "runtime/GilLock.h"

#include <QFileInfo>

namespace bp = boost::python;

namespace python {

namespace {

/// 189, or "189:2" for a number of two bytes; none for None.
std::optional<hv::segy::Position> positionOf(const bp::object& position)
{
    if (position.is_none())
        return std::nullopt;
    const auto text = isInt(position.ptr()) ? QString::number(Argument<int>::from(position.ptr(), "importVolume()"))
                                            : Argument<QString>::from(position.ptr(), "importVolume()");
    const auto found = hv::segy::positionFromText(text);
    if (!found)
        raise(PyExc_ValueError, "importVolume(), '%s' is no position in a trace header", text.toUtf8().constData());
    return found;
}

hv::Result<void> import(const QString& source, const hv::segy::ScanChoice& choice, const QString& crs,
                        const QString& target)
{
    const GilRelease unlocked;
    hv::JobProgress progress;
    hv::JobContext context(progress);
    hv::JobContext looking(context, 1);
    const auto scan = hv::segy::scan(source, choice, looking);
    if (!scan)
        return scan.failure();
    hv::segy::ImportChoice part;
    part.crs = crs;
    const auto header = hv::segy::volumeHeader(**scan, part);
    if (!header)
        return header.failure();
    part.orders = hv::preferredOrders(header->space);
    hv::JobContext reading(context, 1);
    const auto counts = hv::segy::importSegy(**scan, part, target, reading);
    return counts ? hv::Result<void>() : counts.failure();
}

bp::object importVolume(const PathText& source, const PathText& target, const bp::object& inlineByte,
                        const bp::object& crosslineByte, const bp::object& xByte, const bp::object& yByte,
                        const bp::object& domain, const bp::object& crs)
{
    hv::segy::ScanChoice choice;
    choice.positions.inlineNumber = positionOf(inlineByte);
    choice.positions.crosslineNumber = positionOf(crosslineByte);
    choice.positions.x = positionOf(xByte);
    choice.positions.y = positionOf(yByte);
    if (!domain.is_none())
        choice.domain = Argument<georef::Domain>::from(domain.ptr(), "importVolume()");
    const georef::Crs system = crsOrNone(crs, "importVolume()");
    if (!QFileInfo::exists(source.text))
        raise(PyExc_FileNotFoundError, "importVolume(), file '%s' does not exist", source.text.toUtf8().constData());
    if (QFileInfo::exists(target.text))
        raise(PyExc_FileExistsError, "importVolume(), file '%s' exists already", target.text.toUtf8().constData());
    hv::Result<void> made = import(source.text, choice, system.toWkt(), target.text);
    HVProject* project = openProject();
    if (const auto key = project && made ? project->keyOf(target.text) : std::nullopt)
        made = project->store().adopt(*key);
    if (!made)
        raise(PyExc_IOError, "importVolume(), %s", made.failure().sentence.toUtf8().constData());
    return volumeObject(loadBloc(target.text, PyExc_IOError));
}

} // namespace

void bindSegyImport()
{
    const bp::object none;
    bp::def("importVolume", importVolume,
            (bp::arg("filename"), bp::arg("target"), bp::arg("inlineByte") = none, bp::arg("crosslineByte") = none,
             bp::arg("xByte") = none, bp::arg("yByte") = none, bp::arg("domain") = none, bp::arg("crs") = none),
            "importVolume(filename: str | os.PathLike, target: str | os.PathLike, inlineByte: int | str | None = None, "
            "crosslineByte: int | str | None = None, xByte: int | str | None = None, yByte: int | str | None = None, "
            "domain: Domain | None = None, crs: Crs | None = None) -> SeismicVolume\n\n"
            "Makes a volume of a SEG-Y file of revision 0 to 2. target is the volume's new file; one that "
            "getNewFilename() gives becomes an object of the project. Positions are bytes of the trace header, counted "
            "from 1, '189:2' for a number of two bytes; None finds them out. domain is time unless it is said, crs the "
            "reference system of the coordinates. What was found and assumed stands in the volume's history. Other "
            "Python threads run meanwhile.\n\n"
            "Raises FileNotFoundError, FileExistsError when target is there already, ValueError for an impossible "
            "position, IOError when the file can not be imported, and leaves nothing behind then.");
}

} // namespace python
