#include "host/widgets/HVProjectCommands.h"

#include "host/formats/FileCopy.h"
#include "host/icons/HVIconStore.h"
#include "host/jobs/JobManager.h"
#include "host/services/HVEventBus.h"
#include "host/viewers/HVObjectInformation.h"
#include "host/widgets/ProjectTree.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QUrl>

#include <utility>

namespace {

/// Larger files are copied by a job.
constexpr qint64 g_mostAtOnce = 32LL * 1024 * 1024;

using Type = ProjectNode::Type;

void report(const QString& sentence)
{
    HVEventBus::instance().sendMessage(MessageLevel::Error, sentence, true);
}

void reportFailure(const hv::Result<void>& done)
{
    if (!done)
        report(done.failure().sentence);
}

QIcon icon(const char* name)
{
    return HVIconStore::icon(QLatin1String(name));
}

/// Names may hold ampersands, which are no mnemonics.
QString menuText(QString name)
{
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

HVProjectCommands::HVProjectCommands(QWidget* parent) : QObject(parent), m_parent(parent) {}

void HVProjectCommands::fillMenu(QMenu& menu, const QVector<const ProjectNode*>& rows)
{
    if (rows.isEmpty() || !m_project)
        return;
    const ProjectNode& first = *rows.first();
    const ObjectKind kind = first.kind;
    Objects objects{kind, {}};
    QStringList paths;
    bool areObjectsOfOneKind = true;
    for (const ProjectNode* row : rows) {
        areObjectsOfOneKind = areObjectsOfOneKind && row->type == Type::Object && row->kind == kind;
        objects.names << row->name;
        paths << (row->type == Type::Object ? row->path : m_project->folder(row->kind));
    }
    const bool isOne = rows.size() == 1;
    if (areObjectsOfOneKind) {
        QMenu* folders = menu.addMenu(icon("folder_24"), tr("Move to Folder"));
        fillFolderMenu(*folders, objects);
    } else if (isOne) {
        menu.addAction(icon("add_16"), tr("New Folder..."), this,
                       [this, kind, parent = first.directory()] { newDirectory(kind, parent); });
    }
    if (isOne && first.type != Type::Kind)
        menu.addAction(tr("Rename"), this, &HVProjectCommands::renameRequested, QKeySequence(Qt::Key_F2));
    if (areObjectsOfOneKind)
        menu.addAction(icon("copy_24"), tr("Duplicate"), this, [this, objects] { duplicateObjects(objects); });
    if (isOne && areObjectsOfOneKind)
        menu.addAction(icon("information_16"), tr("Information..."), this,
                       [this, key = hv::ObjectKey{kind, first.name}] { showInformation(key); });
    menu.addSeparator();
    menu.addAction(icon("copy_24"), isOne ? tr("Copy Path") : tr("Copy Paths"), this,
                   [paths] { QGuiApplication::clipboard()->setText(paths.join(QLatin1Char('\n'))); });
    menu.addAction(icon("external_link_16"), tr("Show in File Manager"), this,
                   [path = m_project->folder(kind)] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    if (areObjectsOfOneKind || (isOne && first.type == Type::Directory)) {
        menu.addSeparator();
        const QString text = areObjectsOfOneKind ? tr("Delete...") : tr("Remove Folder");
        if (areObjectsOfOneKind)
            menu.addAction(
                icon("clear_24"), text, this, [this, objects] { removeObjects({objects}); }, QKeySequence::Delete);
        else
            menu.addAction(
                icon("clear_24"), text, this, [this, kind, name = first.name] { removeDirectory(kind, name); },
                QKeySequence::Delete);
    }
}

void HVProjectCommands::fillFolderMenu(QMenu& menu, const Objects& objects)
{
    QStringList names = m_project->directories(objects.kind).directories();
    names.sort(Qt::CaseInsensitive);
    for (const QString& name : names)
        menu.addAction(icon("folder_24"), menuText(name), this, [this, objects, name] { fileInto(objects, name); });
    menu.addSeparator();
    menu.addAction(tr("No Folder"), this, [this, objects] { fileInto(objects, QString()); });
    menu.addAction(icon("add_16"), tr("New Folder..."), this, [this, objects] {
        const QString name = newDirectory(objects.kind, QString());
        if (!name.isEmpty())
            fileInto(objects, name);
    });
}

void HVProjectCommands::fileInto(const Objects& objects, const QString& directory)
{
    if (!m_project)
        return;
    HVVirtualDirectories& directories = m_project->directories(objects.kind);
    reportFailure(directory.isEmpty() ? directories.unfileObjects(objects.names)
                                      : directories.fileObjects(objects.names, directory));
}

QString HVProjectCommands::newDirectory(ObjectKind kind, const QString& parent)
{
    const QString name = QInputDialog::getText(m_parent, tr("New Folder"), tr("Name of the new folder:")).trimmed();
    if (name.isEmpty() || !m_project)
        return {};
    const auto done = m_project->directories(kind).addDirectory(name, parent);
    reportFailure(done);
    return done ? name : QString();
}

void HVProjectCommands::removeDirectory(ObjectKind kind, const QString& name)
{
    if (m_project)
        reportFailure(m_project->directories(kind).removeDirectory(name));
}

void HVProjectCommands::removeRows(const QVector<const ProjectNode*>& rows)
{
    if (rows.size() == 1 && rows.first()->type == Type::Directory) {
        removeDirectory(rows.first()->kind, rows.first()->name);
        return;
    }
    QVector<Objects> objects;
    for (const ProjectNode* row : rows) {
        if (row->type != Type::Object)
            continue;
        if (objects.isEmpty() || objects.last().kind != row->kind)
            objects.append({row->kind, {}});
        objects.last().names << row->name;
    }
    if (!objects.isEmpty())
        removeObjects(objects);
}

void HVProjectCommands::duplicateObjects(const Objects& objects)
{
    if (!m_project)
        return;
    const hv::ChangeScope step(&m_project->changes(), objects.names.size() == 1
                                                          ? tr("Duplicate '%1'").arg(objects.names.first())
                                                          : tr("Duplicate %1 objects").arg(objects.names.size()));
    hv::ObjectStore& store = m_project->store();
    for (const QString& name : objects.names) {
        const hv::ObjectKey key{objects.kind, name};
        hv::ObjectKey copy = key;
        for (int number = 2; store.contains(copy) || m_comingUp.contains(copy); ++number)
            copy.name = QStringLiteral("%1 %2").arg(name, QString::number(number));
        if (m_jobs && QFileInfo(store.path(key)).size() > g_mostAtOnce)
            duplicateBeside(key, copy);
        else
            reportFailure(store.duplicate(key, copy.name));
    }
}

void HVProjectCommands::duplicateBeside(const hv::ObjectKey& key, const hv::ObjectKey& copy)
{
    m_comingUp.insert(copy);
    const QString from = m_project->store().path(key);
    const QString to =
        QFileInfo(from).path() + QLatin1Char('/') + copy.name + QLatin1Char('.') + QFileInfo(from).suffix();
    const auto work = [from, to](hv::JobContext& context) {
        qint64 before = 0;
        return hv::copyWholeFile(from, to, [&](qint64 done, qint64 all) {
            if (before == 0)
                context.setSteps(all);
            context.advance(done - std::exchange(before, done));
            return !context.cancelled();
        });
    };
    m_jobs->start({tr("Duplicate '%1'").arg(key.name), {key}}, work, this,
                  [this, copy, project = m_project](hv::JobState, const hv::Result<void>& made) {
                      m_comingUp.remove(copy);
                      if (made && project)
                          reportFailure(project->store().adopt(copy));
                  });
}

void HVProjectCommands::showInformation(const hv::ObjectKey& key)
{
    if (!m_project)
        return;
    auto object = m_project->store().open(key);
    if (!object) {
        report(object.failure().sentence);
        return;
    }
    auto* window = new HVObjectInformation(std::move(*object), m_parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_project, &QObject::destroyed, window, &QWidget::close);
    window->show();
}

void HVProjectCommands::removeObjects(const QVector<Objects>& objects)
{
    int count = 0;
    for (const Objects& each : objects)
        count += each.names.size();
    const QString question = count == 1 ? tr("Move '%1' to the trash?").arg(objects.first().names.first())
                                        : tr("Move %1 objects to the trash?").arg(count);
    if (QMessageBox::question(m_parent, tr("Delete"), question) != QMessageBox::Yes || !m_project)
        return;
    const hv::ChangeScope step(&m_project->changes(), count == 1 ? tr("Delete '%1'").arg(objects.first().names.first())
                                                                 : tr("Delete %1 objects").arg(count));
    QStringList failed;
    for (const Objects& each : objects)
        for (const QString& name : each.names)
            if (const auto done = m_project->removeObject(each.kind, name, HVProject::Removal::ToTrash); !done)
                failed << done.failure().sentence;
    if (!failed.isEmpty())
        report(failed.size() <= 3 ? failed.join(QLatin1Char('\n'))
                                  : tr("%1\n... and %2 more").arg(failed.first()).arg(failed.size() - 1));
}
