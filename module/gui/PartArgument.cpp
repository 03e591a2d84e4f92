#include "module/gui/PartArgument.h"

#include "module/gui/Arranging.h"
#include "module/gui/LayoutParts.h"
#include "module/gui/WidgetPeer.h"
#include "module/gui/Widgets.h"
#include "runtime/Errors.h"

#include <QScrollArea>
#include <QSplitter>

namespace bp = boost::python;

namespace python {

namespace {

QScrollArea* scrollAreaOf(const QWidget& widget)
{
    const QWidget* viewport = widget.parentWidget();
    auto* area = viewport ? qobject_cast<QScrollArea*>(viewport->parentWidget()) : nullptr;
    return area && area->widget() == &widget ? area : nullptr;
}

bool isPlaced(QWidget& widget)
{
    return isInLayout(widget) || scrollAreaOf(widget) || qobject_cast<QSplitter*>(widget.parentWidget());
}

} // namespace

void requireMovable(QWidget& widget, const char* method)
{
    const bool isMainWindow = qobject_cast<QMainWindow*>(&widget) != nullptr;
    if (dynamic_cast<WidgetPeer*>(&widget) || !(isMainWindow || widget.parentWidget()))
        return;
    if (qobject_cast<QMainWindow*>(widget.window()))
        raise(PyExc_RuntimeError, "MainWindow, illegal method call");
    raise(PyExc_RuntimeError, "%s, the widget is a fixed part of another one", method);
}

void requireOutside(const QWidget& part, const QWidget* place, const char* method)
{
    for (const QObject* outer = place; outer; outer = outer->parent())
        if (outer == &part)
            raise(PyExc_ValueError, "%s, a widget can not be inside itself", method);
}

void leaveScreen(QWidget& part)
{
    if (!part.isVisible())
        return;
    part.hide();
    part.setAttribute(Qt::WA_WState_ExplicitShowHide, false); // the new place shows it again
}

void requireMove(QWidget& part, const QWidget* place, const char* method)
{
    requireMovable(part, method);
    requireSettled(part, method);
    requireOutside(part, place, method);
    if (!part.isVisible())
        return;
    leaveScreen(part);
    requireSettled(part, method);
    requireOutside(part, place, method);
}

void requireFree(QWidget& part, const QWidget* place, const char* method)
{
    const auto checkPlace = [&] {
        if (isPlaced(part))
            raise(PyExc_ValueError, "%s, supplied 'Widget' is already in a layout or container", method);
    };
    checkPlace();
    requireMove(part, place, method);
    checkPlace();
}

QWidget& requirePart(const bp::object& argument, const QWidget* place, const char* method)
{
    QWidget& part = requireWidget(argument, method);
    requireFree(part, place, method);
    return part;
}

void handBack(QWidget* widget, const char* method)
{
    if (!widget)
        return;
    requireSettled(*widget, method);
    const RemovalScope removal(widget->parentWidget());
    // A scroll area would go on arranging what is no longer in it.
    if (QScrollArea* area = scrollAreaOf(*widget))
        area->takeWidget();
    if (widget->parentWidget())
        widget->setParent(nullptr);
}

} // namespace python
