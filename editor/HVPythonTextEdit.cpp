#include "editor/HVPythonTextEdit.h"

#include "host/services/HVIconStore.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMessageBox>
#include <QSaveFile>
#include <QTextBlock>

HVPythonTextEdit::HVPythonTextEdit(QWidget* parent)
    : QPlainTextEdit(parent),
      m_save(new QAction(HVIconStore::icon(QStringLiteral("save24")), QStringLiteral("Save..."), this)),
      m_execute(new QAction(HVIconStore::icon(QStringLiteral("pythonrun24")), QStringLiteral("Execute"), this))
{
    setPlainText(QStringLiteral("# -*- coding: utf-8 -*-\n# Press F8 to execute the contents of the editor.\n"
                                "# Execute the 'help()' command to open Strativo's Python documentation\n\n"));
    moveCursor(QTextCursor::End);
    document()->setModified(false);
    setWindowIcon(HVIconStore::icon(QStringLiteral("pythoneditor24")));
    setMinimumSize(500, 300);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setTabStopDistance(4 * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    setLineWrapMode(NoWrap);
    // The keys are handled by keyPressEvent(): as shortcuts they would compete with those of the main window.
    m_save->setShortcut(QKeySequence::Save);
    m_save->setShortcutContext(Qt::WidgetShortcut);
    m_execute->setShortcut(Qt::Key_F8);
    m_execute->setShortcutContext(Qt::WidgetShortcut);
    connect(m_save, &QAction::triggered, this, &HVPythonTextEdit::saveToFile);
    connect(m_execute, &QAction::triggered, this, &HVPythonTextEdit::execute);
    connect(document(), &QTextDocument::modificationChanged, this, &HVPythonTextEdit::updateWindowTitle);
    connect(this, &QPlainTextEdit::textChanged, this, &HVPythonTextEdit::clearErrors);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &HVPythonTextEdit::highlightLines);
    updateWindowTitle();
    highlightLines();
}

bool HVPythonTextEdit::loadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    setPlainText(QString::fromUtf8(file.readAll()));
    document()->setModified(false);
    setFilename(path);
    return true;
}

bool HVPythonTextEdit::saveToFile()
{
    QString path = m_filename;
    if (path.isEmpty()) {
        path = QFileDialog::getSaveFileName(this, tr("Save Script"), QString(), tr("Python scripts (*.py)"));
        if (path.isEmpty())
            return true;
        if (QFileInfo(path).suffix().isEmpty())
            path += QStringLiteral(".py");
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(toPlainText().toUtf8()) < 0 || !file.commit()) {
        QMessageBox::information(this, QStringLiteral("Python"),
                                 QStringLiteral("Unable to save file %1. The following error occurred: <b>%2</b>")
                                     .arg(path, file.errorString()));
        return false;
    }
    document()->setModified(false);
    setFilename(path);
    return true;
}

void HVPythonTextEdit::setFilename(const QString& path)
{
    m_filename = path;
    updateWindowTitle();
}

void HVPythonTextEdit::execute()
{
    Q_EMIT sendActionToMdi(this, this, QStringLiteral("EXECUTE_PYTHON_IN_EDITOR"));
}

void HVPythonTextEdit::errorDetected(std::string filename, std::string /*function*/, long line)
{
    // A script without a file is compiled under a name in angle brackets.
    const QString failed = QString::fromStdString(filename);
    if (line < 1 || (m_filename.isEmpty() ? !failed.startsWith(QLatin1Char('<')) : failed != m_filename))
        return;
    m_errorLine = line;
    const QTextBlock block = document()->findBlockByNumber(static_cast<int>(line) - 1);
    if (block.isValid())
        setTextCursor(QTextCursor(block));
    ensureCursorVisible();
    highlightLines();
}

void HVPythonTextEdit::clearErrors()
{
    m_errorLine = -1;
    highlightLines();
}

void HVPythonTextEdit::highlightLines()
{
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    QList<QTextEdit::ExtraSelection> lines;
    const auto mark = [&](const QTextCursor& cursor, const QColor& colour) {
        QTextEdit::ExtraSelection line;
        line.cursor = cursor;
        line.cursor.clearSelection();
        line.format.setBackground(colour);
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        lines.append(line);
    };
    mark(textCursor(), dark ? QColor(0x2d333b) : QColor(0xfff8dc));
    if (m_errorLine > 0)
        mark(QTextCursor(document()->findBlockByNumber(static_cast<int>(m_errorLine) - 1)),
             dark ? QColor(0x5c2b2e) : QColor(0xffd6d6));
    setExtraSelections(lines);
}

void HVPythonTextEdit::updateWindowTitle()
{
    QString title = m_filename.isEmpty() ? QStringLiteral("Python Editor") : QFileInfo(m_filename).fileName();
    if (document()->isModified())
        title += QStringLiteral(" [EDITED] ");
    setWindowTitle(title);
}

void HVPythonTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Save))
        saveToFile();
    else if (event->key() == Qt::Key_F8 && event->modifiers() == Qt::NoModifier)
        execute();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void HVPythonTextEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        highlightLines();
}

void HVPythonTextEdit::closeEvent(QCloseEvent* event)
{
    if (!document()->isModified()) {
        event->accept();
        return;
    }
    const auto answer = QMessageBox::question(
        this, QStringLiteral("Python"),
        QStringLiteral("This editor contains unsaved changes. Save these changes before closing?"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    const bool close =
        answer == QMessageBox::No || (answer == QMessageBox::Yes && saveToFile() && QFileInfo::exists(m_filename));
    event->setAccepted(close);
}
