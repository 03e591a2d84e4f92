#include "module/Bindings.h"
#include "module/gui/MimeContent.h"
#include "runtime/Errors.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

template <std::optional<QString> MimeContent::*member>
bp::object textOf(const MimeContent& self)
{
    return textObject((self.*member).value_or(QString()));
}

template <std::optional<QString> MimeContent::*member>
bool hasText(const MimeContent& self)
{
    return (self.*member).has_value();
}

void setText(MimeContent& self, const bp::object& text)
{
    self.text = requireStr(text, "MimeData.text, expected 'str' but got '%s'");
}
void setHtml(MimeContent& self, const bp::object& html)
{
    self.html = requireStr(html, "MimeData.html, expected 'str' but got '%s'");
}

bool hasObjects(const MimeContent& self)
{
    return !self.objects.empty();
}
bp::list objectFilenames(const MimeContent& self)
{
    bp::list names;
    for (const MimeContent::Object& object : self.objects)
        names.append(textObject(object.filename));
    return names;
}
bp::list objectIds(const MimeContent& self)
{
    bp::list kinds;
    for (const MimeContent::Object& object : self.objects)
        kinds.append(object.kind);
    return kinds;
}

} // namespace

void bindMimeData()
{
    bp::class_<MimeContent>("MimeData",
                            "What is dragged: text, or objects of the project browser. A copy, which stays as it is "
                            "when the drag is over.",
                            bp::init<>("__init__() -> None\n\nNothing."))
        .add_property("text", textOf<&MimeContent::text>, setText,
                      "str: The plain text, or the addresses of dragged files; empty when there is none.")
        .add_property("html", textOf<&MimeContent::html>, setHtml,
                      "str: The text with its formatting, as HTML; empty when there is none.")
        .add_property("hasText", hasText<&MimeContent::text>, "bool: True when there is plain text. Read-only.")
        .add_property("hasHtml", hasText<&MimeContent::html>, "bool: True when there is HTML. Read-only.")
        .add_property("hasObjects", hasObjects, "bool: True when objects of the project are dragged. Read-only.")
        .add_property("objectFilenames", objectFilenames,
                      "list[str]: The files of the dragged objects, absolute paths. Read-only.")
        .add_property("objectIds", objectIds,
                      "list[ObjectId]: The kinds of the dragged objects, in the order of objectFilenames. Read-only.");
}

} // namespace python
