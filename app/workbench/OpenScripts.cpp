#include "app/workbench/OpenScripts.h"

#include "app/workbench/MainWindow.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/RecoveryCopy.h"
#include "host/formats/PartFile.h"
#include "host/formats/WholeFile.h"
#include "host/services/HVEventBus.h"
#include "host/services/HVUserData.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

namespace workbench {

namespace {

const QString g_sessionTag = QStringLiteral("session");
const QString g_editorTag = QStringLiteral("PythonEditor");
const QString g_activeAttribute = QStringLiteral("active");

QString sessionFile()
{
    return hv::userDataDirectory() + QStringLiteral("/session.xml");
}

void restoreSession(MainWindow& window)
{
    QFile file(sessionFile());
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return;
    HVPythonTextEdit* active = nullptr;
    const QDomElement session = document.documentElement();
    for (QDomElement e = session.firstChildElement(g_editorTag); !e.isNull(); e = e.nextSiblingElement(g_editorTag)) {
        HVPythonTextEdit* editor = window.openScript(e.firstChildElement().attribute(QStringLiteral("filename")));
        if (editor && editor->LoadObjectSession(e) && e.hasAttribute(g_activeAttribute))
            active = editor;
    }
    if (active)
        window.showEditor(*active);
}

} // namespace

QByteArray openScripts(const MainWindow& window)
{
    QDomDocument document;
    QDomElement session = document.createElement(g_sessionTag);
    document.appendChild(session);
    for (const HVPythonTextEdit* editor : window.editors()) {
        if (editor->filename().isEmpty())
            continue;
        QDomElement element = document.createElement(g_editorTag);
        if (editor == window.activeEditor())
            element.setAttribute(g_activeAttribute, 1);
        if (editor->SaveObjectSession(element))
            session.appendChild(element);
    }
    return document.toByteArray();
}

void keepOpenScripts(const QByteArray& session)
{
    if (const auto written = hv::writeWholeFile(sessionFile(), session); !written)
        HVEventBus::instance().sendMessage(
            MessageLevel::Warning, MainWindow::tr("The open scripts cannot be kept for the next session: %1: %2")
                                       .arg(sessionFile(), written.failure().sentence));
}

void restoreOpenScripts(MainWindow& window)
{
    hv::removeAbandonedParts(QFileInfo(sessionFile()).path());
    restoreSession(window);
    editor::RecoveryCopy::restoreLeftBehind([&](const editor::UnsavedText& unsaved) {
        HVPythonTextEdit* editor = QFile::exists(unsaved.path) ? window.openScript(unsaved.path) : nullptr;
        if (!editor)
            editor = window.newScript();
        editor->restoreUnsaved(unsaved.path, unsaved.text);
    });
}

} // namespace workbench
