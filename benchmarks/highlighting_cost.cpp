// Colouring 20,000 lines of Python beside KSyntaxHighlighting, in turns. Prints the rows of a table; the folder with
// the Python files is the argument.
#include "benchmarks/EditorBenchmark.h"
#include "editor/HVPythonSyntaxHighlighter.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextLayout>

#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/SyntaxHighlighter>
#include <KSyntaxHighlighting/Theme>
#include <cstdio>
#include <functional>
#include <memory>

using benchmark::milliseconds;

namespace {

constexpr int g_rounds = 9;

using MakeHighlighter = std::function<QSyntaxHighlighter*(QTextDocument*)>;

/// One plain text window with one highlighter, ready to be measured.
struct View
{
    explicit View(const MakeHighlighter& make) : highlighter(make(window.document()))
    {
        window.setLineWrapMode(QPlainTextEdit::NoWrap);
        window.resize(900, 700);
    }

    void colour() { highlighter->rehighlight(); }
    void show(const QString& text)
    {
        window.setPlainText(text);
        window.show();
        window.repaint();
        QCoreApplication::processEvents();
    }
    int colouredLines() const
    {
        int lines = 0;
        for (QTextBlock line = window.document()->begin(); line.isValid(); line = line.next())
            lines += line.layout()->formats().isEmpty() ? 0 : 1;
        return lines;
    }

    QPlainTextEdit window;
    QSyntaxHighlighter* highlighter;
};

struct Times
{
    double colour = 1e9;
    double show = 1e9;
    int colouredLines = 0;
};

void measure(const MakeHighlighter& make, const QString& text, Times& least)
{
    View view(make);
    least.show = std::min(least.show, milliseconds(1, [&] { view.show(text); }));
    least.colour = std::min(least.colour, milliseconds(1, [&] { view.colour(); }));
    least.colouredLines = view.colouredLines();
}

void row(const char* what, double ours, double theirs)
{
    std::printf("| %s | %.2f | %.2f | %.2f |\n", what, ours, theirs, ours / theirs);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString text = benchmark::firstLines(benchmark::pythonFiles(QString::fromLocal8Bit(argv[argc - 1])));
    KSyntaxHighlighting::Repository repository;
    const KSyntaxHighlighting::Definition python = repository.definitionForName(QStringLiteral("Python"));
    const MakeHighlighter makeOurs = [](QTextDocument* document) { return new HVPythonSyntaxHighlighter(document); };
    const MakeHighlighter makeTheirs = [&](QTextDocument* document) {
        auto* highlighter = new KSyntaxHighlighting::SyntaxHighlighter(document);
        highlighter->setTheme(repository.defaultTheme());
        highlighter->setDefinition(python);
        return highlighter;
    };
    if (!python.isValid() || text.isEmpty())
        return 1;

    Times ours;
    Times theirs;
    for (int round = 0; round < g_rounds; ++round) {
        measure(makeOurs, text, ours);
        measure(makeTheirs, text, theirs);
    }
    std::printf("| ms | Strativo | KSyntaxHighlighting | Strativo / KSyntaxHighlighting |\n|---|---|---|---|\n");
    row("colouring the whole document", ours.colour, theirs.colour);
    row("setting the text, until it is shown in colours", ours.show, theirs.show);
    std::printf("\nLines with colours: %d and %d.\n", ours.colouredLines, theirs.colouredLines);
    return ours.colouredLines > 0 && theirs.colouredLines > 0 ? 0 : 1;
}
