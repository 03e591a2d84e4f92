#include "host/services/IAppWrapper.h"
#include "host/widgets/HVPluginContributions.h"
#include "module/Conversion.h"
#include "module/app/ApplicationFunctions.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Widgets.h"
#include "plugins/PluginContext.h"
#include "runtime/Errors.h"

#include <QMenuBar>

namespace bp = boost::python;

namespace python {

namespace {

const char* const g_reservedMenus[] = {"File",   "Edit", "View",       "Modules",        "Tools",
                                       "Window", "Help", "Extensions", "Recent Projects"};

constexpr const char* g_queryRefused = "'%s' is a reserved menu name and cannot be removed or queried";
constexpr const char* g_removalRefused = "'%s' is a reserved menu name and can not be removed";

QMenuBar* menuBar()
{
    // menuBar() would make one.
    QMainWindow* window = applicationWindow();
    return window ? qobject_cast<QMenuBar*>(window->menuWidget()) : nullptr;
}

/// The first top-level menu of that title which is not the application's own, or null; a reserved title raises
/// RuntimeError.
QMenu* findMenu(const QString& title, const char* refusal)
{
    for (const char* reserved : g_reservedMenus)
        if (title == QLatin1String(reserved))
            raise(PyExc_RuntimeError, refusal, reserved);
    if (QMenuBar* bar = menuBar())
        for (QAction* action : bar->actions())
            if (action->menu() && action->menu()->title() == title && !hv::isOwnPartName(action->menu()->objectName()))
                return action->menu();
    return nullptr;
}

/// Null for the name of what is the application's own, which scripts do not see.
QToolBar* findToolBar(const QMainWindow& window, const QString& name)
{
    // A null or empty name would find tool bars of any or of no name.
    if (name.isEmpty() || hv::isOwnPartName(name))
        return nullptr;
    return window.findChild<QToolBar*>(name, Qt::FindDirectChildrenOnly);
}

} // namespace

bp::object addMainWindowMenu(const bp::object& title)
{
    requirePlugin("addMainWindowMenu() can only be executed from the context of a plugin");
    const QString text = Argument<QString>::from(title.ptr(), "addMainWindowMenu()");
    QMenu* menu = findMenu(text, g_queryRefused);
    QMenuBar* bar = menuBar();
    if (!menu && !bar)
        return {};
    if (!menu) {
        menu = bar->addMenu(text);
        menu->setToolTipsVisible(true);
        noteContribution(menu);
    } else if (HVPluginContributions::instance().contains(menu)) {
        // A menu that another plug-in made lasts as long as both.
        noteContribution(menu);
    }
    return wrapObject<MenuHandle>(menu);
}

bp::object getMainWindowMenu(const bp::object& title)
{
    const QString text = Argument<QString>::from(title.ptr(), "getMainWindowMenu()");
    return wrapObject<MenuHandle>(findMenu(text, g_queryRefused));
}

bool removeMainWindowMenu(const bp::object& title)
{
    requirePlugin("removeMainWindowMenu() can only be executed from the context of a plugin");
    const QString text = Argument<QString>::from(title.ptr(), "removeMainWindowMenu()");
    QMenu* menu = findMenu(text, g_removalRefused);
    if (!menu)
        return false;
    menuBar()->removeAction(menu->menuAction());
    menu->deleteLater();
    HVPluginContributions::instance().forget(menu);
    return true;
}

bp::object addMainWindowToolBar(const bp::object& name)
{
    requirePlugin("addMainWindowToolBar() can only be executed from the context of a plugin");
    const QString text = Argument<QString>::from(name.ptr(), "addMainWindowToolBar()");
    if (text.isEmpty())
        raise(PyExc_ValueError, "addMainWindowToolBar(), the name must not be empty");
    if (hv::isOwnPartName(text))
        raise(PyExc_ValueError, "addMainWindowToolBar(), names that begin with '%s' are the application's own",
              hv::g_ownPartPrefix);
    QMainWindow* window = applicationWindow();
    if (!window)
        return {};
    if (findToolBar(*window, text))
        raise(PyExc_RuntimeError, "Toolbar already exists: %s", text.toUtf8().constData());
    QToolBar* bar = window->addToolBar(text);
    bar->setObjectName(text);
    noteContribution(bar);
    return wrapObject<ToolBarHandle>(bar);
}

bool removeMainWindowToolBar(const bp::object& name)
{
    requirePlugin("removeMainWindowToolBar() can only be executed from the context of a plugin");
    const QString text = Argument<QString>::from(name.ptr(), "removeMainWindowToolBar()");
    QMainWindow* window = applicationWindow();
    QToolBar* bar = window ? findToolBar(*window, text) : nullptr;
    if (!bar)
        return false;
    window->removeToolBar(bar);
    // Without its name it is not found again before the event loop destroys it.
    bar->setObjectName(QString());
    bar->deleteLater();
    HVPluginContributions::instance().forget(bar);
    return true;
}

bp::object addSubWindow(const bp::object& widget)
{
    constexpr const char* function = "addSubWindow()";
    QWidget& content = requireWidget(widget, {"addSubWindow(), expected type 'Widget' but got 'NoneType' instead",
                                              "addSubWindow(), expected type 'Widget' but got '%s' instead"});
    if (&content == applicationWindow())
        raise(PyExc_RuntimeError, "MainWindow, illegal method call");
    // A widget that is a document already stays the document that it is.
    auto* window = qobject_cast<QMdiSubWindow*>(content.parentWidget());
    IAppWrapper* app = applicationInterface();
    if (!window)
        requireFree(content, nullptr, function);
    if (!window && app)
        window = app->addSubWindow(&content);
    if (!window)
        raise(PyExc_RuntimeError, "%s, the application has no document area", function);
    noteContribution(window);
    return wrapObject<SubWindowHandle>(window);
}

} // namespace python
