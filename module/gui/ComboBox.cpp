#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"
#include "runtime/VariantConversion.h"

#include <QComboBox>
#include <QStandardItemModel>

namespace bp = boost::python;

namespace python {

namespace {

using QComboBoxIndirect = Indirect<QComboBox>;
using PyComboBox = Wrapper<QComboBoxIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

/// An argument's own code may change the box, so the count is asked for after it.
int requireItem(const Handle<QComboBox>& handle, const bp::object& index, const char* where, int beyond = 0)
{
    const long long position =
        requirePosition(index, (std::string(where) + ", expected 'int' but got '%s' instead").c_str());
    return requireInside(position, handle.get().count() + beyond, where);
}

/// A box that lists what another part of the application has would ignore it without a word. `method` is its name with
/// brackets.
QComboBox& withOwnItems(const Handle<QComboBox>& handle, const char* method)
{
    QComboBox& box = handle.get();
    if (!qobject_cast<QStandardItemModel*>(box.model()))
        raise(PyExc_RuntimeError, "%s, the items of this box can not be changed", method);
    return box;
}

void setCurrentIndex(QComboBox& box, int index)
{
    if (index != -1)
        requireInside(index, box.count(), "ComboBox.currentIndex");
    box.setCurrentIndex(index);
}

/// Qt ignores a text that is not among the items.
void setCurrentText(QComboBox& box, const QString& text)
{
    if (!box.isEditable() && box.findText(text) < 0)
        raise(PyExc_ValueError, "ComboBox.currentText, item '%s' not found", text.toUtf8().constData());
    box.setCurrentText(text);
}

/// None for an item without data, or for no item.
bp::object dataObject(const QVariant& data)
{
    return data.isValid() ? owned(variantToPython(data)) : bp::object();
}

bp::object currentData(QComboBox& box)
{
    return dataObject(box.currentData());
}

PyGetSetDef g_properties[] = {
    property<&QComboBox::currentText, setCurrentText>(
        "currentText", "str: The text of the chosen item, or what the user has typed into an editable box. Setting it "
                       "chooses the first item with the text; ValueError when there is none, unless the box is "
                       "editable."),
    property<&QComboBox::currentIndex, setCurrentIndex>(
        "currentIndex", "int: The number of the chosen item, counted from 0; -1 for none."),
    readOnly<currentData>("currentData", "int | float | str | None: What the chosen item has as its userData; None for "
                                         "nothing."),
    readOnly<&QComboBox::count>("count", "int: The number of items."),
    property<&QComboBox::isEditable, &QComboBox::setEditable>(
        "editable", "bool: Whether the user can also type. Return adds what was typed as an item."),
    property<&QComboBox::sizeAdjustPolicy, &QComboBox::setSizeAdjustPolicy>(
        "sizeAdjustPolicy", "ComboBoxSizePolicy: How the box finds its width."),
    property<&QComboBox::minimumContentsLength, &QComboBox::setMinimumContentsLength>(
        "minimumContentsLength", "int: Letters that the box has room for at least."),
    property<&QComboBox::iconSize, &QComboBox::setIconSize>("iconSize",
                                                            "Size: The size of the items' icons in pixels."),
};

struct ItemMessages
{
    const char* text;
    const char* icon;
    const char* userData; // the percent sign stands in the message
};

constexpr ItemMessages g_addItem = {"ComboBox.addItem(), expected 'str' but got '%s' instead", "ComboBox.addItem()",
                                    "ComboBox.addItem(), conversion to 'userData' not supported for type '%'"};
constexpr ItemMessages g_insertItem = {"ComboBox.insertItem(), expected 'str' but got '%s' instead",
                                       "ComboBox.insertItem()",
                                       "ComboBox.insertItem(), conversion to 'userData' not supported for type '%'"};

struct Item
{
    QString text;
    QIcon icon;
    QVariant data;
};

/// Reads all arguments before the box is looked at: reporting a str that can not be read closes windows.
Item readItem(const bp::object& text, const bp::object& icon, const bp::object& userData, const ItemMessages& messages)
{
    Item item{requireStr(text, messages.text), Argument<QIcon>::from(icon.ptr(), messages.icon), {}};
    if (userData.is_none())
        return item;
    if (!isVariantType(userData.ptr()))
        raise(PyExc_TypeError, "%s", messages.userData);
    item.data = variantFromPython(userData.ptr());
    return item;
}

void addItem(const Handle<QComboBox>& handle, const bp::object& text, const bp::object& icon,
             const bp::object& userData)
{
    const Item item = readItem(text, icon, userData, g_addItem);
    withOwnItems(handle, "ComboBox.addItem()").addItem(item.icon, item.text, item.data);
}

void insertItem(const Handle<QComboBox>& handle, const bp::object& index, const bp::object& text,
                const bp::object& icon, const bp::object& userData)
{
    const Item item = readItem(text, icon, userData, g_insertItem);
    withOwnItems(handle, "ComboBox.insertItem()");
    const int number = requireItem(handle, index, "ComboBox.insertItem()", 1);
    handle.get().insertItem(number, item.icon, item.text, item.data);
}

void addItems(const Handle<QComboBox>& handle, const bp::object& texts)
{
    withOwnItems(handle, "ComboBox.addItems()");
    if (isStr(texts.ptr())) // its letters would be the items
        raiseWrongType("ComboBox.addItems()", "list", texts.ptr());
    QStringList labels;
    for (bp::stl_input_iterator<bp::object> each(texts), end; each != end; ++each) {
        const bp::object text = *each;
        if (!isStr(text.ptr()))
            raise(PyExc_TypeError, "ComboBox, expected 'str' but got '%s' for element %d of list", typeName(text),
                  labels.size());
        labels.append(requireStr(text, "%s"));
    }
    handle.get().addItems(labels);
}

int index(const Handle<QComboBox>& handle, const bp::object& text)
{
    return handle.get().findText(Argument<QString>::from(text.ptr(), "ComboBox.index()"));
}

void removeItem(const Handle<QComboBox>& handle, const bp::object& index)
{
    withOwnItems(handle, "ComboBox.removeItem()");
    const int number = requireItem(handle, index, "ComboBox.removeItem()");
    handle.get().removeItem(number);
}

bp::object itemTextAt(const Handle<QComboBox>& handle, const bp::object& index)
{
    const int number = requireItem(handle, index, "ComboBox.itemText()");
    return textObject(handle.get().itemText(number));
}

bp::object itemDataAt(const Handle<QComboBox>& handle, const bp::object& index)
{
    const int number = requireItem(handle, index, "ComboBox.itemData()");
    return dataObject(handle.get().itemData(number));
}

void clear(const Handle<QComboBox>& handle)
{
    withOwnItems(handle, "ComboBox.clear()").clear();
}

void selectionChanged(const Handle<QComboBox>& handle, const bp::object& callable)
{
    connectValue<int>(handle.get(), qOverload<int>(&QComboBox::currentIndexChanged), callable,
                      "ComboBox.selectionChanged()");
}

} // namespace

void bindComboBox()
{
    bindBase<QComboBox>("_QComboBox", "What boxes with a list of choices have. Items are counted from 0.")
        .def(
            "addItem", addItem,
            (bp::arg("self"), bp::arg("text"), bp::arg("icon") = bp::object(), bp::arg("userData") = bp::object()),
            "addItem(text: str, icon: Icon = None, userData: int | float | str = None) -> None\n\n"
            "A new item at the end. `userData` comes back from currentData as a plain int, float or str: True as 1, an "
            "enumeration's value as its number. The first item of an empty box becomes the chosen one.\n\nRaises "
            "TypeError, and OverflowError for an int beyond 64 bits.")
        .def("insertItem", insertItem,
             (bp::arg("self"), bp::arg("index"), bp::arg("text"), bp::arg("icon") = bp::object(),
              bp::arg("userData") = bp::object()),
             "insertItem(index: int, text: str, icon: Icon = None, userData: int | float | str = None) -> "
             "None\n\nThe same before the item `index`, or at the end when that is the number of items. The "
             "chosen item stays chosen.\n\nRaises TypeError, OverflowError, and IndexError beyond the end.")
        .def(
            "addItems", addItems, bp::args("self", "texts"),
            "addItems(texts: Iterable[str]) -> None\n\nNew items at the end, in half the time of one by one.\n\nRaises "
            "TypeError, and has added nothing, when one of them is not a str.")
        .def("index", index, bp::args("self", "text"),
             "index(text: str) -> int\n\nThe number of the first item with exactly this text; -1 when there is "
             "none.\n\nRaises TypeError.")
        .def("removeItem", removeItem, bp::args("self", "index"),
             "removeItem(index: int) -> None\n\nTakes an item away. When it was the chosen one, its neighbour "
             "is.\n\nRaises TypeError, and IndexError when there is no such item.")
        .def("itemText", itemTextAt, bp::args("self", "index"),
             "itemText(index: int) -> str\n\nThe text of an item.\n\nRaises TypeError, IndexError.")
        .def("itemData", itemDataAt, bp::args("self", "index"),
             "itemData(index: int) -> int | float | str | None\n\nThe userData of an item; None for nothing.\n\nRaises "
             "TypeError, IndexError.")
        .def("clear", clear, bp::args("self"), "clear() -> None\n\nTakes all items away.")
        .def("selectionChanged", selectionChanged, bp::args("self", "callable"),
             "selectionChanged(callable: Callable[[int], object]) -> None\n\nCalls `callable` with the number of the "
             "chosen item (-1 for none) whenever it changes, by the user or by a script.\n\nRaises TypeError for what "
             "can not be called.");
    installProperties<QComboBox>(g_properties);
    bindPublic<QComboBox>("ComboBox",
                          "ComboBox(parent: Widget = None, **properties)\n\nA box that opens a list to choose from.");
    bindConstructor<PyComboBox, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nA box without items.");
}

} // namespace python
