#include "runtime/ScriptCompiler.h"

#include "runtime/Ref.h"

namespace python {

namespace {

/// A null character would end the text early for the compiler, which would then run half of the script.
bool refuseNullCharacters(const QString& code, const QByteArray& fileName)
{
    const int position = code.indexOf(QChar(0));
    if (position < 0)
        return false;
    const int line = code.leftRef(position).count(QLatin1Char('\n')) + 1;
    const Ref arguments = Ref::steal(Py_BuildValue("(s(Niiz))", "source code cannot contain null characters",
                                                   PyUnicode_DecodeFSDefault(fileName.constData()), line, 1,
                                                   static_cast<const char*>(nullptr)));
    if (arguments)
        PyErr_SetObject(PyExc_SyntaxError, arguments.get());
    return true;
}

} // namespace

PyObject* compileScript(const QString& code, const QString& fileName)
{
    const QByteArray file = fileName.toLocal8Bit();
    if (refuseNullCharacters(code, file))
        return nullptr;
    // The text is handed over as UTF-8, whatever encoding a coding comment names for the file.
    PyCompilerFlags flags = {PyCF_IGNORE_COOKIE, PY_MINOR_VERSION};
    return Py_CompileStringExFlags(code.toUtf8().constData(), file.constData(), Py_file_input, &flags, -1);
}

} // namespace python
