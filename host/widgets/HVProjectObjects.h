#pragma once

#include "host/data/HVProject.h"

#include <QObject>
#include <QPointer>

#include <set>

class HVProjectService;
class QDropEvent;

/// The project's objects that a widget offers for choice: those of some kinds, in the open project. A part of such a
/// widget: it follows the project and reads drags from the project browser. An object is known by the absolute path of
/// its file.
///
/// GUI thread only.
class HVProjectObjects : public QObject
{
    Q_OBJECT

public:
    /// Follows the application's project from now on, see HVProjectService::current().
    explicit HVProjectObjects(QObject* parent);

    HVProject* project() const { return m_project; }
    /// For an application that keeps its project elsewhere: this one, or none, until the next call.
    void setProject(HVProject* project);

    /// All kinds that scripts know, at first, and again for an empty set.
    const std::set<ObjectKind>& kinds() const { return m_kinds; }
    void setKinds(std::set<ObjectKind> kinds);

    /// The path in its absolute form when it is, or would be, an object of these kinds in the project; else empty.
    QString suitable(const QString& path) const;
    /// The first suitable object among what is dragged; empty for none.
    QString dropped(const QDropEvent& event) const;

    /// What to say where nothing can be chosen: that there is no project, or else no such object in it.
    QString whyNone() const;

Q_SIGNALS:
    /// Another project or none, or other kinds.
    void replaced();
    /// Objects or directories of these kinds have come, gone or moved; once per turn of the event loop.
    void changed();
    void renamed(const QString& before, const QString& after);

private:
    void take(HVProject* project);
    void note(ObjectKind kind) { m_hasChanged = m_hasChanged || m_kinds.count(kind) > 0; }

    QPointer<HVProject> m_project;
    QPointer<HVProjectService> m_service;
    std::set<ObjectKind> m_kinds;
    bool m_hasChanged = false; // among what is being told
};
