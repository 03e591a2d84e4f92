#include "editor/ScriptFile.h"

#include "editor/NoticeBar.h"
#include "host/formats/PartFile.h"
#include "host/formats/WholeFile.h"
#include "host/icons/HVIconStore.h"
#include "host/services/IScriptProject.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPlainTextEdit>

#include <algorithm>

namespace editor {

namespace {

const QString g_boxTitle = QStringLiteral("Python");

QMessageBox::StandardButton ask(QWidget* parent, const QString& question, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton escape)
{
    QMessageBox box(QMessageBox::Question, g_boxTitle, question, buttons, parent);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(escape);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QString chooseScriptToSave(QWidget* parent)
{
    if (IScriptProject* project = IScriptProject::current())
        return project->chooseScriptToSave(parent);
    QString path = QFileDialog::getSaveFileName(parent, ScriptFile::tr("Save Script"), QString(),
                                                ScriptFile::tr("Python scripts (*.py)"));
    if (!path.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".py");
    return path;
}

bool readBytes(const QString& path, QByteArray& bytes)
{
    QFile file(path);
    // A folder opens on some systems, and a device may never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError;
}

/// Replaces only what differs: the cursor, the view and the breakpoints stay, and Undo leads back.
void replaceDifference(QTextDocument& document, const QString& text)
{
    const QString before = documentText(document);
    const int shorter = std::min(before.size(), text.size());
    const auto equalEnds = [&](auto a, auto b) { return static_cast<int>(std::mismatch(a, a + shorter, b).first - a); };
    const int head = equalEnds(before.cbegin(), text.cbegin());
    const int tail = std::min(equalEnds(before.crbegin(), text.crbegin()), shorter - head);
    QTextCursor cursor(&document);
    cursor.setPosition(head);
    cursor.setPosition(before.size() - tail, QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(head, text.size() - head - tail));
}

} // namespace

ScriptFile::ScriptFile(QPlainTextEdit& view, NoticeBar& notice)
    : QObject(&view), m_view(view), m_notice(notice), m_recovery([this] {
          return UnsavedText{m_path, documentText(*m_view.document())};
      })
{
    connect(&view, &QPlainTextEdit::textChanged, this, &ScriptFile::keepUnsavedText);
    connect(view.document(), &QTextDocument::modificationChanged, this, &ScriptFile::keepUnsavedText);
    connect(&m_watch, &FileWatch::changed, this, &ScriptFile::reportChange);
    connect(&m_watch, &FileWatch::readOnlyChanged, this, &ScriptFile::showWhetherReadOnly);
}

void ScriptFile::setPath(const QString& path)
{
    if (path == m_path)
        return;
    Q_EMIT aboutToRename();
    m_path = path;
    m_watch.watch(path);
    Q_EMIT renamed();
}

void ScriptFile::takeText(const ScriptText& script, bool undoable)
{
    Q_EMIT aboutToReplaceText();
    if (undoable) {
        replaceText(script.text);
        m_view.moveCursor(QTextCursor::Start);
    } else {
        m_view.setPlainText(script.text);
    }
    if (script.remark.isEmpty())
        m_notice.hide();
    else
        m_notice.show(script.remark);
}

/// As one step for Undo.
void ScriptFile::replaceText(const QString& text)
{
    QTextCursor cursor(m_view.document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
}

bool ScriptFile::read(const QString& path, bool undoable)
{
    QByteArray bytes;
    if (!readBytes(path, bytes))
        return false;
    const ScriptText script = decodeScript(bytes);
    m_form = script.form;
    takeText(script, undoable);
    m_view.document()->setModified(false);
    hv::removeAbandonedParts(QFileInfo(path).path());
    setPath(path);
    m_watch.watch(path);
    showWhetherReadOnly();
    Q_EMIT stateChanged();
    return true;
}

bool ScriptFile::load(const QString& path)
{
    return read(path, false);
}

bool ScriptFile::replaceBy(const QString& path)
{
    return mayReplaceText(path) && read(path, true);
}

bool ScriptFile::import(const QString& path)
{
    if (!mayReplaceText(path))
        return false;
    QByteArray bytes;
    if (!readBytes(path, bytes)) {
        QMessageBox::information(&m_view, m_view.windowTitle(), QStringLiteral("Unable to load: %1").arg(path));
        return false;
    }
    takeText(decodeScript(bytes), true);
    m_view.document()->setModified(true);
    Q_EMIT stateChanged();
    return true;
}

hv::Result<void> ScriptFile::write(const QString& path) const
{
    const auto bytes = encodeScript(documentText(*m_view.document()), m_form);
    if (!bytes)
        return bytes.failure();
    return hv::writeWholeFile(path, *bytes);
}

bool ScriptFile::mayOverwrite()
{
    if (!m_watch.hasChanged() || !QFileInfo::exists(m_path))
        return true;
    const QString question = tr("%1 has been changed by another program since it was read. Overwrite those changes?");
    return ask(&m_view, question.arg(QFileInfo(m_path).fileName()), QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No) == QMessageBox::Yes;
}

/// Before the text gives way to that of another file.
bool ScriptFile::mayReplaceText(const QString& path)
{
    if (!m_view.document()->isModified() || !QFileInfo(path).isFile())
        return true; // nothing is lost
    const QString question =
        tr("This editor contains unsaved changes. Replace its text by that of %1? Undo brings it back.");
    return ask(&m_view, question.arg(QFileInfo(path).fileName()), QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No) == QMessageBox::Yes;
}

bool ScriptFile::save()
{
    IScriptProject* project = IScriptProject::current();
    const QString before = m_path;
    if (before.isEmpty()) {
        const QString path = chooseScriptToSave(&m_view);
        if (path.isEmpty())
            return true;
        if (project)
            project->registerScript(path);
        setPath(path);
    } else if (!mayOverwrite()) {
        return false;
    }
    if (const auto written = write(m_path); !written) {
        const QString path = m_path;
        setPath(before); // the next save asks again
        QMessageBox::information(&m_view, g_boxTitle,
                                 QStringLiteral("Unable to save file %1. The following error occurred: <b>%2</b>")
                                     .arg(path, written.failure().sentence),
                                 QMessageBox::Ok);
        return false;
    }
    m_watch.watch(m_path);
    m_notice.hide();
    m_view.document()->setModified(false);
    Q_EMIT stateChanged();
    if (project) {
        project->registerScript(m_path);
        if (before.isEmpty())
            project->scriptListChanged();
    }
    return true;
}

bool ScriptFile::mayClose()
{
    if (!m_view.document()->isModified())
        return true;
    const auto answer =
        ask(&m_view, QStringLiteral("This editor contains unsaved changes. Save these changes before closing?"),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer == QMessageBox::Yes)
        return save() && QFileInfo::exists(m_path);
    return answer == QMessageBox::No;
}

void ScriptFile::reportChange()
{
    const QString name = QFileInfo(m_path).fileName();
    if (!QFileInfo::exists(m_path)) {
        m_view.document()->setModified(true);
        m_notice.show(tr("%1 no longer exists. Saving writes it again.").arg(name));
    } else if (!m_view.document()->isModified()) {
        readAgain();
    } else {
        m_notice.show(tr("%1 has been changed by another program, and here as well.").arg(name),
                      {{tr("Load, losing my changes"), [this] { readAgain(); }}});
    }
}

void ScriptFile::readAgain()
{
    QByteArray bytes;
    if (!readBytes(m_path, bytes))
        return;
    const ScriptText script = decodeScript(bytes);
    m_watch.watch(m_path);
    m_form = script.form;
    if (script.text == documentText(*m_view.document())) {
        m_view.document()->setModified(false);
        return;
    }
    replaceDifference(*m_view.document(), script.text);
    m_view.document()->setModified(false);
    m_notice.show(tr("%1 was changed by another program and has been read again. Undo brings the old text back.")
                      .arg(QFileInfo(m_path).fileName()));
}

void ScriptFile::showWhetherReadOnly()
{
    const bool readOnly = isReadOnly();
    m_view.setWindowIcon(
        HVIconStore::icon(readOnly ? QStringLiteral("read_only_24") : QStringLiteral("pythoneditor24")));
    const QString sentence = tr("This file is read-only. Save As keeps what you change under another name.");
    if (readOnly && m_notice.isHidden())
        m_notice.show(sentence);
    else if (!readOnly && m_notice.sentence() == sentence)
        m_notice.hide();
}

void ScriptFile::keepUnsavedText()
{
    if (m_view.document()->isModified())
        m_recovery.textChanged();
    else
        m_recovery.discard();
}

void ScriptFile::keepUnsavedNow()
{
    if (m_view.document()->isModified())
        m_recovery.writeNow();
}

void ScriptFile::restoreUnsaved(const QString& path, const QString& text)
{
    // The file gives its encoding and line ends when it is still there.
    if (!path.isEmpty() && !load(path))
        setPath(path);
    replaceText(text);
    m_view.document()->setModified(true);
    Q_EMIT stateChanged();
    m_recovery.writeNow();
    m_notice.show(tr("Strativo ended without saving this script. This is how it was; Undo shows what is in the file."));
}

} // namespace editor
