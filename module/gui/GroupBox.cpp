#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QGroupBox>

namespace bp = boost::python;

namespace python {

namespace {

using QGroupBoxIndirect = Indirect<QGroupBox>;
using PyGroupBox = Wrapper<QGroupBoxIndirect>;

constexpr ConstructorArguments g_arguments = {{"title", "title"}, {"parent", "parentWidget"}};

void setTitleAlignment(QGroupBox& box, Qt::Alignment alignment)
{
    box.setAlignment(static_cast<int>(alignment));
}

PyGetSetDef g_properties[] = {
    property<&QGroupBox::title, &QGroupBox::setTitle>("title", "str: The text in the frame."),
    property<&QGroupBox::alignment, setTitleAlignment>("titleAlignment",
                                                       "Align: Where the title stands: Left, HCenter or Right."),
    property<&QGroupBox::isCheckable, &QGroupBox::setCheckable>(
        "checkable", "bool: Whether the title has a check box, which switches what is inside on and off."),
    property<&QGroupBox::isChecked, &QGroupBox::setChecked>("checked", "bool: Whether the check box is on."),
};

void toggled(const Handle<QGroupBox>& handle, const bp::object& callable)
{
    connectValue<bool>(handle.get(), &QGroupBox::toggled, callable, "GroupBox.toggled()");
}

} // namespace

void bindGroupBox()
{
    bindBase<QGroupBox>("_QGroupBox", "What frames with a title have.")
        .def("toggled", toggled, bp::args("self", "callable"),
             "toggled(callable: Callable[[bool], object]) -> None\n\nCalls `callable` with the new state of the check "
             "box in the title.\n\nRaises TypeError for what can not be called.");
    installProperties<QGroupBox>(g_properties);
    bindPublic<QGroupBox>("GroupBox",
                          "GroupBox(title: str = '', parent: Widget = None, **properties)\n\nA frame with a "
                          "title around widgets that belong together.");
    bindConstructor<PyGroupBox, g_arguments>(
        "__init__(title: str = '', parent: Widget = None, **properties) -> None\n\nAn empty frame.");
}

} // namespace python
