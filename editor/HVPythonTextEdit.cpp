#include "editor/HVPythonTextEdit.h"

#include "editor/Completion.h"
#include "editor/EditorColours.h"
#include "editor/HVPythonSyntaxHighlighter.h"
#include "editor/LineEditing.h"
#include "editor/Marks.h"
#include "editor/NoticeBar.h"
#include "editor/ScriptFile.h"
#include "editor/Search.h"
#include "editor/ShiftEnterFilter.h"
#include "host/icons/HVIconStore.h"
#include "runtime/HVPythonDocumentation.h"

#include <QAction>
#include <QApplication>
#include <QDomDocument>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QInputDialog>
#include <QSettings>
#include <QTextBlock>

using editor::Marks;
using editor::ScriptFile;

namespace {

const QString g_defaultText =
    QStringLiteral("# -*- coding: utf-8 -*-\n# Press F8 to execute the contents of the editor.\n"
                   "# Execute the 'help()' command to open Strativo's Python documentation\n\n");
const QString g_sessionElement = QStringLiteral("PythonEditorInternal");

QAction* makeAction(HVPythonTextEdit* editor, const char* icon, const QString& text, const QKeySequence& shortcut)
{
    auto* action = new QAction(HVIconStore::icon(QLatin1String(icon)), text, editor);
    // Shown in menus. The keys are handled by keyPressEvent(): as shortcuts they would compete with the main window's.
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetShortcut);
    if (!shortcut.isEmpty())
        action->setToolTip(QStringLiteral("%1 (%2)").arg(text, shortcut.toString(QKeySequence::NativeText)));
    return action;
}

} // namespace

HVPythonTextEdit::HVPythonTextEdit(QWidget* parent)
    : QPlainTextEdit(parent), m_highlighter(new HVPythonSyntaxHighlighter(document())),
      m_notice(new editor::NoticeBar(this))
{
    setLineWrapMode(NoWrap);
    setPlainText(g_defaultText);
    moveCursor(QTextCursor::End);
    document()->setModified(false);
    installEventFilter(new ShiftEnterFilter(this));
    m_marks = std::make_unique<Marks>(*this);
    m_search = std::make_unique<editor::Search>(*this, *m_notice);
    m_file = std::make_unique<ScriptFile>(*this, *m_notice);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFocus();

    applyColours();
    setWindowIcon(HVIconStore::icon(QStringLiteral("pythoneditor24")));
    setWindowTitle(QStringLiteral("Python Editor"));
    setMinimumSize(500, 300);
    setCenterOnScroll(true);
    applyFont(settingsFont());

    makeActions();
    connectMarks();
    connectFile();
    connect(this, &QPlainTextEdit::textChanged, this, &HVPythonTextEdit::onTextChanged);
    updateLineNumberAreaWidth();
    highlightLines();
    m_completion = std::make_unique<editor::Completion>(*this);
}

HVPythonTextEdit::~HVPythonTextEdit()
{
    clearBreakpoints();
    disconnect(this, &QPlainTextEdit::textChanged, this, nullptr);
    document()->disconnect(this);
}

void HVPythonTextEdit::makeActions()
{
    m_saveAction = makeAction(this, "save24", QStringLiteral("Save..."), QKeySequence::Save);
    m_executeAction = makeAction(this, "pythonrun24", QStringLiteral("Execute"), QStringLiteral("F8"));
    m_searchAction = makeAction(this, "zoommode16", QStringLiteral("Search..."), QStringLiteral("Ctrl+Shift+F"));
    m_documentationAction =
        makeAction(this, "python_doc_24", QStringLiteral("Search Strativo Python Documentation..."), QKeySequence());
    connect(m_saveAction, &QAction::triggered, this, &HVPythonTextEdit::saveToFile);
    connect(m_executeAction, &QAction::triggered, this, &HVPythonTextEdit::execute);
    connect(m_searchAction, &QAction::triggered, this, [this] {
        showSearchBar();
        m_search->setTarget(m_searchAction->data().toString());
    });
    connect(m_documentationAction, &QAction::triggered, this,
            [this] { HVPythonDocumentation::openAndSearchForTargetString(m_documentationAction->data().toString()); });
}

void HVPythonTextEdit::connectMarks()
{
    connect(this, &QPlainTextEdit::blockCountChanged, this, &HVPythonTextEdit::updateLineNumberAreaWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &HVPythonTextEdit::updateLineNumberArea);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &HVPythonTextEdit::highlightLines);
    connect(m_marks.get(), &Marks::lineMarksChanged, this, &HVPythonTextEdit::highlightLines);
    connect(m_search.get(), &editor::Search::marksChanged, this, &HVPythonTextEdit::highlightLines);
    connect(m_marks.get(), &Marks::breakpointAdded, this,
            [this](int line) { Q_EMIT breakpointAdded(filename(), line); });
    connect(m_marks.get(), &Marks::breakpointMade, this, &HVPythonTextEdit::breakpointMade);
    connect(m_marks.get(), &Marks::breakpointRemoved, this,
            [this](int line) { Q_EMIT breakpointRemoved(filename(), line); });
    connect(m_marks.get(), &Marks::breakpointChanged, this,
            [this](int line) { Q_EMIT breakpointChanged(filename(), line); });
}

void HVPythonTextEdit::connectFile()
{
    connect(document(), &QTextDocument::modificationChanged, this, &HVPythonTextEdit::updateWindowTitle);
    connect(m_file.get(), &ScriptFile::stateChanged, this, [this] {
        updateWindowTitle();
        highlightLines();
    });
    connect(m_file.get(), &ScriptFile::aboutToReplaceText, this, [this] {
        clearBreakpoints();
        clearErrors();
    });
    connect(m_file.get(), &ScriptFile::aboutToRename, m_marks.get(), &Marks::withdrawBreakpoints);
    connect(m_file.get(), &ScriptFile::renamed, m_marks.get(), &Marks::announceBreakpoints);
    connect(m_file.get(), &ScriptFile::renamed, this, &HVPythonTextEdit::filenameChanged);
}

std::vector<QAction*> HVPythonTextEdit::editorActions() const
{
    return {m_saveAction, m_executeAction, m_documentationAction, m_searchAction};
}

void HVPythonTextEdit::updateWindowTitle()
{
    QString title = filename().isEmpty() ? QStringLiteral("Python Editor") : QFileInfo(filename()).fileName();
    if (document()->isModified())
        title += QStringLiteral(" [EDITED] ");
    setWindowTitle(title);
}

void HVPythonTextEdit::execute()
{
    m_completion->dismiss();
    Q_EMIT sendActionToMdi(this, this, QStringLiteral("EXECUTE_PYTHON_IN_EDITOR"));
}

bool HVPythonTextEdit::loadFile(const QString& path)
{
    return m_file->load(path);
}

bool HVPythonTextEdit::saveToFile()
{
    return m_file->save();
}

void HVPythonTextEdit::setFilename(const QString& path)
{
    m_file->setPath(path);
}

QString HVPythonTextEdit::filename() const
{
    return m_file->path();
}

bool HVPythonTextEdit::isFileReadOnly() const
{
    return m_file->isReadOnly();
}

void HVPythonTextEdit::keepUnsavedTextNow()
{
    m_file->keepUnsavedNow();
}

void HVPythonTextEdit::restoreUnsaved(const QString& path, const QString& text)
{
    m_file->restoreUnsaved(path, text);
}

QString HVPythonTextEdit::plainText() const
{
    return editor::documentText(*document());
}

bool HVPythonTextEdit::SaveObjectSession(QDomElement& element) const
{
    QDomElement own = element.ownerDocument().createElement(g_sessionElement);
    own.setAttribute(QStringLiteral("filename"), filename());
    own.setAttribute(QStringLiteral("cursorPosition"), textCursor().position());
    element.appendChild(own);
    return true;
}

bool HVPythonTextEdit::LoadObjectSession(const QDomElement& element)
{
    const QDomElement own = element.firstChildElement(g_sessionElement);
    if (own.isNull())
        return false;
    const QString path = own.attribute(QStringLiteral("filename"));
    if (!path.isEmpty() && !loadFile(path))
        return false;
    QTextCursor cursor = textCursor();
    const int position = own.attribute(QStringLiteral("cursorPosition")).toInt();
    cursor.setPosition(qBound(0, position, document()->characterCount() - 1)); // the file may have become shorter
    setTextCursor(cursor);
    ensureCursorVisible();
    return true;
}

void HVPythonTextEdit::onTextChanged()
{
    if (m_completion) // not under construction
        m_completion->drive();
    if (m_marks->hasError())
        clearErrors();
}

void HVPythonTextEdit::errorDetected(std::string /*filename*/, std::string /*function*/, long line)
{
    m_marks->setErrorLine(static_cast<int>(line));
}

void HVPythonTextEdit::clearErrors()
{
    m_marks->setErrorLine(-1);
}

void HVPythonTextEdit::breakpointHit(int line)
{
    m_marks->setPausedLine(line);
}

void HVPythonTextEdit::clearBreakpoints()
{
    m_marks->clearBreakpoints();
}

std::set<qint32> HVPythonTextEdit::breakpoints() const
{
    return m_marks->breakpoints();
}

void HVPythonTextEdit::toggleBreakpoint(int line)
{
    m_marks->toggleBreakpoint(line);
}

debugger::BreakpointSettings HVPythonTextEdit::breakpointSettings(int line) const
{
    return m_marks->breakpointSettings(line);
}

void HVPythonTextEdit::setBreakpointSettings(int line, const debugger::BreakpointSettings& settings)
{
    m_marks->setBreakpointSettings(line, settings);
}

int HVPythonTextEdit::lineNumberAreaWidth() const
{
    return m_marks->lineNumberAreaWidth();
}

void HVPythonTextEdit::updateLineNumberAreaWidth(int /*blockCount*/)
{
    setViewportMargins(lineNumberAreaWidth(), 0, 0, 0);
}

void HVPythonTextEdit::updateLineNumberArea(const QRect& rectangle, int dy)
{
    m_marks->updateLineNumberArea(rectangle, dy);
    if (rectangle.contains(viewport()->rect()))
        updateLineNumberAreaWidth();
}

void HVPythonTextEdit::applyColours()
{
    const editor::EditorColours colours = editor::EditorColours::of(QApplication::palette());
    QPalette own = palette();
    if (own.color(QPalette::Base) != colours.base || own.color(QPalette::Text) != colours.text) {
        own.setColor(QPalette::Base, colours.base);
        own.setColor(QPalette::Text, colours.text);
        setPalette(own);
    }
    m_marks->setLineNumberColour(colours.lineNumber);
    m_highlighter->setDark(colours.dark);
    highlightLines();
}

void HVPythonTextEdit::highlightLines()
{
    setExtraSelections(m_marks->lineMarks() + m_search->marks() + m_marks->bracketMarks());
}

void HVPythonTextEdit::findNext()
{
    m_search->findNext();
}

void HVPythonTextEdit::findPrevious()
{
    m_search->findPrevious();
}

void HVPythonTextEdit::showSearchBar()
{
    m_search->showBar();
}

void HVPythonTextEdit::showReplaceBar()
{
    m_search->showReplaceBar();
}

/// The search bars in the corner, the notice at the foot.
void HVPythonTextEdit::placeBars()
{
    m_search->placeBars();
    const int height = m_notice->sizeHint().height();
    m_notice->setGeometry(viewport()->x(), viewport()->geometry().bottom() + 1 - height, viewport()->width(), height);
}

QFont HVPythonTextEdit::settingsFont()
{
    const QFont system = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const int size = system.pointSize() > 0 ? system.pointSize() : QFontInfo(system).pointSize();
    const QSettings settings;
    QFont font(settings.value(QStringLiteral("Python/editor-font"), system.family()).toString());
    font.setPointSize(settings.value(QStringLiteral("Python/editor-font-size"), size).toInt());
    return font;
}

void HVPythonTextEdit::applyFont(const QFont& chosen)
{
    setFont(chosen);
    setTabStopDistance(2 * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    updateLineNumberAreaWidth();
}

void HVPythonTextEdit::changeFontSize(int delta)
{
    QFont changed = font();
    changed.setPointSize(changed.pointSize() + delta);
    applyFont(changed);
}

void HVPythonTextEdit::toggleComment()
{
    if (!isReadOnly())
        editor::toggleComment(*this);
}

void HVPythonTextEdit::goToLine(int line)
{
    if (line < 1) {
        bool ok = false;
        line = QInputDialog::getInt(this, tr("Go to Line"), tr("Line (1 to %1):").arg(blockCount()),
                                    textCursor().blockNumber() + 1, 1, blockCount(), 1, &ok);
        if (!ok)
            return;
    }
    setTextCursor(m_marks->cursorAtLine(line));
    centerCursor();
    setFocus();
}
