// Typing: lines, indentation, comments, font.
#include "tests/editor/EditorFixture.h"

#include <QAction>
#include <QSettings>

namespace {

using Keys = fixture::EditorTest;

TEST_F(Keys, newLinesKeepAndChangeTheIndentation)
{
    setText("");
    type("def f(a):");
    key(Qt::Key_Return);
    type("if a: # why");
    key(Qt::Key_Return);
    type("return a[1:2]");
    key(Qt::Key_Enter);
    type("pass");
    key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(text(), "def f(a):\n    if a: # why\n        return a[1:2]\n    pass") << "Shift+Return is swallowed";
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), "def f(a):\n    if a: # why\n        return a[1:2]") << "line and indentation go together";
    setText("if x:\n\ty = 1");
    key(Qt::Key_Return);
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), "if x:\n\ty = 1\n\t\t") << "a file with tabs goes on with tabs";
    setText("x");
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), "x\t");
    setText("if x:\n  y = 1\n ");
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), "if x:\n  y = 1\n  ");
}

TEST_F(Keys, linesAreIndentedCommentedMovedAndDoubled)
{
    setText("a\n\n  b\nc\n");
    select(1, 3);
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), "  a\n\n    b\nc\n");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    key(Qt::Key_BracketLeft, Qt::ControlModifier);
    EXPECT_EQ(text(), "a\n\nb\nc\n");
    view.undo();
    EXPECT_EQ(text(), "a\n\n  b\nc\n");

    select(1, 4);
    key(Qt::Key_Slash, Qt::ControlModifier);
    EXPECT_EQ(text(), "# a\n\n#   b\n# c\n");
    const QString selected = view.textCursor().selectedText();
    key(Qt::Key_Slash, Qt::ControlModifier);
    key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(view.textCursor().selectedText(), selected);
    key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(text(), "a\n\n  b\nc\n") << "twice is no change";
    setText("#a\n# b\nc");
    select(1, 2);
    key(Qt::Key_Slash, Qt::ControlModifier);
    EXPECT_EQ(text(), "a\nb\nc");

    setText("a\nbb\nccc");
    select(1, 2);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(text(), "ccc\na\nbb");
    EXPECT_EQ(view.textCursor().selectedText(), QStringLiteral("a\u2029bb"));
    key(Qt::Key_Down, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(text(), "a\nbb\nccc");
    EXPECT_EQ(view.textCursor().selectedText(), QStringLiteral("a\u2029bb"));
    view.goToLine(2);
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(text(), "a\nbb\nbb\nccc");
    EXPECT_EQ(cursor(), "3:0");
    view.goToLine(99);
    EXPECT_EQ(cursor(), "4:0");
}

TEST_F(Keys, executeAsksTheMainWindowAndZoomIsNotKept)
{
    QStringList actions;
    QObject::connect(&view, &HVPythonTextEdit::sendActionToMdi,
                     [&](QObject* sender, QObject* target, const QString& a) {
                         EXPECT_EQ(sender, &view);
                         EXPECT_EQ(target, &view);
                         actions << a;
                     });
    key(Qt::Key_F8);
    EXPECT_EQ(actions, QStringList(QStringLiteral("EXECUTE_PYTHON_IN_EDITOR")));

    const int size = view.font().pointSize();
    const qreal tab = view.tabStopDistance();
    EXPECT_EQ(tab, 2 * view.fontMetrics().horizontalAdvance(' '));
    key(Qt::Key_Plus, Qt::ControlModifier);
    QWheelEvent wheel(QPointF(9, 9), QPointF(9, 9), {}, {0, 120}, {}, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_EQ(view.font().pointSize(), size + 2);
    key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(view.font().pointSize(), size + 1);
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(view.font().pointSize(), size);
    QSettings().setValue(QStringLiteral("Python/editor-font-size"), 21);
    EXPECT_EQ(HVPythonTextEdit().font().pointSize(), 21);
    QSettings().remove(QStringLiteral("Python"));
}

TEST_F(Keys, aNewEditorIsAsPromised)
{
    EXPECT_EQ(text(), "# -*- coding: utf-8 -*-\n# Press F8 to execute the contents of the editor.\n"
                      "# Execute the 'help()' command to open Strativo's Python documentation\n\n");
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Python Editor"));
    EXPECT_FALSE(view.document()->isModified());
    EXPECT_EQ(cursor(), "5:0") << "where the script begins";
    type("x");
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Python Editor [EDITED] "));
    QStringList actions;
    for (QAction* action : view.editorActions())
        actions << action->text() + QLatin1Char('|') + action->shortcut().toString();
    EXPECT_EQ(actions.join(' ').toStdString(), "Save...|Ctrl+S Execute|F8 Search Strativo Python Documentation...| "
                                               "Search...|Ctrl+Shift+F");
}

} // namespace
