#include "host/icons/HVIconStore.h"
#include "module/Bindings.h"
#include "module/data/ProjectHandle.h"
#include "module/gui/IconHandle.h"
#include "plugins/PluginContext.h"
#include "runtime/Errors.h"
#include "runtime/GuiThread.h"

#include <boost/python.hpp>

#include <QDir>
#include <QFileInfo>

namespace bp = boost::python;

namespace python {

namespace {

constexpr const char* g_notText = "Icon, expected 'str' but got '%s' instead";

/// Each message holds one "%s" for the file. A folder counts as a file that cannot be read.
std::shared_ptr<IconHandle> iconFromFile(const QString& file, const char* missing, const char* unreadable)
{
    requireWindows();
    const QFileInfo info(file);
    if (!info.exists())
        raise(PyExc_FileNotFoundError, missing, file.toUtf8().constData());
    if (!info.isFile() || !info.isReadable())
        raise(PyExc_PermissionError, unreadable, file.toUtf8().constData());
    return std::make_shared<IconHandle>(IconHandle{QIcon(file)});
}

std::shared_ptr<IconHandle> makeIcon(const bp::object& path)
{
    return iconFromFile(requireStr(path, g_notText), "Icon, file '%s' does not exist",
                        "Icon, file '%s' is not readable");
}

bp::object pluginIcon(const bp::object& path)
{
    const QString folder = callingPluginFolder();
    if (folder.isEmpty())
        return {};
    const QString file = QDir::toNativeSeparators(folder + QDir::separator() + requireStr(path, g_notText));
    return bp::object(iconFromFile(file, "Icon.getPluginIcon(), plugin icon file does not exist: %s",
                                   "Icon.getPluginIcon(), unable to read plugin file %s, no read access"));
}

std::shared_ptr<IconHandle> builtinIcon(const bp::object& name)
{
    const QString wanted = requireStr(name, g_notText);
    requireWindows();
    const QIcon icon = HVIconStore::icon(wanted);
    if (icon.isNull())
        raise(PyExc_RuntimeError, "Icon.getBuiltinIcon(), requested icon '%s' not found", wanted.toUtf8().constData());
    return std::make_shared<IconHandle>(IconHandle{icon});
}

bp::object kindIcon(const QString& name)
{
    requireWindows();
    return bp::object(std::make_shared<IconHandle>(IconHandle{HVIconStore::icon(name)}));
}

} // namespace

void bindIcon()
{
    setIconMaker(kindIcon);
    bp::class_<IconHandle, std::shared_ptr<IconHandle>>(
        "Icon", "Icon(path: str)\n\nA small picture for commands and windows, from an image file.", bp::no_init)
        .def("__init__", bp::make_constructor(makeIcon, bp::default_call_policies(), bp::arg("path")),
             "__init__(path: str) -> None\n\nReads the image file when the icon is first shown.\n\nRaises TypeError, "
             "FileNotFoundError, PermissionError.")
        .def("getPluginIcon", pluginIcon, bp::args("path"),
             "getPluginIcon(path: str) -> Icon | None\n\nThe icon in a file of the calling plug-in's folder; None "
             "outside a plug-in.\n\nRaises TypeError, FileNotFoundError, PermissionError.")
        .staticmethod("getPluginIcon")
        .def("getBuiltinIcon", builtinIcon, bp::args("name"),
             "getBuiltinIcon(name: str) -> Icon\n\nAn icon of the application by its name.\n\nRaises TypeError, and "
             "RuntimeError when there is no such icon.")
        .staticmethod("getBuiltinIcon");
}

} // namespace python
