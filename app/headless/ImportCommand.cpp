#include "app/headless/ImportCommand.h"

#include "app/ProgramSetup.h"
#include "app/headless/JobOnTerminal.h"
#include "app/headless/TerminalApp.h"
#include "app/headless/VolumePlace.h"
#include "app/headless/Words.h"
#include "host/arrays/ZarrFolder.h"
#include "host/georef/Crs.h"
#include "host/segy/Import.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cmath>
#include <cstdio>

namespace headless {

namespace {

const char* const g_usage =
    "usage: strativo import [options] FILE\n"
    "\n"
    "Makes a volume of a SEG-Y file and says how the file was understood; or of a file of NumPy\n"
    "(.npy), or a folder of Zarr. What is not said by an option is found out. Positions are bytes of\n"
    "the trace header, counted from 1; 189:2 stands for a number of two bytes, 0 for none. Lines are\n"
    "FIRST-LAST, FIRST-LAST/N for every N-th one, or /N.\n"
    "\n"
    "Exit status: 0 the volume is there, 1 it is not, 2 the command line was wrong.\n";

QList<QCommandLineOption> options()
{
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    const auto option = [&text](const char* name, const char* help, const char* value) {
        return QCommandLineOption(text(name), text(help), text(value));
    };
    return {
        option("project", "Files the volume in the project in DIR, which is made when it is not there.", "DIR"),
        option("as", "Name of the volume, or path of its file without a project; else that of FILE.", "NAME"),
        {text("replace"), text("Replaces a volume of that name.")},
        {text("look"), text("Only says how the file would be understood.")},
        option("inline-byte", "Position of the inline number.", "BYTE"),
        option("crossline-byte", "Position of the crossline number.", "BYTE"),
        option("x-byte", "Position of the coordinate to the east.", "BYTE"),
        option("y-byte", "Position of the coordinate to the north.", "BYTE"),
        option("scalar-byte", "Position of the coordinates' scalar.", "BYTE"),
        option("format", "Of the samples: ibm, ieee, ieee64, int8, int16, int32, uint8, uint16, uint32.", "FORMAT"),
        option("byte-order", "big or little.", "ORDER"),
        option("trace-samples", "Number of samples of a trace in the file.", "N"),
        option("domain", "time or depth.", "DOMAIN"),
        option("interval", "Between samples, in milliseconds, or units of depth.", "NUMBER"),
        option("start", "Time or depth of the first sample.", "NUMBER"),
        option("crs", "Reference system of the coordinates: EPSG:32631, or the name of a file of well-known text.",
               "CRS"),
        option("inlines", "Only these.", "LINES"),
        option("crosslines", "Only these.", "LINES"),
        option("samples", "Only these, counted from 0.", "SAMPLES"),
        option("orders", "Arrays of the volume's file: 1 (inlines), 2 (and crosslines), 3 (and time slices; else).",
               "N"),
    };
}

struct Request
{
    hv::segy::ScanChoice scan;
    hv::segy::ImportChoice import;
};

/// Reads options one by one; keeps the first that cannot be understood.
class Reader
{
public:
    explicit Reader(const Words& words) : m_words(words) {}

    const QString& error() const { return m_error; }

    void position(const char* name, std::optional<hv::segy::Position>& target)
    {
        given(name, [&](const QString& value) {
            target = hv::segy::positionFromText(value);
            return target.has_value();
        });
    }

    void number(const char* name, std::optional<double>& target)
    {
        given(name, [&](const QString& value) {
            bool isNumber = false;
            target = value.toDouble(&isNumber);
            return isNumber && std::isfinite(*target);
        });
    }

    template <class Value>
    void choice(const char* name, std::optional<Value>& target,
                const std::vector<std::pair<const char*, Value>>& values)
    {
        given(name, [&](const QString& value) {
            for (const auto& [text, meaning] : values)
                if (value.compare(QLatin1String(text), Qt::CaseInsensitive) == 0)
                    target = meaning;
            return target.has_value();
        });
    }

    /// "10-20", "10-20/2", "/2", "7".
    void part(const char* name, hv::segy::PartChoice& target)
    {
        given(name, [&](const QString& value) {
            static const QRegularExpression form(QStringLiteral("^(?:(-?\\d+)(?:-(-?\\d+))?)?(?:/(\\d+))?$"));
            const QRegularExpressionMatch match = form.match(value);
            const QString first = match.captured(1);
            if (!match.hasMatch() || value.isEmpty())
                return false;
            if (!first.isEmpty()) {
                target.first = first.toLongLong();
                target.last = match.captured(2).isEmpty() ? *target.first : match.captured(2).toLongLong();
            }
            target.every = match.captured(3).isEmpty() ? 1 : match.captured(3).toInt();
            return target.every >= 1;
        });
    }

    template <class Take>
    void given(const char* name, Take take)
    {
        const QString option = QString::fromLatin1(name);
        if (m_error.isEmpty() && m_words.has(option) && !take(m_words.value(option)))
            m_error = QStringLiteral("--%1 %2 cannot be understood").arg(option, m_words.value(option));
    }

private:
    const Words& m_words;
    QString m_error;
};

/// The well-known text of what --crs names; empty when there is no such system.
QString crsFromText(const QString& text)
{
    if (const int colon = text.indexOf(QLatin1Char(':')); colon > 0 && !QFileInfo::exists(text))
        return georef::orNull(georef::Crs::fromAuthority(text.left(colon), text.mid(colon + 1))).toWkt();
    QFile file(text);
    return file.open(QIODevice::ReadOnly)
               ? georef::orNull(georef::Crs::fromWkt(QString::fromUtf8(file.readAll()))).toWkt()
               : QString();
}

/// The sentence about what cannot be understood; empty when all can.
QString read(const Words& words, Request& request)
{
    using hv::segy::ByteOrder;
    using hv::segy::SampleFormat;
    Reader reader(words);
    hv::segy::PositionChoice& positions = request.scan.positions;
    reader.position("inline-byte", positions.inlineNumber);
    reader.position("crossline-byte", positions.crosslineNumber);
    reader.position("x-byte", positions.x);
    reader.position("y-byte", positions.y);
    reader.position("scalar-byte", positions.scalar);
    reader.choice<SampleFormat>("format", request.scan.format.format,
                                {{"ibm", SampleFormat::Ibm},
                                 {"ieee", SampleFormat::Ieee},
                                 {"ieee64", SampleFormat::Ieee64},
                                 {"int8", SampleFormat::Int8},
                                 {"int16", SampleFormat::Int16},
                                 {"int32", SampleFormat::Int32},
                                 {"uint8", SampleFormat::UInt8},
                                 {"uint16", SampleFormat::UInt16},
                                 {"uint32", SampleFormat::UInt32}});
    reader.choice<ByteOrder>("byte-order", request.scan.format.order,
                             {{"big", ByteOrder::Big}, {"little", ByteOrder::Little}});
    reader.choice<georef::Domain>("domain", request.scan.domain,
                                  {{"time", georef::Domain::Time}, {"depth", georef::Domain::Depth}});
    reader.given("trace-samples", [&request](const QString& value) {
        request.scan.format.samples = value.toLongLong();
        return *request.scan.format.samples >= 1;
    });
    reader.number("interval", request.scan.interval);
    reader.number("start", request.scan.firstSample);
    reader.part("inlines", request.import.inlines);
    reader.part("crosslines", request.import.crosslines);
    reader.part("samples", request.import.samples);
    reader.given("crs", [&request](const QString& value) {
        request.import.crs = crsFromText(value);
        return !request.import.crs.isEmpty();
    });
    reader.given("orders", [&request](const QString& value) {
        const int orders = value.toInt();
        request.import.orders = {orders >= 2, orders >= 3};
        return orders >= 1 && orders <= 3;
    });
    // Numbers that are not wanted do not count either when the survey is looked for.
    const auto limit = [](const hv::segy::PartChoice& part, std::optional<hv::segy::LineRange>& range) {
        if (part.first)
            range = hv::segy::LineRange{*part.first, *part.last, 1};
    };
    limit(request.import.inlines, request.scan.inlines);
    limit(request.import.crosslines, request.scan.crosslines);
    return reader.error();
}

int fail(const QString& sentence)
{
    std::fprintf(stderr, "strativo: %s\n", sentence.toLocal8Bit().constData());
    return g_statusFailed;
}

void print(const hv::segy::Scan& scan)
{
    for (const auto& [label, text] : hv::segy::describe(scan))
        std::printf("%-12s %s\n", label.toLocal8Bit().constData(), text.toLocal8Bit().constData());
    std::fflush(stdout);
}

/// Where the volume of a file is to be made.
hv::Result<QString> target(const Words& words, const QFileInfo& file)
{
    VolumePlace place{words.value(QStringLiteral("project")), words.value(QStringLiteral("as"))};
    if (place.name.isEmpty())
        place.name = file.completeBaseName() + (place.project.isEmpty() ? QStringLiteral(".svol") : QString());
    return newVolume(place, words.has(QStringLiteral("replace")));
}

int importArray(const Words& words, const Request& request, const QFileInfo& file)
{
    const hv::Result<QString> path = target(words, file);
    if (!path)
        return fail(path.failure().sentence);
    const auto read = file.isDir() ? hv::arrays::readZarr : hv::arrays::readNumpy;
    const hv::Result<void> made =
        runOnTerminal(QStringLiteral("Importing %1").arg(file.fileName()), [&](hv::JobContext& context) {
            return read(file.filePath(), *path, request.import.orders, context);
        });
    if (!made)
        return fail(made.failure().sentence);
    std::printf("%-12s %s\n", "Made", path->toLocal8Bit().constData());
    return g_statusRan;
}

int importSegyFile(const Words& words, const Request& request, const QFileInfo& file)
{
    using Scanned = std::shared_ptr<const hv::segy::Scan>;
    const hv::Result<Scanned> scan =
        runOnTerminal<Scanned>(QStringLiteral("Looking through %1").arg(file.fileName()), [&](hv::JobContext& context) {
            return hv::segy::scan(file.filePath(), request.scan, context);
        });
    if (!scan)
        return fail(scan.failure().sentence);
    print(**scan);
    if (const QString obstacle = (*scan)->remarks.obstacle(); !obstacle.isEmpty())
        return fail(obstacle);
    if (words.has(QStringLiteral("look")))
        return g_statusRan;
    const hv::Result<QString> path = target(words, file);
    if (!path)
        return fail(path.failure().sentence);
    using Counts = hv::segy::ImportCounts;
    const hv::Result<Counts> counts =
        runOnTerminal<Counts>(QStringLiteral("Importing %1").arg(file.fileName()), [&](hv::JobContext& context) {
            return hv::segy::importSegy(**scan, request.import, *path, context);
        });
    if (!counts)
        return fail(counts.failure().sentence);
    std::printf("%-12s %s: %lld traces, %lld cells without one\n", "Made", path->toLocal8Bit().constData(),
                static_cast<long long>(counts->read), static_cast<long long>(counts->empty));
    return g_statusRan;
}

} // namespace

int runImport(int argc, char** argv)
{
    program::coerceLocale();
    hideQtWarnings();
    int ownArguments = 1;
    const QCoreApplication application(ownArguments, argv);
    const Words words(argc - 1, argv + 1, g_usage, options(), 1);
    if (words.status())
        return *words.status();
    Request request;
    if (const QString error = read(words, request); !error.isEmpty())
        return refuse(error);

    const QFileInfo file(words.at(0));
    return file.isDir() || file.suffix() == QLatin1String("npy") ? importArray(words, request, file)
                                                                 : importSegyFile(words, request, file);
}

} // namespace headless
