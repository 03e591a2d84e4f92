#include "runtime/StreamCaptureBinding.h"

#include "host/services/HVEventBus.h"
#include "host/services/WriteAll.h"
#include "runtime/Errors.h"
#include "runtime/ForkedChild.h"
#include "runtime/GilLock.h"
#include "runtime/Ref.h"

#include <boost/python.hpp>
#include <boost/python/stl_iterator.hpp>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace bp = boost::python;

namespace python {

namespace {

/// The objects that Python holds; borrowed, they live as long as the class in `__main__`.
PyObject* g_outputObject = nullptr;
PyObject* g_errorObject = nullptr;

int levelOf(PyObject* self)
{
    if (self == g_outputObject)
        return static_cast<int>(MessageLevel::StandardOutput);
    if (self == g_errorObject)
        return static_cast<int>(MessageLevel::StandardError);
    const HVPythonStreamCapture& capture = bp::extract<HVPythonStreamCapture&>(self);
    return static_cast<int>(capture.isStdout ? MessageLevel::StandardOutput : MessageLevel::StandardError);
}

int fileNumber(int level)
{
    return level == static_cast<int>(MessageLevel::StandardOutput) ? STDOUT_FILENO : STDERR_FILENO;
}

int send(int level, std::string_view utf8)
{
    // Of a forked child: the messages end in a window of the parent.
    if (ForkedChild::isHere())
        return hv::writeAll(fileNumber(level), utf8);
    HVEventBus& bus = HVEventBus::instance();
    if (!bus.mayBlock())
        return bus.sendUtf8(level, utf8, false);
    // The reader at the other end of a pipe may need the lock before it reads on.
    const GilRelease unlocked;
    return bus.sendUtf8(level, utf8, false);
}

/// None, or null with an OSError pending when the text is lost (a full disk, a pipe without a reader).
PyObject* post(int level, std::string_view utf8)
{
    errno = send(level, utf8);
    if (errno != 0)
        return PyErr_SetFromErrno(PyExc_OSError);
    Py_RETURN_NONE;
}

/// A plain METH_O function: `print` calls it twice a line, and the class's own call path costs as much as the rest.
PyObject* write(PyObject* self, PyObject* text)
{
    if (!PyUnicode_Check(text))
        return PyErr_Format(PyExc_TypeError, "write() argument must be str, not %.200s", typeName(text));
    Py_ssize_t size = 0;
    if (const char* utf8 = PyUnicode_AsUTF8AndSize(text, &size))
        return post(levelOf(self), {utf8, static_cast<std::size_t>(size)});
    // Lone surrogates have no UTF-8 form; they are shown escaped rather than lost.
    PyErr_Clear();
    const Ref escaped = Ref::steal(PyUnicode_AsEncodedString(text, "utf-8", "backslashreplace"));
    if (!escaped)
        return nullptr;
    return post(levelOf(self),
                {PyBytes_AS_STRING(escaped.get()), static_cast<std::size_t>(PyBytes_GET_SIZE(escaped.get()))});
}

PyMethodDef g_write = {"write", write, METH_O,
                       "write(text: str) -> None\n\nPosts the text to the message window, exactly as it is.\n\n"
                       "Raises TypeError when text is not a str, and under strativo run OSError when it can not be\n"
                       "written. Lone surrogates are shown as escapes."};

void doNothing(const HVPythonStreamCapture& /*capture*/) {}

bool always(const HVPythonStreamCapture& /*capture*/)
{
    return true;
}

bool never(const HVPythonStreamCapture& /*capture*/)
{
    return false;
}

int fileno(const bp::object& self)
{
    const int file = fileNumber(levelOf(self.ptr()));
    if (::fcntl(file, F_GETFD) < 0) {
        PyErr_SetFromErrno(PyExc_OSError);
        raisePending();
    }
    return file;
}

std::string encoding(const HVPythonStreamCapture& /*capture*/)
{
    return "utf-8";
}

std::string errors(const HVPythonStreamCapture& /*capture*/)
{
    return "backslashreplace";
}

void writeLines(const bp::object& self, const bp::object& lines)
{
    for (bp::stl_input_iterator<bp::object> line(lines), end; line != end; ++line)
        owned(write(self.ptr(), line->ptr()));
}

bp::object enter(const bp::object& self)
{
    return self;
}

bool leave(const HVPythonStreamCapture& /*capture*/, const bp::object& /*type*/, const bp::object& /*value*/,
           const bp::object& /*traceback*/)
{
    return false;
}

void restoreLostStream(const char* name, PyObject* capture)
{
    PyObject* current = PySys_GetObject(name);
    if (capture && (!current || current == Py_None))
        PySys_SetObject(name, capture);
}

} // namespace

void installStreamCapture(PyObject* mainModule, HVPythonStreamCapture& standardOutput,
                          HVPythonStreamCapture& standardError)
{
    const bp::object main{bp::handle<>(bp::borrowed(mainModule))};
    const bp::scope inMain(main);
    bp::class_<HVPythonStreamCapture, boost::noncopyable> captureClass(
        "__HVPythonStreamCapture",
        "Stands in for sys.stdout and sys.stderr: what is written appears in the message window.", bp::no_init);
    captureClass.def("flush", doNothing, bp::args("self"), "flush() -> None\n\nDoes nothing; nothing is held back.")
        .def("isatty", never, bp::args("self"), "isatty() -> bool\n\nAlways False.");
    // What programs that take sys.stdout for an ordinary file expect beyond that.
    captureClass
        .def("writelines", writeLines, bp::args("self", "lines"),
             "writelines(lines: Iterable[str]) -> None\n\nWrites each text; adds no line ends.")
        .def("close", doNothing, bp::args("self"), "close() -> None\n\nDoes nothing; the message window stays.")
        .def("writable", always, bp::args("self"), "writable() -> bool\n\nAlways True.")
        .def("readable", never, bp::args("self"), "readable() -> bool\n\nAlways False.")
        .def("seekable", never, bp::args("self"), "seekable() -> bool\n\nAlways False.")
        .def("fileno", fileno, bp::args("self"),
             "fileno() -> int\n\nThe process's own file of that kind, for programs that write by number "
             "(faulthandler, child processes); the message window does not show it.\n\nRaises OSError when the process "
             "has none.")
        .def("__enter__", enter, bp::args("self"))
        .def("__exit__", leave, bp::args("self", "type", "value", "traceback"))
        .add_property("closed", never, "Always False.")
        .add_property("encoding", encoding, "The text encoding, always 'utf-8'.")
        .add_property("errors", errors, "What becomes of text without a UTF-8 form: 'backslashreplace'.");
    captureClass.attr("write") =
        owned(PyDescr_NewMethod(reinterpret_cast<PyTypeObject*>(captureClass.ptr()), &g_write));

    const bp::object output{bp::ptr(&standardOutput)};
    const bp::object error{bp::ptr(&standardError)};
    g_outputObject = output.ptr();
    g_errorObject = error.ptr();
    // Kept for the interpreter's life, so that a script that replaces sys.stdout does not destroy them.
    bp::incref(g_outputObject);
    bp::incref(g_errorObject);
    bp::object sys = bp::import("sys");
    sys.attr("stdout") = output;
    sys.attr("stderr") = error;
}

void restoreLostStreams()
{
    restoreLostStream("stdout", g_outputObject);
    restoreLostStream("stderr", g_errorObject);
}

} // namespace python
