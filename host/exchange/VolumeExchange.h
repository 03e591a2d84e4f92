#pragma once

#include "host/data/HVProject.h"
#include "host/exchange/VolumeExport.h"
#include "host/jobs/JobManager.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

class HVSegyImportDialog;
class QMenu;
class QMimeData;
class QWidget;

/// host/exchange: how volumes come into the project from files of other programs, and leave it.

namespace hv {

/// Asks for what has to be asked over `parent`, and does the work by jobs. What fails is told on the event bus, an
/// import that cannot begin in its dialog.
class VolumeExchange : public QObject
{
    Q_OBJECT

public:
    /// `jobs` is not owned.
    VolumeExchange(JobManager& jobs, QWidget* parent);
    ~VolumeExchange() override;

    /// Null for none. Dialogs go with their project.
    void setProject(HVProject* project);

    /// Asks which files.
    void chooseSegy();
    /// Shows the dialog for each of the files, one after the other.
    void importSegy(const QStringList& paths);
    /// Of the files that are dragged, those that look like SEG-Y by their names.
    static QStringList segyFiles(const QMimeData* data);

    /// Adds the sub-menu for the volumes; nothing for other objects.
    void fillMenu(QMenu& menu, const std::vector<ObjectKey>& objects);
    /// Writes the volume by a job.
    void exportTo(const ObjectKey& volume, ExportFormat format, const QString& path);

Q_SIGNALS:
    /// The volume is an object of the project.
    void imported(const hv::ObjectKey& volume);

private:
    void showNext();
    void import(const HVSegyImportDialog& dialog);
    void adopt(const ObjectKey& volume);
    void chooseTarget(const ObjectKey& volume, ExportFormat format);

    JobManager& m_jobs;
    QWidget* m_parent;
    QPointer<HVProject> m_project;
    QPointer<HVSegyImportDialog> m_dialog;
    QStringList m_waiting;    // files whose dialogs come later
    QSet<QString> m_comingUp; // names of the volumes that are being imported
};

} // namespace hv
