// What the script editor costs: colouring 20,000 lines of Python, a key press among them, a completion. Prints the
// rows of a table; the folder with the Python files is the argument.
#include "benchmarks/EditorBenchmark.h"
#include "editor/CompletionEngine.h"
#include "editor/HVPythonSyntaxHighlighter.h"
#include "editor/HVPythonTextEdit.h"
#include "runtime/HVPythonExecutionContext.h"
#include "runtime/PythonPaths.h"
#include "tests/editor/RuleHighlighter.h"

#include <QApplication>
#include <QPlainTextDocumentLayout>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <cstdio>

using benchmark::milliseconds;

namespace {

constexpr int g_keys = 30;

class Uncoloured : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString&) override {}
};

void row(const char* what, double ms, const char* remark = "")
{
    std::printf("| %s | %.2f ms | %s |\n", what, ms, remark);
    std::fflush(stdout);
}

template <typename Highlighter>
double colouring(const QString& text, int rounds)
{
    QTextDocument document;
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    document.setPlainText(text);
    Highlighter highlighter(&document);
    return milliseconds(rounds, [&] { highlighter.rehighlight(); });
}

/// Lines of all files that the two ways colour differently.
long differences(const QStringList& files, long& lines)
{
    long different = 0;
    for (const QString& path : files) {
        const QString text = benchmark::pythonText(path);
        QTextDocument scanned, ruled;
        for (QTextDocument* document : {&scanned, &ruled}) {
            document->setDocumentLayout(new QPlainTextDocumentLayout(document));
            document->setPlainText(text);
        }
        HVPythonSyntaxHighlighter scanner(&scanned);
        RuleHighlighter rules(&ruled);
        scanner.rehighlight();
        rules.rehighlight();
        lines += scanned.blockCount();
        for (QTextBlock a = scanned.begin(), b = ruled.begin(); a.isValid(); a = a.next(), b = b.next())
            different += a.layout()->formats() != b.layout()->formats() ? 1 : 0;
    }
    return different;
}

template <typename View>
void measureKeys(const QString& text, const char* name)
{
    View view;
    view.setLineWrapMode(QPlainTextEdit::NoWrap);
    view.resize(900, 700);
    view.show();
    if (!QTest::qWaitForWindowActive(&view))
        return;
    row((std::string("showing ") + name).c_str(), milliseconds(3, [&] {
            view.setPlainText(text);
            QCoreApplication::processEvents();
        }));
    view.setTextCursor(QTextCursor(view.document()->findBlockByNumber((view.blockCount() - 1) / 2)));
    view.centerCursor();
    std::vector<double> keys;
    for (int i = 0; i < g_keys; ++i)
        keys.push_back(milliseconds(1, [&] {
            QTest::keyClick(&view, Qt::Key_X);
            view.repaint();
            QCoreApplication::processEvents();
        }));
    std::sort(keys.begin(), keys.end());
    row((std::string("a key press in ") + name).c_str(), keys[keys.size() / 2],
        qPrintable(QStringLiteral("slowest of %1: %2 ms").arg(g_keys).arg(keys.back(), 0, 'f', 2)));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    python::utils::setApplicationDirPath(QCoreApplication::applicationDirPath());
    const HVPythonExecutionContext context(nullptr);
    const QStringList files = benchmark::pythonFiles(QString::fromLocal8Bit(argv[argc - 1]));
    const QString text = benchmark::firstLines(files);

    std::printf("| | time | |\n|---|---|---|\n");
    row("colouring 20,000 lines", colouring<HVPythonSyntaxHighlighter>(text, 9));
    row("the same without colours", colouring<Uncoloured>(text, 9), "Qt's own part");
    row("the same, 107 rules one after the other", colouring<RuleHighlighter>(text, 3));
    measureKeys<HVPythonTextEdit>(text, "20,000 lines");
    measureKeys<HVPythonTextEdit>(text.repeated(5), "100,000 lines");
    const QString line = QStringLiteral("x = [") + QStringLiteral("'a', 1, ").repeated(125'000) + QLatin1Char(']');
    measureKeys<HVPythonTextEdit>(line, "one line of 1 MB");
    measureKeys<QPlainTextEdit>(line, "the same in Qt's own plain text window");
    {
        editor::CompletionEngine engine;
        row("first completion of the process",
            milliseconds(1, [&] { engine.complete(QStringLiteral("import os\nos.")); }), "warmed up in the background");
        row("completion after a dot", milliseconds(9, [&] { engine.complete(QStringLiteral("import os\nos.")); }));
        row("the same, of strativo_python",
            milliseconds(9, [&] { engine.complete(QStringLiteral("from strativo_python import *\nvec3(1, 2, 3).")); }));
        row("the same, numpy", milliseconds(9, [&] { engine.complete(QStringLiteral("import numpy\nnumpy.")); }));
    }
    long lines = 0;
    const long different = differences(files, lines);
    std::printf("\nLines coloured differently from the list of rules: %ld of %ld in %d files.\n", different, lines,
                static_cast<int>(files.size()));
    return different == 0 ? 0 : 1;
}
