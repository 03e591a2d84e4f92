#pragma once

#include <QString>

#include <vector>

/// Finds what is coloured in one line of Python.
///
/// The colouring is defined by a list of regular expressions that are applied one after the other, later ones over
/// earlier ones: keywords, built-in names, "double-quoted" and 'single-quoted' text, comments, decorators. This
/// scanner gives the same result in one pass: a decorator covers everything from the first "@", a comment from the
/// first "#" before it, quotes are paired from the line's start whatever stands between them, and words count outside
/// of them only. Lines know nothing of each other.
namespace editor {

enum class PythonToken : unsigned char
{
    Keyword,
    Builtin,
    String,
    Comment,
    Decorator,
};

struct PythonSpan
{
    int start;
    int length;
    PythonToken token;
    bool operator==(const PythonSpan&) const = default;
};

/// Replaces the contents of `spans` by those of `line`: ascending, without overlaps, neighbours of one kind merged.
/// Thread-safe.
void scanPythonLine(const QString& line, std::vector<PythonSpan>& spans);

/// The words of the rules, in the order of the rules; "exec" is in both.
const std::vector<QString>& pythonKeywords();
const std::vector<QString>& pythonBuiltins();

} // namespace editor
