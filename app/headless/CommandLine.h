#pragma once

#include <QString>
#include <QStringList>

namespace headless {

/// What `strativo run` was asked to do.
struct CommandLine
{
    enum class Source
    {
        File,
        StandardInput,
        Code,
        Module,
    };

    Source source = Source::File;
    /// The script's path, the code itself, or the module's name.
    QString script;
    /// Handed to the script as sys.argv[1:].
    QStringList arguments;
    QString project;
    QStringList plugins;
    /// Whether opening the project loads the plug-ins that are set to autoload.
    bool autoLoad = true;
    /// Whether texts of the application reach the script whole, see TextSetting.h.
    bool unicodeText = false;
    bool verbose = false;
    /// The current folder is searched first for modules; for a script file it is the script's folder in any case.
    bool currentFolder = false;
    bool help = false;
    /// One sentence when the command line cannot be understood, else empty.
    QString error;
};

/// Reads the words after "run". Options end at the script: all that follows belongs to it.
CommandLine parseCommandLine(const QStringList& words);

QString usage();

} // namespace headless
