#include "editor/CodePlace.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace editor {

namespace {

/// What surrounds a character.
struct Place
{
    bool comment = false;
    QChar quote;         ///< null in code
    bool triple = false; ///< the quotes are three

    bool isCode() const { return !comment && quote.isNull(); }
};

bool isTriple(const QString& line, int at)
{
    return at + 2 < line.size() && line.at(at + 1) == line.at(at) && line.at(at + 2) == line.at(at);
}

/// The place before column `end` of a line that begins at `place`.
Place placeIn(const QString& line, int end, Place place)
{
    for (int i = 0; i < end && !place.comment; ++i) {
        const QChar c = line.at(i);
        if (place.quote.isNull()) {
            place.comment = c == QLatin1Char('#');
            if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
                place = {.comment = false, .quote = c, .triple = isTriple(line, i)};
                i += place.triple ? 2 : 0;
            }
        } else if (c == QLatin1Char('\\')) {
            ++i;
        } else if (c == place.quote && (!place.triple || isTriple(line, i))) {
            i += place.triple ? 2 : 0;
            place = {};
        }
    }
    return place;
}

/// What the line after begins with: a comment ends with its line, and so do simple quotes but for a backslash.
Place nextLine(const QString& line, const Place& place)
{
    int backslashes = 0;
    while (backslashes < line.size() && line.at(line.size() - 1 - backslashes) == QLatin1Char('\\'))
        ++backslashes;
    const bool goesOn = place.triple || (!place.comment && backslashes % 2 != 0);
    return goesOn ? place : Place{};
}

} // namespace

bool isCode(const QTextCursor& cursor)
{
    Place place;
    const QTextBlock last = cursor.block();
    for (QTextBlock block = cursor.document()->begin(); block != last; block = block.next()) {
        const QString line = block.text();
        place = nextLine(line, placeIn(line, line.size(), place));
    }
    return placeIn(last.text(), cursor.positionInBlock(), place).isCode();
}

} // namespace editor
