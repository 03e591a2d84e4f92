#include "editor/CompletionEngine.h"

#include "host/services/HVUserData.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/PendingError.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QFile>
#include <QTextStream>

#include <chrono>
#include <mutex>
#include <thread>

namespace bp = boost::python;

namespace editor {

using python::Ref;

namespace {

constexpr char g_resource[] = ":/resources/JediAutoComplete.py";
constexpr char g_moduleName[] = "JediAutoComplete.py";
/// An abandoned computation inside compiled code cannot be ended; others give up waiting for it.
constexpr std::chrono::seconds g_patience(10);

std::timed_mutex& turn()
{
    static std::timed_mutex mutex;
    return mutex;
}

QByteArray moduleSource()
{
    QFile file(QString::fromLatin1(g_resource));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    stream.setAutoDetectUnicode(true);
    return stream.readAll().toUtf8();
}

/// The module speaks to the jedi of old; newer ones call the method otherwise. jedi's cache on disk belongs to the
/// user's data of this application.
void prepareJedi()
{
    const bp::object jedi = bp::import("jedi");
    bp::object interpreter = jedi.attr("Interpreter");
    if (!PyObject_HasAttrString(interpreter.ptr(), "completions"))
        interpreter.attr("completions") = interpreter.attr("complete");
    bp::object settings = jedi.attr("settings");
    settings.attr("cache_directory") = python::unicodeText(hv::userDataDirectory() + QStringLiteral("/cache/jedi"));
}

} // namespace

CompletionEngine::CompletionEngine()
{
    if (!Py_IsInitialized()) {
        m_error = QStringLiteral("There is no interpreter.");
        return;
    }
    const python::GilLock lock;
    // jedi raises the limit for all scripts when it is imported.
    const int recursionLimit = Py_GetRecursionLimit();
    load();
    Py_SetRecursionLimit(recursionLimit);
    if (!isAvailable())
        release();
}

CompletionEngine::~CompletionEngine()
{
    if (!m_module)
        return;
    if (const python::LateGilLock lock; lock)
        release();
}

void CompletionEngine::load()
{
    const QByteArray source = moduleSource();
    if (source.isEmpty()) {
        m_error = QStringLiteral("%1 cannot be read.").arg(QLatin1String(g_resource));
        return;
    }
    const Ref code = Ref::steal(Py_CompileStringExFlags(source.constData(), g_resource, Py_file_input, nullptr, -1));
    m_module = code ? PyImport_ExecCodeModuleEx(g_moduleName, code.get(), g_resource) : nullptr;
    if (!m_module)
        return keepError();
    Ref function = Ref::steal(PyObject_GetAttrString(m_module, "autoComplete"));
    if (!function || !PyCallable_Check(function.get()))
        return keepError();
    try {
        prepareJedi();
        m_function = function.release();
    } catch (const bp::error_already_set&) {
        keepError();
    }
}

void CompletionEngine::keepError()
{
    python::PendingError error;
    const Ref text = Ref::steal(error ? PyObject_Str(error.value()) : nullptr);
    if (!text || !python::textFromPython(text.get(), m_error))
        m_error = QStringLiteral("autoComplete is missing.");
    error.drop();
    PyErr_Clear();
}

void CompletionEngine::release()
{
    Ref::steal(m_function.exchange(nullptr));
    Ref::steal(std::exchange(m_module, nullptr));
}

QStringList CompletionEngine::complete(const QString& text)
{
    QStringList names;
    if (!isAvailable() || text.isEmpty())
        return names;
    const std::unique_lock onlyOne(turn(), g_patience);
    if (!onlyOne)
        return names;
    const python::GilLock lock;
    m_running->thread = PyThread_get_thread_ident();
    const QByteArray utf8 = text.toUtf8();
    const Ref argument = Ref::steal(PyUnicode_FromStringAndSize(utf8.constData(), utf8.size()));
    const Ref answer = Ref::steal(argument ? PyObject_CallOneArg(m_function.load(), argument.get()) : nullptr);
    PyObject* result = answer.get();
    m_running->thread = 0;
    if (!result) {
        keepError();
        Ref::steal(m_function.exchange(nullptr));
        return names;
    }
    if (PyList_Check(result))
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(result); ++i) {
            QString name;
            if (PyUnicode_Check(PyList_GET_ITEM(result, i)) && python::textFromPython(PyList_GET_ITEM(result, i), name))
                names.append(name);
        }
    PyErr_Clear();
    return names;
}

void CompletionEngine::interrupt()
{
    if (!Py_IsInitialized())
        return;
    std::thread([running = m_running] {
        const python::GilLock lock;
        if (running->thread != 0)
            PyThreadState_SetAsyncExc(running->thread, PyExc_KeyboardInterrupt);
    }).detach();
}

void CompletionEngine::warmUp()
{
    static std::once_flag once;
    std::call_once(once, [] {
        std::thread([] {
            CompletionEngine engine;
            engine.complete(QStringLiteral("import os, strativo_python\nos.pa"));
        }).detach();
    });
}

} // namespace editor
