#include "runtime/DesktopEntry.h"

namespace python {

namespace {

/// The Exec line of the main group with the escapes of all values undone; those of quotes are the line's own.
QString execLine(const QByteArray& entry)
{
    bool inMainGroup = false;
    for (const QByteArray& raw : entry.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith('['))
            inMainGroup = line == "[Desktop Entry]";
        const int equals = line.indexOf('=');
        if (!inMainGroup || equals < 0 || line.left(equals).trimmed() != "Exec")
            continue;
        QString value = QString::fromUtf8(line.mid(equals + 1).trimmed());
        return value.replace(QStringLiteral("\\s"), QStringLiteral(" "))
            .replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    }
    return {};
}

QStringList wordsOf(const QString& line)
{
    QStringList words;
    QString word;
    bool quoted = false;
    bool begun = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar character = line.at(i);
        if (character == QLatin1Char('"')) {
            quoted = !quoted;
            begun = true;
        } else if (quoted && character == QLatin1Char('\\') && i + 1 < line.size()) {
            word += line.at(++i);
        } else if (!quoted && character.isSpace()) {
            if (begun)
                words << word;
            word.clear();
            begun = false;
        } else {
            word += character;
            begun = true;
        }
    }
    if (begun)
        words << word;
    return words;
}

/// The word with its field codes replaced; `used` becomes true where the target stands.
QString withFields(const QString& word, const QString& target, bool& used)
{
    QString result;
    for (int i = 0; i < word.size(); ++i) {
        if (word.at(i) != QLatin1Char('%') || i + 1 == word.size()) {
            result += word.at(i);
            continue;
        }
        const QChar code = word.at(++i);
        if (code == QLatin1Char('%')) {
            result += code;
        } else if (QStringLiteral("uUfF").contains(code)) {
            result += target;
            used = true;
        }
    }
    return result;
}

} // namespace

QStringList commandOfDesktopEntry(const QByteArray& entry, const QString& target)
{
    QStringList command;
    bool used = false;
    for (const QString& word : wordsOf(execLine(entry))) {
        const QString replaced = withFields(word, target, used);
        // Codes that stand for nothing here, such as the icon's, leave no word behind.
        if (!replaced.isEmpty() || word.isEmpty())
            command << replaced;
    }
    if (!command.isEmpty() && !used)
        command << target;
    return command;
}

} // namespace python
