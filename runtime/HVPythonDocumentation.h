#pragma once

#include <QString>

class QUrl;

/// Opens the documentation pages that lie in "doc/python/" beside the program in the user's web browser. A page that
/// cannot be opened is reported by a warning box (not in a program on a terminal) and on the event bus; nothing here
/// raises. GUI thread only.
class HVPythonDocumentation
{
public:
    /// Opens `url` with the desktop's default handler; a relative local file is sought beside the program.
    static void open(const QUrl& url);

    static void openIndex();
    static void openAttribute();
    static void openPackageManager();

    /// Opens the search page with `target` as its query; an empty target opens the empty search page.
    static void openAndSearchForTargetString(const QString& target);
};
