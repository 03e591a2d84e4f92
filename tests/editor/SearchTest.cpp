// The search bar and replacing.
#include "editor/HVPythonReplaceWidget.h"
#include "editor/HVPythonTextSearchWidget.h"
#include "tests/editor/EditorFixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

namespace {

class Search : public fixture::EditorTest
{
protected:
    Search()
    {
        setText("one two\nTwo one\ntwo");
        view.goToLine(1);
    }
    void setCursor(int atLine, int column)
    {
        view.setTextCursor(QTextCursor(view.document()->findBlockByNumber(atLine - 1)));
        for (int i = 0; i < column; ++i)
            view.moveCursor(QTextCursor::NextCharacter);
    }
    void openBar() { key(Qt::Key_F, Qt::ControlModifier); }

    HVPythonTextSearchWidget* bar = view.findChild<HVPythonTextSearchWidget*>();
    QLineEdit* line = bar->findChild<QLineEdit*>();
};

TEST_F(Search, typingMarksAllMatchesAndReturnWalksThem)
{
    openBar();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral("two"));
    EXPECT_EQ(marks(), "#ffffcc@1 #0000ff=two #a0a0a4=Two #a0a0a4=two");
    EXPECT_EQ(cursor(), "1:7");
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(marks(), "#ffffcc@2 #a0a0a4=two #0000ff=Two #a0a0a4=two");
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(cursor(), "3:3") << "no way round the end";
    QTest::keyClick(line, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(cursor(), "2:3");
    view.resize(view.width() + 60, view.height());
    EXPECT_EQ(bar->geometry().right(), view.verticalScrollBar()->mapTo(&view, {-1, 0}).x());
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(view.hasFocus());
    key(Qt::Key_F3);
    key(Qt::Key_F3);
    EXPECT_EQ(cursor(), "1:7") << "F3 goes round";
    key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(cursor(), "3:3");
    openBar();
    line->clear();
    EXPECT_EQ(marks(), "#ffffcc@3");
    QTest::keyClicks(line, QStringLiteral("zero"));
    EXPECT_EQ(marks(), "#ffffcc@3");
}

TEST_F(Search, hidingTheBarKeepsTheMatches)
{
    openBar();
    QTest::keyClicks(line, QStringLiteral("two"));
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(marks(), "#ffffcc@1 #0000ff=two #a0a0a4=Two #a0a0a4=two");
    key(Qt::Key_Escape);
    EXPECT_EQ(marks(), "#ffffcc@1 #0000ff=two #a0a0a4=Two #a0a0a4=two");
    // They stay with their text, and changed lines are searched anew.
    setCursor(1, 0);
    type("to ");
    EXPECT_EQ(marks(), "#ffffcc@1 #0000ff=two #a0a0a4=Two #a0a0a4=two");
    setCursor(1, 1);
    type("w");
    EXPECT_EQ(marks(), "#ffffcc@1 #a0a0a4=two #0000ff=two #a0a0a4=Two #a0a0a4=two");
    key(Qt::Key_F3);
    EXPECT_EQ(cursor(), "1:11");
    setCursor(2, 1);
    key(Qt::Key_Return);
    EXPECT_EQ(marks(), "#ffffcc@3 #a0a0a4=two #0000ff=two #a0a0a4=two");
    view.undo();
    EXPECT_EQ(marks(), "#ffffcc@2 #a0a0a4=two #0000ff=two #a0a0a4=Two #a0a0a4=two");
}

TEST_F(Search, ofVeryManyMatchesAllAreMarkedWhereTheyAreShown)
{
    const int lines = 30'000;
    setText((QStringLiteral("ab ab\n").repeated(lines) + QStringLiteral("ab").repeated(lines)).toUtf8().constData());
    openBar();
    line->setText(QStringLiteral("ab"));
    const auto shownAreMarked = [&](int of) {
        std::set<int> marked;
        for (const QTextEdit::ExtraSelection& mark : view.extraSelections())
            if (mark.cursor.selectedText() == QStringLiteral("ab"))
                marked.insert(mark.cursor.selectionStart());
        const QRect seen = view.viewport()->rect();
        const QString all = view.toPlainText();
        int shown = 0;
        for (const int y : {seen.top() + 2, seen.center().y(), seen.bottom() - 2}) {
            const int from = view.cursorForPosition({seen.left(), y}).position();
            const int to = view.cursorForPosition({seen.right(), y}).position();
            for (int at = all.indexOf(line->text(), from); at >= 0 && at < to; at = all.indexOf(line->text(), at + 1)) {
                EXPECT_EQ(marked.count(at), 1u) << at;
                ++shown;
            }
        }
        EXPECT_GE(shown, of);
        EXPECT_LT(marked.size(), 2000u) << "marks cost time at each painting";
    };
    shownAreMarked(4);
    view.verticalScrollBar()->setValue(lines / 2);
    shownAreMarked(6);
    QTextCursor start(view.document());
    start.insertText(QStringLiteral("x\nxx"));
    shownAreMarked(6);
    view.resize(view.width() + 100, view.height() + 200);
    QCoreApplication::processEvents();
    shownAreMarked(6);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum() / 2);
    shownAreMarked(8);
}

TEST_F(Search, aNoBreakSpaceIsABlank)
{
    setText("a\xc2\xa0"
            "b\na b");
    openBar();
    QTest::keyClicks(line, QStringLiteral("a b"));
    EXPECT_EQ(marks(), "#ffffcc@1 #0000ff=a\xc2\xa0"
                       "b #a0a0a4=a b");
    key(Qt::Key_H, Qt::ControlModifier);
    auto* replace = view.findChild<HVPythonReplaceWidget*>();
    Q_EMIT replace->replaceRequested(QStringLiteral("1"));
    EXPECT_EQ(text(), "1\na b");
    view.undo();
    Q_EMIT replace->replaceAllRequested(QStringLiteral("2"));
    EXPECT_EQ(text(), "2\n2");
    setText("a\xc2\xa0"
            "b\na b");
    line->setText(QStringLiteral("a\u00a0b"));
    EXPECT_EQ(marks(), "#ffffcc@2") << "as the toolkit's own search";
}

TEST_F(Search, replacesOneAndAllAsOneStep)
{
    key(Qt::Key_H, Qt::ControlModifier);
    QTest::keyClicks(line, QStringLiteral("two"));
    auto* replace = view.findChild<HVPythonReplaceWidget*>();
    ASSERT_TRUE(replace->isVisible());
    EXPECT_GE(replace->y(), bar->geometry().bottom());
    auto* with = replace->findChild<QLineEdit*>();
    QTest::keyClicks(with, QStringLiteral("twotwo"));
    QTest::keyClick(with, Qt::Key_Return);
    EXPECT_EQ(text(), "one twotwo\nTwo one\ntwo");
    EXPECT_EQ(cursor(), "2:3");
    QTest::mouseClick(replace->findChildren<QPushButton*>().last(), Qt::LeftButton);
    EXPECT_EQ(text(), "one twotwotwotwo\ntwotwo one\ntwotwo");
    EXPECT_EQ(notice(), "4 place(s) replaced. Undo takes all of them back.");
    view.undo();
    EXPECT_EQ(text(), "one twotwo\nTwo one\ntwo");
    // More places than are marked at once, and the search text within its replacement.
    view.setPlainText(QStringLiteral("a").repeated(60'000));
    line->setText(QStringLiteral("A"));
    Q_EMIT replace->replaceAllRequested(QStringLiteral("aa"));
    EXPECT_EQ(view.plainText().size(), 120'000);
}

} // namespace
