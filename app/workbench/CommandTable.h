#pragma once

#include <QFlags>
#include <QKeySequence>

#include <vector>

/// Every command of the application in one table: menus and the tool bar are made from it, and whoever carries a
/// command out finds it by its id. The ids are stable, texts and keys are not.
namespace workbench {

/// What must be the case for a command to be of use.
enum class Context
{
    Document = 1 << 0, ///< a document is open
    Script = 1 << 1,   ///< the document in front is a script
    Idle = 1 << 2,     ///< no script runs
    Running = 1 << 3,
    Paused = 1 << 4, ///< the running script waits in the debugger
    Project = 1 << 5,
};
Q_DECLARE_FLAGS(Contexts, Context)
Q_DECLARE_OPERATORS_FOR_FLAGS(Contexts)

/// The platform's keys for something usual, or keys in portable notation separated by "; ".
class CommandKeys
{
public:
    CommandKeys() = default;
    CommandKeys(QKeySequence::StandardKey standard) : m_standard(standard) {}
    CommandKeys(const char* keys) : m_keys(keys) {}

    /// The first one is shown in menus.
    QList<QKeySequence> sequences() const;

private:
    QKeySequence::StandardKey m_standard = QKeySequence::UnknownKey;
    const char* m_keys = "";
};

struct Command
{
    const char* id;
    const char* text;
    const char* icon; ///< may be empty
    CommandKeys keys;
    const char* tip; ///< what it does, for status bar and tool tip
    Contexts needs;
    /// The keys are those of the document, which acts on them itself: as keys of the window they would compete with
    /// those of other panels.
    bool keysOfDocument = false;
};

const std::vector<Command>& commandTable();

/// In `entries` stand, separated by blanks, ids of commands, "-" for a separator and ">id" for a sub-menu.
struct MenuTable
{
    const char* id;
    const char* title;
    const char* icon;
    const char* entries;
};

/// Titles have no mnemonics: they are the names that scripts know.
const std::vector<MenuTable>& menuBarTable();
const std::vector<MenuTable>& subMenuTable();
/// In the notation of a menu's entries.
const char* toolBarEntries();

} // namespace workbench
