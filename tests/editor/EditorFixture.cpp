#include "tests/editor/EditorFixture.h"

#include "editor/NoticeBar.h"
#include "host/services/HVUserData.h"
#include "module/ModuleFrame.h"
#include "runtime/PythonPaths.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSettings>

#include <memory>

namespace fixture {

namespace {
std::unique_ptr<HVPythonExecutionContext> g_context;
} // namespace

const HVPythonExecutionContext& context()
{
    return *g_context;
}

BoxAnswers::BoxAnswers(std::vector<QMessageBox::StandardButton> answers)
    : m_answers(std::move(answers)), m_timer(startTimer(1))
{}

BoxAnswers::~BoxAnswers()
{
    EXPECT_TRUE(m_answers.empty()) << "fewer questions than expected";
}

void BoxAnswers::timerEvent(QTimerEvent*)
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    asked << box->windowTitle() + QLatin1Char('|') + box->text();
    const auto answer = m_answers.empty() ? QMessageBox::Cancel : m_answers.front();
    if (!m_answers.empty())
        m_answers.erase(m_answers.begin());
    if (QAbstractButton* button = box->button(answer))
        button->click();
    else
        box->reject();
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

EditorTest::EditorTest()
{
    view.show();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
}

void EditorTest::setText(const char* text)
{
    view.setPlainText(QString::fromUtf8(text));
    view.moveCursor(QTextCursor::End);
}

std::string EditorTest::cursor() const
{
    const QTextCursor c = view.textCursor();
    return std::to_string(c.blockNumber() + 1) + ":" + std::to_string(c.positionInBlock());
}

void EditorTest::select(int fromLine, int toLine)
{
    QTextCursor c(view.document()->findBlockByNumber(fromLine - 1));
    c.setPosition(view.document()->findBlockByNumber(toLine - 1).position(), QTextCursor::KeepAnchor);
    c.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    view.setTextCursor(c);
}

std::string EditorTest::marks() const
{
    QStringList names;
    for (const QTextEdit::ExtraSelection& mark : view.extraSelections()) {
        const bool whole = mark.format.boolProperty(QTextFormat::FullWidthSelection);
        names << mark.format.background().color().name() +
                     (whole ? QStringLiteral("@%1").arg(mark.cursor.blockNumber() + 1)
                            : QLatin1Char('=') + mark.cursor.selectedText());
    }
    return names.join(' ').toStdString();
}

bool EditorTest::run()
{
    return context().executePythonCode(view.plainText(), &view, QStringLiteral("script.py"));
}

std::string EditorTest::notice() const
{
    return view.findChild<editor::NoticeBar*>()->sentence().toStdString();
}

} // namespace fixture

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    hv::keepSettingsInUserData();
    QSettings().clear();
    python::utils::setApplicationDirPath(QCoreApplication::applicationDirPath());
    python::installScripting();
    fixture::g_context = std::make_unique<HVPythonExecutionContext>(nullptr);
    const int result = RUN_ALL_TESTS();
    fixture::g_context.reset();
    return result;
}
