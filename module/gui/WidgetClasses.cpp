#include "module/gui/WidgetClasses.h"

#include <QHash>

namespace bp = boost::python;

namespace python {

namespace {

using Wrap = bp::object (*)(QWidget*);

QHash<const QMetaObject*, Wrap>& wrappings()
{
    static QHash<const QMetaObject*, Wrap> all;
    return all;
}

} // namespace

void registerWrapping(const QMetaObject& widgetClass, Wrap wrap)
{
    wrappings().insert(&widgetClass, wrap);
}

bp::object wrapWidget(QWidget* widget)
{
    if (!widget)
        return {};
    const QMetaObject* candidate = widget->metaObject();
    while (candidate && !wrappings().contains(candidate))
        candidate = candidate->superClass();
    return candidate ? wrappings().value(candidate)(widget) : bp::object();
}

} // namespace python
