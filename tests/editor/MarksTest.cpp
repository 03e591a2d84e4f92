// The gutter, breakpoints, and the marks of lines.
#include "tests/editor/EditorFixture.h"

#include <QApplication>
#include <QInputDialog>
#include <QMenu>
#include <QPointer>
#include <QTimer>

namespace {

class Marks : public fixture::EditorTest
{
protected:
    Marks()
    {
        const auto note = [this](const QString& sign) {
            return [this, sign](const QString& file, int line) {
                log += QStringLiteral("%1%2:%3 ").arg(sign, file).arg(line).toStdString();
            };
        };
        QObject::connect(&view, &HVPythonTextEdit::breakpointAdded, &listener, note(QStringLiteral("+")));
        QObject::connect(&view, &HVPythonTextEdit::breakpointRemoved, &listener, note(QStringLiteral("-")));
    }
    void clickGutter(int line, Qt::MouseButton button = Qt::LeftButton)
    {
        const QTextCursor at(view.document()->findBlockByNumber(line - 1));
        QWidget* gutter = view.childAt(view.contentsRect().topLeft() + QPoint(2, 40));
        QTest::mouseClick(gutter, button, {}, {4, view.cursorRect(at).center().y()});
    }
    std::string takeLog() { return std::exchange(log, {}); }
    void edit(int line, int column, int toLine, int toColumn, const char* replacement)
    {
        QTextCursor c(view.document()->findBlockByNumber(line - 1));
        c.setPosition(c.position() + column);
        c.setPosition(view.document()->findBlockByNumber(toLine - 1).position() + toColumn, QTextCursor::KeepAnchor);
        c.insertText(QString::fromUtf8(replacement));
    }
    std::string lines() const
    {
        std::string all;
        for (const int line : view.breakpoints())
            all += QStringLiteral("%1 ").arg(line).toStdString();
        return all;
    }
    std::string log;
    QObject listener; // goes before the log, for the editor clears its breakpoints when it goes
};

TEST_F(Marks, theGutterIsAsWideAsItsNumbers)
{
    const int digit = view.fontMetrics().horizontalAdvance('9');
    setText("");
    EXPECT_EQ(view.lineNumberAreaWidth(), 9 + digit);
    setText("1\n2\n3\n4\n5\n6\n7\n8\n9");
    EXPECT_EQ(view.lineNumberAreaWidth(), 9 + digit);
    key(Qt::Key_Return);
    EXPECT_EQ(view.lineNumberAreaWidth(), 9 + 2 * digit);
    EXPECT_EQ(view.viewport()->x() - view.contentsRect().x(), 9 + 2 * digit);
}

TEST_F(Marks, clicksSetAndRemoveBreakpointsWhichArePainted)
{
    clickGutter(3);
    EXPECT_EQ(takeLog(), "+:3 ");
    const auto gutterColour = [&](int line) {
        const int y = view.cursorRect(QTextCursor(view.document()->findBlockByNumber(line - 1))).top() + 2;
        return view.grab().toImage().pixelColor(view.contentsRect().left() + 1, y).name();
    };
    EXPECT_EQ(gutterColour(3), QStringLiteral("#ff0000"));
    EXPECT_EQ(gutterColour(2), QColor(Qt::lightGray).name());
    view.breakpointHit(3);
    EXPECT_EQ(gutterColour(3), QStringLiteral("#00ff00"));
    view.breakpointHit(-1);
    clickGutter(3);
    EXPECT_EQ(takeLog(), "-:3 ");
    key(Qt::Key_F9);
    EXPECT_EQ(lines(), "3 ") << "where the cursor is";
    fixture::write(path, "x\n");
    ASSERT_TRUE(view.loadFile(path));
    EXPECT_EQ(lines(), "");
    clickGutter(1);
    takeLog();
    view.clearBreakpoints();
    EXPECT_EQ(takeLog(), QStringLiteral("-%1:1 ").arg(path).toStdString());
}

TEST_F(Marks, breakpointsStayWithTheirLines)
{
    setText("1\n2\n3\n4\n5\n6\n7");
    for (const int line : {2, 4, 6})
        view.toggleBreakpoint(line);
    edit(2, 0, 2, 0, "new\n"); // at the line's start: the line moves
    EXPECT_EQ(lines(), "3 5 7 ");
    edit(3, 1, 3, 1, "\nnew"); // at its end: the line stays
    EXPECT_EQ(lines(), "3 6 8 ");
    view.undo();
    view.undo();
    EXPECT_EQ(lines(), "2 4 6 ");
    takeLog();
    edit(3, 0, 5, 0, ""); // lines 3 and 4
    EXPECT_EQ(lines(), "2 4 ");
    EXPECT_EQ(takeLog(), "-:6 ");
    edit(1, 1, 2, 0, ""); // line 2 joins line 1
    EXPECT_EQ(lines(), "3 ");
    takeLog();
    view.setFilename(QStringLiteral("/n.py"));
    EXPECT_EQ(takeLog(), "-:3 +/n.py:3 ") << "the debugger knows them by file";
}

TEST_F(Marks, settingsOfBreakpointsMoveWithThemAndUndoBringsThemBack)
{
    const debugger::BreakpointSettings usual, off{.enabled = false, .condition = {}},
        picky{.condition = QStringLiteral("i > 1")};
    std::string changed;
    QObject::connect(&view, &HVPythonTextEdit::breakpointChanged, [&](const QString& file, int line) {
        changed += QStringLiteral("%1:%2 ").arg(file).arg(line).toStdString();
    });
    setText("1\n2\n3\n4\n5\n6\n7");
    for (const int line : {2, 3, 6})
        view.toggleBreakpoint(line);
    view.setBreakpointSettings(2, off);
    view.setBreakpointSettings(3, picky);
    view.setBreakpointSettings(4, picky);
    EXPECT_EQ(std::exchange(changed, {}), ":2 :3 ") << "there is none at line 4";
    takeLog();
    edit(1, 0, 1, 0, "new\n");
    EXPECT_EQ(takeLog(), "-:2 -:6 +:4 +:7 ");
    EXPECT_EQ(std::exchange(changed, {}), ":3 :4 ");
    EXPECT_EQ(view.breakpointSettings(3), off);
    EXPECT_EQ(view.breakpointSettings(4), picky);
    EXPECT_EQ(view.breakpointSettings(7), usual);
    view.setFilename(QStringLiteral("/n.py"));
    EXPECT_EQ(std::exchange(changed, {}), "/n.py:3 /n.py:4 ");

    // What an edit takes away, Undo and Redo give back, by single steps and over several.
    edit(3, 0, 5, 0, "");
    EXPECT_EQ(lines(), "5 ");
    edit(4, 1, 5, 0, "");
    EXPECT_EQ(lines(), "");
    view.undo();
    EXPECT_EQ(lines(), "5 ");
    view.undo();
    EXPECT_EQ(lines(), "3 4 7 ");
    EXPECT_EQ(view.breakpointSettings(3), off);
    EXPECT_EQ(view.breakpointSettings(4), picky);
    view.redo();
    EXPECT_EQ(lines(), "5 ");
    view.undo();
    view.undo();
    EXPECT_EQ(text(), "1\n2\n3\n4\n5\n6\n7");
    EXPECT_EQ(lines(), "2 3 6 ");
    view.goToLine(2);
    key(Qt::Key_End);
    key(Qt::Key_Return);
    key(Qt::Key_F9);
    view.setBreakpointSettings(3, picky);
    view.undo();
    EXPECT_EQ(lines(), "2 3 6 ") << "the new line has gone";
    view.redo();
    EXPECT_EQ(lines(), "2 3 4 7 ");
    EXPECT_EQ(view.breakpointSettings(3), picky);
}

TEST_F(Marks, breakpointsThatUndoTookAwayStayAwayAfterAnotherEdit)
{
    setText("1\n2\n3");
    edit(3, 1, 3, 1, "\nnew");
    view.toggleBreakpoint(4);
    view.undo();
    EXPECT_EQ(lines(), "");
    edit(3, 1, 3, 1, "\nother");
    EXPECT_EQ(lines(), "");
    view.undo();
    view.redo();
    EXPECT_EQ(lines(), "");
    // A text that is set anew is no Undo.
    view.toggleBreakpoint(2);
    edit(1, 0, 3, 0, "");
    EXPECT_EQ(lines(), "");
    setText("1\n2\n3\n4");
    EXPECT_EQ(lines(), "");
}

TEST_F(Marks, theGuttersRightButtonOpensAMenuAndRemovesNothing)
{
    const auto menu = [this] {
        clickGutter(3, Qt::RightButton);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    };
    const auto choose = [&](const char* name) {
        const QPointer<QMenu> shown = menu();
        ASSERT_TRUE(shown);
        const QList<QAction*> actions = shown->actions();
        const auto chosen = std::find_if(actions.begin(), actions.end(),
                                         [&](const QAction* action) { return action->text() == QLatin1String(name); });
        ASSERT_NE(chosen, actions.end());
        (*chosen)->trigger();
        if (shown) // a dialog closes it
            shown->close();
    };
    QMenu* shown = menu();
    ASSERT_TRUE(shown);
    QStringList entries;
    for (const QAction* action : shown->actions())
        entries << (action->isEnabled() ? action->text() : QLatin1Char('-') + action->text());
    EXPECT_EQ(entries.join('|').toStdString(), "Toggle Breakpoint|Condition...|-Enabled|-Remove Breakpoint");
    shown->close();
    EXPECT_EQ(takeLog(), "");
    choose("Toggle Breakpoint");
    EXPECT_EQ(takeLog(), "+:3 ");
    choose("Enabled");
    EXPECT_FALSE(view.breakpointSettings(3).enabled);
    EXPECT_EQ(takeLog(), "");
    choose("Remove Breakpoint");
    EXPECT_EQ(takeLog(), "-:3 ");
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&] {
        if (auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
            dialog->setTextValue(QStringLiteral(" i == 2 "));
            dialog->accept();
        }
    });
    answer.start(1);
    choose("Condition...");
    EXPECT_EQ(takeLog(), "+:3 ");
    EXPECT_EQ(view.breakpointSettings(3).condition, QStringLiteral("i == 2"));
}

TEST_F(Marks, errorAndPausedLineStandOutUntilTheyAreOver)
{
    setText("1\n2\n3\n4\n5\n6\n7");
    view.goToLine(1);
    view.errorDetected("any file.py", "f", 5);
    EXPECT_EQ(marks(), "#ffffcc@6 #ff7f7f@5") << "the cursor is below the marked line";
    EXPECT_EQ(cursor(), "6:0");
    view.breakpointHit(2);
    EXPECT_EQ(marks(),
              QStringLiteral("#ffffcc@2 %1@2 #ff7f7f@5").arg(QColor(Qt::green).lighter(160).name()).toStdString());
    view.breakpointHit(-1);
    view.errorDetected("", "", 7);
    EXPECT_EQ(cursor(), "7:0") << "there is no line below the last";
    type("x");
    EXPECT_EQ(marks(), "#ffffcc@7") << "typing ends the mark";
    view.errorDetected("", "", 3);
    view.errorDetected("", "", -1);
    EXPECT_EQ(marks(), "#ffffcc@4");

    setText("def f():\n    return 1 / 0\nx = 1\nf()\n");
    EXPECT_FALSE(run());
    EXPECT_EQ(marks(), "#ffffcc@3 #ff7f7f@2");
    setText("x = 1\n)\n");
    EXPECT_FALSE(run());
    EXPECT_EQ(marks().substr(0, 20), "#ffffcc@3 #ff7f7f@2");
    setText("x = 1\n");
    EXPECT_TRUE(run());
    EXPECT_EQ(marks(), "#ffffcc@2");
}

TEST_F(Marks, bracketsAreMarkedInPairs)
{
    setText("f(a['(', \")\"], # )\n  b)");
    EXPECT_EQ(marks(), "#ffffcc@2 #b4d8f7=) #b4d8f7=(");
    view.goToLine(1);
    EXPECT_EQ(marks(), "#ffffcc@1");
    setText("(]");
    EXPECT_EQ(marks(), "#ffffcc@1 #ff9d9d=]");
}

TEST_F(Marks, darkPalettesGetReadableColours)
{
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(0x2d3238), QColor(0x262a30));
    dark.setColor(QPalette::Base, QColor(0x181b1f));
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    EXPECT_EQ(view.palette().color(QPalette::Base), QColor(0x181b1f));
    for (const QTextLayout::FormatRange& range : view.document()->begin().layout()->formats())
        EXPECT_GT(range.format.foreground().color().lightness(), 128);
    EXPECT_LT(view.extraSelections().value(0).format.background().color().lightness(), 80);
    QApplication::setPalette(light);
    EXPECT_EQ(view.palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(view.palette().color(QPalette::Text), QColor(Qt::black));
}

} // namespace
