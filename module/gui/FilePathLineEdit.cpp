#include "host/widgets/HVFilePathLineEdit.h"
#include "module/Bindings.h"
#include "module/PathArgument.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

namespace bp = boost::python;

namespace python {

namespace {

using HVFilePathLineEditIndirect = Indirect<HVFilePathLineEdit>;
using PyFilePathLineEdit = Wrapper<HVFilePathLineEditIndirect>;

constexpr ConstructorArguments g_arguments = {{"path", "path"}, {"parent", "parentWidget"}};

void setPath(HVFilePathLineEdit& field, const PathText& path)
{
    field.setPath(path.text);
}

PyGetSetDef g_properties[] = {
    property<&HVFilePathLineEdit::path, setPath>(
        "path", "str: The path of the file, with '/' between folders on every system; empty for none. It need not "
                "exist. An os.PathLike can be set as well. Spaces and quotes around a path are taken off, a leading "
                "'~' and a file: address are resolved."),
    property<&HVFilePathLineEdit::placeholderText, &HVFilePathLineEdit::setPlaceholderText>(
        "placeholderText", "str: What an empty field shows."),
    property<&HVFilePathLineEdit::fileFilter, &HVFilePathLineEdit::setFileFilter>(
        "fileFilter", "str: Which files the chooser shows, 'SEG-Y files (*.sgy *.segy);;All files (*)'; empty for "
                      "all."),
    property<&HVFilePathLineEdit::dialogTitle, &HVFilePathLineEdit::setDialogTitle>(
        "dialogTitle", "str: The title of the chooser; empty for the usual one."),
    property<&HVFilePathLineEdit::dialogType, &HVFilePathLineEdit::setDialogType>(
        "dialogType", "FileDialogType: Open chooses a file that exists. Save chooses any, asks before one is replaced "
                      "and completes the suffix from the filter."),
};

void pathChanged(const Handle<HVFilePathLineEdit>& handle, const bp::object& callable)
{
    connectValue<const QString&>(handle.get(), &HVFilePathLineEdit::pathChanged, callable,
                                 "FilePathLineEdit.pathChanged()");
}

void browse(const Handle<HVFilePathLineEdit>& handle)
{
    handle.get().browse();
}

} // namespace

void bindFilePathLineEdit()
{
    bindBase<HVFilePathLineEdit>("_HVFilePathLineEdit", "What fields for the path of a file have.")
        .def("browse", browse, bp::args("self"),
             "browse() -> None\n\nOpens the chooser, as the button does, and does not wait for the answer.")
        .def("pathChanged", pathChanged, bp::args("self", "callable"),
             "pathChanged(callable: Callable[[str], object]) -> None\n\nCalls `callable` with the new path whenever it "
             "changes: when the user presses Return, leaves the field, chooses or drops a file, or a script sets it; "
             "not with each letter.\n\nRaises TypeError for what can not be called.");
    installProperties<HVFilePathLineEdit>(g_properties);
    bindPublic<HVFilePathLineEdit>(
        "FilePathLineEdit",
        "FilePathLineEdit(path: str | os.PathLike = '', parent: Widget = None, **properties)\n\nA field for the "
        "path of a file, with a button that opens a file chooser. Files can be dragged onto it.");
    bindConstructor<PyFilePathLineEdit, g_arguments>("__init__(path: str | os.PathLike = '', parent: Widget = None, "
                                                     "**properties) -> None\n\nA field; fileFilter and the other "
                                                     "properties go by name.");
}

} // namespace python
