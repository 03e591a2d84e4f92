#include "module/CheckedSetter.h"
#include "module/core/CrsArgument.h"
#include "module/data/VolumeHandle.h"
#include "runtime/GilLock.h"

namespace bp = boost::python;

namespace python {

namespace {

/// Everything that a header says is set in one way: of a volume with a file it is written at once, or refused.
template <typename Change>
void changeHeader(const VolumeHandle& self, Change change)
{
    HVBloc& bloc = self.get();
    hv::VolumeHeader header = bloc.header();
    change(header);
    if (const auto set = bloc.setHeader(header); !set)
        raiseVolumeFailure(PyExc_RuntimeError, set.failure());
}

/// A member of the header as a property.
template <auto Member>
auto get()
{
    return +[](const VolumeHandle& self) { return self.get().header().*Member; };
}
template <auto Member, typename Value>
void set(VolumeHandle& self, Value value)
{
    changeHeader(self, [&](hv::VolumeHeader& header) { header.*Member = value; });
}

void setBlockSpace(VolumeHandle& self, const georef::BlocSpace& space)
{
    if (const auto set = self.get().setBlocSpace(space); !set)
        raiseVolumeFailure(PyExc_RuntimeError, set.failure());
}

bp::object crs(const VolumeHandle& self)
{
    return crsObject(georef::orNull(georef::Crs::fromWkt(self.get().header().crs)));
}

void setCrs(VolumeHandle& self, bp::object value)
{
    const georef::Crs crs = crsOrNone(value, "Volume.crs");
    changeHeader(self, [&](hv::VolumeHeader& header) { header.crs = crs.toWkt(); });
}

bp::object statistics(const VolumeHandle& self)
{
    const auto& statistics = self.get().header().statistics;
    return statistics ? bp::object(*statistics) : bp::object();
}

bp::object makeStatistics(const VolumeHandle& self)
{
    self.file();
    HVBloc& bloc = self.get();
    const auto made = [&] {
        const GilRelease unlocked;
        return bloc.makeStatistics(nullptr);
    }();
    if (!made)
        raiseVolumeFailure(made.failure());
    return statistics(self);
}

bp::list history(const VolumeHandle& self)
{
    bp::list entries;
    for (const hv::HistoryEntry& entry : self.get().header().history)
        entries.append(bp::make_tuple(entry.when.toUTC().toString(Qt::ISODate), entry.what));
    return entries;
}

void note(const VolumeHandle& self, const QString& what)
{
    changeHeader(self, [&](hv::VolumeHeader& header) { header.note(what); });
}

} // namespace

void defineHeaderMembers(VolumeClass& volume)
{
    using Header = hv::VolumeHeader;
    volume
        .add_property(
            "blockSpace", +[](const VolumeHandle& self) { return self.get().blocSpace(); },
            checkedSetter("Volume.blockSpace", setBlockSpace),
            "BlockSpace: A copy of extents and place, with scan orientation and current frame. Set it to give a volume "
            "without a file its extents; frames that were set in memory are dropped when those change. Of a volume "
            "with a file only orientation and frame can be set.\n\n"
            "Setting raises RuntimeError for another place than the file's, and for extents that no file can hold.")
        .add_property("crs", crs, checkedSetter("Volume.crs", setCrs),
                      "Crs | None: The reference system of the world's x and y; None when it is not known.\n\n"
                      "This and the following are written into the file at once, if there is one; setting raises "
                      "RuntimeError when that fails.")
        .add_property("domain", get<&Header::domain>(),
                      checkedSetter("Volume.domain", set<&Header::domain, georef::Domain>),
                      "Domain: What the vertical axis measures.")
        .add_property("horizontalUnit", get<&Header::horizontalUnit>(),
                      checkedSetter("Volume.horizontalUnit", set<&Header::horizontalUnit, georef::Unit>),
                      "Unit: That of the world's x and y.")
        .add_property("verticalUnit", get<&Header::verticalUnit>(),
                      checkedSetter("Volume.verticalUnit", set<&Header::verticalUnit, georef::Unit>),
                      "Unit: That of the vertical axis and of sampleInterval.")
        .add_property("quantity", get<&Header::samples>(),
                      checkedSetter("Volume.quantity", set<&Header::samples, const QString&>),
                      "str: What the samples are, for people: 'Amplitude'.")
        .add_property("noValue", get<&Header::noValue>(),
                      "float: Stands where nothing was measured; NO_VALUE unless the file says otherwise. Read-only.")
        .add_property(
            "sampleInterval", +[](const VolumeHandle& self) { return self.get().header().space.verticalResolution(); },
            "float: From one sample of a trace to the next, in verticalUnit. Read-only.")
        .add_property("statistics", statistics,
                      "VolumeStatistics | None: Of the samples in the file, kept in it; None when they are not known: "
                      "there is no file, or parts of a large one were written anew. Read-only.")
        .def("makeStatistics", makeStatistics, bp::args("self"),
             "makeStatistics() -> VolumeStatistics\n\n"
             "Reads all samples of the file and keeps their statistics in it. Other Python threads run meanwhile.\n\n"
             "Raises RuntimeError without a file, IOError when it can not be read or written.")
        .add_property("history", history,
                      "list[tuple[str, str]]: What was done to make the volume what it is: time (UTC, ISO 8601) and "
                      "text, the oldest first. Read-only.")
        .def("note", note, bp::args("self", "what"), "note(what: str) -> None\n\nAdds to the history.");
}

} // namespace python
