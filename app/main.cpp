#include "app/ProgramSetup.h"
#include "app/demo/Demo.h"
#include "app/headless/ExportCommand.h"
#include "app/headless/Headless.h"
#include "app/headless/ImportCommand.h"
#include "app/headless/Info.h"
#include "app/headless/PluginCheck.h"
#include "app/headless/TerminalApp.h"
#include "app/workbench/Workbench.h"

#include <QFileInfo>

#include <cstring>

namespace {

/// A word that is neither an option nor a file, and does not look like a file that is missing.
bool isUnknownCommand(const char* word)
{
    return word[0] != '-' && word[0] != '\0' && !std::strpbrk(word, "/.") &&
           !QFileInfo::exists(QString::fromLocal8Bit(word));
}

} // namespace

int main(int argc, char** argv)
{
    program::openStandardStreams();
    const char* const command = argc > 1 ? argv[1] : "";
    if (std::strcmp(command, "run") == 0)
        return headless::run(argc, argv);
    if (std::strcmp(command, "plugin") == 0)
        return headless::runPluginCommand(argc, argv);
    if (std::strcmp(command, "info") == 0)
        return headless::runInfoCommand(argc, argv);
    if (std::strcmp(command, "import") == 0)
        return headless::runImport(argc, argv);
    if (std::strcmp(command, "export") == 0)
        return headless::runExport(argc, argv);
    if (std::strcmp(command, "demo") == 0)
        return demo::run(argc, argv);
    if (isUnknownCommand(command))
        return headless::refuse(
            QStringLiteral(
                "unknown command \"%1\"; there are run, info, import, export, plugin and demo, and without a "
                "command the workbench opens the scripts that are named")
                .arg(QString::fromLocal8Bit(command)));
    return workbench::run(argc, argv);
}
