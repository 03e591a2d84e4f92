#include "host/data/demo/DemoSteps.h"

#include "host/data/HVProject.h"
#include "host/data/demo/SyntheticSurvey.h"
#include "host/display/PaletteCatalogue.h"
#include "host/formats/ColorBarFile.h"
#include "host/formats/JsonFile.h"
#include "host/formats/WholeFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace demo {

namespace {

using Survey = SyntheticSurvey;

bool writeObject(HVProject& project, ObjectKind kind, const QString& name, const QByteArray& text, QString* error)
{
    const QString path = project.newFilename(kind, name, error);
    if (path.isEmpty())
        return false;
    QString reason;
    if (!hv::writeWholeFile(path, text, reason))
        return hv::fail(error, QStringLiteral("Unable to write '%1': %2.").arg(path, reason));
    project.refresh(kind);
    return true;
}

/// Map coordinates in decimetres: what remains is the same on every machine.
QJsonArray coordinates(double inlineNumber, double crossline)
{
    const auto [x, y] = Survey::position(inlineNumber, crossline);
    return {std::round(x * 10.0) / 10.0, std::round(y * 10.0) / 10.0};
}

QJsonObject feature(const QString& name, const QString& type, const QJsonArray& points)
{
    return {{QStringLiteral("type"), QStringLiteral("Feature")},
            {QStringLiteral("properties"), QJsonObject{{QStringLiteral("name"), name}}},
            {QStringLiteral("geometry"),
             QJsonObject{{QStringLiteral("type"), type}, {QStringLiteral("coordinates"), points}}}};
}

/// GeoJSON with a named reference system, as in the 2008 format and as GDAL reads and writes it; RFC 7946 knows
/// geographic coordinates only.
QByteArray geoJson(const QJsonObject& theFeature)
{
    const QString system = QStringLiteral("urn:ogc:def:crs:%1::%2").arg(Survey::crsAuthority(), Survey::crsCode());
    const QJsonObject collection{{QStringLiteral("type"), QStringLiteral("FeatureCollection")},
                                 {QStringLiteral("crs"), QJsonObject{{QStringLiteral("type"), QStringLiteral("name")},
                                                                     {QStringLiteral("properties"),
                                                                      QJsonObject{{QStringLiteral("name"), system}}}}},
                                 {QStringLiteral("features"), QJsonArray{theFeature}}};
    return QJsonDocument(collection).toJson(QJsonDocument::Indented);
}

/// The last live crossline of an inline.
int lastCrossline(int inlineNumber)
{
    int crossline = Survey::firstCrossline + Survey::crosslineCount - 1;
    while (!Survey::isLive(inlineNumber, crossline))
        --crossline;
    return crossline;
}

/// Depth in metres of a time in milliseconds: 1480 m/s in the water, then velocity grows with time.
double depthOf(double time, double seabed)
{
    const double water = std::min(time, seabed);
    const double rock = time - water;
    return 0.5 * (1.480 * water + 1.850 * rock + 0.0004 * rock * rock);
}

QByteArray las(const QString& name, int inlineNumber, int crossline)
{
    constexpr double step = 4.0;
    const auto [x, y] = Survey::position(inlineNumber, crossline);
    const double seabed = Survey::layerTime(0, inlineNumber, crossline);
    QByteArray rows;
    double depth = 0.0;
    for (double time = 0.0; time < Survey::sampleCount * Survey::sampleInterval; time += step) {
        int layer = -1;
        while (layer + 1 < Survey::layerCount && Survey::layerTime(layer + 1, inlineNumber, crossline) <= time)
            ++layer;
        // Sands and shales in turn, over a slow change within each.
        const double gamma = layer < 0 ? 5.0 : (layer % 2 == 0 ? 92.0 : 41.0) + 9.0 * std::sin(time / 31.0);
        depth = depthOf(time, seabed);
        rows += QString::asprintf("%10.2f %10.1f %10.2f\n", depth, time, gamma).toLatin1();
    }
    const QString head =
        QStringLiteral("~VERSION INFORMATION\n VERS.          2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0\n"
                       " WRAP.           NO : ONE LINE PER DEPTH STEP\n~WELL INFORMATION\n"
                       " STRT.M        0.00 : START DEPTH\n STOP.M %1 : STOP DEPTH\n"
                       " STEP.M        0.00 : STEP, 0 WHEN IT IS NOT CONSTANT\n NULL.     -9999.00 : NULL VALUE\n"
                       " COMP.     Strativo : COMPANY\n WELL. %2 : WELL\n FLD .         Demo : FIELD\n"
                       " XCOO.M %3 : MAP X COORDINATE\n YCOO.M %4 : MAP Y COORDINATE\n"
                       " HZCS. %5:%6 : HORIZONTAL REFERENCE SYSTEM\n~CURVE INFORMATION\n DEPT.M    : DEPTH\n"
                       " TWT .MS   : TWO-WAY TIME\n GR  .GAPI : GAMMA RAY\n~A DEPTH TWT GR\n")
            .arg(QString::number(depth, 'f', 2), name, QString::number(x, 'f', 1), QString::number(y, 'f', 1),
                 Survey::crsAuthority(), Survey::crsCode());
    return head.toLatin1() + rows;
}

} // namespace

bool makeReferenceSystem(HVProject& project, QString* error)
{
    const auto crs = georef::Crs::fromAuthority(Survey::crsAuthority(), Survey::crsCode(), error);
    return !crs.isNull() && project.setCrs(crs, error);
}

bool makeCultures(HVProject& project, QString* error)
{
    constexpr int lastInline = Survey::firstInline + Survey::inlineCount - 1;
    QJsonArray outline{coordinates(lastInline, Survey::firstCrossline),
                       coordinates(Survey::firstInline, Survey::firstCrossline)};
    for (int line = Survey::firstInline; line <= lastInline; ++line)
        // A straight edge needs its ends only.
        if (line == Survey::firstInline || line == lastInline || lastCrossline(line) != lastCrossline(line - 1) ||
            lastCrossline(line) != lastCrossline(line + 1))
            outline.append(coordinates(line, lastCrossline(line)));
    outline.append(outline.first());
    QJsonArray axis;
    for (int line = Survey::firstInline; line <= lastInline; line += 5)
        axis.append(coordinates(line, Survey::channelCrossline(line)));
    const QString outlineName = QStringLiteral("Survey Outline");
    const QString axisName = QStringLiteral("Channel Axis");
    return writeObject(project, ObjectKind::Culture, outlineName,
                       geoJson(feature(outlineName, QStringLiteral("Polygon"), QJsonArray{outline})), error) &&
           writeObject(project, ObjectKind::Culture, axisName,
                       geoJson(feature(axisName, QStringLiteral("LineString"), axis)), error);
}

bool makeColorBars(HVProject& project, QString* error)
{
    struct Palette
    {
        const char* identifier;
        const char* name;
    };
    for (const Palette& palette : {Palette{"SEISMIC", "Amplitude"}, Palette{"VIRIDIS", "Horizon Time"}}) {
        display::ColorBar bar = display::PaletteCatalogue::instance().find(QLatin1String(palette.identifier))->colorBar;
        bar.setName(QString::fromLatin1(palette.name));
        const QString path = project.newFilename(ObjectKind::ColorBar, bar.name(), error);
        QString problem;
        if (path.isEmpty())
            return false;
        if (!display::writeColorBar(bar, path, problem))
            return hv::fail(error, problem);
        project.refresh(ObjectKind::ColorBar);
    }
    return true;
}

bool makeWells(HVProject& project, QString* error)
{
    struct Place
    {
        const char* name;
        int inlineNumber;
        int crossline;
    };
    const QString folder = QStringLiteral("Exploration");
    HVVirtualDirectories& directories = project.directories(ObjectKind::Well);
    if (!directories.addDirectory(folder, QString(), error))
        return false;
    // One on each side of the fault, the first through the channel.
    for (const Place& well : {Place{"S-1", 1064, 5056}, Place{"S-2", 1136, 5171}}) {
        const QString name = QString::fromLatin1(well.name);
        if (!writeObject(project, ObjectKind::Well, name, las(name, well.inlineNumber, well.crossline), error) ||
            !directories.fileObjects({name}, folder, error))
            return false;
    }
    return directories.flush(error);
}

} // namespace demo
