#include "module/Bindings.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QFontDatabase>
#include <QTextEdit>

namespace python {

namespace {

/// For reports and settings rather than letters: plain text in letters of one width.
class QTextEditIndirect : public Indirect<QTextEdit>
{
public:
    QTextEditIndirect()
    {
        setAcceptRichText(false);
        setLineWrapMode(QTextEdit::NoWrap);
        setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
};

using PyTextEdit = Wrapper<QTextEditIndirect>;

constexpr ConstructorArguments g_arguments = {{"text", "text"}, {"parent", "parentWidget"}};

PyGetSetDef g_properties[] = {
    property<&QTextEdit::toPlainText, &QTextEdit::setPlainText>("text", "str: The text, lines separated by '\\n'."),
    property<&QTextEdit::isReadOnly, &QTextEdit::setReadOnly>("readOnly",
                                                              "bool: Whether the user can only look and copy."),
    property<&QTextEdit::placeholderText, &QTextEdit::setPlaceholderText>("placeholderText",
                                                                          "str: What an empty field shows."),
};

} // namespace

void bindTextEdit()
{
    bindBase<QTextEdit>("_QTextEdit", "What text fields of many lines have.");
    installProperties<QTextEdit>(g_properties);
    bindPublic<QTextEdit>("TextEdit",
                          "TextEdit(text: str = '', parent: Widget = None, **properties)\n\nA field for text "
                          "of many lines, shown in letters of one width.");
    bindConstructor<PyTextEdit, g_arguments>(
        "__init__(text: str = '', parent: Widget = None, **properties) -> None\n\nA text field.");
}

} // namespace python
