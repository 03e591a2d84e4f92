#pragma once

#include <QString>

namespace editor {

/// The characters between which completion sees words; the underscore is one of them, space is not.
inline bool isWordSeparator(QChar c)
{
    static const QString separators = QStringLiteral("~!@#$%^&*()_+{}|:\"<>?,./;'[]\\-=");
    return separators.contains(c);
}

} // namespace editor
