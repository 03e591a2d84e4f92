#include "editor/debugger/CodeMarks.h"

#include "runtime/PendingError.h"
#include "runtime/PythonPaths.h"

#include <QFileInfo>

namespace debugger {

using python::Ref;

namespace {

void freeMarks(void* marks)
{
    delete static_cast<CodeMarks*>(marks);
}

Py_ssize_t extraIndex()
{
    static const Py_ssize_t index = _PyEval_RequestCodeExtraIndex(freeMarks);
    return index;
}

/// The lines for which the interpreter reports an event, as far as they are in `wanted`.
std::vector<int> linesWithin(PyCodeObject* code, const std::set<int>& wanted)
{
    std::vector<int> lines;
    const Ref ranges = Ref::steal(PyObject_CallMethod(reinterpret_cast<PyObject*>(code), "co_lines", nullptr));
    if (!ranges)
        return lines;
    while (const Ref range = Ref::steal(PyIter_Next(ranges.get()))) {
        PyObject* number = PyTuple_GET_ITEM(range.get(), 2);
        if (number != Py_None) {
            const int line = static_cast<int>(PyLong_AsLong(number));
            if (wanted.count(line) != 0)
                lines.push_back(line);
        }
    }
    return lines;
}

void fill(CodeMarks& marks, PyCodeObject* code, const Breakpoints& breakpoints)
{
    const python::PendingError pending; // whoever asks may be about to throw one into a generator
    marks.stops.clear();
    marks.firstLine = 0;
    marks.generation = breakpoints.generation();
    const std::optional<QString> file = fileOf(code);
    marks.ownCode = file && !isShipped(*file);
    if (!file)
        return;
    const std::set<int> wanted = breakpoints.linesOf(*file);
    const std::vector<int> lines = wanted.empty() ? std::vector<int>() : linesWithin(code, wanted);
    PyErr_Clear();
    if (lines.empty())
        return;
    const auto [first, last] = std::minmax_element(lines.begin(), lines.end());
    marks.firstLine = *first;
    marks.stops.assign(static_cast<std::size_t>(*last - *first) + 1, 0);
    for (const int line : lines)
        marks.stops[static_cast<std::size_t>(line - *first)] = 1;
}

CodeMarks* makeMarks(PyCodeObject* code)
{
    auto* marks = new CodeMarks;
    if (_PyCode_SetExtra(reinterpret_cast<PyObject*>(code), extraIndex(), marks) == 0)
        return marks;
    PyErr_Clear();
    delete marks;
    return nullptr;
}

} // namespace

const CodeMarks& marksOf(PyCodeObject* code, const Breakpoints& breakpoints)
{
    static const CodeMarks none;
    void* known = nullptr;
    _PyCode_GetExtra(reinterpret_cast<PyObject*>(code), extraIndex(), &known);
    auto* marks = static_cast<CodeMarks*>(known);
    if (marks && marks->generation == breakpoints.generation())
        return *marks;
    if (!marks) {
        const python::PendingError pending; // whoever asks may be about to throw one into a generator
        marks = makeMarks(code);
    }
    if (!marks)
        return none;
    fill(*marks, code, breakpoints);
    return *marks;
}

std::optional<QString> fileOf(PyCodeObject* code)
{
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_AsUTF8AndSize(code->co_filename, &size);
    if (!utf8) {
        PyErr_Clear();
        return std::nullopt;
    }
    return QString::fromUtf8(utf8, static_cast<int>(size));
}

bool isShipped(const QString& codeFile)
{
    static const QString tree =
        QFileInfo(QString::fromStdWString(python::utils::ConstructPythonExecutablePath())).path() + QLatin1Char('/');
    return codeFile.startsWith(tree) || codeFile.startsWith(QLatin1String("<frozen ")) ||
           codeFile.startsWith(QLatin1String("python36.zip/"));
}

} // namespace debugger
