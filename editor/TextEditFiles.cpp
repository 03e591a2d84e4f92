// The script editor and its file: reading, saving, what other programs do to the file.
#include "editor/FileWatch.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/NoticeBar.h"
#include "editor/RecoveryCopy.h"
#include "host/formats/PartFile.h"
#include "host/formats/WholeFile.h"
#include "host/services/HVIconStore.h"
#include "host/services/IScriptProject.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

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
    QString path = QFileDialog::getSaveFileName(parent, HVPythonTextEdit::tr("Save Script"), QString(),
                                                HVPythonTextEdit::tr("Python scripts (*.py)"));
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

} // namespace

void HVPythonTextEdit::takeText(const editor::ScriptText& script, bool undoable)
{
    clearBreakpoints();
    if (undoable) {
        replaceText(script.text);
        moveCursor(QTextCursor::Start);
    } else {
        setPlainText(script.text);
    }
    if (script.remark.isEmpty())
        m_notice->hide();
    else
        m_notice->show(script.remark);
    clearErrors();
}

bool HVPythonTextEdit::load(const QString& path, bool undoable)
{
    QByteArray bytes;
    if (!readBytes(path, bytes))
        return false;
    const editor::ScriptText script = editor::decodeScript(bytes);
    m_form = script.form;
    takeText(script, undoable);
    document()->setModified(false);
    hv::removeAbandonedParts(QFileInfo(path).path());
    setFilename(path);
    m_watch->watch(path);
    showWhetherReadOnly();
    updateWindowTitle();
    return true;
}

bool HVPythonTextEdit::loadFile(const QString& path)
{
    return load(path, false);
}

bool HVPythonTextEdit::importFile(const QString& path)
{
    QByteArray bytes;
    if (!readBytes(path, bytes))
        return false;
    takeText(editor::decodeScript(bytes), true);
    document()->setModified(true);
    updateWindowTitle();
    return true;
}

/// As one step for Undo.
void HVPythonTextEdit::replaceText(const QString& text)
{
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
}

void HVPythonTextEdit::setFilename(const QString& path)
{
    if (path == m_filename)
        return;
    // Announced while the old name is still the editor's.
    for (const qint32 line : breakpoints())
        Q_EMIT breakpointRemoved(m_filename, line);
    m_filename = path;
    m_watch->watch(path);
    for (const qint32 line : breakpoints())
        announceBreakpoint(line);
}

bool HVPythonTextEdit::writeText(const QString& path, QString& error) const
{
    const QByteArray bytes = editor::encodeScript(plainText(), m_form, error);
    return error.isEmpty() && hv::writeWholeFile(path, bytes, error);
}

bool HVPythonTextEdit::mayOverwrite()
{
    if (!m_watch->hasChanged() || !QFileInfo::exists(m_filename))
        return true;
    const QString question = tr("%1 has been changed by another program since it was read. Overwrite those changes?");
    return ask(this, question.arg(QFileInfo(m_filename).fileName()), QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No) == QMessageBox::Yes;
}

/// Before the text gives way to that of another file.
bool HVPythonTextEdit::mayReplaceText(const QString& path)
{
    if (!document()->isModified() || !QFileInfo(path).isFile())
        return true; // nothing is lost
    const QString question =
        tr("This editor contains unsaved changes. Replace its text by that of %1? Undo brings it back.");
    return ask(this, question.arg(QFileInfo(path).fileName()), QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

bool HVPythonTextEdit::saveToFile()
{
    IScriptProject* project = IScriptProject::current();
    const QString before = m_filename;
    if (before.isEmpty()) {
        const QString path = chooseScriptToSave(this);
        if (path.isEmpty())
            return true;
        if (project)
            project->registerScript(path);
        setFilename(path);
    } else if (!mayOverwrite()) {
        return false;
    }
    QString error;
    if (!writeText(m_filename, error)) {
        const QString path = m_filename;
        setFilename(before); // the next save asks again
        QMessageBox::information(
            this, g_boxTitle,
            QStringLiteral("Unable to save file %1. The following error occurred: <b>%2</b>").arg(path, error),
            QMessageBox::Ok);
        return false;
    }
    m_watch->watch(m_filename);
    m_notice->hide();
    document()->setModified(false);
    updateWindowTitle();
    if (project) {
        project->registerScript(m_filename);
        if (before.isEmpty())
            project->scriptListChanged();
    }
    return true;
}

void HVPythonTextEdit::closeEvent(QCloseEvent* event)
{
    if (!document()->isModified()) {
        event->accept();
        return;
    }
    const auto answer =
        ask(this, QStringLiteral("This editor contains unsaved changes. Save these changes before closing?"),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
    const bool saved = answer == QMessageBox::Yes && saveToFile() && QFileInfo::exists(m_filename);
    event->setAccepted(saved || answer == QMessageBox::No);
}

void HVPythonTextEdit::reportFileChange()
{
    const QString name = QFileInfo(m_filename).fileName();
    if (!QFileInfo::exists(m_filename)) {
        document()->setModified(true);
        m_notice->show(tr("%1 no longer exists. Saving writes it again.").arg(name));
    } else if (!document()->isModified()) {
        readAgain();
    } else {
        m_notice->show(tr("%1 has been changed by another program, and here as well.").arg(name),
                       {{tr("Load, losing my changes"), [this] { readAgain(); }}});
    }
}

void HVPythonTextEdit::readAgain()
{
    QByteArray bytes;
    if (!readBytes(m_filename, bytes))
        return;
    const editor::ScriptText script = editor::decodeScript(bytes);
    m_watch->watch(m_filename);
    m_form = script.form;
    if (script.text == plainText()) {
        document()->setModified(false);
        return;
    }
    // Only what differs is replaced: the cursor, the view and the breakpoints stay, and Undo leads back.
    const QString before = plainText();
    const int shorter = std::min(before.size(), script.text.size());
    const auto equalEnds = [&](auto a, auto b) { return static_cast<int>(std::mismatch(a, a + shorter, b).first - a); };
    const int head = equalEnds(before.cbegin(), script.text.cbegin());
    const int tail = std::min(equalEnds(before.crbegin(), script.text.crbegin()), shorter - head);
    QTextCursor cursor(document());
    cursor.setPosition(head);
    cursor.setPosition(before.size() - tail, QTextCursor::KeepAnchor);
    cursor.insertText(script.text.mid(head, script.text.size() - head - tail));
    document()->setModified(false);
    m_notice->show(tr("%1 was changed by another program and has been read again. Undo brings the old text back.")
                       .arg(QFileInfo(m_filename).fileName()));
}

bool HVPythonTextEdit::isFileReadOnly() const
{
    return m_watch->isReadOnly();
}

void HVPythonTextEdit::showWhetherReadOnly()
{
    const bool readOnly = isFileReadOnly();
    setWindowIcon(HVIconStore::icon(readOnly ? QStringLiteral("read_only_24") : QStringLiteral("pythoneditor24")));
    const QString sentence = tr("This file is read-only. Save As keeps what you change under another name.");
    if (readOnly && m_notice->isHidden())
        m_notice->show(sentence);
    else if (!readOnly && m_notice->sentence() == sentence)
        m_notice->hide();
}

void HVPythonTextEdit::keepUnsavedText()
{
    if (document()->isModified())
        m_recovery->textChanged();
    else
        m_recovery->discard();
}

void HVPythonTextEdit::restoreUnsaved(const QString& path, const QString& text)
{
    // The file gives its encoding and line ends when it is still there.
    if (!path.isEmpty() && !loadFile(path))
        setFilename(path);
    replaceText(text);
    document()->setModified(true);
    updateWindowTitle();
    m_recovery->writeNow();
    m_notice->show(
        tr("Strativo ended without saving this script. This is how it was; Undo shows what is in the file."));
}
