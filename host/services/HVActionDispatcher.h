#pragma once

#include <QHash>
#include <QString>

#include <functional>

class QObject;

/// Carries out actions that documents ask of the application by name, such as "EXECUTE_PYTHON_IN_EDITOR", so that a
/// document needs to know nothing of the main window. GUI thread only.
class HVActionDispatcher
{
public:
    /// `sender` asked for the action, `target` is what it concerns; both live during the call.
    using Handler = std::function<void(QObject* sender, QObject* target)>;

    /// A second handler for the same action replaces the first; an empty one removes it.
    void setHandler(const QString& action, Handler handler);

    /// False, and an error on the event bus, when nobody handles the action.
    bool dispatch(QObject* sender, QObject* target, const QString& action) const;

private:
    QHash<QString, Handler> m_handlers;
};
