#pragma once

#include "module/Conversion.h"
#include "module/drawing/GeometryArgument.h"
#include "module/gui/FlagArgument.h"
#include "module/gui/IconHandle.h"

#include <QIcon>
#include <QPoint>
#include <QRect>
#include <QSize>

/// What properties, signals and handlers of widgets have besides the values of module/Conversion.h.
namespace python {

inline PyObject* toPython(const QIcon& icon)
{
    return boost::python::incref(boost::python::object(IconHandle{icon}).ptr());
}
/// The `Align` of that number; a combination is one without a name.
inline PyObject* toPython(Qt::Alignment alignment)
{
    return boost::python::incref(boost::python::object(static_cast<Qt::AlignmentFlag>(int(alignment))).ptr());
}
template <>
struct Argument<Qt::Alignment>
{
    static Qt::Alignment from(PyObject* object, const char* where)
    {
        const boost::python::object flags{boost::python::handle<>(boost::python::borrowed(object))};
        return alignmentArgument(flags, (std::string(where) + ", expected 'Align' but got '%s' instead").c_str());
    }
};

/// None takes an icon away.
template <>
struct Argument<QIcon>
{
    static QIcon from(PyObject* object, const char* where)
    {
        if (object == Py_None)
            return {};
        const boost::python::extract<const IconHandle&> icon(object);
        if (!icon.check())
            raiseWrongType(where, "Icon", object);
        return icon().icon;
    }
};

} // namespace python
