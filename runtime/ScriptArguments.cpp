#include "runtime/ScriptArguments.h"

#include "runtime/GilLock.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

void setScriptArguments(const QStringList& arguments, const QString& directory, const QString& file)
{
    const GilLock lock;
    bp::list argv;
    for (const QString& argument : arguments)
        argv.append(unicodeText(argument));
    bp::object sys = bp::import("sys");
    sys.attr("argv") = argv;
    sys.attr("path").attr("insert")(0, unicodeText(directory));
    if (!file.isEmpty()) {
        bp::object main = bp::import("__main__");
        main.attr("__file__") = unicodeText(file);
    }
}

} // namespace python
