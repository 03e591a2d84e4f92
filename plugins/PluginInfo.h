#pragma once

#include <QString>

namespace python {

/// What the file "plugin.info" of a plug-in folder says: an INI file with the group "PluginInfo" as QSettings reads and
/// writes it. Text is UTF-8, or Latin-1 where the bytes are no UTF-8. Keys in another letter case count when the exact
/// one is missing, as they do on systems whose settings ignore the case.
struct PluginInfo
{
    /// Startup file, relative to the folder.
    QString init;
    QString license;
    QString version;
    QString copyright;
    QString contact;
    bool autoLoad = false;

    /// Whether `init` names a place below the folder, so that the plug-in is whole wherever its folder is taken.
    bool isStartupFileInside() const;

    /// Never fails: a missing text is "Unknown", a missing "autoload" false. A value that holds commas, which the
    /// format takes for a list, is joined with ", ".
    static PluginInfo read(const QString& path);

    /// Rewrites the key "autoload"; false when the file cannot be written, which is then as it was.
    static bool writeAutoLoad(const QString& path, bool value);
};

} // namespace python
