#pragma once

#include "host/data/HVProject.h"

#include <QObject>
#include <QStringList>

#include <memory>

/// Owner of the one open project. Opening or creating one closes the other; a failure leaves the open one open.
/// GUI thread only.
class HVProjectService : public QObject
{
    Q_OBJECT

public:
    explicit HVProjectService(QObject* parent = nullptr);
    ~HVProjectService() override;

    /// The application's service, which widgets that are made without one look for: the last one made. Null when
    /// there is none. Not owned.
    static HVProjectService* current();

    /// Null when none is open. Whoever keeps it longer than a call keeps a QPointer.
    HVProject* project() const { return m_project.get(); }

    hv::Result<void> open(const QString& path);
    hv::Result<void> create(const QString& folder, const QString& name);
    void close();

    /// Folders of the projects opened last, newest first, kept in the settings. Filled by whoever opens
    /// projects for a person, not by programs.
    static QStringList recentProjects();
    static void addRecentProject(const QString& path);
    static void removeRecentProject(const QString& path);
    static void clearRecentProjects();

Q_SIGNALS:
    /// The project still works here.
    void projectAboutToClose(HVProject* project);
    /// Null when one was closed and none was opened instead.
    void projectChanged(HVProject* project);

private:
    hv::Result<void> take(hv::Result<std::unique_ptr<HVProject>> project);
    void replace(std::unique_ptr<HVProject> project);

    std::unique_ptr<HVProject> m_project;
};
