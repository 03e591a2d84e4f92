// The scanner against the list of rules that defines the colouring.
#include "tests/editor/RuleHighlighter.h"

#include <QDirIterator>
#include <QFile>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace {

struct Coloured
{
    explicit Coloured(const QString& text)
    {
        for (QTextDocument* document : {&scanned, &ruled}) {
            document->setDocumentLayout(new QPlainTextDocumentLayout(document));
            document->setPlainText(text);
        }
        HVPythonSyntaxHighlighter(&scanned).rehighlight();
        scanner.rehighlight();
        rules.rehighlight();
    }
    QTextDocument scanned, ruled;
    HVPythonSyntaxHighlighter scanner{&scanned};
    RuleHighlighter rules{&ruled};
};

void expectSame(const QString& text, const std::string& name)
{
    const Coloured both(text);
    for (QTextBlock a = both.scanned.begin(), b = both.ruled.begin(); a.isValid(); a = a.next(), b = b.next()) {
        ASSERT_EQ(a.layout()->formats(), b.layout()->formats())
            << name << ":" << a.blockNumber() + 1 << ": " << a.text().toStdString();
        ASSERT_EQ(a.userState(), b.userState());
    }
}

TEST(Highlighter, colourLinesAsTheRulesDo)
{
    // Rules run into each other here.
    expectSame(
        QString::fromUtf8("exec(self.x) # and 'not' @here\nx = \"a # b\" + 'it''s' + \"'\" # \"\n"
                          "'a \"b' c\" d'\n@property 'x' # y\nprint2 _print \xc3\xa4print print\xc3\xa4 2and\n"
                          "\"\"\"open\n'a' \"unclosed 'b' and\nm @ n # not\n''\"\"and'@'\n__import__(chr, char)\n"
                          "\xe2\x82\xacif True\xe2\x82\xac\n#\n@\n'#' '@ '\n\tNone\n"),
        "made up");
    // A few hundred real files, the same at every run.
    QDirIterator files(QStringLiteral("/usr/lib/python3.11"), {QStringLiteral("*.py")}, QDir::Files,
                       QDirIterator::Subdirectories);
    int compared = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        if (qHash(file.fileName(), 0) % 12 != 0 || file.size() > 60'000 || !file.open(QIODevice::ReadOnly))
            continue;
        expectSame(QString::fromUtf8(file.readAll()), file.fileName().toStdString());
        ++compared;
    }
    EXPECT_GT(compared, 20);
}

TEST(Highlighter, theRulesAreTheDefinition)
{
    QTextDocument document;
    const std::vector<HVPythonSyntaxHighlighter::Rule> rules = HVPythonSyntaxHighlighter(&document).rules();
    ASSERT_EQ(rules.size(), 34u + 69u + 4u);
    const auto expectRule = [&](std::size_t i, const char* pattern, const QColor& colour, int weight) {
        EXPECT_EQ(rules[i].pattern.pattern().toStdString(), pattern);
        EXPECT_EQ(rules[i].format.foreground().color(), colour);
        EXPECT_EQ(rules[i].format.fontWeight(), weight);
    };
    expectRule(0, "\\band\\b", Qt::blue, 75);
    expectRule(33, "\\bFalse\\b", Qt::blue, 75);
    expectRule(34, "\\babs\\b", Qt::blue, 25);
    expectRule(102, "\\b__import__\\b", Qt::blue, 25);
    expectRule(103, "\"([^\"]*?)\"", Qt::magenta, 25);
    expectRule(104, "'([^']*?)'", Qt::magenta, 25);
    expectRule(105, "#[^\n]*", Qt::darkGreen, 25);
    expectRule(106, "@[^\n]*", Qt::darkGreen, 81);
}

} // namespace
