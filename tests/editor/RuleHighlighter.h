#pragma once

#include "editor/HVPythonSyntaxHighlighter.h"

/// Colours as the definition says it: every rule over the whole line, in order. What the scanner is held against.
class RuleHighlighter : public HVPythonSyntaxHighlighter
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
