#include "module/Bindings.h"
#include "module/gui/Handles.h"
#include "runtime/Errors.h"

#include <QFontDatabase>

namespace bp = boost::python;

namespace python {

namespace {

std::shared_ptr<TextEditHandle> makeTextEdit()
{
    auto handle = makeOwned<TextEditHandle, QTextEdit>();
    QTextEdit& edit = handle->edit();
    edit.setAcceptRichText(false);
    edit.setLineWrapMode(QTextEdit::NoWrap);
    edit.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return handle;
}

bp::object text(const TextEditHandle& handle)
{
    return unicodeText(handle.edit().toPlainText());
}

void setText(const TextEditHandle& handle, const QString& value)
{
    handle.edit().setPlainText(value);
}

bool readOnly(const TextEditHandle& handle)
{
    return handle.edit().isReadOnly();
}

void setReadOnly(const TextEditHandle& handle, bool value)
{
    handle.edit().setReadOnly(value);
}

} // namespace

void bindTextEdit()
{
    bp::class_<TextEditHandle, bp::bases<WidgetHandle>, std::shared_ptr<TextEditHandle>, boost::noncopyable>(
        "TextEdit", "TextEdit()\n\nA field for text of many lines, shown in letters of one width.", bp::no_init)
        .def("__init__", bp::make_constructor(makeTextEdit), "__init__() -> None\n\nAn empty text field.")
        .add_property("text", text, setText, "str: The text, lines separated by '\\n'.")
        .add_property("readOnly", readOnly, setReadOnly, "bool: Whether the user can only look and copy.");
}

} // namespace python
