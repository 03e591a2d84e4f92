#include "app/headless/CommandLine.h"

namespace headless {

CommandLine parseCommandLine(const QStringList& words)
{
    CommandLine line;
    int next = 0;
    const auto fail = [&line](const QString& error) {
        line.error = error;
        return line;
    };
    while (next < words.size()) {
        const QString word = words[next++];
        const bool hasValue = next < words.size();
        if (word == QLatin1String("--help") || word == QLatin1String("-h")) {
            line.help = true;
            return line;
        }
        if (word == QLatin1String("--verbose")) {
            line.verbose = true;
        } else if (word == QLatin1String("--current-folder")) {
            line.currentFolder = true;
        } else if (word == QLatin1String("--no-autoload")) {
            line.autoLoad = false;
        } else if (word == QLatin1String("--unicode-text")) {
            line.unicodeText = true;
        } else if (word == QLatin1String("--project") || word == QLatin1String("--plugin")) {
            if (!hasValue)
                return fail(QStringLiteral("%1 needs a folder").arg(word));
            if (word == QLatin1String("--project"))
                line.project = words[next++];
            else
                line.plugins << words[next++];
        } else if (word == QLatin1String("-c") || word == QLatin1String("-m")) {
            const bool isCode = word == QLatin1String("-c");
            if (!hasValue)
                return fail(isCode ? QStringLiteral("-c needs the code to run")
                                   : QStringLiteral("-m needs the name of a module"));
            line.source = isCode ? CommandLine::Source::Code : CommandLine::Source::Module;
            line.script = words[next++];
            line.arguments = words.mid(next);
            return line;
        } else if (word.startsWith(QLatin1Char('-')) && word != QLatin1String("-") && word != QLatin1String("--")) {
            return fail(QStringLiteral("unknown option %1").arg(word));
        } else {
            if (word == QLatin1String("--") && !hasValue)
                break;
            line.script = word == QLatin1String("--") ? words[next++] : word;
            if (word == QLatin1String("-"))
                line.source = CommandLine::Source::StandardInput;
            line.arguments = words.mid(next);
            return line;
        }
    }
    return fail(QStringLiteral("no script given"));
}

QString usage()
{
    return QStringLiteral(
        "usage: strativo run [--project DIR] [--plugin DIR]... [options] SCRIPT [ARGS...]\n"
        "       strativo run [options] -c CODE [ARGS...]\n"
        "       strativo run [options] -m MODULE [ARGS...]\n"
        "\n"
        "Runs a Python script with the application's scripting module and without a window.\n"
        "\n"
        "  SCRIPT         a Python file, or - to read the script from standard input\n"
        "  -c CODE        run CODE\n"
        "  -m MODULE      run a module, or a package's __main__, found as for an import; the current folder is\n"
        "                 searched first\n"
        "  --project DIR  open the project in DIR first; made when the folder is missing or empty\n"
        "  --plugin DIR   load the plug-in in DIR first; may be given several times\n"
        "  --no-autoload  opening the project loads no plug-ins\n"
        "  --unicode-text texts of the application reach the script whole, not in ASCII only\n"
        "  --current-folder\n"
        "                 -c and - import modules from the current folder, too\n"
        "  --verbose      show notices that are not errors, on standard error\n"
        "\n"
        "Exit status: 0 the script ran to its end, 1 it failed, n it left with sys.exit(n), 2 it was\n"
        "not started.\n");
}

} // namespace headless
