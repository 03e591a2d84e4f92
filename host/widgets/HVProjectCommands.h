#pragma once

#include "host/data/HVProject.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QVector>

class QMenu;
class QWidget;
struct ProjectNode;
namespace hv {
class JobManager;
}

/// What the project browser's context menu does with rows. Questions are asked over `parent`; failures go to the
/// messages.
class HVProjectCommands : public QObject
{
    Q_OBJECT

public:
    explicit HVProjectCommands(QWidget* parent);

    void setProject(HVProject* project) { m_project = project; }
    void setJobs(hv::JobManager* jobs) { m_jobs = jobs; }

    /// Adds the commands for the selected rows; nothing for none. Rename is the view's own and comes by the signal.
    void fillMenu(QMenu& menu, const QVector<const ProjectNode*>& rows);
    /// Asks, then moves the files of the objects among the rows to the trash, or removes the directories.
    void removeRows(const QVector<const ProjectNode*>& rows);

Q_SIGNALS:
    void renameRequested();

private:
    /// Rows are gone when the project changes, so commands work on what they stood for.
    struct Objects
    {
        ObjectKind kind;
        QStringList names;
    };

    void fillFolderMenu(QMenu& menu, const Objects& objects);
    void fileInto(const Objects& objects, const QString& directory);
    QString newDirectory(ObjectKind kind, const QString& parent);
    void removeDirectory(ObjectKind kind, const QString& name);
    void removeObjects(const QVector<Objects>& objects);
    void showInformation(const hv::ObjectKey& key);
    void duplicateObjects(const Objects& objects);
    void duplicateBeside(const hv::ObjectKey& key, const hv::ObjectKey& copy);

    QWidget* m_parent;
    QPointer<HVProject> m_project;
    hv::JobManager* m_jobs = nullptr;
    QSet<hv::ObjectKey> m_comingUp; // names that copies will have which are being made
};
