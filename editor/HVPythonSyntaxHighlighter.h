#pragma once

#include "editor/PythonScanner.h"

#include <QRegularExpression>
#include <QSyntaxHighlighter>

#include <array>

/// Colours Python text line by line. There is no state between lines: text in triple quotes that spans lines is not
/// recognised as one string. Lines of more than 50,000 characters stay plain, without ligatures, and keep their layout
/// in memory (some 40 bytes a character), which makes typing in them twice as fast. GUI thread only.
class HVPythonSyntaxHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// One entry of the list that defines the colouring: each rule is applied to the whole line, in order, over the
    /// ones before. highlightBlock() reaches the same result without them; they are what it is tested against.
    struct Rule
    {
        QRegularExpression pattern;
        QTextCharFormat format;
    };

    explicit HVPythonSyntaxHighlighter(QTextDocument* document);

    /// Colours for text on a dark ground, or those for a light one; colours the document anew.
    void setDark(bool dark);
    std::vector<Rule> rules() const;

protected:
    void highlightBlock(const QString& text) override;

private:
    const QTextCharFormat& format(editor::PythonToken token) const
    {
        return m_formats[static_cast<std::size_t>(token)];
    }
    void makeFormats(bool dark);

    std::array<QTextCharFormat, 5> m_formats;
    QTextCharFormat m_longLine;
    std::vector<editor::PythonSpan> m_spans; // kept for its memory
    bool m_dark = false;
};
