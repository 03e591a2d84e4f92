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
    EXPECT_EQ(marks(), "#ffffcc@2");
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
