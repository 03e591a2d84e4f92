// What the script editor costs: colouring 20,000 lines of Python, a key press among them, a completion. Prints the
// rows of a table; the folder with the Python files is the argument.
#include "editor/CompletionEngine.h"
#include "editor/HVPythonSyntaxHighlighter.h"
#include "editor/HVPythonTextEdit.h"
#include "runtime/HVPythonExecutionContext.h"
#include "runtime/PythonPaths.h"

#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QPlainTextDocumentLayout>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int g_lines = 20'000;
constexpr int g_keys = 30;

/// The definition of the colouring, rule by rule.
class OneAfterTheOther : public HVPythonSyntaxHighlighter
{
public:
    using HVPythonSyntaxHighlighter::HVPythonSyntaxHighlighter;

protected:
    void highlightBlock(const QString& text) override
    {
        for (const Rule& rule : m_rules)
            for (auto match = rule.pattern.globalMatch(text); match.hasNext();) {
                const QRegularExpressionMatch found = match.next();
                setFormat(found.capturedStart(), found.capturedLength(), rule.format);
            }
        setCurrentBlockState(0);
    }

private:
    const std::vector<Rule> m_rules = rules();
};

class Uncoloured : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString&) override {}
};

template <typename Work>
double milliseconds(int rounds, Work work)
{
    double least = 1e9;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer clock;
        clock.start();
        work();
        least = std::min(least, static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return least;
}

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
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        QTextDocument scanned, ruled;
        for (QTextDocument* document : {&scanned, &ruled}) {
            document->setDocumentLayout(new QPlainTextDocumentLayout(document));
            document->setPlainText(text);
        }
        HVPythonSyntaxHighlighter scanner(&scanned);
        OneAfterTheOther rules(&ruled);
        scanner.rehighlight();
        rules.rehighlight();
        lines += scanned.blockCount();
        for (QTextBlock a = scanned.begin(), b = ruled.begin(); a.isValid(); a = a.next(), b = b.next())
            different += a.layout()->formats() != b.layout()->formats() ? 1 : 0;
    }
    return different;
}

void measureKeys(const QString& text, const char* name)
{
    HVPythonTextEdit view;
    view.resize(900, 700);
    view.show();
    if (!QTest::qWaitForWindowActive(&view))
        return;
    row((std::string("showing ") + name).c_str(), milliseconds(3, [&] {
            view.setPlainText(text);
            QCoreApplication::processEvents();
        }));
    view.goToLine((view.blockCount() + 1) / 2);
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
    QStringList files;
    for (QDirIterator it(QString::fromLocal8Bit(argv[argc - 1]), {QStringLiteral("*.py")}, QDir::Files,
                         QDirIterator::Subdirectories);
         it.hasNext();)
        files << it.next();
    files.sort();
    QString text;
    for (const QString& path : qAsConst(files)) {
        QFile file(path);
        if (text.count(QLatin1Char('\n')) < g_lines && file.open(QIODevice::ReadOnly))
            text += QString::fromUtf8(file.readAll());
    }
    text = text.section(QLatin1Char('\n'), 0, g_lines - 1);

    std::printf("| | time | |\n|---|---|---|\n");
    row("colouring 20,000 lines", colouring<HVPythonSyntaxHighlighter>(text, 9));
    row("the same without colours", colouring<Uncoloured>(text, 9), "Qt's own part");
    row("the same, 107 rules one after the other", colouring<OneAfterTheOther>(text, 3));
    measureKeys(text, "20,000 lines");
    measureKeys(text.repeated(5), "100,000 lines");
    measureKeys(QStringLiteral("x = [") + QStringLiteral("'a', 1, ").repeated(125'000) + QLatin1Char(']'),
                "one line of 1 MB");
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
