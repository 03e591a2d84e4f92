#include "module/gui/LayoutParts.h"

#include "module/gui/Arranging.h"
#include "module/gui/Collection.h"
#include "module/gui/PartArgument.h"
#include "runtime/Errors.h"

#include <QAbstractScrollArea>
#include <QHash>
#include <QLabel>
#include <QPointer>
#include <QSplitter>
#include <QTabWidget>

#include <vector>

namespace bp = boost::python;

namespace python {

namespace {

class WaitingWidget;

QHash<const QWidget*, WaitingWidget*>& waitingWidgets()
{
    static QHash<const QWidget*, WaitingWidget*> all;
    return all;
}

void takeOut(QLayout& layout, QWidget& widget)
{
    if (layout.menuBar() == &widget)
        layout.setMenuBar(nullptr);
    else
        layout.removeWidget(&widget);
}

/// A widget in a layout that is in no window yet; a child of the layout. What the script made stays alive for the
/// layout; `isLayoutsOwn` is for what it did not make.
class WaitingWidget final : public QObject
{
public:
    WaitingWidget(QLayout& layout, QWidget& widget, bool isLayoutsOwn)
        : QObject(&layout), m_key(&widget), m_widget(&widget), m_isLayoutsOwn(isLayoutsOwn)
    {
        waitingWidgets().insert(m_key, this);
        connect(&widget, &QObject::destroyed, this, [this, &layout, &widget] {
            takeOut(layout, widget);
            delete this;
        });
    }
    ~WaitingWidget() override
    {
        setParent(nullptr); // what is let go may take the layout with it
        waitingWidgets().remove(m_key);
        if (m_widget)
            m_widget->disconnect(this);
        if (m_isLayoutsOwn && m_widget && !m_widget->parentWidget())
            delete m_widget;
    }

private:
    const QWidget* m_key;
    QPointer<QWidget> m_widget;
    bool m_isLayoutsOwn;
};

/// Calls `see` for every widget in the layout and those inside it.
template <typename See>
void seeWidgets(QLayout& layout, const See& see)
{
    if (QWidget* bar = layout.menuBar())
        see(*bar);
    for (int index = 0; QLayoutItem* item = layout.itemAt(index); ++index) {
        if (QWidget* widget = item->widget())
            see(*widget);
        else if (item->layout())
            seeWidgets(*item->layout(), see);
    }
}

void updateKeeping(QLayout& layout)
{
    if (auto* peer = dynamic_cast<ObjectPeer*>(&layout))
        peer->updateKeeping();
}

/// The layout in an argument, which is in use nowhere.
QLayout& requireFreeLayout(const bp::object& argument, const char* expected, const char* method)
{
    const bp::extract<const LayoutHandle&> handle(argument);
    if (!handle.check())
        raise(PyExc_TypeError, "%s, expected %s but got '%s' instead", method, expected, typeName(argument));
    QLayout& layout = handle().layout();
    if (layout.parent())
        raise(PyExc_ValueError, "%s, supplied 'Layout' is already in a widget or layout", method);
    return layout;
}

void requireAllOutside(QLayout& layout, const QWidget* place, const char* method)
{
    if (place)
        seeWidgets(layout, [&](const QWidget& widget) { requireOutside(widget, place, method); });
}

/// Hides what is in the layout, see leaveScreen() of one widget. True when handlers have run.
bool hideParts(QLayout& layout)
{
    std::vector<QPointer<QWidget>> shown;
    seeWidgets(layout, [&](QWidget& widget) {
        if (widget.isVisible())
            shown.emplace_back(&widget);
    });
    for (const QPointer<QWidget>& widget : shown)
        if (widget)
            leaveScreen(*widget);
    return !shown.empty();
}

bool arrangesItself(const QWidget& widget)
{
    return qobject_cast<const QAbstractScrollArea*>(&widget) || qobject_cast<const QSplitter*>(&widget) ||
           qobject_cast<const QTabWidget*>(&widget);
}

} // namespace

void endWaiting(QLayout& layout)
{
    // What goes may take others with it.
    const QObjectList all = layout.children();
    const QVector<QPointer<QObject>> children(all.begin(), all.end());
    for (const QPointer<QObject>& child : children) {
        if (auto* waiting = dynamic_cast<WaitingWidget*>(child.data()))
            delete waiting;
        else if (auto* inner = qobject_cast<QLayout*>(child.data()))
            endWaiting(*inner);
    }
}

bool isInLayout(QWidget& widget)
{
    if (waitingWidgets().contains(&widget))
        return true;
    const QWidget* parent = widget.parentWidget();
    if (!parent || !parent->layout())
        return false;
    bool found = false;
    seeWidgets(*parent->layout(), [&](const QWidget& other) { found = found || &other == &widget; });
    return found;
}

void joinWidget(QLayout& layout, QWidget& widget, const bp::object& object)
{
    if (!layout.parentWidget())
        new HeldReference(new WaitingWidget(layout, widget, false), SharedReference(object));
}

void joinLayout(QLayout& outer, QLayout& inner)
{
    updateKeeping(inner);
    if (outer.parentWidget())
        endWaiting(inner);
}

void leaveLayout(QLayout& layout, QWidget& widget, const char* method)
{
    requireSettled(widget, method);
    takeOut(layout, widget);
    if (layout.parentWidget() == widget.parentWidget())
        handBack(&widget, method);
    delete waitingWidgets().value(&widget);
}

QLayout& requireInnerLayout(const bp::object& argument, const QLayout& outer, const char* method)
{
    const auto check = [&]() -> QLayout& {
        QLayout& inner = requireFreeLayout(argument, "'Layout'", method);
        for (const QObject* place = &outer; place; place = place->parent())
            if (place == &inner)
                raise(PyExc_ValueError, "%s, a layout can not be inside itself", method);
        requireAllOutside(inner, outer.parentWidget(), method);
        return inner;
    };
    QLayout& inner = check();
    return outer.parentWidget() && hideParts(inner) ? check() : inner;
}

QLabel* makeLabel(QLayout& layout, const QString& text)
{
    if (layout.parentWidget())
        return new QLabel(text, layout.parentWidget());
    auto* label = new QLabel(text);
    new WaitingWidget(layout, *label, true);
    return label;
}

bp::object layoutObject(QLayout* layout)
{
    PyObject* known = layout ? ObjectHandle::known(layout) : nullptr;
    return known ? bp::object(bp::handle<>(bp::borrowed(known))) : bp::object();
}

bp::object widgetLayout(QWidget& widget)
{
    return layoutObject(widget.layout());
}

void setWidgetLayout(QWidget& widget, const bp::object& argument, const char* method)
{
    const auto check = [&]() -> QLayout& {
        if (bp::extract<const LayoutHandle&>(argument).check() && widget.layout())
            raise(PyExc_RuntimeError, "%s, the widget already has a layout", method);
        QLayout& layout = requireFreeLayout(argument, "type 'Layout'", method);
        if (arrangesItself(widget))
            raise(PyExc_RuntimeError, "%s, the widget arranges its parts itself", method);
        requireMovable(widget, method);
        requireAllOutside(layout, &widget, method);
        return layout;
    };
    QLayout& layout = check();
    if (hideParts(layout))
        check();
    widget.setLayout(&layout);
    updateKeeping(layout);
    endWaiting(layout);
}

} // namespace python
