#include "host/georef/Crs.h"
#include "host/segy/TraceWriter.h"
#include "host/services/HVEventBus.h"
#include "host/volume/VolumeIo.h"
#include "module/PathArgument.h"
#include "module/data/SegyParts.h"
#include "module/data/VolumeHandle.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <cerrno>
#include <fcntl.h>

namespace bp = boost::python;

namespace python {

namespace {

using hv::segy::SampleFormat;
using hv::segy::TextEncoding;

class Exporter
{
public:
    QString textualHeader;
    SampleFormat format = SampleFormat::Ibm;
    TextEncoding encoding = TextEncoding::Ebcdic;
};

/// Free bytes of the file system that a file will lie on; none when it has no folder to lie in, which writing tells.
std::optional<std::int64_t> freeBytes(const QStorageInfo& storage)
{
    return storage.isValid() ? std::optional<std::int64_t>(storage.bytesAvailable()) : std::nullopt;
}

/// Into a new file, which stays as it is when writing fails.
hv::Result<void> write(const QString& path, const HVSegyDescription& description, const HVBloc& bloc)
{
    const hv::FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file)
        return hv::cannotWrite(path, hv::systemFailure(errno));
    const auto read = [&bloc](int line, int first, int end, float* out) {
        return bloc.readTraces(line, first, end, out);
    };
    hv::JobProgress progress;
    hv::JobContext context(progress);
    const auto written = hv::segy::writeTraces(file.number(), description, bloc.header().noValue, read, context);
    return written ? hv::Result<void>() : hv::cannotWrite(path, written.failure());
}

bool exportVolume(const Exporter& self, const PathText& path, const bp::object& volume)
{
    if (volume.is_none())
        raise(PyExc_RuntimeError, "A SeismicVolume is required.");
    const bp::extract<const SeismicVolumeHandle&> handle(volume);
    if (!handle.check())
        raise(PyExc_TypeError, "Exporter.export(), expected 'SeismicVolume' but got '%s' instead", typeName(volume));
    const HVBloc& bloc = handle().get();
    HVSegyDescription description(bloc.header(), bloc.name());
    description.setFormat(self.format);
    description.setEncoding(self.encoding);
    description.setTextualHeader(self.textualHeader.isEmpty() ? description.defaultTextualHeader()
                                                              : self.textualHeader);

    const std::int64_t size = description.sizeInBytes();
    const QStorageInfo storage(QFileInfo(path.text).absolutePath());
    if (const auto available = freeBytes(storage); available && *available < size) {
        constexpr std::int64_t megabyte = 1 << 20;
        const QString text = QStringLiteral("Disk Space: File export requires %1 MB on %2 drive.")
                                 .arg(size / megabyte)
                                 .arg(storage.rootPath());
        raise(PyExc_RuntimeError, "%s", text.toUtf8().constData());
    }
    if (QFileInfo::exists(path.text))
        raise(PyExc_FileExistsError, "%s",
              QStringLiteral("The output file already exists: %1.").arg(path.text).toUtf8().constData());
    if (const auto written = write(path.text, description, bloc); !written) {
        HVEventBus::instance().sendMessage(
            MessageLevel::Error,
            QStringLiteral("An error occurred during SEG-Y export: %1").arg(written.failure().sentence));
        return false;
    }
    return true;
}

/// Properties of a few words.
template <typename Value, std::size_t count>
using Words = std::array<std::pair<const char*, Value>, count>;

constexpr Words<SampleFormat, 2> g_formats{{{"IBM", SampleFormat::Ibm}, {"IEEE", SampleFormat::Ieee}}};
constexpr Words<TextEncoding, 2> g_encodings{{{"EBCDIC", TextEncoding::Ebcdic}, {"ASCII", TextEncoding::Ascii}}};

template <auto Member, const auto& words>
const char* word(const Exporter& self)
{
    const auto found =
        std::find_if(words.begin(), words.end(), [&](const auto& each) { return each.second == self.*Member; });
    return found->first;
}

template <auto Member, const auto& words>
void setWord(Exporter& self, const QString& text)
{
    const auto found =
        std::find_if(words.begin(), words.end(), [&](const auto& each) { return text == QLatin1String(each.first); });
    if (found == words.end())
        raise(PyExc_ValueError, "Exporter, expected '%s' or '%s' but got '%s'", words[0].first, words[1].first,
              text.toUtf8().constData());
    self.*Member = found->second;
}

} // namespace

void bindSegyExporter()
{
    bp::class_<Exporter>("Exporter", "Writes seismic volumes to SEG-Y files of revision 1.",
                         bp::init<>(bp::args("self"), "__init__() -> None\n\nAn exporter without a textual header."))
        .def("export", exportVolume, bp::args("self", "filename", "volume"),
             "export(filename: str | os.PathLike, volume: SeismicVolume) -> bool\n\n"
             "Writes a volume, with the frames that were set in memory, as a new SEG-Y file: inline by inline, numbers "
             "of the lines at bytes 189 and 193, map coordinates at 181 and 185 of the trace headers, samples without "
             "a value as 0.\n\n"
             "False when writing failed; the reason is told as a message of the application, and what was written "
             "stays. Raises RuntimeError without a volume and when the disk has not the room, FileExistsError when "
             "there is a file already.")
        .add_property(
            "textualHeader", +[](const Exporter& self) { return self.textualHeader; },
            +[](Exporter& self, const QString& text) { self.textualHeader = text; },
            "str: The text at the beginning of the file, 40 rows of 80 characters: lines become rows, a longer one "
            "goes on in the next. Empty, as at first: name, corners and reference system of the volume.")
        .add_property("sampleFormat", word<&Exporter::format, g_formats>, setWord<&Exporter::format, g_formats>,
                      "str: 'IBM' (at first) or 'IEEE'. Other values raise ValueError.")
        .add_property("encoding", word<&Exporter::encoding, g_encodings>, setWord<&Exporter::encoding, g_encodings>,
                      "str: Of the textual header, 'EBCDIC' (at first) or 'ASCII'. Other values raise ValueError.");
}

} // namespace python
