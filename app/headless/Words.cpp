#include "app/headless/Words.h"

#include "app/headless/TerminalApp.h"

#include <cstdio>

namespace headless {

Words::Words(int argc, char** argv, const char* usage, const QList<QCommandLineOption>& options, int positional)
{
    QStringList words;
    for (int i = 0; i < argc; ++i) // the command stands for the program
        words << QString::fromLocal8Bit(argv[i]);
    m_parser.addOptions(options);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help."));
    m_parser.addOption(help);
    const bool isParsed = m_parser.parse(words);
    if (m_parser.isSet(help)) {
        const QString table = m_parser.helpText();
        std::fputs(usage, stdout);
        std::fputs(table.mid(table.indexOf(QLatin1Char('\n'))).toLocal8Bit().constData(), stdout);
        m_status = g_statusRan;
    } else if (!isParsed) {
        m_status = refuse(m_parser.errorText());
    } else if (m_parser.positionalArguments().size() != positional) {
        std::fputs(usage, stderr);
        m_status = g_statusNotStarted;
    }
}

} // namespace headless
