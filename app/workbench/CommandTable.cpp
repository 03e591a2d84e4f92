#include "app/workbench/CommandTable.h"

#include <QtGlobal>

namespace workbench {

namespace {

using Key = QKeySequence::StandardKey;

// Texts are translated where they are shown, in the context "Commands".
#define TEXT(text) QT_TRANSLATE_NOOP("Commands", text)

constexpr Contexts g_always;
constexpr Contexts g_idleScript = Context::Script | Context::Idle;

} // namespace

QList<QKeySequence> CommandKeys::sequences() const
{
    if (m_standard == QKeySequence::UnknownKey)
        return *m_keys ? QKeySequence::listFromString(QLatin1String(m_keys)) : QList<QKeySequence>();
    // The others that the platform knows for it may be another command's.
    return {QKeySequence(m_standard)};
}

const std::vector<Command>& commandTable()
{
    static const std::vector<Command> table = {
        // File
        {"project.new", TEXT("New Project..."), "add_16", "Ctrl+Shift+N", TEXT("Make a folder for a new project"),
         g_always},
        {"project.open", TEXT("Open Project..."), "folder_24", "Ctrl+Shift+O", TEXT("Open a project"), g_always},
        {"project.close", TEXT("Close Project"), "close_16", {}, TEXT("Close the project"), Context::Project},
        {"import.segy", TEXT("SEG-Y..."), "volume_24", {}, TEXT("Make a volume of a SEG-Y file"), Context::Project},
        {"script.new", TEXT("New Script"), "new_script_24", Key::New, TEXT("Begin a new Python script"), g_always},
        {"script.open", TEXT("Open Script..."), "projectopen24", Key::Open, TEXT("Open Python scripts"), g_always},
        {"script.save", TEXT("Save"), "save24", Key::Save, TEXT("Save the script"), Context::Script},
        {"script.save-as", TEXT("Save As..."), "", "Ctrl+Shift+S", TEXT("Save the script under another name"),
         Context::Script},
        {"application.exit", TEXT("Exit"), "exit_24", "Ctrl+Q", TEXT("Leave Strativo"), g_always},

        // Edit
        {"edit.undo", TEXT("Undo"), "undo_24", Key::Undo, TEXT("Take the last change back"), g_always},
        {"edit.redo", TEXT("Redo"), "redo_24", Key::Redo, TEXT("Make the change again"), g_always},
        {"edit.cut", TEXT("Cut"), "cut_24", Key::Cut, TEXT("Move the selection to the clipboard"), g_always},
        {"edit.copy", TEXT("Copy"), "copy_24", Key::Copy, TEXT("Copy the selection to the clipboard"), g_always},
        {"edit.paste", TEXT("Paste"), "paste_24", Key::Paste, TEXT("Insert the clipboard's contents"), g_always},
        {"edit.select-all", TEXT("Select All"), "select_all_24", Key::SelectAll, TEXT("Select everything"), g_always},
        {"script.find", TEXT("Find..."), "zoommode16", "Ctrl+F", TEXT("Search the script"), Context::Script, true},
        {"script.find-next", TEXT("Find Next"), "find_next_16", "F3", TEXT("Go to the next match"), Context::Script,
         true},
        {"script.find-previous", TEXT("Find Previous"), "find_previous_16", "Shift+F3",
         TEXT("Go to the previous match"), Context::Script, true},
        {"script.replace", TEXT("Replace..."), "", "Ctrl+H", TEXT("Search the script and replace"), Context::Script,
         true},
        {"script.go-to-line", TEXT("Go to Line..."), "", "Ctrl+G", TEXT("Go to a line of the script"), Context::Script,
         true},
        {"script.toggle-comment", TEXT("Toggle Comment"), "", "Ctrl+/",
         TEXT("Comment the lines, or take the comments away"), Context::Script, true},

        // View
        {"view.messages", TEXT("Messages"), "messages_24", "Alt+1", TEXT("Show or hide the messages"), g_always},
        {"view.project", TEXT("Project"), "folder_24", "Alt+2", TEXT("Show or hide the project browser"), g_always},
        {"view.changes", TEXT("Changes"), "recent_24", {}, TEXT("Show or hide what was done to the project"), g_always},
        {"view.debugger", TEXT("Debugger"), "pythondebug24", "Alt+3", TEXT("Show or hide the debugger"), g_always},
        {"view.jobs", TEXT("Jobs"), "list_24", "Alt+4", TEXT("Show or hide the jobs"), g_always},
        {"view.tool-bar", TEXT("Main Tool Bar"), "", {}, TEXT("Show or hide the main tool bar"), g_always},
        {"theme.system", TEXT("System"), "theme_system_24", {}, TEXT("The colours of the desktop"), g_always},
        {"theme.light", TEXT("Light"), "theme_light_24", {}, TEXT("Dark text on a light ground"), g_always},
        {"theme.dark", TEXT("Dark"), "theme_dark_24", {}, TEXT("Light text on a dark ground"), g_always},

        // Tools
        {"script.run", TEXT("Run Script"), "pythonrun24", "F5; F8", TEXT("Run the script"), g_idleScript},
        {"script.stop", TEXT("Stop Script"), "pythonstop24", "Shift+F5",
         TEXT("Stop the running script; pressing Esc twice does the same"), Context::Running},
        {"debug.run", TEXT("Debug Script"), "pythondebug24", "Ctrl+F5",
         TEXT("Run the script with the debugger enabled"), g_idleScript},
        {"debug.toggle-breakpoint", TEXT("Toggle Breakpoint"), "", "F9",
         TEXT("Set or remove a breakpoint at the cursor's line"), Context::Script},
        {"debug.continue", TEXT("Continue"), "continue_24", "F5", TEXT("Let the script go on"), Context::Paused},
        {"debug.step-over", TEXT("Step Over"), "next_24", "F10", TEXT("Go to the next line of this function"),
         Context::Paused},
        {"debug.step-into", TEXT("Step Into"), "step_into_24", "F11", TEXT("Go into the function that the line calls"),
         Context::Paused},
        {"debug.step-out", TEXT("Step Out"), "step_out_24", "Shift+F11", TEXT("Go on until the function has returned"),
         Context::Paused},
        {"debug.run-to-cursor", TEXT("Run to Cursor"), "", "Ctrl+F10",
         TEXT("Let the script go on to the cursor's line"), Context::Paused | Context::Script},

        // Settings
        {"settings.whole-texts",
         TEXT("Whole Unicode texts"),
         "",
         {},
         TEXT("Hand names and other texts over to scripts with all their characters"),
         g_always},

        // Window
        {"window.cascade",
         TEXT("Cascade"),
         "cascade_24",
         {},
         TEXT("Lay the documents over each other"),
         Context::Document},
        {"window.tile", TEXT("Tile"), "tile_24", {}, TEXT("Lay the documents side by side"), Context::Document},
        {"window.next", TEXT("Next"), "next_24", "Ctrl+Tab", TEXT("Go to the next document"), Context::Document},
        {"window.previous", TEXT("Previous"), "previous_24", "Ctrl+Shift+Tab", TEXT("Go to the previous document"),
         Context::Document},
        {"window.close", TEXT("Close"), "close_16", "Ctrl+W", TEXT("Close the document"), Context::Document},
        {"window.close-all", TEXT("Close All"), "", "Ctrl+Shift+W", TEXT("Close all documents"), Context::Document},

        // Help
        {"help.documentation", TEXT("Scripting Documentation"), "python_doc_24", Key::HelpContents,
         TEXT("Open the Python documentation in the web browser"), g_always},
        {"help.about", TEXT("About Strativo"), "about_24", {}, TEXT("Version and licences"), g_always},

        // Extensions
        {"plugin.load",
         TEXT("Load Plug-in..."),
         "pythonplugins24",
         {},
         TEXT("Load a plug-in from any folder"),
         g_always},
    };
    return table;
}

const std::vector<MenuTable>& menuBarTable()
{
    static const std::vector<MenuTable> table = {
        {"file", TEXT("File"), "",
         "project.new project.open >recent-projects project.close - >import - script.new script.open >recent-scripts "
         ">project-scripts - script.save script.save-as - application.exit"},
        {"edit", TEXT("Edit"), "",
         "edit.undo edit.redo - edit.cut edit.copy edit.paste - edit.select-all - script.find script.find-next "
         "script.find-previous script.replace script.go-to-line script.toggle-comment"},
        {"view", TEXT("View"), "",
         "view.messages view.project view.changes view.debugger view.jobs view.tool-bar - >theme"},
        {"modules", TEXT("Modules"), "", ""},
        {"tools", TEXT("Tools"), "",
         "script.run script.stop - debug.run debug.toggle-breakpoint debug.continue debug.step-over debug.step-into "
         "debug.step-out debug.run-to-cursor"},
        {"settings", TEXT("Settings"), "", ">settings-python"},
        {"window", TEXT("Window"), "",
         "window.cascade window.tile - window.next window.previous - window.close window.close-all -"},
        {"help", TEXT("Help"), "", "help.documentation - help.about"},
        {"extensions", TEXT("Extensions"), "", ">plug-ins plugin.load"},
    };
    return table;
}

const std::vector<MenuTable>& subMenuTable()
{
    static const std::vector<MenuTable> table = {
        {"recent-projects", TEXT("Recent Projects"), "recent_24", ""},
        {"recent-scripts", TEXT("Recent Scripts"), "recent_24", ""},
        {"project-scripts", TEXT("Project Scripts"), "folder_24", ""},
        {"import", TEXT("Import"), "import_24", "import.segy"},
        {"theme", TEXT("Theme"), "color_bar_24", "theme.system theme.light theme.dark"},
        {"settings-python", TEXT("Python"), "python_24", "settings.whole-texts"},
        {"plug-ins", TEXT("Plug-ins"), "", ""},
    };
    return table;
}

const char* toolBarEntries()
{
    return "script.new script.open script.save - script.run script.stop";
}

} // namespace workbench
