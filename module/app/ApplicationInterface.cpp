#include "host/services/IAppWrapper.h"
#include "host/widgets/HVPluginContributions.h"
#include "module/Bindings.h"
#include "module/app/ApplicationFunctions.h"
#include "module/data/ProjectChanges.h"
#include "module/data/ProjectHandle.h"
#include "module/gui/Widgets.h"
#include "plugins/PluginContext.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

QMainWindow* applicationWindow()
{
    requireGuiThread();
    const IAppWrapper* app = applicationInterface();
    return app ? app->mainWindow() : nullptr;
}

bool isOnTerminal()
{
    const IAppWrapper* app = applicationInterface();
    return app && app->isTerminalProgram();
}

namespace {

bp::object pluginDirectory()
{
    return callingPluginDirectory();
}

bp::tuple version()
{
    const IAppWrapper* app = applicationInterface();
    const QStringList parts = (app ? app->version() : QString()).split(QLatin1Char('.'));
    const auto number = [&parts](int index) { return parts.value(index, QStringLiteral("0")).toInt(); };
    return bp::make_tuple(number(0), number(1));
}

bp::object mainWindow()
{
    return wrapObject<MainWindowHandle>(applicationWindow());
}

bool hasProject()
{
    const IAppWrapper* app = applicationInterface();
    return app && app->hasMainWindow() && app->currentProject();
}

bp::object getProject()
{
    requireGuiThread();
    return hasProject() ? projectObject(applicationInterface()->currentProject()) : bp::object();
}

void updateProject(const bp::object& objectType)
{
    std::optional<int> kind;
    if (!objectType.is_none()) {
        const bp::object module = bp::import("strativo_python");
        const bp::object kinds = bp::getattr(module, "ObjectId", bp::object());
        if (kinds.is_none() || PyObject_IsInstance(objectType.ptr(), kinds.ptr()) != 1)
            raise(PyExc_TypeError, "expected 'NoneType' or 'ObjectId', but got '%s'", typeName(objectType));
        kind = static_cast<int>(PyLong_AsLong(objectType.ptr()));
    }
    requireGuiThread();
    if (IAppWrapper* app = applicationInterface())
        app->refreshProject(kind);
}

void updatePaletteList()
{
    requireGuiThread();
    if (IAppWrapper* app = applicationInterface())
        app->refreshPalettes();
}

/// What dialogs and lookups say of the application.
void defineQueries()
{
    bp::def("pluginDirectory", pluginDirectory,
            "pluginDirectory() -> str | None\n\nThe folder of the plug-in whose code calls; None outside a plug-in.");
    bp::def("version", version, "version() -> tuple[int, int]\n\nThe application's version: major, minor.");
    bp::def("mainWindow", mainWindow,
            "mainWindow() -> MainWindow\n\nThe application's main window; None when there is none.");
    bp::def("hasProject", hasProject, "hasProject() -> bool\n\nWhether a project is open.");
    bp::def("getProject", getProject, "getProject() -> Project | None\n\nThe open project; None when there is none.");
}

void defineBoxes()
{
    bp::def(
        "showDialogBox", showDialogBox, bp::args("message"),
        "showDialogBox(message: str) -> None\n\nShows a message and waits until the user has seen it. Under `strativo "
        "run` the message goes to standard error.\n\nRaises TypeError when message is not a str.");
    bp::def(
        "showQuestionBox", showQuestionBox, (bp::arg("message"), bp::arg("title") = bp::object()),
        "showQuestionBox(message: str, title: str = None) -> bool\n\nAsks the user; True for Yes. Under `strativo "
        "run` the question goes to standard error and the answer is No.\n\nRaises TypeError when message or title is "
        "not a str.");
    bp::def(
        "addSubWindow", addSubWindow, bp::args("widget"),
        "addSubWindow(widget: Widget) -> SubWindow\n\nShows the widget in the main window's document area, which owns "
        "it from then on; closing it there destroys it.\n\nRaises TypeError for anything but a widget, RuntimeError "
        "when there is no document area, ValueError for a widget that is in a layout or container.");
}

void defineMainWindowParts()
{
    bp::def(
        "addMainWindowMenu", addMainWindowMenu, bp::args("title"),
        "addMainWindowMenu(title: str) -> Menu\n\nThe menu with that title in the main window's menu bar, made when "
        "there is none yet. Plug-ins only.\n\nRaises RuntimeError outside a plug-in and for the names of the "
        "application's own menus.");
    bp::def(
        "getMainWindowMenu", getMainWindowMenu, bp::args("title"),
        "getMainWindowMenu(title: str) -> Menu | None\n\nThe menu with that title; None when there is none.\n\nRaises "
        "RuntimeError for the names of the application's own menus.");
    bp::def(
        "removeMainWindowMenu", removeMainWindowMenu, bp::args("title"),
        "removeMainWindowMenu(title: str) -> bool\n\nTakes the menu out of the menu bar; False when there is none. "
        "Plug-ins only.\n\nRaises RuntimeError outside a plug-in and for the names of the application's own menus.");
    bp::def("addMainWindowToolBar", addMainWindowToolBar, bp::args("name"),
            "addMainWindowToolBar(name: str) -> ToolBar\n\nA new tool bar with that title. Plug-ins only.\n\nRaises "
            "ValueError for an empty name and for one that begins with 'strativo:', "
            "RuntimeError outside a plug-in and when there is a tool bar of that name.");
    bp::def("removeMainWindowToolBar", removeMainWindowToolBar, bp::args("name"),
            "removeMainWindowToolBar(name: str) -> bool\n\nTakes the tool bar away; False when there is none. Plug-ins "
            "only.\n\nRaises RuntimeError outside a plug-in.");
}

void defineChoosers()
{
    bp::def(
        "getDirectory", getDirectory, bp::args("text"),
        "getDirectory(text: str | None) -> str\n\nLets the user choose a folder; `text` is the dialog's title. Empty "
        "when the user chose none, and always under `strativo run`.\n\nRaises TypeError.");
    bp::def(
        "getFile", getFile, bp::args("text"),
        "getFile(text: str | None) -> str\n\nLets the user choose a file; `text` is the dialog's title. Empty when the "
        "user chose none, and always under `strativo run`.\n\nRaises TypeError.");
    bp::def("getFiles", getFiles, bp::args("text"),
            "getFiles(text: str | None) -> list[str]\n\nLets the user choose several files; `text` is the dialog's "
            "title. Empty when the user chose none, and always under `strativo run`.\n\nRaises TypeError.");
}

} // namespace

void bindApplicationInterface()
{
    setPluginPartNote([](QObject* part) { HVPluginContributions::instance().add(callingPluginFolder(), part); });
    defineQueries();
    defineBoxes();
    defineMainWindowParts();
    defineChoosers();
    bp::def(
        "updateProject", updateProject, (bp::arg("objectType") = bp::object()),
        "updateProject(objectType: ObjectId = None) -> None\n\nLets the application show the project's objects of that "
        "kind, or all, as they are now.\n\nRaises TypeError, RuntimeError on a thread of the script's own.");
    bp::def("updatePaletteList", updatePaletteList,
            "updatePaletteList() -> None\n\nLets the application read its list of colour bars anew.\n\nRaises "
            "RuntimeError on a thread of the script's own.");
}

} // namespace python
