#include "module/gui/ObjectChoice.h"

#include "module/PathArgument.h"
#include "module/data/ProjectHandle.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

bp::object kindList(const std::set<ObjectKind>& kinds)
{
    bp::list list;
    for (const ObjectKindInfo& info : objectKinds())
        if (kinds.count(info.kind))
            list.append(info.kind);
    return list;
}

std::set<ObjectKind> kindsArgument(const bp::object& value, const ChoiceTexts& texts)
{
    if (value.is_none())
        return {};
    if (!Py_TYPE(value.ptr())->tp_iter)
        return {requireObjectKind(value, texts.kind)};
    std::set<ObjectKind> kinds;
    for (bp::stl_input_iterator<bp::object> each(value), end; each != end; ++each)
        kinds.insert(requireObjectKind(*each, texts.listedKind));
    if (kinds.empty())
        raise(PyExc_ValueError, "%s.kinds, at least one 'ObjectId' is needed", texts.className);
    return kinds;
}

QString fileArgument(const bp::object& value, const ChoiceTexts& texts)
{
    if (value.is_none())
        return {};
    return Argument<PathText>::from(value.ptr(), (std::string(texts.className) + ".objectFilename").c_str()).text;
}

void raiseNotOffered(const QString& path, const ChoiceTexts& texts)
{
    raise(PyExc_ValueError, "%s.objectFilename, '%s' is not among the objects to choose from", texts.className,
          path.toUtf8().constData());
}

} // namespace python
