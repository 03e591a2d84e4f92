#include "host/exchange/VolumeExchange.h"

#include "host/exchange/HVSegyImportDialog.h"
#include "host/icons/HVIconStore.h"
#include "host/services/HVEventBus.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QUrl>

namespace hv {

namespace {

const QString g_folderKey = QStringLiteral("exchange/folder");

QString lastFolder()
{
    const QString folder = QSettings().value(g_folderKey).toString();
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void keepFolder(const QString& path)
{
    QSettings().setValue(g_folderKey, QFileInfo(path).absolutePath());
}

void tell(MessageLevel level, const QString& sentence)
{
    HVEventBus::instance().sendMessage(level, sentence, level == MessageLevel::Error);
}

struct FormatName
{
    ExportFormat format;
    const char* text;
    const char* filter;
};

constexpr FormatName g_formats[] = {
    {ExportFormat::SegyIbm, QT_TRANSLATE_NOOP("hv::VolumeExchange", "SEG-Y..."),
     QT_TRANSLATE_NOOP("hv::VolumeExchange", "SEG-Y files (*.sgy *.segy)")},
    {ExportFormat::SegyIeee, QT_TRANSLATE_NOOP("hv::VolumeExchange", "SEG-Y with IEEE Numbers..."),
     QT_TRANSLATE_NOOP("hv::VolumeExchange", "SEG-Y files (*.sgy *.segy)")},
    {ExportFormat::Numpy, QT_TRANSLATE_NOOP("hv::VolumeExchange", "NumPy..."),
     QT_TRANSLATE_NOOP("hv::VolumeExchange", "NumPy files (*.npy)")},
    {ExportFormat::Zarr, QT_TRANSLATE_NOOP("hv::VolumeExchange", "Zarr..."),
     QT_TRANSLATE_NOOP("hv::VolumeExchange", "Zarr folders (*.zarr)")},
};

} // namespace

VolumeExchange::VolumeExchange(JobManager& jobs, QWidget* parent) : QObject(parent), m_jobs(jobs), m_parent(parent) {}

VolumeExchange::~VolumeExchange() = default;

void VolumeExchange::setProject(HVProject* project)
{
    m_project = project;
    m_waiting.clear();
}

QStringList VolumeExchange::segyFiles(const QMimeData* data)
{
    static const QStringList suffixes{QStringLiteral("sgy"), QStringLiteral("segy"), QStringLiteral("seg-y")};
    QStringList paths;
    for (const QUrl& url : data->urls())
        if (const QString path = url.toLocalFile(); suffixes.contains(QFileInfo(path).suffix().toLower()))
            paths << path;
    return paths;
}

void VolumeExchange::chooseSegy()
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(m_parent, tr("Import SEG-Y"), lastFolder(),
                                      tr("SEG-Y files (*.sgy *.segy *.SGY *.SEGY *.seg-y);;All files (*)"));
    if (!paths.isEmpty())
        keepFolder(paths.first());
    importSegy(paths);
}

void VolumeExchange::importSegy(const QStringList& paths)
{
    if (!m_project) {
        if (!paths.isEmpty())
            tell(MessageLevel::Error, tr("Open a project first: \"%1\" would become one of its volumes.")
                                          .arg(QFileInfo(paths.first()).fileName()));
        return;
    }
    m_waiting << paths;
    if (!m_dialog)
        showNext();
    else
        m_dialog->raise();
}

void VolumeExchange::showNext()
{
    if (m_waiting.isEmpty() || !m_project)
        return;
    m_dialog = new HVSegyImportDialog(m_waiting.takeFirst(), *m_project, m_jobs, m_comingUp, m_parent);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &QDialog::finished, this, [this, dialog = m_dialog](int result) {
        m_dialog.clear();
        if (result == QDialog::Accepted && dialog)
            import(*dialog);
        showNext();
    });
    m_dialog->open();
}

void VolumeExchange::import(const HVSegyImportDialog& dialog)
{
    if (!m_project || !dialog.scan())
        return;
    const ObjectKey volume{ObjectKind::Volume, dialog.name()};
    if (const auto folder = m_project->store().ensureFolder(volume.kind); !folder) {
        tell(MessageLevel::Error, folder.failure().sentence);
        return;
    }
    const auto work = [scan = dialog.scan(), choice = dialog.choice(), path = m_project->store().path(volume)](
                          JobContext& context) { return segy::importSegy(*scan, choice, path, context); };
    m_comingUp.insert(volume.name);
    // The job ends with the project, of which the volume will be an object.
    m_jobs.start({tr("Import '%1'").arg(volume.name), {volume}}, work, this,
                 [this, volume, project = m_project](JobState, const Result<segy::ImportCounts>& made) {
                     m_comingUp.remove(volume.name);
                     if (made && project && project == m_project)
                         adopt(volume);
                 });
}

void VolumeExchange::adopt(const ObjectKey& volume)
{
    {
        const ChangeScope step(&m_project->changes(), tr("Import '%1'").arg(volume.name));
        if (const auto adopted = m_project->store().adopt(volume); !adopted) {
            tell(MessageLevel::Error, adopted.failure().sentence);
            return;
        }
    }
    m_project->store().tellChanges();
    tell(MessageLevel::Success, tr("Imported '%1'.").arg(volume.name));
    Q_EMIT imported(volume);
}

void VolumeExchange::fillMenu(QMenu& menu, const std::vector<ObjectKey>& objects)
{
    if (objects.size() != 1 || objects.front().kind != ObjectKind::Volume || !m_project)
        return;
    QMenu* formats = menu.addMenu(HVIconStore::icon(QStringLiteral("export_24")), tr("Export"));
    for (const FormatName& each : g_formats)
        formats->addAction(tr(each.text), this,
                           [this, volume = objects.front(), format = each.format] { chooseTarget(volume, format); });
}

void VolumeExchange::chooseTarget(const ObjectKey& volume, ExportFormat format)
{
    const auto* const each = std::find_if(std::begin(g_formats), std::end(g_formats),
                                          [format](const FormatName& name) { return name.format == format; });
    const QString suffix = QLatin1Char('.') + suffixOf(format);
    QFileDialog dialog(m_parent, tr("Export '%1'").arg(volume.name), lastFolder(), tr(each->filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffixOf(format));
    dialog.selectFile(volume.name + suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().first();
    keepFolder(path);
    exportTo(volume, format, path);
}

void VolumeExchange::exportTo(const ObjectKey& volume, ExportFormat format, const QString& path)
{
    if (!m_project)
        return;
    const auto file = VolumeFile::open(m_project->store().path(volume));
    if (!file) {
        tell(MessageLevel::Error, file.failure().sentence);
        return;
    }
    const auto work = [file = *file, name = volume.name, format, path](JobContext& context) {
        return exportVolume(*file, name, format, path, context);
    };
    m_jobs.start({tr("Export '%1'").arg(volume.name), {volume}}, work, this,
                 [](JobState, const Result<QString>& written) {
                     if (written)
                         tell(MessageLevel::Success, *written);
                 });
}

} // namespace hv
