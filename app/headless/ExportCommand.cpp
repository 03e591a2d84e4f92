#include "app/headless/ExportCommand.h"

#include "app/ProgramSetup.h"
#include "app/headless/JobOnTerminal.h"
#include "app/headless/TerminalApp.h"
#include "app/headless/VolumePlace.h"
#include "app/headless/Words.h"
#include "host/arrays/ZarrFolder.h"
#include "host/segy/TraceWriter.h"
#include "host/volume/VolumeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace headless {

namespace {

const char* const g_usage =
    "usage: strativo export [options] segy|npy|zarr VOLUME FILE\n"
    "\n"
    "Writes a volume for other programs. VOLUME is a volume file, or with --project the name of a\n"
    "volume of the project. npy is a file of NumPy: the samples alone. zarr is a folder\n"
    "with samples, lines, coordinates and attributes.\n"
    "\n"
    "Exit status: 0 the file is there, 1 it is not, 2 the command line was wrong.\n";

QList<QCommandLineOption> options()
{
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    return {
        {text("project"), text("The volume is one of the project in DIR."), text("DIR")},
        {text("replace"), text("Replaces a file that is there.")},
        {text("format"), text("SEG-Y samples: ibm (else) or ieee."), text("FORMAT")},
        {text("text"), text("SEG-Y text: ebcdic (else) or ascii."), text("ENCODING")},
        {text("header"), text("SEG-Y: a file whose text goes into the textual header."), text("FILE")},
        {text("compress"), text("Zarr: chunks are compressed with zlib.")},
        {text("leave-out"),
         text("SEG-Y: traces without values are left out, not written as zeros that are marked as dead.")},
    };
}

int fail(const QString& sentence)
{
    std::fprintf(stderr, "strativo: %s\n", sentence.toLocal8Bit().constData());
    return g_statusFailed;
}

/// The sentence about what cannot be understood; empty when all can.
QString describe(const Words& words, HVSegyDescription& description)
{
    const auto isEither = [&words](const char* option, const char* first, const char* second, bool& isSecond) {
        const QString value = words.value(QString::fromLatin1(option));
        isSecond = value == QLatin1String(second);
        return value.isEmpty() || isSecond || value == QLatin1String(first);
    };
    bool isIeee = false;
    bool isAscii = false;
    if (!isEither("format", "ibm", "ieee", isIeee))
        return QStringLiteral("--format is ibm or ieee");
    if (!isEither("text", "ebcdic", "ascii", isAscii))
        return QStringLiteral("--text is ebcdic or ascii");
    description.setFormat(isIeee ? hv::segy::SampleFormat::Ieee : hv::segy::SampleFormat::Ibm);
    description.setEncoding(isAscii ? hv::segy::TextEncoding::Ascii : hv::segy::TextEncoding::Ebcdic);
    description.setLeavesOutMissing(words.has(QStringLiteral("leave-out")));
    if (words.has(QStringLiteral("header"))) {
        QFile file(words.value(QStringLiteral("header")));
        if (!file.open(QIODevice::ReadOnly))
            return QStringLiteral("cannot read %1: %2").arg(file.fileName(), file.errorString());
        description.setTextualHeader(QString::fromUtf8(file.readAll()));
    }
    return {};
}

int exportSegy(const Words& words, const hv::VolumeFile& volume, const QString& target)
{
    const hv::VolumeHeader& header = volume.header();
    HVSegyDescription description(header, QFileInfo(volume.path()).completeBaseName());
    if (const QString error = describe(words, description); !error.isEmpty())
        return refuse(error);
    using Counts = hv::segy::WriteCounts;
    const hv::Result<Counts> counts = runOnTerminal<Counts>(
        QStringLiteral("Writing %1").arg(QFileInfo(target).fileName()), [&](hv::JobContext& context) {
            return hv::segy::writeSegy(
                target, description, header.noValue,
                [&volume](int y, int first, int end, float* out) { return volume.readTraces(y, first, end, out); },
                context);
        });
    if (!counts)
        return fail(counts.failure().sentence);
    std::printf("%s: %lld traces, %lld without values%s, %lld single samples without values written as 0\n",
                target.toLocal8Bit().constData(), static_cast<long long>(counts->written),
                static_cast<long long>(counts->missing), description.leavesOutMissing() ? " left out" : "",
                static_cast<long long>(counts->holes));
    return g_statusRan;
}

int exportArray(const Words& words, const hv::VolumeFile& volume, const QString& target)
{
    const bool isZarr = words.at(0) == QLatin1String("zarr");
    const hv::Result<void> written =
        runOnTerminal(QStringLiteral("Writing %1").arg(QFileInfo(target).fileName()), [&](hv::JobContext& context) {
            return isZarr ? hv::arrays::writeZarr(volume, target, words.has(QStringLiteral("compress")), context)
                          : hv::arrays::writeNumpy(volume, target, context);
        });
    if (!written)
        return fail(written.failure().sentence);
    std::printf("%s\n", target.toLocal8Bit().constData());
    return g_statusRan;
}

} // namespace

int runExport(int argc, char** argv)
{
    program::coerceLocale();
    int ownArguments = 1;
    const QCoreApplication application(ownArguments, argv);
    const Words words(argc - 1, argv + 1, g_usage, options(), 3);
    if (words.status())
        return *words.status();
    const QString target = words.at(2);
    const QString format = words.at(0);
    if (!QStringList{QStringLiteral("segy"), QStringLiteral("npy"), QStringLiteral("zarr")}.contains(format))
        return refuse(QStringLiteral("there is no format \"%1\"; there are segy, npy and zarr").arg(format));
    const hv::Result<QString> path = existingVolume({words.value(QStringLiteral("project")), words.at(1)});
    if (!path)
        return fail(path.failure().sentence);
    if (const QFileInfo there(target); there.exists() && (there.isDir() || !words.has(QStringLiteral("replace"))))
        return fail(QStringLiteral("\"%1\" exists already%2.")
                        .arg(target, there.isDir() ? QString() : QStringLiteral("; --replace replaces it")));
    const auto volume = hv::VolumeFile::open(*path);
    if (!volume)
        return fail(volume.failure().sentence);
    return format == QLatin1String("segy") ? exportSegy(words, **volume, target) : exportArray(words, **volume, target);
}

} // namespace headless
