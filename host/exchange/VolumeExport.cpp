#include "host/exchange/VolumeExport.h"

#include "host/arrays/ZarrFolder.h"
#include "host/segy/TraceWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace hv {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("VolumeExport", text);
}

Result<QString> exportSegy(const VolumeFile& volume, const QString& name, segy::SampleFormat format,
                           const QString& path, JobContext& context)
{
    const VolumeHeader& header = volume.header();
    HVSegyDescription description(header, name);
    description.setFormat(format);
    const auto counts = segy::writeSegy(
        path, description, header.noValue,
        [&volume](int y, int first, int end, float* out) { return volume.readTraces(y, first, end, out); }, context);
    if (!counts)
        return counts.failure();
    QString text = tr("%1 traces").arg(counts->written);
    if (counts->missing > 0)
        text += tr(", %1 without values that are marked as dead").arg(counts->missing);
    if (counts->holes > 0)
        text += tr(", %1 single samples without values written as 0").arg(counts->holes);
    return text;
}

} // namespace

QString suffixOf(ExportFormat format)
{
    switch (format) {
    case ExportFormat::Numpy:
        return QStringLiteral("npy");
    case ExportFormat::Zarr:
        return QStringLiteral("zarr");
    default:
        return QStringLiteral("sgy");
    }
}

Result<QString> exportVolume(const VolumeFile& volume, const QString& name, ExportFormat format, const QString& path,
                             JobContext& context)
{
    const QString place = QDir::toNativeSeparators(path);
    QString detail;
    if (format == ExportFormat::Numpy || format == ExportFormat::Zarr) {
        const Result<void> written = format == ExportFormat::Zarr ? arrays::writeZarr(volume, path, false, context)
                                                                  : arrays::writeNumpy(volume, path, context);
        if (!written)
            return written.failure();
    } else {
        const auto written = exportSegy(
            volume, name, format == ExportFormat::SegyIeee ? segy::SampleFormat::Ieee : segy::SampleFormat::Ibm, path,
            context);
        if (!written)
            return written;
        detail = QStringLiteral(" (%1)").arg(*written);
    }
    return tr("Exported '%1' to %2%3.").arg(name, place, detail);
}

} // namespace hv
