#include "editor/HVPythonTextEdit.h"

#include "editor/Completion.h"
#include "editor/FileWatch.h"
#include "editor/HVPythonLineNumberArea.h"
#include "editor/HVPythonSyntaxHighlighter.h"
#include "editor/NoticeBar.h"
#include "editor/RecoveryCopy.h"
#include "editor/Search.h"
#include "editor/ShiftEnterFilter.h"
#include "host/services/HVIconStore.h"
#include "runtime/HVPythonDocumentation.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDomDocument>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>

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
    : QPlainTextEdit(parent), m_highlighter(new HVPythonSyntaxHighlighter(document()))
{
    setLineWrapMode(NoWrap);
    setPlainText(g_defaultText);
    moveCursor(QTextCursor::End);
    m_breakpoints = new editor::BreakpointLines(*document(), this);
    document()->setModified(false);
    installEventFilter(new ShiftEnterFilter(this));
    m_lineNumberArea = new HVPythonLineNumberArea(this);
    m_notice = new editor::NoticeBar(this);
    m_search = std::make_unique<editor::Search>(*this, *m_notice);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFocus();

    applyColours();
    setWindowIcon(HVIconStore::icon(QStringLiteral("pythoneditor24")));
    setWindowTitle(QStringLiteral("Python Editor"));
    setMinimumSize(500, 300);
    setCenterOnScroll(true);
    applyFont(settingsFont());

    m_watch = std::make_unique<editor::FileWatch>();
    m_recovery = std::make_unique<editor::RecoveryCopy>([this] {
        return editor::UnsavedText{m_filename, plainText()};
    });
    makeActions();
    connectSignals();
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

void HVPythonTextEdit::connectSignals()
{
    connect(document(), &QTextDocument::modificationChanged, this, &HVPythonTextEdit::updateWindowTitle);
    connect(m_breakpoints, &editor::BreakpointLines::moved, this, &HVPythonTextEdit::moveMarks);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &HVPythonTextEdit::updateLineNumberAreaWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &HVPythonTextEdit::updateLineNumberArea);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &HVPythonTextEdit::highlightLines);
    connect(this, &QPlainTextEdit::textChanged, this, &HVPythonTextEdit::onTextChanged);
    connect(this, &QPlainTextEdit::textChanged, this, &HVPythonTextEdit::keepUnsavedText);
    connect(document(), &QTextDocument::modificationChanged, this, &HVPythonTextEdit::keepUnsavedText);
    connect(m_watch.get(), &editor::FileWatch::changed, this, &HVPythonTextEdit::reportFileChange);
    connect(m_watch.get(), &editor::FileWatch::readOnlyChanged, this, &HVPythonTextEdit::showWhetherReadOnly);
    connect(m_search.get(), &editor::Search::marksChanged, this, &HVPythonTextEdit::highlightLines);
}

std::vector<QAction*> HVPythonTextEdit::editorActions() const
{
    return {m_saveAction, m_executeAction, m_documentationAction, m_searchAction};
}

void HVPythonTextEdit::updateWindowTitle()
{
    QString title = m_filename.isEmpty() ? QStringLiteral("Python Editor") : QFileInfo(m_filename).fileName();
    if (document()->isModified())
        title += QStringLiteral(" [EDITED] ");
    setWindowTitle(title);
}

void HVPythonTextEdit::execute()
{
    m_completion->dismiss();
    Q_EMIT sendActionToMdi(this, this, QStringLiteral("EXECUTE_PYTHON_IN_EDITOR"));
}

void HVPythonTextEdit::onTextChanged()
{
    if (m_completion) // not under construction
        m_completion->drive();
    if (m_errorLine != -1) {
        m_errorLine = -1;
        highlightLines();
    }
}

bool HVPythonTextEdit::SaveObjectSession(QDomElement& element) const
{
    QDomElement own = element.ownerDocument().createElement(g_sessionElement);
    own.setAttribute(QStringLiteral("filename"), m_filename);
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

void HVPythonTextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QTextCursor under = cursorForPosition(event->pos());
    under.select(QTextCursor::WordUnderCursor);
    const QString word = under.selectedText();
    // A selection that was made to be copied stays.
    const QTextCursor selection = textCursor();
    if (under.position() < selection.selectionStart() || under.anchor() > selection.selectionEnd() ||
        !selection.hasSelection())
        setTextCursor(under);
    m_searchAction->setText(word.isEmpty() ? QStringLiteral("Search...") : QStringLiteral("Search for '%1'").arg(word));
    m_documentationAction->setText(word.isEmpty()
                                       ? QStringLiteral("Search Strativo Python Documentation...")
                                       : QStringLiteral("Search Strativo Python Documentation for '%1'").arg(word));
    m_searchAction->setData(word);
    m_documentationAction->setData(word);

    const QPointer<QMenu> menu = createStandardContextMenu(event->pos());
    QAction* first = menu->actions().value(0);
    menu->insertActions(first, {m_searchAction, m_documentationAction, m_executeAction, m_saveAction});
    menu->insertSeparator(first);
    menu->exec(event->globalPos());
    delete menu; // unless the editor took it along
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
    if (!m_search)
        return; // under construction
    m_search->placeBars();
    const int height = m_notice->sizeHint().height();
    m_notice->setGeometry(viewport()->x(), viewport()->geometry().bottom() + 1 - height, viewport()->width(), height);
}

void HVPythonTextEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_notice)
        applyColours();
}

void HVPythonTextEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    placeBars();
    const QRect contents = contentsRect();
    m_lineNumberArea->setGeometry(contents.left(), contents.top(), lineNumberAreaWidth(), contents.height());
}
