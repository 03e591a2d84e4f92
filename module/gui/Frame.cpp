#include "module/Bindings.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QFrame>

namespace python {

namespace {

using QFrameIndirect = Indirect<QFrame>;
using PyFrame = Wrapper<QFrameIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

PyGetSetDef g_properties[] = {
    property<&QFrame::frameShape, &QFrame::setFrameShape>("shape", "FrameShape: What the frame looks like."),
    property<&QFrame::frameShadow, &QFrame::setFrameShadow>("shadow", "FrameShadow: Flat, raised or sunken."),
    property<&QFrame::lineWidth, &QFrame::setLineWidth>("lineWidth", "int: Width of the lines in pixels."),
    property<&QFrame::frameStyle, &QFrame::setFrameStyle>("frameStyle",
                                                          "int: Shape and shadow in one number, `shape | shadow`."),
};

} // namespace

void bindFrame()
{
    bindBase<QFrame>("_QFrame", "What widgets with a frame have.");
    installProperties<QFrame>(g_properties);
    bindPublic<QFrame>("Frame",
                       "Frame(parent: Widget = None, **properties)\n\nA frame around other widgets, or a line.");
    bindConstructor<PyFrame, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nA frame without lines.");
}

} // namespace python
