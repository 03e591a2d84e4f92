// Completion: jedi in the interpreter, the thread, and the popup in a real window.
#include "editor/HVPythonCodeCompleter.h"
#include "runtime/GilLock.h"
#include "tests/editor/EditorFixture.h"

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QFile>

namespace {

class Completion : public fixture::EditorTest
{
protected:
    bool python(const char* code)
    {
        return fixture::context().executePythonCode(QString::fromUtf8(code), nullptr, QStringLiteral("test"));
    }
    bool popupComes()
    {
        return QTest::qWaitFor([&] { return completer->popup()->isVisible(); }, 20'000);
    }
    bool settled()
    {
        return QTest::qWaitFor([&] { return !completer->isComputing() && !completer->needsRefresh(); }, 20'000);
    }
    /// Ctrl+Space at the end of `text`, while no earlier request is being answered.
    void ask(const char* text)
    {
        setText(text);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !completer->isComputing(); }, 20'000));
        key(Qt::Key_Space, Qt::ControlModifier);
    }
    QStringList shown() const
    {
        QStringList names;
        for (int row = 0; row < completer->completionModel()->rowCount(); ++row)
            names << completer->completionModel()->index(row, 0).data().toString();
        return names;
    }
    HVPythonCodeCompleter* completer = view.findChild<HVPythonCodeCompleter*>();
};

TEST_F(Completion, theResourceIsWhatItWas)
{
    EXPECT_EQ(
        fixture::contents(QStringLiteral(":/resources/JediAutoComplete.py")),
        QByteArray("#Autocompletion module\r\nimport jedi\r\n\t\r\ndef autoComplete(textToComplete):\r\n"
                   "\tnamespace = locals()\r\n\t\r\n\tinterpreter = jedi.Interpreter(textToComplete, [namespace])\r\n"
                   "\tcompletions = interpreter.completions()\r\n\treturn [x.name for x in completions]\r\n"));
}

TEST_F(Completion, threeLettersAfterADotBringThePopup)
{
    setText("import os\n");
    type("os.");
    ASSERT_TRUE(settled());
    EXPECT_FALSE(completer->popup()->isVisible()) << "the names are there, unasked they are not shown";
    type("pat");
    ASSERT_TRUE(popupComes());
    EXPECT_EQ(shown().join(' ').toStdString(), "path pathconf pathconf_names PathLike pathsep");
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    EXPECT_EQ(text(), "import os\nos.pathconf");
    EXPECT_FALSE(completer->popup()->isVisible());
}

TEST_F(Completion, theRecursionLimitOfScriptsStaysAsItWas)
{
    const python::GilLock lock;
    EXPECT_EQ(Py_GetRecursionLimit(), 1000); // jedi has been imported by the fixture's editor
    ASSERT_NE(PyDict_GetItemString(PyImport_GetModuleDict(), "jedi"), nullptr);
}

TEST_F(Completion, controlSpaceShowsTheNamesWhateverWasTyped)
{
    ask("import os.path\nos.path.");
    ASSERT_TRUE(popupComes());
    EXPECT_TRUE(shown().contains(QStringLiteral("join")));
    completer->popup()->hide();
    Q_EMIT completer->activated(QStringLiteral("join"));
    EXPECT_EQ(text(), "import os.path\nos.path.join") << "the dot stays";
    type(".");
    ASSERT_TRUE(settled());
    ask("import strativo_python\nstrativo_python.");
    ASSERT_TRUE(popupComes());
    EXPECT_TRUE(shown().contains(QStringLiteral("utils"))) << shown().join(' ').toStdString();
    completer->popup()->hide();
    ask("from strativo_python import vec3\nvec3(1, 2, 3).normalize().");
    ASSERT_TRUE(popupComes());
    EXPECT_TRUE(shown().contains(QStringLiteral("normalize"))) << "what a method returns is known from the stubs";
    completer->popup()->hide();
    ask("import colorsys\ncolorsys.hls_to_rgb");
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() == QStringList(QStringLiteral("hls_to_rgb")); }, 20'000));
    QTest::qWait(20);
    EXPECT_FALSE(completer->popup()->isVisible()) << "nothing to add";
}

TEST_F(Completion, afterControlSpaceReturnAndTabTakeTheFirstName)
{
    for (const Qt::Key taking : {Qt::Key_Return, Qt::Key_Tab}) {
        ask("import colorsys\ncolorsys.rgb_to_");
        ASSERT_TRUE(popupComes());
        QTest::keyClick(completer->popup(), taking);
        EXPECT_EQ(text(), "import colorsys\ncolorsys.rgb_to_hls");
        EXPECT_FALSE(completer->popup()->isVisible());
    }
}

TEST_F(Completion, lateAnswersForAnotherPlaceAreDropped)
{
    const auto answered = [&] {
        return QTest::qWaitFor([&] { return !completer->isComputing(); }, 20'000) && (QTest::qWait(20), true);
    };
    // A click elsewhere.
    ask("import os\nx = 1\nos.pat");
    view.goToLine(2);
    ASSERT_TRUE(answered());
    EXPECT_FALSE(completer->popup()->isVisible());
    EXPECT_TRUE(completer->needsRefresh()) << "its names must not be offered here";
    // Typing on to another name; one that should have been shown meanwhile is looked up afterwards.
    ask("import os, colorsys\nos.pat");
    type("h;colorsys.rgb");
    ASSERT_TRUE(popupComes());
    EXPECT_EQ(shown().join(' ').toStdString(), "rgb_to_hls rgb_to_hsv rgb_to_yiq");
    completer->popup()->hide();
    // Typing on in the same name.
    ask("import os\nos.pat");
    type("hc");
    ASSERT_TRUE(popupComes());
    EXPECT_EQ(shown().join(' ').toStdString(), "pathconf pathconf_names");
    completer->popup()->hide();
    // Run, and gone to another window.
    ask("import os\nos.pat");
    key(Qt::Key_F8);
    ASSERT_TRUE(answered());
    EXPECT_FALSE(completer->popup()->isVisible());
    ask("import os\nos.pat");
    view.clearFocus();
    ASSERT_TRUE(answered());
    EXPECT_FALSE(completer->popup()->isVisible());
}

TEST_F(Completion, theListStaysAwayFromCommentsStringsAndWhatWasNotTyped)
{
    for (const char* before : {"import os # os.pa", "x = 'os.pa", "x = 1\n\"\"\"\nimport os\nos.pa", "y = 'a\\\nos.pa",
                               "f'{x}' \"os.pa", "r'\\\\' # os.pa"}) {
        setText(before);
        key(Qt::Key_Right);
        type("t");
        ASSERT_TRUE(settled()) << "the names are computed all the same";
        QTest::qWait(20);
        EXPECT_FALSE(completer->popup()->isVisible()) << before;
        type("h");
        EXPECT_FALSE(completer->popup()->isVisible()) << before;
    }
    for (const char* before :
         {"import os\nx = '#'; os.pa", "import os\n'''a'\nb''' + os.pa", "import os\nx = 'a\nos.pa"}) {
        setText(before);
        key(Qt::Key_Right);
        type("t");
        EXPECT_TRUE(popupComes()) << before;
        key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_FALSE(completer->popup()->isVisible());
    }
    setText("import os\nos.pat");
    EXPECT_FALSE(completer->popup()->isVisible());
    view.insertPlainText(QStringLiteral("h"));
    ASSERT_TRUE(settled());
    QTest::qWait(20);
    EXPECT_FALSE(completer->popup()->isVisible());
    key(Qt::Key_Backspace);
    EXPECT_FALSE(completer->popup()->isVisible());
    type("h");
    ASSERT_TRUE(popupComes());
    QTest::keyClick(completer->popup(), Qt::Key_Backspace);
    EXPECT_TRUE(completer->popup()->isVisible()) << "an open list follows";
    QTest::keyClick(completer->popup(), Qt::Key_F8);
    EXPECT_FALSE(completer->popup()->isVisible());
}

TEST_F(Completion, anEditorThatClosesDoesNotWaitForItsCompletion)
{
    ASSERT_TRUE(python("import jedi, time\n"
                       "def slow(text):\n    global slow_ended\n    try:\n        while True: time.time()\n"
                       "    finally: slow_ended = True\n"
                       "def sleeping(text):\n    time.sleep(2)\n    return ['late']\n"
                       "kept_interpreter = jedi.Interpreter\n"
                       "class Endless:\n    def __init__(self, text, spaces): slow(text)\n"
                       "class Sleeping:\n    def __init__(self, text, spaces): sleeping(text)\n"));
    for (const char* replacement : {"jedi.Interpreter = Endless\n", "jedi.Interpreter = Sleeping\n"}) {
        auto other = std::make_unique<HVPythonTextEdit>();
        auto* slow = other->findChild<HVPythonCodeCompleter*>();
        ASSERT_TRUE(slow->isAvailable());
        ASSERT_TRUE(python(replacement));
        slow->request(QStringLiteral("x."));
        QTest::qWait(100);
        ASSERT_TRUE(slow->isComputing());
        QElapsedTimer clock;
        clock.start();
        other.reset();
        EXPECT_LT(clock.elapsed(), 1000);
        ASSERT_TRUE(python("jedi.Interpreter = kept_interpreter\n"));
    }
    EXPECT_TRUE(python("slow_ended")) << "a computation in Python code is ended";
    // Others go on.
    ask("import os\nos.pat");
    EXPECT_TRUE(popupComes());
}

TEST_F(Completion, aFailureInsideSwitchesItOffForThisEditorAndWhoAsksIsToldOnce)
{
    ASSERT_TRUE(python("import jedi\nkept_interpreter = jedi.Interpreter\njedi.Interpreter = None\n"));
    const fixture::Messages messages;
    view.moveCursor(QTextCursor::End);
    key(Qt::Key_Space, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !completer->isAvailable(); }, 20'000));
    type("abc.def");
    EXPECT_EQ(messages.text, "");
    for (int i = 0; i < 2; ++i)
        key(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(messages.text, "Completion is not available: 'NoneType' object is not callable\n");
    EXPECT_EQ(notice(), "") << "nothing covers the text";
    ASSERT_TRUE(python("jedi.Interpreter = kept_interpreter\n"));
    EXPECT_FALSE(completer->isAvailable());
    EXPECT_TRUE(HVPythonCodeCompleter().isAvailable());

    ASSERT_TRUE(python("import sys\nkept_jedi = sys.modules['jedi']\nsys.modules['jedi'] = None\n"));
    HVPythonTextEdit without;
    auto* none = without.findChild<HVPythonCodeCompleter*>();
    EXPECT_FALSE(none->isAvailable());
    EXPECT_TRUE(none->error().contains(QStringLiteral("jedi"))) << none->error().toStdString();
    QTest::keyClicks(&without, QStringLiteral("os.path"));
    ASSERT_TRUE(python("sys.modules['jedi'] = kept_jedi\n"));
}

} // namespace
