#include "editor/PythonScanner.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace editor {

namespace {

constexpr std::u16string_view g_keywords[] = {
    u"and",  u"as",     u"assert", u"break",   u"class", u"continue", u"def",    u"del",    u"elif",
    u"else", u"except", u"exec",   u"finally", u"for",   u"from",     u"global", u"if",     u"import",
    u"in",   u"is",     u"lambda", u"not",     u"or",    u"pass",     u"raise",  u"return", u"self",
    u"try",  u"while",  u"with",   u"yield",   u"None",  u"True",     u"False"};

constexpr std::u16string_view g_builtins[] = {
    u"abs",       u"all",      u"any",        u"ascii",       u"bin",          u"bool",    u"breakpoint", u"bytearray",
    u"bytes",     u"callable", u"char",       u"classmethod", u"compile",      u"complex", u"delattr",    u"dict",
    u"dir",       u"divmod",   u"enumerate",  u"eval",        u"exec",         u"filter",  u"float",      u"format",
    u"frozenset", u"getattr",  u"globals",    u"hasattr",     u"hash",         u"help",    u"hex",        u"id",
    u"input",     u"int",      u"isinstance", u"issubclass",  u"iter",         u"len",     u"list",       u"locals",
    u"map",       u"max",      u"memoryview", u"min",         u"next",         u"object",  u"oct",        u"open",
    u"ord",       u"pow",      u"print",      u"property",    u"range",        u"repr",    u"reversed",   u"round",
    u"set",       u"setattr",  u"slice",      u"sorted",      u"staticmethod", u"str",     u"sum",        u"super",
    u"tuple",     u"type",     u"vars",       u"zip",         u"__import__"};

struct Word
{
    std::u16string_view text;
    PythonToken token;
};

/// Words by their first character; 128 covers every first character that occurs.
using WordTable = std::array<std::vector<Word>, 128>;

WordTable makeWordTable()
{
    WordTable table;
    for (const std::u16string_view word : g_builtins)
        table[word.front()].push_back({word, PythonToken::Builtin});
    for (const std::u16string_view word : g_keywords)
        if (std::find(std::begin(g_builtins), std::end(g_builtins), word) == std::end(g_builtins))
            table[word.front()].push_back({word, PythonToken::Keyword});
    return table;
}

std::optional<PythonToken> tokenOf(std::u16string_view word)
{
    static const WordTable table = makeWordTable();
    for (const Word& candidate : table[word.front()])
        if (candidate.text == word)
            return candidate.token;
    return std::nullopt;
}

/// Only ASCII makes words, as in a regular expression without Unicode properties.
constexpr bool isWordCharacter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
}

/// Quoted texts of one kind of quote, paired from the start of the line.
class Quotes
{
public:
    Quotes(std::u16string_view line, char16_t quote) : m_line(line), m_quote(quote) { next(); }

    /// The end of the quoted text that covers `position`, or 0. Positions ascend from call to call.
    std::size_t endOver(std::size_t position)
    {
        while (m_end <= position && m_begin != std::u16string_view::npos)
            next();
        return m_begin <= position ? m_end : 0;
    }

private:
    void next()
    {
        m_begin = m_line.find(m_quote, m_end);
        const std::size_t close = m_begin == std::u16string_view::npos ? m_begin : m_line.find(m_quote, m_begin + 1);
        if (close == std::u16string_view::npos)
            m_begin = close; // an open quote colours nothing
        else
            m_end = close + 1;
    }

    std::u16string_view m_line;
    char16_t m_quote;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

void add(std::vector<PythonSpan>& spans, std::size_t begin, std::size_t end, PythonToken token)
{
    const int start = static_cast<int>(begin);
    const int length = static_cast<int>(end - begin);
    if (!spans.empty() && spans.back().token == token && spans.back().start + spans.back().length == start)
        spans.back().length += length;
    else
        spans.push_back({start, length, token});
}

std::vector<QString> texts(const std::u16string_view* begin, const std::u16string_view* end)
{
    std::vector<QString> words;
    for (; begin != end; ++begin)
        words.push_back(QString(reinterpret_cast<const QChar*>(begin->data()), static_cast<int>(begin->size())));
    return words;
}

} // namespace

void scanPythonLine(const QString& text, std::vector<PythonSpan>& spans)
{
    spans.clear();
    const std::u16string_view line(reinterpret_cast<const char16_t*>(text.utf16()),
                                   static_cast<std::size_t>(text.size()));
    const std::size_t decorator = std::min(line.find(u'@'), line.size());
    const std::size_t comment = std::min(line.substr(0, decorator).find(u'#'), decorator);
    Quotes doubleQuotes(line, u'"');
    Quotes singleQuotes(line, u'\'');

    std::size_t i = 0;
    while (i < comment) {
        if (const std::size_t end = std::max(doubleQuotes.endOver(i), singleQuotes.endOver(i)); end > i) {
            add(spans, i, std::min(end, comment), PythonToken::String);
            i = std::min(end, comment);
        } else if (isWordCharacter(line[i])) {
            const std::size_t begin = i;
            while (i < comment && isWordCharacter(line[i]))
                ++i;
            if (const auto token = tokenOf(line.substr(begin, i - begin)))
                add(spans, begin, i, *token);
        } else {
            ++i;
        }
    }
    if (comment < decorator)
        add(spans, comment, decorator, PythonToken::Comment);
    if (decorator < line.size())
        add(spans, decorator, line.size(), PythonToken::Decorator);
}

const std::vector<QString>& pythonKeywords()
{
    static const std::vector<QString> words = texts(std::begin(g_keywords), std::end(g_keywords));
    return words;
}

const std::vector<QString>& pythonBuiltins()
{
    static const std::vector<QString> words = texts(std::begin(g_builtins), std::end(g_builtins));
    return words;
}

} // namespace editor
