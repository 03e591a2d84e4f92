#include "editor/HVPythonSyntaxHighlighter.h"

#include <QFont>
#include <QTextBlock>
#include <QTextLayout>

using editor::PythonToken;

namespace {

/// Characters. Laying a line out takes time by the square of its number of colours, so data that was written into one
/// line stays plain.
constexpr int g_longestLine = 50'000;

QTextCharFormat makeFormat(const QColor& colour, int weight)
{
    QTextCharFormat format;
    format.setForeground(colour);
    format.setFontWeight(weight);
    return format;
}

} // namespace

HVPythonSyntaxHighlighter::HVPythonSyntaxHighlighter(QTextDocument* document) : QSyntaxHighlighter(document)
{
    m_longLine.setFontStyleStrategy(QFont::PreferNoShaping);
    makeFormats(false);
}

void HVPythonSyntaxHighlighter::makeFormats(bool dark)
{
    const QColor word = dark ? QColor(0x79b8ff) : QColor(Qt::blue);
    const QColor string = dark ? QColor(0xf0a0e8) : QColor(Qt::magenta);
    const QColor comment = dark ? QColor(0x7fc987) : QColor(Qt::darkGreen);
    m_formats = {makeFormat(word, QFont::Bold), makeFormat(word, QFont::Light), makeFormat(string, QFont::Light),
                 makeFormat(comment, QFont::Light), makeFormat(comment, QFont::ExtraBold)};
}

void HVPythonSyntaxHighlighter::setDark(bool dark)
{
    if (std::exchange(m_dark, dark) == dark)
        return;
    makeFormats(dark);
    rehighlight();
}

std::vector<HVPythonSyntaxHighlighter::Rule> HVPythonSyntaxHighlighter::rules() const
{
    std::vector<Rule> rules;
    const auto add = [&](const QString& pattern, PythonToken token) {
        rules.push_back({QRegularExpression(pattern), format(token)});
    };
    for (const QString& word : editor::pythonKeywords())
        add(QStringLiteral("\\b%1\\b").arg(word), PythonToken::Keyword);
    for (const QString& word : editor::pythonBuiltins())
        add(QStringLiteral("\\b%1\\b").arg(word), PythonToken::Builtin);
    add(QStringLiteral("\"([^\"]*?)\""), PythonToken::String);
    add(QStringLiteral("'([^']*?)'"), PythonToken::String);
    add(QStringLiteral("#[^\n]*"), PythonToken::Comment);
    add(QStringLiteral("@[^\n]*"), PythonToken::Decorator);
    return rules;
}

void HVPythonSyntaxHighlighter::highlightBlock(const QString& text)
{
    setCurrentBlockState(0);
    const bool isLong = text.size() > g_longestLine;
    // Without its cache Qt shapes a line anew for its width, each movement of the cursor and each painting.
    currentBlock().layout()->setCacheEnabled(isLong);
    if (isLong) {
        setFormat(0, text.size(), m_longLine);
        return;
    }
    editor::scanPythonLine(text, m_spans);
    for (const editor::PythonSpan& span : m_spans)
        setFormat(span.start, span.length, format(span.token));
}
