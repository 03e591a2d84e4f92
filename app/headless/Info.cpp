#include "app/headless/Info.h"

#include "app/ProgramSetup.h"
#include "app/headless/TerminalApp.h"
#include "host/data/HVProject.h"
#include "host/kinds/IObjectKind.h"
#include "host/objects/ObjectListing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace headless {

namespace {

using Rows = std::vector<hv::Description>;

const char* const g_usage = "usage: strativo info FILE...\n"
                            "\n"
                            "Says what is in a file: its kind, what the kind tells of it, its size and date. FILE is\n"
                            "\n"
                            "  a file of a kind that projects hold, in a project or elsewhere: wells/S-1.las\n"
                            "  an object of a project, without its suffix: Field/wells/S-1\n"
                            "  the folder of a project, for its settings and how many objects of each kind it has\n"
                            "\n"
                            "Exit status: 0 all were described, 1 one could not be, 2 wrong usage.\n";

/// A format of files that are no objects of a project.
struct FileFormat
{
    const char* name;
    const char* suffix;
    hv::Result<Rows> (*describe)(const QString& path);
};

hv::Result<Rows> describeProject(const QString& path)
{
    const auto seen = HVProject::look(path);
    if (!seen)
        return seen.failure();
    HVProject* const project = seen->get();
    Rows rows{{QStringLiteral("Name"), project->name()}};
    if (project->hasCrs())
        rows.push_back({QStringLiteral("Reference system"), project->crs().name()});
    for (const ObjectKindInfo& info : objectKinds())
        if (const int count = project->objectNames(info.kind).size(); count > 0)
            rows.push_back({QLatin1String(info.plural), QString::number(count)});
    return rows;
}

/// A line for each.
const FileFormat g_formats[] = {
    {"Project", "strativo", describeProject},
};

hv::Result<Rows> describeObject(const hv::IObjectKind& kind, const QString& path)
{
    const hv::Result<hv::ObjectValue> value = kind.read(path);
    if (!value)
        return value.failure();
    return kind.describe(*value);
}

/// The file that is meant: a project's own, or the one of an object that was named without its suffix.
QFileInfo fileAt(const QString& path)
{
    const QFileInfo named(path);
    if (named.isDir())
        return QFileInfo(QDir(path), HVProject::projectFileName());
    const QDir folder = named.absoluteDir();
    if (!named.exists())
        for (const ObjectKindInfo& info : objectKinds())
            if (folder.dirName() == QLatin1String(info.folder))
                if (const auto file = hv::ObjectListing::read(folder.path(), info).find(named.fileName()))
                    return QFileInfo(folder, file->fileName());
    return named;
}

/// The kind's own word about size and date goes for the file's.
Rows withFile(Rows rows, const QFileInfo& file)
{
    for (const hv::Description& each : hv::describeFile(file.size(), file.lastModified()))
        if (std::none_of(rows.begin(), rows.end(), [&](const auto& row) { return row.label == each.label; }))
            rows.push_back(each);
    return rows;
}

QString aligned(const QString& headline, const Rows& rows)
{
    int width = 0;
    for (const hv::Description& row : rows)
        width = std::max(width, static_cast<int>(row.label.size()));
    QString text = headline + QLatin1Char('\n');
    for (const hv::Description& row : rows)
        text += QStringLiteral("  %1  %2\n").arg(row.label, -width).arg(row.text.simplified());
    // Files say what they like; terminals would obey.
    for (QChar& character : text)
        if (character.category() == QChar::Other_Control && character != QLatin1Char('\n'))
            character = QLatin1Char('?');
    return text;
}

} // namespace

hv::Result<QString> describePath(const QString& path)
{
    const QFileInfo file = fileAt(path);
    const QString shown = QDir::toNativeSeparators(path);
    if (QFileInfo(path).isDir() && !file.exists())
        return hv::Failure(
            QStringLiteral("'%1' is not a project: it has no file '%2'.").arg(shown, HVProject::projectFileName()));
    if (!file.exists())
        return hv::Failure(QStringLiteral("There is no file '%1'.").arg(shown));
    const auto report = [&](const char* kind, hv::Result<Rows> rows) -> hv::Result<QString> {
        if (!rows)
            return rows.failure();
        rows->insert(rows->begin(), {QStringLiteral("Kind"), QLatin1String(kind)});
        return aligned(shown, withFile(std::move(*rows), file));
    };
    for (const FileFormat& format : g_formats)
        if (file.suffix().compare(QLatin1String(format.suffix), Qt::CaseInsensitive) == 0)
            return report(format.name, format.describe(file.filePath()));
    for (const ObjectKindInfo& info : objectKinds())
        if (!info.objectName(file.fileName()).isEmpty())
            return report(info.singular, describeObject(hv::objectKind(info.kind), file.filePath()));
    return hv::Failure(QStringLiteral("'%1' is of no kind that Strativo knows.").arg(shown));
}

int runInfoCommand(int argc, char** argv)
{
    program::coerceLocale();
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(2);
    if (words.contains(QStringLiteral("--help")) || words.contains(QStringLiteral("-h"))) {
        std::fputs(g_usage, stdout);
        return g_statusRan;
    }
    if (words.isEmpty() || words.first().startsWith(QLatin1Char('-'))) {
        std::fputs(g_usage, stderr);
        return g_statusNotStarted;
    }
    int status = g_statusRan;
    bool isFirst = true;
    for (const QString& path : words) {
        const hv::Result<QString> text = describePath(path);
        if (!text) {
            std::fprintf(stderr, "strativo: %s\n", text.failure().sentence.toLocal8Bit().constData());
            status = g_statusFailed;
            continue;
        }
        std::printf("%s%s", std::exchange(isFirst, false) ? "" : "\n", text->toLocal8Bit().constData());
    }
    return status;
}

} // namespace headless
